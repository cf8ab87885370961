// The cost of a keystroke in the Qt widget against a plain QLineEdit with a validator: the same 256-key
// script (four characters typed, four backspaces, 32 times) goes into each, offscreen, in the same run.
// Prints the microseconds per key of each (the least of its repetitions) and the field's ratio to the plain
// line edit.
#include "qt/QuillmarEdit.h"

#include <QApplication>
#include <QIntValidator>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace {

using namespace quillmar;
using quillmar::qt::QuillmarEdit;

constexpr int kKeysPerScript = 256;

struct Key {
    Qt::Key key;
    QString text;
};

// Four characters of `typed` and four backspaces, repeated to 256 keys: the text ends empty, as it began.
std::vector<Key> Script(const QString& typed) {
    std::vector<Key> keys;
    while (keys.size() < kKeysPerScript) {
        for (const QChar c : typed)
            keys.push_back({ static_cast<Qt::Key>(c.toUpper().unicode()), QString(c) });
        for (qsizetype i = 0; i < typed.size(); ++i)
            keys.push_back({ Qt::Key_Backspace, QString() });
    }
    return keys;
}

// Nanoseconds per key of each case: the least its repetitions measured, so that a moment's load on the
// machine does not make one case look dearer than the case it is compared with.
std::map<std::string, double>& Measured() {
    static std::map<std::string, double> measured;
    return measured;
}

// A window holding the edit under test, shown and focused as a form's field is while typed in.
struct Window {
    explicit Window(QWidget* field) {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(field);
        window.show();
        QApplication::setActiveWindow(&window);
        field->setFocus(Qt::OtherFocusReason);
        QApplication::processEvents();
    }
    QWidget window;
};

void TypeScript(benchmark::State& state, const std::string& name, QWidget* box, const std::vector<Key>& keys,
    QLineEdit* edit) {
    auto started = std::chrono::steady_clock::now();
    for (auto _ : state) {
        for (const Key& key : keys) {
            QKeyEvent press(QEvent::KeyPress, key.key, Qt::NoModifier, key.text);
            QApplication::sendEvent(box, &press);
            QKeyEvent release(QEvent::KeyRelease, key.key, Qt::NoModifier, key.text);
            QApplication::sendEvent(box, &release);
        }
    }
    const std::chrono::duration<double, std::nano> elapsed = std::chrono::steady_clock::now() - started;
    if (!edit->text().isEmpty()) state.SkipWithError("the script did not end with an empty text");
    const auto keysTyped = static_cast<double>(state.iterations()) * kKeysPerScript;
    // The first runs, of a few scripts, only find how many make a measurement.
    if (state.iterations() >= 10) {
        const double perKey = elapsed.count() / keysTyped;
        const auto [found, fresh] = Measured().try_emplace(name, perKey);
        if (!fresh) found->second = std::min(found->second, perKey);
    }
    state.SetItemsProcessed(static_cast<int64_t>(keysTyped));
}

void Field(benchmark::State& state, int32_t type, InputSiftingConstants sifting) {
    auto* field = new QuillmarEdit;
    field->SetLocaleName(QStringLiteral("en_US"));
    field->SetBeepHandler([&state] { state.SkipWithError("a key was refused"); });
    field->SetMustBeType(type);
    if (type == vldString) field->SetOnlyLetters(true);
    field->SetInputSifting(sifting);
    // As a form with every hint on has it: the placeholder and undo are always there.
    field->SetShowRefusalTips(true);
    field->SetShowInlineState(true);
    Window window(field);
    const std::string name
        = std::string(type == vldString ? "text" : "integer") + (sifting == vldStrong ? " strong" : " weak");
    TypeScript(
        state, name, field->lineEdit(), Script(type == vldString ? "abcd" : "1234"), field->lineEdit());
}

void PlainLineEdit(benchmark::State& state, bool integer) {
    auto* edit = new QLineEdit;
    if (integer)
        edit->setValidator(new QIntValidator(edit));
    else
        edit->setValidator(
            new QRegularExpressionValidator(QRegularExpression(QStringLiteral("\\p{L}*")), edit));
    Window window(edit);
    TypeScript(
        state, integer ? "plain integer" : "plain text", edit, Script(integer ? "1234" : "abcd"), edit);
}

constexpr int kRepetitions = 5;
BENCHMARK_CAPTURE(PlainLineEdit, Integer, true)->Repetitions(kRepetitions);
BENCHMARK_CAPTURE(Field, IntegerWeak, vldInteger, vldWeak)->Repetitions(kRepetitions);
BENCHMARK_CAPTURE(Field, IntegerStrong, vldInteger, vldStrong)->Repetitions(kRepetitions);
BENCHMARK_CAPTURE(PlainLineEdit, Text, false)->Repetitions(kRepetitions);
BENCHMARK_CAPTURE(Field, TextWeak, vldString, vldWeak)->Repetitions(kRepetitions);
BENCHMARK_CAPTURE(Field, TextStrong, vldString, vldStrong)->Repetitions(kRepetitions);

void PrintRatios() {
    const auto& m = Measured();
    std::printf("\n%-16s %12s %12s\n", "field", "us per key", "ratio");
    for (const char* name : { "integer weak", "integer strong", "text weak", "text strong" }) {
        const std::string plain = std::string("plain ") + (name[0] == 'i' ? "integer" : "text");
        if (!m.contains(name) || !m.contains(plain)) continue;
        std::printf("%-16s %12.2f %12.2f\n", name, m.at(name) / 1000, m.at(name) / m.at(plain));
    }
    for (const char* plain : { "plain integer", "plain text" })
        if (m.contains(plain)) std::printf("%-16s %12.2f\n", plain, m.at(plain) / 1000);
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    // The cases' repetitions take turns in a random order, so that a slow spell of a shared machine falls on
    // all of them alike instead of on the one that happened to run then; a flag given on the command line,
    // which comes later, still decides.
    std::vector<char*> args(argv, argv + argc);
    char interleave[] = "--benchmark_enable_random_interleaving=true";
    args.insert(args.begin() + 1, interleave);
    int count = static_cast<int>(args.size());
    benchmark::Initialize(&count, args.data());
    if (benchmark::ReportUnrecognizedArguments(count, args.data())) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    PrintRatios();
    return 0;
}
