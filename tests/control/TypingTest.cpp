#include "control/Quillmar.h"
#include "host/standalone/StandaloneHost.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

// One field on a form, driven through its edit box as a person would drive it.
class Field : public ::testing::Test {
protected:
    Field() { control.SetEventListener(&events); }

    void Declare(int32_t type, InputSiftingConstants sifting) {
        control.SetMustBeType(type);
        control.SetInputSifting(sifting);
        events.log.clear();
    }

    standalone::StandaloneHost host { "en_US" };
    Quillmar control { host.Services() };
    standalone::RecordingEvents events;
    standalone::MemoryEditBox& box = host.editBox;
};

TEST_F(Field, MinusTypedAfterTheDigitsMovesToTheFront) {
    Declare(vldInteger, vldWeak);
    box.TypeText(u"123-");
    EXPECT_EQ(control.Text(), u"-123");
    EXPECT_EQ(control.SelStart(), 4);
    EXPECT_EQ(host.alerts.beeps, 0);
    box.TypeText(u"-");
    EXPECT_EQ(control.Text(), u"-123");
    EXPECT_EQ(host.alerts.beeps, 1);
}

TEST_F(Field, EnterIsRefusedInALettersOnlyField) {
    Declare(vldString, vldWeak);
    control.SetOnlyLetters(true);
    box.TypeText(u"Ab");
    box.PressEnter();
    EXPECT_EQ(host.alerts.beeps, 1);
    EXPECT_EQ(
        events.Only("KeyPress"), (std::vector<std::string> { "KeyPress 65", "KeyPress 98", "KeyPress 13" }));
    box.PressBackspace(); // never refused
    EXPECT_EQ(control.Text(), u"A");
    EXPECT_EQ(host.alerts.beeps, 1);
}

TEST_F(Field, KeysReportedWhileCtrlIsDownAreNotSifted) {
    Declare(vldInteger, vldWeak);
    box.PasteWithKeys(u"42");
    EXPECT_EQ(control.Text(), u"42");
    EXPECT_EQ(host.alerts.beeps, 0);
    box.TypeKey(u'x'); // Ctrl was released with the V key
    box.TypeKey(u'q', 2); // Ctrl is down again
    box.TypeKey(u'y'); // the key-up cleared the Ctrl state
    EXPECT_EQ(control.Text(), u"42q");
    EXPECT_EQ(host.alerts.beeps, 2);
}

// What a refused change springs back to is the last text the field settled: typed and accepted, corrected
// when the field was left, or rewritten as understood; a repair applies to the field's own writes too.
TEST(SpringBack, RestoresTheLastTextTheFieldSettled) {
    struct Row {
        const char* name;
        const char16_t* minValue;
        bool mustBeNegative;
        const char16_t* typed;
        bool leave;
        const char16_t* pasted; // nullptr: nothing is pasted
        const char16_t* expected;
        int32_t click = -1; // where the mouse leaves the caret before the paste; the caret stays there
    };
    const Row rows[] = {
        { "the closest value inserted on leaving", u"10", false, u"5", true, u"-", u"10" },
        { "the text rewritten as understood", u"", false, u"007", true, u"-", u"7" },
        { "the minus given back to a zero rewritten as understood", u"", true, u"-0", true, nullptr, u"-0" },
        { "spaces trimmed away leave the minus", u"", true, u" ", false, nullptr, u"-" },
        { "a minus pasted into the digits typed", u"", false, u"12", false, u"-", u"12", 1 },
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        standalone::StandaloneHost host { "en_US" };
        Quillmar control { host.Services() };
        control.SetMustBeType(vldInteger);
        control.SetMinValue(row.minValue);
        control.SetMustBeNegative(row.mustBeNegative);
        host.editBox.TypeText(row.typed);
        if (row.leave) host.editBox.LeaveField();
        if (row.click >= 0) host.editBox.ClickAt(row.click);
        if (row.pasted) host.editBox.Paste(row.pasted);
        EXPECT_EQ(control.Text(), row.expected);
        EXPECT_EQ(
            control.SelStart(), row.click >= 0 ? row.click : static_cast<int32_t>(control.Text().size()));
        control.SetText(u""); // an empty field is valid: leaving it clears the thread's focus marker
        host.editBox.LeaveField();
    }
}

TEST_F(Field, RemembersWhyTheLastKeyOrChangeWasRefused) {
    Declare(vldDouble, vldStrong);
    control.SetMaxNumberOfDecimals(2);
    box.TypeText(u"1.234");
    EXPECT_EQ(control.LastRefusal(), Refusal::TooManyDecimals);
    box.TypeText(u"x");
    EXPECT_EQ(control.LastRefusal(), Refusal::NumberCharacter);
    box.TypeText(u"-");
    EXPECT_EQ(control.LastRefusal(), Refusal::NumberShape);
    EXPECT_EQ(control.Text(), u"1.23");
    box.PressBackspace();
    EXPECT_EQ(control.LastRefusal(), Refusal::None);
    control.SetInputSifting(vldWeak);
    box.TypeText(u".");
    EXPECT_EQ(control.LastRefusal(), Refusal::SecondDecimalSeparator);
    box.TypeText(u"5");
    EXPECT_EQ(control.LastRefusal(), Refusal::None);
    EXPECT_EQ(host.alerts.beeps, 3); // one per refusal; the cut decimal does not beep
    // A date or time names a character it never takes before its shape.
    for (const auto& [type, typed, refusal] : { std::tuple { vldDate, u"1x", Refusal::DateCharacter },
             std::tuple { vldDate, u"1//", Refusal::DateShape },
             std::tuple { vldTime, u"1x", Refusal::TimeCharacter },
             std::tuple { vldTime, u"25", Refusal::TimeShape } }) {
        Declare(type, vldStrong);
        control.SetText(u"");
        box.TypeText(typed);
        EXPECT_EQ(control.LastRefusal(), refusal) << type;
    }
}

