// quillmar-page-screenshots: opens the property pages on one field of a form file, as a form designer would,
// and saves a picture of each page, in the language of LOCALE when one is named (en_US by default). The
// README's pictures of the pages are made with it.
#include "formfile/FormFile.h"
#include "i18n/QuillmarTranslations.h"
#include "pages/FieldPages.h"
#include "qt/QuillmarEdit.h"

#include <QApplication>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTest>

#include <cstdio>
#include <filesystem>

int main(int argc, char** argv) {
    if (argc != 4 && argc != 5) {
        std::fprintf(stderr, "usage: quillmar-page-screenshots FORM FIELD FOLDER [LOCALE]\n");
        return 2;
    }
    QApplication app(argc, argv);
    const QString localeName = argc == 5 ? QString::fromLocal8Bit(argv[4]) : QStringLiteral("en_US");
    quillmar::InstallTranslations(QLocale(localeName));
    quillmar::InstallQtTranslation(QLocale(localeName));
    const quillmar::FormResult form = quillmar::LoadFormFile(argv[1]);
    if (!form.document) {
        std::fprintf(stderr, "quillmar-page-screenshots: %s\n", form.error.c_str());
        return 1;
    }
    const std::u16string name = quillmar::qt::FromQString(QString::fromLocal8Bit(argv[2]));
    const quillmar::FormControl* field = nullptr;
    for (const quillmar::FormControl& control : form.document->controls)
        if (control.name == name) field = &control;
    if (!field) {
        std::fprintf(stderr, "quillmar-page-screenshots: %s: no field named %s\n", argv[1], argv[2]);
        return 1;
    }
    QWidget designSurface;
    auto* edit = new quillmar::qt::QuillmarEdit(&designSurface);
    edit->setObjectName(QString::fromLocal8Bit(argv[2]));
    edit->SetLocaleName(localeName);
    edit->SetUserMode(false);
    edit->control().ReadProperties(field->properties);

    quillmar::pages::PropertyPageFrame frame;
    frame.SetLocaleName(localeName);
    quillmar::pages::AddFieldPages(frame);
    frame.SetSelectedControls({ edit });
    frame.show();
    auto* tabs = frame.findChild<QTabWidget*>();
    const std::filesystem::path folder = argv[3];
    for (int i = 0; i < tabs->count(); ++i) {
        tabs->setCurrentIndex(i);
        QTest::qWait(200);
        QString file = tabs->tabText(i).toLower();
        file.replace(QRegularExpression(QStringLiteral("[^a-z]+")), QStringLiteral("-"));
        const QString path = QString::fromStdString((folder / (file.toStdString() + ".png")).string());
        if (!frame.grab().save(path, "PNG")) {
            std::fprintf(stderr, "quillmar-page-screenshots: cannot write %s\n", qPrintable(path));
            return 1;
        }
        std::printf("%s\n", qPrintable(path));
    }
    return 0;
}
