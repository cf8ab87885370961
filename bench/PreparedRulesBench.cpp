// The interactive rule checker and the prepared one side by side: on the 20-character text of an everyday
// numeric field, and on long texts with every character rule switched on (bytes per second are UTF-16).
#include "validation/PreparedRules.h"
#include "validation/Rules.h"

#include <benchmark/benchmark.h>

namespace {

using namespace quillmar;

Settings NumericSettings() {
    Settings settings;
    settings.MustBeType = vldDouble;
    settings.ThousandSeparator = vldTSAllowed;
    settings.MustBePositive = true;
    settings.MinValue = 0.0;
    settings.MaxValue = 1e9;
    settings.MaxNumberOfDecimals = 4;
    settings.MustNotBeValues = { {}, u"13", u"666" };
    return settings;
}

const std::u16string kNumericText = u"123,456,789.12345678"; // 20 characters

void NumericFieldEvaluateRules(benchmark::State& state) {
    const Settings settings = NumericSettings();
    const LocaleInfo locale = LocaleInfo::FromName("en_US");
    for (auto _ : state)
        benchmark::DoNotOptimize(EvaluateRules(kNumericText, settings, locale, 0));
}
BENCHMARK(NumericFieldEvaluateRules);

void NumericFieldPrepared(benchmark::State& state) {
    const PreparedRules rules(NumericSettings(), LocaleInfo::FromName("en_US"), 0);
    if (rules.Evaluate(kNumericText) != EvaluateRules(kNumericText, NumericSettings(), rules.locale(), 0))
        state.SkipWithError("the prepared checker disagrees");
    for (auto _ : state)
        benchmark::DoNotOptimize(rules.Evaluate(kNumericText));
}
BENCHMARK(NumericFieldPrepared);

Settings TextSettings() {
    Settings settings;
    settings.MustBeType = vldString;
    settings.CustomMask = u"*a*b*";
    settings.MustBeLowerCase = true;
    settings.ValidCharactersSet = u"abcdefghijklmnopqrstuvwxyz ";
    settings.ExtraExcludedCharacters = u"#$%";
    settings.ExtraIncludedCharacters = u"-";
    settings.OnlyLettersWithSpace = true;
    settings.MustNotBeValues = { {}, u"admin", u"root" };
    return settings;
}

std::u16string LongText(int64_t length) {
    std::u16string text;
    while (text.size() < static_cast<size_t>(length))
        text += u"lorem ipsum dolor-sit amet ";
    text.resize(static_cast<size_t>(length));
    text.back() = u'b';
    return text;
}

void LongTextEvaluateRules(benchmark::State& state) {
    const Settings settings = TextSettings();
    const LocaleInfo locale = LocaleInfo::FromName("en_US");
    const std::u16string text = LongText(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(EvaluateRules(text, settings, locale, 0));
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * state.range(0) * 2);
}
BENCHMARK(LongTextEvaluateRules)->Arg(20)->Arg(65536);

void LongTextPrepared(benchmark::State& state) {
    const PreparedRules rules(TextSettings(), LocaleInfo::FromName("en_US"), 0);
    const std::u16string text = LongText(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(rules.Evaluate(text));
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * state.range(0) * 2);
}
BENCHMARK(LongTextPrepared)->Arg(20)->Arg(65536);

} // namespace

BENCHMARK_MAIN();
