// quillmar-forms: opens a form file and lets a person fill it in, every field checking what it must contain,
// and stores each submitted record in an SQLite database beside the form.
#include "apps/forms/DesignWindow.h"
#include "apps/forms/FormWindow.h"
#include "apps/forms/Record.h"
#include "i18n/QuillmarTranslations.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QKeyEvent>
#include <QMessageBox>
#include <QScreen>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

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

// Design mode: the form named (or a new one), optionally with fields selected and the pages open, and
// with --screenshot a picture of the screen area the designer and its pages cover.
int Design(const QCommandLineParser& parser, const QCommandLineOption& screenshot,
    const QCommandLineOption& select, const QCommandLineOption& properties) {
    using quillmar::forms::DesignWindow;
    DesignWindow window;
    const QStringList positional = parser.positionalArguments();
    if (!positional.isEmpty() && !window.OpenForm(positional.first())) return 1;
    QList<int> selected;
    for (const QString& name : parser.values(select)) {
        auto* field = window.Surface()->findChild<quillmar::qt::QuillmarEdit*>(name);
        if (!field) {
            std::fprintf(stderr, "quillmar-forms: --select %s: the form has no field of that name\n",
                qPrintable(name));
            return 1;
        }
        selected << window.Surface()->IdOf(field);
    }
    window.Surface()->Select(selected);
    window.show();
    if (parser.isSet(properties)) window.OpenProperties();
    if (parser.isSet(screenshot)) {
        const QString file = parser.value(screenshot);
        // The pages stand beside the form, below its fields, so that the picture shows the selection too.
        if (QWidget* frame = window.PropertyFrame())
            QTimer::singleShot(200, frame, [&window, frame] {
                window.resize(window.width(), 320 + frame->height() + 16);
                frame->move(window.x() + 150, window.y() + 320);
            });
        QTimer::singleShot(600, &window, [&window, file] {
            QRect area = window.frameGeometry();
            if (QWidget* frame = window.PropertyFrame()) area = area.united(frame->frameGeometry());
            const QPixmap picture = QGuiApplication::primaryScreen()->grabWindow(
                0, area.x(), area.y(), area.width(), area.height());
            const bool saved = picture.save(file, "PNG");
            if (!saved)
                std::fprintf(stderr, "quillmar-forms: cannot write the picture %s\n", qPrintable(file));
            QApplication::exit(saved ? 0 : 1);
        });
    }
    return QApplication::exec();
}

// Types `keys` as a person would, one key press and release each, into `target`.
void TypeKeys(QWidget* target, const QString& keys) {
    for (const QChar c : keys) {
        // Qt names the keys of Latin-1 characters by their upper-case code.
        const int key = c.toUpper().unicode();
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(c));
        QApplication::sendEvent(target, &press);
        QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, QString(c));
        QApplication::sendEvent(target, &release);
    }
}

} // namespace

