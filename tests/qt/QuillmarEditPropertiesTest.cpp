#include "qt/QtForm.h"
#include "qt/QuillmarEdit.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

#include <memory>

namespace quillmar::qt {
namespace {

// Collects the Qt warnings raised while it lives.
class Warnings {
public:
    Warnings() {
        s_texts.clear();
        s_previous = qInstallMessageHandler(&Collect);
    }
    ~Warnings() { qInstallMessageHandler(s_previous); }
    Warnings(const Warnings&) = delete;
    Warnings& operator=(const Warnings&) = delete;
    [[nodiscard]] const QStringList& Texts() const { return s_texts; }

private:
    static void Collect(QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtWarningMsg) s_texts << text;
    }
    static inline QtMessageHandler s_previous = nullptr;
    static inline QStringList s_texts;
};

// A value the field refuses, written through Qt's property system, leaves the property as it was, raises one
// warning naming the field, the property and the value, and one PropertyRefused; nothing is thrown through
// Qt. An accepted value raises neither.
TEST_F(Form, RefusedPropertyValuesAreReportedNotThrown) {
    struct Row {
        const char* name;
        const char* property;
        QVariant value;
        int error; // 0: accepted
    };
    const Row rows[] = {
        { "a type beyond the enumeration", "MustBeType", 42, 380 },
        { "a sifting below the enumeration", "InputSifting", -1, 380 },
        { "an icon in the enumeration", "MessageBoxIcon", 2, 0 },
        { "the edit box's appearance beyond its enumeration", "Appearance", 7, 380 },
        { "an alignment the edit box lacks", "Alignment", 3, 380 },
        { "the 99 of the mouse pointer", "MousePointer", 99, 0 },
        // The control itself keeps a refused count of decimals.
        { "too many decimals", "MaxNumberOfDecimals", 40, 380 },
        { "decimals in range", "MaxNumberOfDecimals", 3, 0 },
        // The control ignores a limit of another type silently.
        { "a word as an integer's limit", "MinValue", QStringLiteral("abc"), 380 },
        { "a number as an integer's limit", "MaxValue", QStringLiteral("99"), 0 },
        { "a list at run time", "MustNotBeValues", QVariantList { QVariant(), 5 }, 382 },
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        QuillmarEdit* field = AddField("Quantity", vldInteger, vldStrong);
        const std::unique_ptr<QuillmarEdit> owned(field);
        const QVariant before = field->property(row.property);
        QSignalSpy refusals(field, &QuillmarEdit::PropertyRefused);
        Warnings warnings;
        EXPECT_NO_THROW(field->setProperty(row.property, row.value));
        if (row.error == 0) {
            EXPECT_EQ(refusals.count(), 0);
            EXPECT_TRUE(warnings.Texts().isEmpty());
            EXPECT_NE(field->property(row.property), before);
        } else {
            EXPECT_EQ(field->property(row.property), before);
            EXPECT_EQ(refusals.count(), 1);
            EXPECT_EQ(warnings.Texts().size(), 1);
            if (refusals.isEmpty() || warnings.Texts().isEmpty()) continue;
            EXPECT_EQ(refusals[0][0].toString(), QString::fromLatin1(row.property));
            EXPECT_EQ(refusals[0][1], row.value);
            EXPECT_EQ(refusals[0][2].toInt(), row.error);
            const QString& warning = warnings.Texts().front();
            EXPECT_TRUE(warning.contains(QStringLiteral("Quantity"))) << warning.toStdString();
            EXPECT_TRUE(warning.contains(QString::fromLatin1(row.property))) << warning.toStdString();
            EXPECT_TRUE(warning.contains(row.value.toString())) << warning.toStdString();
        }
    }
}

} // namespace
} // namespace quillmar::qt
