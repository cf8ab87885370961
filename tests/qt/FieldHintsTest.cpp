#include "qt/FieldHints.h"
#include "qt/QtForm.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

#include <vector>

namespace quillmar::qt {
namespace {

// An empty field shows an example of its rules in grey and describes them to assistive technology, following
// later changes of the rules and of the locale; the form's tool tip stays as the form set it.
TEST_F(Form, EmptyFieldShowsItsRulesByExampleAndInWords) {
    const QString year = QString::number(QDate::currentDate().year()).right(2); // the short date
    struct Row {
        int32_t type;
        std::function<void(QuillmarEdit&)> rules;
        const char* locale;
        QString placeholder, description;
    };
    const std::vector<Row> rows {
        { vldInteger,
            [](QuillmarEdit& f) {
                f.SetMinValue(1);
                f.SetMaxValue(100);
            },
            "en_US", QStringLiteral("1 \u2013 100"), QStringLiteral("An integer between 1 and 100") },
        { vldDate, [](QuillmarEdit&) {}, "en_US", QStringLiteral("12/31/") + year, QStringLiteral("A date") },
        { vldDate, [](QuillmarEdit&) {}, "de_DE", QStringLiteral("31.12.") + year, QStringLiteral("A date") },
        { vldString, [](QuillmarEdit& f) { f.SetCustomMask(QStringLiteral("[A-Z][A-Z]-####")); }, "en_US",
            QStringLiteral("AB-1234"), QStringLiteral("Like AB-1234") },
        { vldString, [](QuillmarEdit&) {}, "en_US", QString(), QString() },
    };
    for (const Row& row : rows) {
        QuillmarEdit* field = AddField("Field", row.type, vldWeak);
        field->setToolTip(QStringLiteral("Set by the form"));
        field->SetLocaleName(QStringLiteral("ja_JP")); // the placeholder follows the locale set last
        row.rules(*field);
        field->SetLocaleName(QString::fromLatin1(row.locale));
        EXPECT_EQ(field->lineEdit()->placeholderText(), row.placeholder) << row.locale;
        EXPECT_EQ(field->lineEdit()->accessibleDescription(), row.description);
        EXPECT_EQ(field->toolTip(), QStringLiteral("Set by the form"));
        EXPECT_EQ(field->lineEdit()->toolTip(), QString());
    }
}

// The edit box holds the focus, so assistive technology reads the field's name from it: the name the
// program gave the field, or its buddy label's text; a name given to the edit box itself stays.
TEST_F(Form, TheEditBoxIsNamedAfterTheFieldsLabel) {
    const auto nameRead = [](QWidget* widget) {
        return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
    };
    QuillmarEdit* quantity = AddField("Quantity", vldInteger, vldWeak);
    auto* label = new QLabel(QStringLiteral("&Quantity && price:"), &window);
    label->setBuddy(quantity);
    QuillmarEdit* named = AddField("Named", vldInteger, vldWeak);
    named->setAccessibleName(QStringLiteral("Unit price"));
    QuillmarEdit* own = AddField("Own", vldInteger, vldWeak);
    own->lineEdit()->setAccessibleName(QStringLiteral("Its own"));
    ShowAndFocus(quantity);
    EXPECT_EQ(nameRead(quantity->lineEdit()), QStringLiteral("Quantity & price"));
    // One stop per field: the field around the edit box takes no focus, has no name and says nothing.
    QAccessibleInterface* around = QAccessible::queryAccessibleInterface(quantity);
    EXPECT_FALSE(around->state().focusable);
    EXPECT_TRUE(
        around->text(QAccessible::Name).isEmpty() && around->text(QAccessible::Description).isEmpty());
    QAccessibleInterface* box = QAccessible::queryAccessibleInterface(quantity->lineEdit());
    EXPECT_TRUE(box->state().focusable && box->state().focused);
    EXPECT_EQ(box->role(), QAccessible::EditableText);
    quantity->SetMaxValue(100); // an empty field reads empty, never its grey example
    EXPECT_FALSE(quantity->lineEdit()->placeholderText().isEmpty());
    EXPECT_EQ(box->text(QAccessible::Value), QString());
    EXPECT_EQ(nameRead(named->lineEdit()), QStringLiteral("Unit price"));
    EXPECT_EQ(nameRead(own->lineEdit()), QStringLiteral("Its own"));
}

// With the option on, a refused key or paste (by key, from the menu or dropped) also says why at the caret;
// the beep and the text are as without it, and a key that was not refused (an arrow after a refused key, a
// paste of nothing after a refused paste) brings no tip.
TEST_F(Form, RefusedKeyOrPasteSaysWhyWhenAsked) {
    enum class Via { Key, Menu, Drop };
    struct Row {
        InputSiftingConstants sifting;
        bool tips;
        QString typed, pasted;
        Qt::Key last;
        QString tip, text;
        int beeps;
        Via via = Via::Key;
    };
    const QString digits = QStringLiteral("Only digits can be typed here");
    const QString numbers = QStringLiteral("Numbers here are written like 1234");
    const QString one = QStringLiteral("1");
    const std::vector<Row> rows {
        { vldWeak, true, QStringLiteral("1a"), {}, Qt::Key_unknown, digits, one, 1 },
        { vldWeak, false, QStringLiteral("1a"), {}, Qt::Key_unknown, {}, one, 1 },
        { vldWeak, true, QStringLiteral("1a"), {}, Qt::Key_Left, {}, one, 1 },
        { vldWeak, true, QStringLiteral("1.2"), {}, Qt::Key_unknown, {}, QStringLiteral("1.2"), 0 },
        { vldStrong, true, one, QStringLiteral("x"), Qt::Key_unknown, numbers, one, 1 },
        { vldStrong, false, one, QStringLiteral("x"), Qt::Key_unknown, {}, one, 1 },
        { vldStrong, true, one, QStringLiteral("x"), Qt::Key_V, {}, one, 1 }, // then a paste of nothing
        { vldStrong, true, one, QStringLiteral("x"), Qt::Key_unknown, numbers, one, 1, Via::Menu },
        { vldStrong, true, one, QStringLiteral("x"), Qt::Key_unknown, numbers, one, 1, Via::Drop },
        { vldStrong, false, one, QStringLiteral("x"), Qt::Key_unknown, {}, one, 1, Via::Drop },
        { vldStrong, true, one, QStringLiteral("-"), Qt::Key_unknown,
            QStringLiteral("That would not make a number"), one, 1 }, // pasted after the 1, then sprung back
        { vldWeak, true, one, QStringLiteral("1,2,3"), Qt::Key_unknown, numbers, one, 1 },
        { vldStrong, true, QStringLiteral("1.234"), {}, Qt::Key_unknown, QStringLiteral("At most 2 decimals"),
            QStringLiteral("1.23"), 0 },
    };
    for (const Row& row : rows) {
        QuillmarEdit* field = AddField("Price", vldDouble, row.sifting);
        if (row.typed.contains(u'a') || !row.pasted.isEmpty()) field->SetMustBeType(vldInteger);
        field->SetMaxNumberOfDecimals(2);
        field->SetShowRefusalTips(row.tips);
        field->SetOLEDropMode(2);
        ShowAndFocus(field);
        const QString rules = field->lineEdit()->accessibleDescription();
        beeps = 0;
        QTest::keyClicks(field->lineEdit(), row.typed);
        if (!row.pasted.isEmpty() && row.via == Via::Drop) {
            Drop(field->lineEdit(), row.pasted, QPoint(field->lineEdit()->width() - 2, 4));
        } else if (!row.pasted.isEmpty()) {
            QApplication::clipboard()->setText(row.pasted);
            if (row.via == Via::Menu)
                EXPECT_TRUE(FromMenu(field->lineEdit(), "edit-paste", true));
            else
                QTest::keyClick(field->lineEdit(), Qt::Key_V, Qt::ControlModifier);
        }
        if (row.last != Qt::Key_unknown) {
            QToolTip::hideText();
            ASSERT_TRUE(WaitFor([] { return !QToolTip::isVisible(); }));
            QApplication::clipboard()->clear();
            QTest::keyClick(
                field->lineEdit(), row.last, row.last == Qt::Key_V ? Qt::ControlModifier : Qt::NoModifier);
        }
        EXPECT_EQ(QToolTip::isVisible() ? QToolTip::text() : QString(), row.tip) << row.typed.toStdString();
        // A screen reader hears the tip first while it shows.
        EXPECT_EQ(
            field->lineEdit()->accessibleDescription(), row.tip.isEmpty() ? rules : row.tip + u' ' + rules);
        EXPECT_EQ(field->Text(), row.text);
        EXPECT_EQ(beeps, row.beeps);
        QToolTip::hideText();
        ASSERT_TRUE(WaitFor([] { return !QToolTip::isVisible(); }));
        delete field;
    }
}

// With the option on, a text that breaks a rule shows a frame and an icon whose tool tip is the rules in
// words, and the edit box's description says so first; a text that keeps them, an
// empty one or the option off show neither.
TEST_F(Form, InlineStateShowsWhileTheTextBreaksARule) {
    const QString rules = QStringLiteral("An integer <= 100");
    const QString broken = QStringLiteral("Not valid: An integer <= 100 is required. ") + rules;
    struct Row {
        bool on;
        QString typed;
        bool shown;
    };
    for (const Row& row :
        std::vector<Row> { { true, QStringLiteral("250"), true }, { true, QStringLiteral("50"), false },
            { true, QString(), false }, { false, QStringLiteral("250"), false } }) {
        QuillmarEdit* quantity = AddField("Quantity", vldInteger, vldWeak);
        quantity->SetMaxValue(100);
        quantity->SetShowInlineState(row.on);
        ShowAndFocus(quantity);
        QTest::keyClicks(quantity->lineEdit(), row.typed);
        const FieldHints& hints = quantity->hints();
        EXPECT_EQ(hints.StateIcon() && hints.StateIcon()->isVisible(), row.shown) << row.typed.toStdString();
        EXPECT_EQ(hints.StateFrame() && hints.StateFrame()->isVisible(), row.shown);
        EXPECT_EQ(quantity->lineEdit()->accessibleDescription(), row.shown ? broken : rules);
        if (row.on) {
            EXPECT_EQ(hints.StateIcon()->toolTip(), rules);
            EXPECT_EQ(hints.StateIcon()->text(), QStringLiteral("Not valid"));
        }
        if (row.shown) { // valid again: the description goes back
            QTest::keyClick(quantity->lineEdit(), Qt::Key_Backspace);
            EXPECT_EQ(quantity->lineEdit()->accessibleDescription(), rules);
        }
        EXPECT_TRUE(shown.empty());
        EXPECT_EQ(quantity->toolTip(), QString());
        delete quantity;
    }
    // Turning it off removes the icon from the edit box.
    QuillmarEdit* quantity = AddField("Quantity", vldInteger, vldWeak);
    quantity->SetShowInlineState(true);
    quantity->SetShowInlineState(false);
    EXPECT_TRUE(quantity->lineEdit()->actions().isEmpty());
}

} // namespace
} // namespace quillmar::qt
