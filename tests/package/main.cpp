// A field made from the installed package checks a text by its rules, and its page frame is at hand.
#include "pages/FieldPages.h"
#include "pages/PropertyPageFrame.h"
#include "qt/QuillmarEdit.h"

#include <QApplication>
#include <QMetaEnum>

#include <cstdio>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    quillmar::qt::QuillmarEdit field;
    field.SetLocaleName(QStringLiteral("en_US"));
    field.SetMustBeType(quillmar::vldInteger);
    field.SetMaxValue(500);
    field.SetText(QStringLiteral("250"));
    const bool valid = field.IsValid();
    field.SetText(QStringLiteral("501"));
    const bool tooLarge = field.CheckInput() == quillmar::vldCCMaxValue;
    const QString type = field.property("MustBeType").toString();
    quillmar::pages::PropertyPageFrame frame;
    quillmar::pages::AddFieldPages(frame);
    if (!valid || !tooLarge || type != QStringLiteral("vldInteger") || frame.PageCount() != 5) {
        std::fprintf(stderr, "quillmar package: valid %d, too large %d, type %s, pages %d\n", valid, tooLarge,
            qPrintable(type), frame.PageCount());
        return 1;
    }
    std::puts("quillmar package: the field checks its text");
    return 0;
}
