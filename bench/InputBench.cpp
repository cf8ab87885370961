// The cost of one keystroke on a long text: one change repaired under strong sifting, one key sifted under
// weak sifting. The work per keystroke may grow only with the text's length, and at most linearly.
#include "control/Quillmar.h"
#include "host/standalone/StandaloneHost.h"

#include <benchmark/benchmark.h>

namespace {

using namespace quillmar;

// A field holding `length` characters, caret at the end.
struct LongField {
    LongField(int32_t type, InputSiftingConstants sifting, int64_t length) {
        field.SetMustBeType(type);
        std::u16string text;
        if (type == vldString) {
            field.SetMustBeProperCase(true);
            field.SetOnlyLettersWithSpace(true);
            field.SetExtraExcludedCharacters(u"#$%");
            field.SetValidCharactersSet(u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz ");
            while (text.size() < static_cast<size_t>(length))
                text += u"Lorem Ipsum Dolor ";
            text.resize(static_cast<size_t>(length));
        } else {
            field.SetAllowScientificFormat(true);
            text = u"0." + std::u16string(static_cast<size_t>(length - 3), u'0') + u"1";
        }
        field.SetText(text);
        field.SetInputSifting(sifting);
        host.editBox.SetSelStart(static_cast<int32_t>(text.size()));
    }
    standalone::StandaloneHost host { "en_US" };
    Quillmar field { host.Services() };
};

// Each iteration types one character at the end and takes it back: two keystrokes.
void Keystrokes(benchmark::State& state, int32_t type, InputSiftingConstants sifting) {
    LongField f(type, sifting, state.range(0));
    const char16_t key = type == vldString ? u'a' : u'5';
    for (auto _ : state) {
        f.host.editBox.TypeKey(key);
        f.host.editBox.PressBackspace();
    }
    if (f.host.alerts.beeps != 0) state.SkipWithError("a keystroke was refused");
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * 2);
    state.SetLabel("chars per keystroke " + std::to_string(state.range(0)));
}

void StrongChangeText(benchmark::State& state) {
    Keystrokes(state, vldString, vldStrong);
}
void StrongChangeNumber(benchmark::State& state) {
    Keystrokes(state, vldDouble, vldStrong);
}
void WeakKeyText(benchmark::State& state) {
    Keystrokes(state, vldString, vldWeak);
}
void WeakKeyNumber(benchmark::State& state) {
    Keystrokes(state, vldDouble, vldWeak);
}

// A host that follows the user's locale asks for its facts at every use, so at least once per keystroke.
void LocaleLookup(benchmark::State& state) {
    const char* const names[] = { "en_US", "de_DE.UTF-8", "fr_FR" };
    size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(LocaleInfo::FromName(names[i++ % 3]));
}

BENCHMARK(LocaleLookup);
BENCHMARK(StrongChangeText)->Arg(100)->Arg(10000)->Arg(100000);
BENCHMARK(StrongChangeNumber)->Arg(100)->Arg(10000)->Arg(100000);
BENCHMARK(WeakKeyText)->Arg(100)->Arg(10000)->Arg(100000);
BENCHMARK(WeakKeyNumber)->Arg(100)->Arg(10000)->Arg(100000);

} // namespace

BENCHMARK_MAIN();
