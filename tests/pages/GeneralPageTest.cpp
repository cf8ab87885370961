#include "pages/GeneralPage.h"
#include "pages/PageTestSupport.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>

#include <tuple>

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
    /// A field on the form of the type, with forbidden values and limits.
    qt::QuillmarEdit* AddTyped(const char* name, int32_t mustBeType, const Items& items = {},
        std::u16string_view min = u"", std::u16string_view max = u"") {
        qt::QuillmarEdit* field = AddControl(name);
        field->control().SetMustBeType(mustBeType);
        field->control().SetMinValue(std::u16string(min));
        field->control().SetMaxValue(std::u16string(max));
        field->control().SetMustNotBeValues(ListOf(items));
        return field;
    }
    void AddItem(const QString& value) {
        TypeInto(Find<qt::QuillmarEdit>("txtAddNew"), value);
        Click(Find<QPushButton>("cmdAddNew"));
    }

    GeneralPage* page = Add(new GeneralPage(frame.Services()));
    qt::QuillmarEdit* defaultValue = Find<qt::QuillmarEdit>("txtDefaultValue");
    QCheckBox* required = Find<QCheckBox>("chkRequiredField");
};

TEST_F(GeneralPageTest, LoadsTheFirstSelectedOnceASecondAndWritesEachInOrderTheListToTheFirstOnly) {
    const std::pair<const char*, QStringList> rows[] = {
        { "015",
            { "b:Text", "b:MustBeType", "a:Text", "a:MustBeType", "b:MustNotBeValues", "b:RequiredField",
                "b:DefaultValue", "a:RequiredField", "a:DefaultValue" } },
        // Outside the first control's range: Text and MustBeType are written, the rest is not.
        { "25", { "b:Text", "b:MustBeType", "a:Text", "a:MustBeType" } },
    };
    for (const auto& [typed, written] : rows) {
        SCOPED_TRACE(typed);
        alerts = {};
        qt::QuillmarEdit* a = AddTyped("a", vldString, { u"x" });
        qt::QuillmarEdit* b = AddTyped("b", vldInteger, { u"3" }, u"", u"20");
        b->control().SetText(u"12");
        b->control().SetDefaultValue(u"4");
        Open({ b, a });
        EXPECT_EQ(defaultValue->Text(), "4"); // the rest loaded is written back
        notices.clear();
        Log({ a, b }, { "Text", "MustBeType", "MustNotBeValues", "RequiredField", "DefaultValue" });
        Click(required);
        AddItem("9");
        // Apply validates the field it leaves, whose understood form rewrites "015": no edit of the author's.
        TypeInto(defaultValue, typed);
        // A second notice within the same second only beeps, and the loading it leaves hides no refusal.
        frame.SetSelectedControls({ b, a });
        EXPECT_EQ(alerts.beeps, 1);
        Click(frame.ApplyButton());
        EXPECT_EQ(notices, written);
        const bool accepted = written.size() > 4;
        EXPECT_EQ(page->Changed(), !accepted);
        EXPECT_EQ(a->control().Text(), u"12");
        EXPECT_EQ(a->control().DefaultValue() == Variant(15.0), accepted);
        EXPECT_EQ(b->control().MustNotBeValues(), ListOf(accepted ? Items { u"3", u"9" } : Items { u"3" }));
    }
}

TEST_F(GeneralPageTest, AddRefusesAnInvalidValueOnceAndUnspecifiedDisablesTheTypedFieldsAndSkipsTheChecks) {
    // Under a type, the default would collide with the list and "abc" would be no integer.
    qt::QuillmarEdit* field = AddTyped("field", vldInteger, { u"abc", u"5" });
    field->control().SetDefaultValue(u"5");
    Open({ field });
    auto* caption = Find<QGroupBox>("fraMustNotBeValues");
    EXPECT_EQ(caption->title(), "MustNotBe&Values (2 items)");
    AddItem("-"); // the start of a number, not yet one: its field refuses it, once
    ASSERT_EQ(alerts.messages.size(), 1u);
    EXPECT_EQ(alerts.messages[0].title, u"Property Page: AddNew");
    EXPECT_EQ(QApplication::focusWidget(), Find<qt::QuillmarEdit>("txtAddNew")->lineEdit());
    EXPECT_FALSE(page->Changed());
    AddItem("7");
    EXPECT_EQ(caption->title(), "MustNotBe&Values (3 items)");
    EXPECT_TRUE(page->Changed());
    for (const int32_t chosen : { vldLong, vldUnspecified }) {
        ChooseType(chosen);
        for (const char* name : { "lblDefaultValue", "txtDefaultValue", "chkRequiredField",
                 "fraMustNotBeValues", "cmdAddNew", "txtAddNew", "cmdRemove" })
            EXPECT_EQ(Find<QWidget>(name)->isEnabled(), chosen != vldUnspecified) << name;
    }
    Click(frame.ApplyButton());
    EXPECT_EQ(alerts.messages.size(), 1u);
    EXPECT_TRUE(alerts.questions.empty());
    EXPECT_FALSE(page->Changed());
    EXPECT_EQ(field->control().MustBeType(), vldUnspecified);
}

