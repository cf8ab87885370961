#include "pages/GeneralPage.h"
#include "control/Enums.h"
#include "pages/PageTestSupport.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>

namespace quillmar::pages {
namespace {

using Items = std::vector<std::u16string>;

VariantArray ListOf(const Items& items) {
    VariantArray list(1);
    list.insert(list.end(), items.begin(), items.end());
    return list;
}

class GeneralPageTest : public PageTest {
protected:
    GeneralPageTest() {
        frame.AddPage(new GeneralPage(frame.Services()));
        page = frame.Page(0);
        type = Find<QComboBox>("cboMustBeType");
        text = Find<QLineEdit>("txtText");
        defaultValue = Find<qt::QuillmarEdit>("txtDefaultValue");
        required = Find<QCheckBox>("chkRequiredField");
        addNew = Find<qt::QuillmarEdit>("txtAddNew");
        list = Find<QComboBox>("cboMustNotBe");
        listFrame = Find<QGroupBox>("fraMustNotBeValues");
    }

    /// A field on the form of the type, with limits and forbidden values.
    qt::QuillmarEdit* AddTyped(const char* name, int32_t mustBeType, const Items& items = {},
        std::u16string_view min = u"", std::u16string_view max = u"") {
        qt::QuillmarEdit* field = AddControl(name);
        field->control().SetMustBeType(mustBeType);
        field->control().SetMinValue(std::u16string(min));
        field->control().SetMaxValue(std::u16string(max));
        field->control().SetMustNotBeValues(ListOf(items));
        return field;
    }

    /// Picks a type from the type list with the keyboard.
    void ChooseType(int32_t value) {
        type->setFocus(Qt::TabFocusReason);
        QApplication::processEvents();
        QTest::keyClick(type, Qt::Key_Home);
        for (int32_t i = 0; i < value; ++i)
            QTest::keyClick(type, Qt::Key_Down);
        QApplication::processEvents();
    }

