#include "qt/QtForm.h"
#include "qt/QuillmarEdit.h"

#include <QDate>
#include <QDateTime>
#include <QFontDatabase>
#include <QImage>
#include <QPushButton>
#include <QSignalSpy>
#include <QTime>

#include <gtest/gtest.h>

#include <ctime>
#include <functional>
#include <memory>
#include <tuple>

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
        { "an icon in the enumeration", "MessageBoxIcon", 2, 0 },
        { "the edit box's appearance beyond its enumeration", "Appearance", 7, 380 },
        { "an alignment the edit box lacks", "Alignment", 3, 380 },
        { "the 99 of the mouse pointer", "MousePointer", 99, 0 },
        // The control itself keeps a refused count of decimals.
        { "too many decimals", "MaxNumberOfDecimals", 40, 380 },
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

// A dialog's OK button follows the field's validity as the user types, and as rules and locale change.
TEST_F(Form, ValidityChangesAreAnnouncedAsTheUserTypes) {
    QuillmarEdit* field = AddField("Quantity", vldDouble, vldWeak);
    field->SetMaxValue(QStringLiteral("100"));
    QPushButton ok(QStringLiteral("OK"));
    ok.setEnabled(field->IsValid());
    std::vector<bool> changes;
    QObject::connect(field, &QuillmarEdit::ValidityChanged, [&](bool valid) {
        changes.push_back(valid);
        ok.setEnabled(valid);
    });
    ShowAndFocus(field);
    QTest::keyClicks(field->lineEdit(), QStringLiteral("25")); // valid all the way
    EXPECT_TRUE(changes.empty());
    QTest::keyClicks(field->lineEdit(), QStringLiteral(".5"));
    EXPECT_TRUE(changes.empty());
    QTest::keyClicks(field->lineEdit(), QStringLiteral("0")); // 25.50 still valid; then 255.50 is not
    QTest::keyClick(field->lineEdit(), Qt::Key_Home);
    QTest::keyClick(field->lineEdit(), Qt::Key_Right);
    QTest::keyClicks(field->lineEdit(), QStringLiteral("5"));
    EXPECT_EQ(changes, std::vector<bool> { false });
    EXPECT_FALSE(ok.isEnabled());
    EXPECT_EQ(field->CurrentErrorMessage(), QStringLiteral("A number <= 100 is required."));
    QTest::keyClick(field->lineEdit(), Qt::Key_Backspace);
    EXPECT_EQ(changes, (std::vector<bool> { false, true }));
    EXPECT_TRUE(field->CurrentErrorMessage().isEmpty());
    field->SetMaxValue(QStringLiteral("20")); // a rule
    field->SetLocaleName(QStringLiteral("de_DE")); // "25.50" is no number there
    field->SetMaxValue(QStringLiteral("30"));
    EXPECT_EQ(changes, (std::vector<bool> { false, true, false }));
    field->SetLocaleName(QStringLiteral("en_US"));
    EXPECT_EQ(changes, (std::vector<bool> { false, true, false, true }));
    EXPECT_TRUE(ok.isEnabled());
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

// A typed text's value comes in the Qt type a developer expects for the field's type, and written back as
// that Qt value it shows the same text.
TEST_F(Form, ValuesComeInTheQtTypeOfTheField) {
    struct Row {
        const char* locale;
        MustBeTypeConstants type;
        const char* typed;
        QVariant value;
    };
    const Row rows[] = {
        { "en_US", vldByte, "200", 200 },
        { "en_US", vldInteger, "-12", -12 },
        { "en_US", vldLong, "123456", 123456 },
        { "en_US", vldDouble, "1.5", 1.5 },
        // Exactly, with a point and without grouping, whatever the locale.
        { "en_US", vldCurrency, "1234.5", QStringLiteral("1234.5") },
        { "de_DE", vldCurrency, "-1234,0001", QStringLiteral("-1234.0001") },
        { "en_US", vldCurrency, "922337203685477", QStringLiteral("922337203685477") },
        { "en_US", vldDate, "12/24/2026", QDate(2026, 12, 24) },
        { "de_DE", vldDate, "24.12.1850", QDate(1850, 12, 24) },
        { "en_US", vldTime, "2:30:15 PM", QTime(14, 30, 15) },
        { "en_US", vldTime, "12:00 AM", QTime(0, 0) },
        { "en_US", vldString, "abc", QStringLiteral("abc") },
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.locale << " " << row.typed);
        QuillmarEdit* field = AddField("Field", row.type, vldNone);
        const std::unique_ptr<QuillmarEdit> owned(field);
        field->SetLocaleName(QString::fromLatin1(row.locale));
        ShowAndFocus(field);
        QTest::keyClicks(field->lineEdit(), QString::fromLatin1(row.typed));
        const QVariant value = field->Value();
        EXPECT_EQ(value.metaType(), row.value.metaType()) << value.typeName();
        EXPECT_EQ(value, row.value) << value.toString().toStdString();
        field->SetText(QString());
        field->SetValue(row.value);
        EXPECT_EQ(field->Value(), row.value) << field->Text().toStdString();
    }
}