// Typing and deleting pass through texts that are not yet well grouped; only the whole number is judged.
TEST_F(Field, GroupedNumbersAreTypedAndEditedFreely) {
    for (const InputSiftingConstants sifting : { vldWeak, vldStrong }) {
        Declare(vldLong, sifting);
        control.SetThousandSeparator(vldTSAllowed);
        control.SetText(u"");
        box.TypeText(u"1,234,567");
        EXPECT_EQ(control.Text(), u"1,234,567") << sifting;
        EXPECT_EQ(control.CheckInput(), 0) << sifting;
        box.ClickAt(4);
        box.PressBackspace();
        EXPECT_EQ(control.Text(), u"1,24,567") << sifting;
        EXPECT_EQ(control.CheckInput(), vldCCMustBeNumber) << sifting;
        box.TypeText(u"3");
        EXPECT_EQ(control.CheckInput(), 0) << sifting;
        EXPECT_EQ(host.alerts.beeps, 0) << sifting;
    }
}

// A paste that reads only as another number is refused whole, with a beep, whether the field would keep
// its marks or drop them; a field that does not sift takes it as pasted.
TEST_F(Field, PasteThatOnlyReadsAsAnotherNumberIsRefused) {
    for (const InputSiftingConstants sifting : { vldNone, vldWeak, vldStrong }) {
        for (const ThousandSeparatorConstants grouping : { vldTSAllowed, vldTSForbidden }) {
            Declare(vldCurrency, sifting);
            control.SetThousandSeparator(grouping);
            control.SetText(u"7");
            box.SelectAll();
            const int beeps = host.alerts.beeps;
            box.Paste(u"1 234,50");
            const bool sifts = sifting != vldNone;
            EXPECT_EQ(control.Text(), sifts ? u"7" : u"1 234,50") << sifting << grouping;
            EXPECT_EQ(host.alerts.beeps - beeps, sifts ? 1 : 0) << sifting << grouping;
            EXPECT_EQ(control.LastRefusal(), sifts ? Refusal::PastedNumber : Refusal::None);
            box.SelectAll();
            box.Paste(u"1 234.50");
            EXPECT_EQ(control.Text(),
                !sifts                         ? u"1 234.50"
                    : grouping == vldTSAllowed ? u"1,234.50"
                                               : u"1234.50");
        }
    }
}

TEST_F(Field, ProperCaseRaisesTheFirstLetterOfEachWord) {
    Declare(vldString, vldStrong);
    control.SetMustBeProperCase(true);
    box.TypeText(u"new yORK");
    EXPECT_EQ(control.Text(), u"New YORK");
    EXPECT_EQ(control.SelStart(), 8);
}

TEST_F(Field, StrongSiftingTrimsAPasteAndKeepsItAfterADeleteFromTheMenu) {
    Declare(vldDouble, vldStrong);
    box.Paste(u" 42 ");
    EXPECT_EQ(control.Text(), u"42");
    EXPECT_EQ(host.alerts.beeps, 0);
    box.SelectAll();
    box.SetSelText(u""); // deleted from the context menu: accepted, and the snapshot stays
    EXPECT_EQ(control.Text(), u"");
    box.TypeText(u"x");
    EXPECT_EQ(control.Text(), u"42");
}

TEST_F(Field, MaxLengthHoldsTheUserButNotTheProgram) {
    Declare(vldString, vldWeak);
    control.SetMaxLength(5);
    control.SetText(u"ABCDEFG"); // kept whole; the rules report it
    EXPECT_EQ(control.CheckInput(), vldCCMaxLength);
    box.TypeKey(u'H'); // no room: the key does nothing
    EXPECT_EQ(control.Text(), u"ABCDEFG");
    control.SetText(u"AB");
    control.SetSelStart(1);
    box.Paste(u"xyzw\r\nv"); // the first line, cut to the room left
    EXPECT_EQ(control.Text(), u"AxyzB");
    EXPECT_EQ(control.SelStart(), 4);
}

// A date or time is typed as the locale writes it, a day period included, and shown in full on leaving.
TEST_F(Field, DateAndTimeAreTypedInTheLocaleAndShownInFull) {
    for (const auto& [locale, type, typed, shown] :
        { std::tuple { "en_US", vldTime, u"10:30 pm", u"10:30:00 PM" },
            std::tuple { "de_DE", vldDate, u"31.12.04", u"31.12.2004" } }) {
        host.locale.Set(LocaleInfo::FromName(locale));
        Declare(type, vldWeak);
        control.SetText(u"");
        box.TypeText(typed);
        box.LeaveField();
        EXPECT_EQ(control.Text(), std::u16string(shown));
    }
    EXPECT_EQ(host.alerts.beeps, 0);
    EXPECT_TRUE(host.alerts.messages.empty());
}

} // namespace
} // namespace quillmar