    void TypeText(const QString& value) {
        QTest::mouseClick(text, Qt::LeftButton);
        QTest::keyClick(text, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(text, value);
    }

    void AddItem(const QString& value) {
        TypeInto(addNew, value);
        Click(Find<QPushButton>("cmdAddNew"));
    }

    [[nodiscard]] Items ListItems() const {
        Items items;
        for (int i = 0; i < list->count(); ++i)
            items.push_back(qt::FromQString(list->itemText(i)));
        return items;
    }

    PropertyPage* page = nullptr;
    QComboBox* type = nullptr;
    QLineEdit* text = nullptr;
    qt::QuillmarEdit* defaultValue = nullptr;
    QCheckBox* required = nullptr;
    qt::QuillmarEdit* addNew = nullptr;
    QComboBox* list = nullptr;
    QGroupBox* listFrame = nullptr;
};

TEST_F(GeneralPageTest, LoadsFromTheFirstSelectedControl) {
    qt::QuillmarEdit* first = AddTyped("first", vldDouble, { u"3", u"4.5" });
    first->control().SetText(u"12");
    first->control().SetDefaultValue(u"2.5");
    first->control().SetRequiredField(true);
    AddTyped("second", vldString, { u"x" });
    Open({ first, form.findChild<qt::QuillmarEdit*>("second") });

    EXPECT_EQ(type->currentIndex(), vldDouble);
    EXPECT_EQ(type->currentText(), "Double");
    EXPECT_EQ(text->text(), "12");
    EXPECT_EQ(defaultValue->Text(), "2.5");
    EXPECT_TRUE(required->isChecked());
    EXPECT_EQ(ListItems(), (Items { u"3", u"4.5" }));
    EXPECT_EQ(listFrame->title(), "MustNotBe&Values (2 items)");
    // The entry fields follow the type, scientific notation allowed.
    EXPECT_EQ(addNew->MustBeType(), vldDouble);
    EXPECT_TRUE(addNew->AllowScientificFormat());
    EXPECT_EQ(defaultValue->MustBeType(), vldDouble);
    EXPECT_FALSE(page->Changed());
}

TEST_F(GeneralPageTest, ASecondLoadWithinTheSameSecondOnlyBeeps) {
    qt::QuillmarEdit* field = AddTyped("field", vldInteger, {}, u"", u"20");
    field->control().SetText(u"1");
    Open({ field });
    TypeInto(defaultValue, "25");
    field->control().SetText(u"2");
    const int beeps = alerts.beeps;
    frame.SetSelectedControls({ field });
    EXPECT_EQ(alerts.beeps, beeps + 1);
    EXPECT_EQ(text->text(), "1");
    EXPECT_EQ(defaultValue->Text(), "25");
    // The skipped load leaves the page loading, which must not hide a refusal.
    Click(frame.ApplyButton());
    EXPECT_EQ(alerts.messages.size(), 1u);
    EXPECT_TRUE(page->Changed());
    field->control().SetText(u"3");
    ++clock.seconds;
    frame.SetSelectedControls({ field });
    EXPECT_EQ(text->text(), "3");
}

TEST_F(GeneralPageTest, UnspecifiedLeavesOnlyTheTypeAndTextAndSkipsTheChecks) {
    // Under a type, the default would collide with the list and "abc" would be no integer.
    qt::QuillmarEdit* field = AddTyped("field", vldInteger, { u"abc", u"5" });
    field->control().SetDefaultValue(u"5");
    Open({ field });
    const char* typed[] = { "lblDefaultValue", "txtDefaultValue", "chkRequiredField", "fraMustNotBeValues",
        "cmdAddNew", "txtAddNew", "cmdRemove" };
    ChooseType(vldUnspecified);
    for (const char* name : typed)
        EXPECT_FALSE(Find<QWidget>(name)->isEnabled()) << name;
    EXPECT_TRUE(type->isEnabled());
    EXPECT_TRUE(text->isEnabled());
    Click(frame.ApplyButton());
    EXPECT_TRUE(alerts.messages.empty());
    EXPECT_TRUE(alerts.questions.empty());
    EXPECT_FALSE(page->Changed());
    EXPECT_EQ(field->control().MustBeType(), vldUnspecified);
    EXPECT_EQ(field->control().MustNotBeValues(), ListOf({ u"abc", u"5" }));
    ChooseType(vldLong);
    for (const char* name : typed)
        EXPECT_TRUE(Find<QWidget>(name)->isEnabled()) << name;
}

TEST_F(GeneralPageTest, AddAndRemoveKeepTheCaptionCounting) {
    qt::QuillmarEdit* field = AddTyped("field", vldInteger);
    Open({ field });
    AddItem("-"); // the start of a number, not yet one: its field refuses it, once
    ASSERT_EQ(alerts.messages.size(), 1u);
    EXPECT_EQ(alerts.messages[0].title, u"Property Page: AddNew");
    EXPECT_EQ(QApplication::focusWidget(), addNew->lineEdit());
    EXPECT_EQ(list->count(), 0);
    EXPECT_EQ(listFrame->title(), "MustNotBe&Values");
    EXPECT_FALSE(page->Changed());
    AddItem("7");
    EXPECT_EQ(listFrame->title(), "MustNotBe&Values (1 item)");
    EXPECT_EQ(list->currentText(), "7");
    EXPECT_TRUE(page->Changed());
    AddItem("7"); // a duplicate is taken
    AddItem("-3");
    EXPECT_EQ(ListItems(), (Items { u"7", u"7", u"-3" }));
    list->setFocus(Qt::TabFocusReason);
    QTest::keyClick(list, Qt::Key_Home); // pick the first item
    Click(Find<QPushButton>("cmdRemove"));
    EXPECT_EQ(ListItems(), (Items { u"7", u"-3" }));
    EXPECT_EQ(listFrame->title(), "MustNotBe&Values (2 items)");
    Click(Find<QPushButton>("cmdRemove")); // nothing picked: nothing removed
    EXPECT_EQ(list->count(), 2);
    TypeInto(addNew, ""); // an empty entry adds nothing
    Click(Find<QPushButton>("cmdAddNew"));
    EXPECT_EQ(list->count(), 2);
}

TEST_F(GeneralPageTest, ApplyWritesEachSelectedControlInOrderAndTheListToTheFirstOnly) {
    struct Row {
        const char* defaultValue;
        QStringList written;
    };
    const Row rows[] = {
        { "015",
            { "a:Text", "a:MustBeType", "b:Text", "b:MustBeType", "a:MustNotBeValues", "a:RequiredField",
                "a:DefaultValue", "b:RequiredField", "b:DefaultValue" } },
        // Outside the first control's range: Text and MustBeType are written, the rest is not.
        { "25", { "a:Text", "a:MustBeType", "b:Text", "b:MustBeType" } },
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.defaultValue);
        alerts.messages.clear();
        ++clock.seconds;
        qt::QuillmarEdit* a = AddTyped("a", vldInteger, {}, u"", u"20");
        qt::QuillmarEdit* b = AddTyped("b", vldInteger);
        Open({ a, b });
        QStringList written;
        const QStringList onPage { "Text", "MustBeType", "MustNotBeValues", "RequiredField", "DefaultValue" };
        for (qt::QuillmarEdit* field : { a, b })
            QObject::connect(
                field, &qt::QuillmarEdit::PropertyChanged, field, [&, field](const QString& name) {
                    if (onPage.contains(name)) written << field->objectName() + ":" + name;
                });
        Click(required);
        AddItem("9");
        TypeText("typed");
        // Apply validates the field it leaves, whose understood form rewrites "015": no edit of the author's.
        TypeInto(defaultValue, row.defaultValue);
        Click(frame.ApplyButton());
        EXPECT_EQ(written, row.written);
        const bool accepted = row.written.size() > 4;
        EXPECT_EQ(page->Changed(), !accepted);
        for (qt::QuillmarEdit* field : { a, b }) {
            EXPECT_EQ(field->control().Text(), u"typed");
            EXPECT_EQ(field->control().MustBeType(), vldInteger);
            EXPECT_EQ(field->control().RequiredField(), accepted);
            EXPECT_EQ(field->control().DefaultValue(), accepted ? Variant(15.0) : Variant(u""));
        }
        EXPECT_EQ(a->control().MustNotBeValues(), accepted ? ListOf({ u"9" }) : ListOf({}));
        EXPECT_EQ(b->control().MustNotBeValues(), ListOf({}));
        delete a;
        delete b;
    }
}

const std::u16string kRange = u"DefaultValue is in a collision with Min/Max range.";
const std::u16string kInList = u"DefaultValue is in a collision with an item in the MustNotBeValues list!";
const std::u16string kOwn = u"(the field's own)";

TEST_F(GeneralPageTest, ApplyChecksTheDefaultValue) {
    struct Row {
        const char* name;
        int32_t loadType;
        int32_t pageType; // -1: kept
        std::u16string_view min, max;
        Items items;
        const char* defaultValue;
        std::u16string message; // empty: none
        bool accepted;
        int selected = -1;
    };
    const Row rows[] = {
        { "above max", vldInteger, -1, u"10", u"20", {}, "25", kRange, false },
        { "below min", vldInteger, -1, u"10", u"20", {}, "9", kRange, false },
        { "on the max", vldInteger, -1, u"10", u"20", {}, "20", u"", true }, // the range is inclusive
        { "no limits", vldInteger, -1, u"", u"", {}, "", u"", true },
        // An empty default cannot be compared with a limit: refused without a word.
        { "empty default", vldInteger, -1, u"", u"20", {}, "", u"", false },
        // A time bounds no integer: the limit is skipped, where a number would refuse the empty default.
        { "time limit", vldTime, vldInteger, u"", u"12:30", {}, "", u"", true },
        { "after max date", vldDate, -1, u"", u"1/1/2000", {}, "2/1/2000", kRange, false },
        { "number in list", vldInteger, -1, u"", u"", { u"1", u"7.0" }, "7", kInList, false, 1 },
        { "text in list", vldString, -1, u"", u"", { u"abc", u"Abc" }, "Abc", kInList, false, 1 },
        { "date in list", vldDate, -1, u"", u"", { u"1/2/2000" }, "01/02/2000", kInList, false, 0 },
        { "text not in list", vldString, -1, u"", u"", { u"abc" }, "ABC", u"", true },
        // Typed as text, then the type changed under it: the field's own validation refuses it.
        { "not of the type", vldString, vldInteger, u"", u"", {}, "abc", kOwn, false },
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        alerts = {};
        ++clock.seconds;
        qt::QuillmarEdit* field = AddTyped("field", row.loadType, row.items, row.min, row.max);
        Open({ field });
        TypeInto(defaultValue, row.defaultValue);
        if (row.pageType >= 0) ChooseType(row.pageType);
        Click(required);
        TypeText("x");
        Click(frame.ApplyButton());

        EXPECT_EQ(page->Changed(), !row.accepted);
        EXPECT_EQ(field->control().RequiredField(), row.accepted);
        EXPECT_EQ(list->currentIndex(), row.selected);
        if (row.message.empty()) {
            EXPECT_TRUE(alerts.messages.empty());
        } else {
            ASSERT_EQ(alerts.messages.size(), 1u);
            EXPECT_EQ(alerts.messages[0].title, u"Property Page: DefaultValue");
            EXPECT_EQ(alerts.messages[0].icon, IconExclamation);
            if (row.message != kOwn) {
                EXPECT_EQ(alerts.messages[0].text, row.message);
                EXPECT_EQ(alerts.beeps, 1);
            }
        }
        if (row.message == kRange || row.message == kOwn) {
            EXPECT_EQ(QApplication::focusWidget(), defaultValue->lineEdit());
            EXPECT_EQ(defaultValue->SelStart(), 0);
            EXPECT_EQ(defaultValue->SelLength(), defaultValue->Text().size());
        }
        delete field;
    }
}

TEST_F(GeneralPageTest, AsksBeforeKeepingItemsTheTypeRejects) {
    struct Row {
        Answer answer;
        Items kept;
        bool accepted;
    };
    // Two rejected items in a row: removing one must not skip the next.
    const Items all { u"abc", u"1.5", u"5", u"-12" };
    const Row rows[] = {
        { Answer::Yes, { u"5", u"-12" }, true },
        { Answer::No, all, true },
        { Answer::Cancel, all, false },
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(static_cast<int>(row.answer));
        alerts = {};
        alerts.answers = { row.answer };
        ++clock.seconds;
        qt::QuillmarEdit* field = AddTyped("field", vldString, all);
        Open({ field });
        ChooseType(vldInteger);
        Click(required);
        Click(frame.ApplyButton());

        ASSERT_EQ(alerts.questions.size(), 1u);
        EXPECT_EQ(alerts.questions[0].text,
            u"Some of the items in the MustNotBeValues list are incompatible with the current settings.\r\n"
            u"Would you like them to be removed from the list?\r\n");
        EXPECT_EQ(alerts.questions[0].title, u"Property Page: MustNotBeValues");
        EXPECT_EQ(alerts.questions[0].icon, IconQuestion);
        EXPECT_EQ(page->Changed(), !row.accepted);
        // The type is written before the checks, whatever the answer.
        EXPECT_EQ(field->control().MustBeType(), vldInteger);
        EXPECT_EQ(field->control().RequiredField(), row.accepted);
        EXPECT_EQ(field->control().MustNotBeValues(), ListOf(row.kept));
        EXPECT_EQ(ListItems(), row.kept);
        delete field;
    }
}

} // namespace
} // namespace quillmar::pages
