// The cost of one run of the rule checker: on the text of an everyday numeric field, and on a 64 KiB text
// with every character rule switched on (the checker must stay linear in the text's length).
#include "validation/Rules.h"

#include <benchmark/benchmark.h>

namespace {

using namespace quillmar;

void NumericField(benchmark::State& state) {
    Settings settings;
    settings.MustBeType = vldDouble;
    settings.ThousandSeparator = vldTSAllowed;
    settings.MustBePositive = true;
    settings.MinValue = 0.0;
    settings.MaxValue = 1e9;
    settings.MaxNumberOfDecimals = 4;
    settings.MustNotBeValues = { {}, u"13", u"666" };
    const LocaleInfo locale = LocaleInfo::FromName("en_US");
    const std::u16string text = u"123,456,789.12345678"; // 20 characters
    for (auto _ : state)
        benchmark::DoNotOptimize(EvaluateRules(text, settings, locale, 0));
}
BENCHMARK(NumericField);

void LongTextEveryCharacterRule(benchmark::State& state) {
    Settings settings;
    settings.MustBeType = vldString;
    settings.CustomMask = u"*a*b*";
    settings.MustBeLowerCase = true;
    settings.ValidCharactersSet = u"abcdefghijklmnopqrstuvwxyz ";
    settings.ExtraExcludedCharacters = u"#$%";
    settings.ExtraIncludedCharacters = u"-";
    settings.OnlyLettersWithSpace = true;
    settings.MustNotBeValues = { {}, u"admin", u"root" };
    const LocaleInfo locale = LocaleInfo::FromName("en_US");
    std::u16string text;
    while (text.size() < static_cast<size_t>(state.range(0)))
        text += u"lorem ipsum dolor-sit amet ";
    text.resize(static_cast<size_t>(state.range(0)));
    text.back() = u'b';
    for (auto _ : state)
        benchmark::DoNotOptimize(EvaluateRules(text, settings, locale, 0));
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * state.range(0) * 2);
}
BENCHMARK(LongTextEveryCharacterRule)->Arg(20)->Arg(1024)->Arg(65536);

} // namespace

BENCHMARK_MAIN();