const std::u16string kRange = u"DefaultValue is in a collision with Min/Max range.";
const std::u16string kInList = u"DefaultValue is in a collision with an item in the MustNotBeValues list!";

TEST_F(GeneralPageTest, ApplyChecksTheDefaultValue) {
    // A default found in the list selects the item, the last one in each row.
    const std::tuple<const char*, int32_t, int32_t, std::u16string_view, std::u16string_view, Items,
        const char*, std::u16string, bool>
        rows[] = {
            // name, type loaded, type chosen (-1: kept), min, max, list, default, message, accepted
            { "above max", vldInteger, -1, u"10", u"20", {}, "25", kRange, false },
            { "below min", vldInteger, -1, u"10", u"20", {}, "9", kRange, false },
            { "on the max", vldInteger, -1, u"10", u"20", {}, "20", u"", true }, // the range is inclusive
            // An empty default cannot be compared with a limit: refused without a word.
            { "empty default", vldInteger, -1, u"", u"20", {}, "", u"", false },
            // A time bounds no integer: the limit is skipped, where a number would refuse the empty default.
            { "time limit", vldTime, vldInteger, u"", u"12:30", {}, "", u"", true },
            { "after max date", vldDate, -1, u"", u"1/1/2000", {}, "2/1/2000", kRange, false },
            { "number in list", vldInteger, -1, u"", u"", { u"1", u"7.0" }, "7", kInList, false },
            { "text in list", vldString, -1, u"", u"", { u"abc", u"Abc" }, "Abc", kInList, false },
            { "date in list", vldDate, -1, u"", u"", { u"1/2/2000" }, "01/02/2000", kInList, false },
            // Typed as text, then the type changed under it: the field's own validation refuses it.
            { "not of the type", vldString, vldInteger, u"", u"", {}, "abc", u"Invalid numeric entry.",
                false },
        };
    for (const auto& [name, loaded, chosen, min, max, items, typed, message, accepted] : rows) {
        SCOPED_TRACE(name);
        alerts = {};
        qt::QuillmarEdit* field = AddTyped("field", loaded, items, min, max);
        Open({ field });
        TypeInto(defaultValue, typed);
        if (chosen >= 0) ChooseType(chosen);
        Click(required);
        Click(frame.ApplyButton());

        EXPECT_EQ(page->Changed(), !accepted);
        EXPECT_EQ(field->control().RequiredField(), accepted);
        const bool inList = message == kInList;
        EXPECT_EQ(Find<QComboBox>("cboMustNotBe")->currentIndex(),
            inList ? static_cast<int>(items.size()) - 1 : -1);
        std::vector<ShownMessage> told;
        if (!message.empty()) told.push_back({ message, u"Property Page: DefaultValue", IconExclamation });
        EXPECT_EQ(alerts.messages, told);
        EXPECT_EQ(alerts.beeps, static_cast<int>(told.size()));
        if (!told.empty() && !inList) {
            EXPECT_EQ(QApplication::focusWidget(), defaultValue->lineEdit());
            EXPECT_EQ(defaultValue->lineEdit()->selectedText(), defaultValue->Text());
        }
    }
}

TEST_F(GeneralPageTest, AsksBeforeKeepingItemsTheTypeRejects) {
    // Two rejected items in a row: removing one must not skip the next.
    const Items all { u"abc", u"1.5", u"5", u"-12" };
    for (const Answer answer : { Answer::Yes, Answer::No, Answer::Cancel }) {
        SCOPED_TRACE(static_cast<int>(answer));
        alerts = {};
        alerts.answers = { answer };
        qt::QuillmarEdit* field = AddTyped("field", vldString, all);
        Open({ field });
        ChooseType(vldInteger);
        Click(required);
        Click(frame.ApplyButton());
        EXPECT_EQ(alerts.questions,
            std::vector<ShownMessage>(
                { { u"Some of the items in the MustNotBeValues list are incompatible with "
                    u"the current settings.\r\nWould you like them to be removed from "
                    u"the list?\r\n",
                    u"Property Page: MustNotBeValues", IconQuestion } }));
        EXPECT_EQ(page->Changed(), answer == Answer::Cancel);
        EXPECT_EQ(field->control().RequiredField(), answer != Answer::Cancel);
        EXPECT_EQ(
            field->control().MustNotBeValues(), ListOf(answer == Answer::Yes ? Items { u"5", u"-12" } : all));
    }
}

} // namespace
} // namespace quillmar::pages
