// quillmar-page-screenshots: opens the property pages on one field of a form file, as a form designer would,
// and saves a picture of each page. The README's pictures of the pages are made with it.
#include "formfile/FormFile.h"
#include "pages/FieldPages.h"
#include "qt/QuillmarEdit.h"

#include <QApplication>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTest>

#include <cstdio>
#include <filesystem>

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: quillmar-page-screenshots FORM FIELD FOLDER\n");
        return 2;
    }
    QApplication app(argc, argv);
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
    edit->SetLocaleName(QStringLiteral("en_US"));
    edit->SetUserMode(false);
    edit->control().ReadProperties(field->properties);

    quillmar::pages::PropertyPageFrame frame;
    frame.SetLocaleName(QStringLiteral("en_US"));
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
