// quillmar-forms: opens a form file and lets a person fill it in, every field checking what it must contain.
#include "apps/forms/FormWindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QScreen>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace {

bool HasDisplay() {
    const auto set = [](const char* name) {
        const char* value = std::getenv(name);
        return value && *value;
    };
    return set("QT_QPA_PLATFORM") || set("DISPLAY") || set("WAYLAND_DISPLAY");
}

std::filesystem::path DefaultForm() {
    const std::filesystem::path local = "examples/orders.qform.json";
    if (std::filesystem::exists(local)) return local;
    return std::filesystem::path(QUILLMAR_EXAMPLES_DIR) / "orders.qform.json";
}

} // namespace

int main(int argc, char** argv) {
    if (!HasDisplay()) {
        std::fprintf(stderr,
            "quillmar-forms: no display to show the form on (DISPLAY is not set); run it under a virtual one "
            "with "
            "'xvfb-run -a quillmar-forms', or headless with QT_QPA_PLATFORM=offscreen\n");
        return 2;
    }
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("quillmar-forms"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Runs a Quillmar form file."));
    parser.addHelpOption();
    parser.addPositionalArgument(
        QStringLiteral("form"), QStringLiteral("The form file (the example orders form by default)."));
    const QCommandLineOption screenshot(QStringLiteral("screenshot"),
        QStringLiteral("Shows the form, saves a picture of its window to <file> and quits."),
        QStringLiteral("file"));
    parser.addOption(screenshot);
    parser.process(app);

    const QStringList positional = parser.positionalArguments();
    const std::filesystem::path path
        = positional.isEmpty() ? DefaultForm() : std::filesystem::path(positional.first().toStdString());
    const quillmar::FormResult form = quillmar::LoadFormFile(path);
    if (!form.document) {
        std::fprintf(stderr, "quillmar-forms: %s\n", form.error.c_str());
        return 1;
    }
    quillmar::forms::FormWindow window(*form.document);
    if (const auto error = window.Load(path.string())) {
        std::fprintf(stderr, "quillmar-forms: %s\n", error->c_str());
        return 1;
    }
    window.show();
    if (parser.isSet(screenshot)) {
        QTimer::singleShot(300, &window, [&] {
            const QString file = parser.value(screenshot);
            const bool saved = window.grab().save(file, "PNG");
            if (!saved)
                std::fprintf(stderr, "quillmar-forms: cannot write the picture %s\n", qPrintable(file));
            QApplication::exit(saved ? 0 : 1);
        });
    }
    return QApplication::exec();
}