// A date-time goes to Qt as the same wall-clock day and time, in local time (here New York's, so that it
// differs from UTC), and comes back as it was.
TEST(QtConversions, DateTimesKeepTheirWallClock) {
    const QByteArray zone = qgetenv("TZ");
    qputenv("TZ", "America/New_York");
    tzset();
    const std::tuple<double, MustBeTypeConstants, QVariant> rows[] = {
        { 46380.5, vldUnspecified, QDateTime(QDate(2026, 12, 24), QTime(12, 0)) },
        { -1.25, vldDate, QDateTime(QDate(1899, 12, 29), QTime(6, 0)) }, // the fraction counts forward
        { 2, vldDate, QDate(1900, 1, 1) },
        { 0.75, vldTime, QTime(18, 0) },
        { 0, vldTime, QTime(0, 0) },
    };
    for (const auto& [days, type, expected] : rows) {
        SCOPED_TRACE(days);
        EXPECT_EQ(ToQVariant(Date { days }, type), expected);
        EXPECT_EQ(FromQVariant(expected, type), Variant(Date { days }));
    }
    if (zone.isNull())
        qunsetenv("TZ");
    else
        qputenv("TZ", zone);
    tzset();
}

// The enumerated writers take their enumeration types, the alignment a Qt alignment, and an int for generic
// callers.
TEST_F(Form, TypedWritersTakeTheirTypes) {
    QuillmarEdit* field = AddField("Field", vldUnspecified, vldNone);
    const std::unique_ptr<QuillmarEdit> owned(field);
    field->SetMustBeType(vldCurrency);
    field->SetInputSifting(vldWeak);
    field->SetBorderStyle(vldNoBorder);
    EXPECT_EQ(field->MustBeType(), vldCurrency);
    EXPECT_EQ(field->InputSifting(), vldWeak);
    EXPECT_EQ(field->BorderStyle(), vldNoBorder);
    const std::tuple<Qt::Alignment, int, Qt::Alignment> alignments[] = {
        { Qt::AlignRight, 1, Qt::AlignRight | Qt::AlignVCenter },
        { Qt::AlignHCenter | Qt::AlignTop, 2, Qt::AlignHCenter | Qt::AlignVCenter },
        { Qt::AlignTrailing, 1, Qt::AlignRight | Qt::AlignVCenter },
        { Qt::AlignLeft, 0, Qt::AlignLeft | Qt::AlignVCenter },
    };
    for (const auto& [given, number, shown] : alignments) {
        SCOPED_TRACE(number);
        field->SetAlignment(given);
        EXPECT_EQ(field->Alignment(), number);
        EXPECT_EQ(field->QtAlignment(), shown);
        EXPECT_EQ(field->lineEdit()->alignment(), shown);
    }
    field->SetAlignment(Qt::AlignRight); // a single flag, not the number 2
    EXPECT_EQ(field->Alignment(), 1);
    field->SetAlignment(2);
    EXPECT_EQ(field->Alignment(), 2);
}

} // namespace
} // namespace quillmar::qt