int main(int argc, char** argv) {
    using quillmar::forms::DefaultDatabasePath;
    using quillmar::forms::UserDataFolder;
    if (!HasDisplay()) {
        std::fprintf(stderr,
            "quillmar-forms: no display to show the form on (DISPLAY is not set); run it under a virtual one "
            "with "
            "'xvfb-run -a quillmar-forms', or headless with QT_QPA_PLATFORM=offscreen\n");
        return 2;
    }
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("quillmar-forms"));
    // The user's language, for the product's texts and for Qt's own (the standard buttons).
    quillmar::InstallTranslations(QLocale());
    quillmar::InstallQtTranslation(QLocale());
    QCommandLineParser parser;
    parser.setApplicationDescription(QCoreApplication::translate(
        "quillmar-forms", "Runs a Quillmar form file, or designs one (--design)."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("form"),
        QCoreApplication::translate("quillmar-forms", "The form file (the example orders form by default)."));
    const QCommandLineOption screenshot(QStringLiteral("screenshot"),
        QCoreApplication::translate(
            "quillmar-forms", "Shows the form, saves a picture of its window to <file> and quits."),
        QStringLiteral("file"));
    const QCommandLineOption database(QStringLiteral("database"),
        QCoreApplication::translate("quillmar-forms",
            "Stores the records in <file> (by default beside the form, named after it: "
            "orders.qform.json stores in orders.sqlite; the example form's in the user's data "
            "folder, $XDG_DATA_HOME/quillmar or ~/.local/share/quillmar)."),
        QStringLiteral("file"));
    const QCommandLineOption fill(QStringLiteral("fill"),
        QCoreApplication::translate("quillmar-forms", "Starts the field <name> with <text> (repeatable)."),
        QStringLiteral("name=text"));
    const QCommandLineOption submit(QStringLiteral("submit"),
        QCoreApplication::translate("quillmar-forms",
            "With --screenshot: submits the form as filled and pictures the box that answers (the "
            "window when the record is stored)."));
    const QCommandLineOption design(QStringLiteral("design"),
        QCoreApplication::translate(
            "quillmar-forms", "Opens the form (a new empty form when none is named) in design mode."));
    const QCommandLineOption select(QStringLiteral("select"),
        QCoreApplication::translate(
            "quillmar-forms", "With --design: selects the field <name> (repeatable)."),
        QStringLiteral("name"));
    const QCommandLineOption properties(QStringLiteral("properties"),
        QCoreApplication::translate(
            "quillmar-forms", "With --design: opens the property pages on the selected fields."));
    const QCommandLineOption type(QStringLiteral("type"),
        QCoreApplication::translate("quillmar-forms",
            "Gives the field <name> the focus and types <keys> into it, as a person would; with "
            "--screenshot the picture is taken of the screen, so that a tip the field shows is in it."),
        QStringLiteral("name=keys"));
    parser.addOptions({ screenshot, database, fill, submit, design, select, properties, type });
    parser.process(app);
    if (parser.isSet(design)) return Design(parser, screenshot, select, properties);

    // The example form lies in the source tree or among the installed files: its records go to the user's
    // data folder instead of beside it.
    const QStringList positional = parser.positionalArguments();
    const std::filesystem::path path
        = positional.isEmpty() ? DefaultForm() : std::filesystem::path(positional.first().toStdString());
    std::filesystem::path databasePath = DefaultDatabasePath(path);
    if (parser.isSet(database)) {
        databasePath = parser.value(database).toStdString();
    } else if (positional.isEmpty()) {
        std::error_code ignored; // a folder that cannot be made is reported with the database
        std::filesystem::create_directories(UserDataFolder(), ignored);
        databasePath = UserDataFolder() / databasePath.filename();
    }
    using quillmar::forms::FormWindow;
    // A scripted picture has no one to answer a box: the line on stderr says it.
    FormWindow::MessageHandler quiet;
    if (parser.isSet(screenshot))
        quiet = [](FormWindow::MessageKind, const QString&, const QString&) { return false; };
    const std::unique_ptr<FormWindow> opened = FormWindow::Open(
        QString::fromStdString(path.string()), QString::fromStdString(databasePath.string()),
        [](const std::string& line) { std::fprintf(stderr, "quillmar-forms: %s\n", line.c_str()); }, quiet);
    if (!opened) return 1;
    FormWindow& window = *opened;
    // A NAME=TEXT option's field and text; no field when the form has none of that name (said on stderr).
    const auto named = [&window](const char* option, const QString& entry) {
        const qsizetype equals = entry.indexOf(QLatin1Char('='));
        auto* field
            = equals < 0 ? nullptr : window.findChild<quillmar::qt::QuillmarEdit*>(entry.left(equals));
        if (!field)
            std::fprintf(stderr, "quillmar-forms: --%s %s: the form has no field of that name\n", option,
                qPrintable(entry));
        return std::pair { field, entry.mid(equals + 1) };
    };
    for (const QString& entry : parser.values(fill)) {
        const auto [field, text] = named("fill", entry);
        if (!field) return 1;
        field->SetText(text);
    }
    QString keys;
    QWidget* typeInto = nullptr;
    if (parser.isSet(type)) {
        const auto [field, text] = named("type", parser.value(type));
        if (!field) return 1;
        // The focus starts there, so that no other field is left (and validated) on the way.
        typeInto = field->lineEdit();
        typeInto->setFocus(Qt::OtherFocusReason);
        keys = text;
    }
    window.show();
    if (typeInto) {
        window.activateWindow(); // a virtual display has no window manager to do it
        QTimer::singleShot(200, typeInto, [typeInto, keys] { TypeKeys(typeInto, keys); });
    }
    if (parser.isSet(screenshot)) {
        const QString file = parser.value(screenshot);
        const bool fromScreen = !keys.isEmpty();
        const auto save = [file, fromScreen](QWidget& widget) {
            // A tip is a window of its own: only a picture of the screen shows it over the form.
            const QRect area = widget.frameGeometry();
            const QPixmap picture = fromScreen ? QGuiApplication::primaryScreen()->grabWindow(
                                        0, area.x(), area.y(), area.width(), area.height())
                                               : widget.grab();
            const bool saved = picture.save(file, "PNG");
            if (!saved)
                std::fprintf(stderr, "quillmar-forms: cannot write the picture %s\n", qPrintable(file));
            QApplication::exit(saved ? 0 : 1);
        };
        if (parser.isSet(submit)) {
            // The box is shown without waiting for it, pictured once drawn, and the program ends.
            window.SetMessageHandler(
                [&window, save](FormWindow::MessageKind kind, const QString& title, const QString& text) {
                    QMessageBox* box = FormWindow::MakeMessageBox(&window, kind, title, text);
                    box->show();
                    QTimer::singleShot(300, box, [box, save] { save(*box); });
                    return false;
                });
            QTimer::singleShot(300, &window, [&window, save] {
                // A stored record answers with no box: the window, its status bar naming the count, is
                // pictured.
                if (window.Submit() == FormWindow::SubmitOutcome::Stored) save(window);
            });
        } else {
            QTimer::singleShot(fromScreen ? 700 : 300, &window, [&window, save] { save(window); });
        }
    }
    return QApplication::exec();
}
