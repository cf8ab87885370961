#include "qt/QtForm.h"
#include "qt/QuillmarEdit.h"

#include <QFontDatabase>
#include <QImage>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <functional>
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

// The widget's enabled state and the control's Enabled are one: each writer sets the other, and a disabled
// parent greys the field without changing its own setting.
TEST_F(Form, WidgetAndControlShareTheEnabledState) {
    QuillmarEdit* field = AddField("Quantity", vldInteger, vldStrong);
    QStringList changes;
    QObject::connect(field, &QuillmarEdit::PropertyChanged, [&](const QString& name) { changes << name; });
    ShowAndFocus(field);
    field->setEnabled(false);
    EXPECT_FALSE(field->Enabled());
    EXPECT_EQ(changes, QStringList { QStringLiteral("Enabled") });
    QTest::keyClicks(field->lineEdit(), QStringLiteral("12"));
    EXPECT_EQ(field->Text(), QString());
    field->setEnabled(true);
    EXPECT_TRUE(field->Enabled());
    EXPECT_TRUE(field->lineEdit()->isEnabled());
    field->SetEnabled(false);
    EXPECT_FALSE(field->isEnabled());
    field->SetEnabled(true);
    window.setEnabled(false);
    EXPECT_FALSE(field->isEnabled());
    EXPECT_TRUE(field->Enabled());
    window.setEnabled(true);
    EXPECT_TRUE(field->isEnabled());
    ShowAndFocus(field);
    QTest::keyClicks(field->lineEdit(), QStringLiteral("12"));
    EXPECT_EQ(field->Text(), QStringLiteral("12"));
}

// The colours and the font face, size and style written from code change how the edit box draws, and are
// announced.
TEST_F(Form, ColourAndFontWritersChangeWhatIsDrawn) {
    // A face the system has, other than the one the field starts with.
    QString family;
    for (const QString& candidate : QFontDatabase::families())
        if (QFontDatabase::hasFamily(candidate) && candidate != QApplication::font().family())
            family = candidate;
    ASSERT_FALSE(family.isEmpty());
    struct Row {
        const char* property;
        std::function<void(QuillmarEdit&)> write;
        std::function<bool(QLineEdit&)> drawn;
    };
    const Row rows[] = {
        { "BackColor", [](QuillmarEdit& f) { f.SetBackColor(0x0000FF); },
            [](QLineEdit& e) {
                const QImage image = e.grab().toImage();
                return e.palette().color(QPalette::Base) == QColor(Qt::red)
                    && image.pixelColor(image.width() / 2, image.height() / 2) == QColor(Qt::red);
            } },
        { "ForeColor", [](QuillmarEdit& f) { f.SetForeColor(0xFF0000); },
            [](QLineEdit& e) { return e.palette().color(QPalette::Text) == QColor(Qt::blue); } },
        { "FontName", [&](QuillmarEdit& f) { f.SetFontName(family); },
            [&](QLineEdit& e) { return e.font().family() == family; } },
        { "FontSize", [](QuillmarEdit& f) { f.SetFontSize(20); },
            [](QLineEdit& e) { return e.font().pointSizeF() == 20; } },
        { "FontBold", [](QuillmarEdit& f) { f.SetFontBold(true); },
            [](QLineEdit& e) { return e.font().bold(); } },
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.property);
        QuillmarEdit* field = AddField("Name", vldString, vldNone);
        const std::unique_ptr<QuillmarEdit> owned(field);
        QStringList changes;
        QObject::connect(
            field, &QuillmarEdit::PropertyChanged, [&](const QString& name) { changes << name; });
        EXPECT_FALSE(row.drawn(*field->lineEdit()));
        row.write(*field);
        EXPECT_TRUE(row.drawn(*field->lineEdit()));
        EXPECT_EQ(changes, QStringList { QString::fromLatin1(row.property) });
    }
}

} // namespace
} // namespace quillmar::qt
