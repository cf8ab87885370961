#include "control/Quillmar.h"
#include "host/standalone/StandaloneHost.h"

#include <gtest/gtest.h>

#include <functional>

namespace quillmar {
namespace {

using Names = std::vector<std::u16string>;

class PropertyModel : public ::testing::Test {
protected:
    PropertyModel() { control.SetEventListener(&events); }

    // The notifications sent by `action` alone.
    Names NotificationsOf(const std::function<void()>& action) {
        host.container.notifications.clear();
        action();
        return host.container.notifications;
    }

    standalone::StandaloneHost host { "en_US" };
    Quillmar control { host.Services() };
    standalone::RecordingEvents events;
};

TEST_F(PropertyModel, RangeChecksRaise380AndChangeNothing) {
    const std::pair<const char*, std::function<void()>> refused[] = {
        { "MustBeType 10", [&] { control.SetMustBeType(10); } },
        { "MustBeType -1", [&] { control.SetMustBeType(-1); } },
        { "ThousandSeparator 2", [&] { control.SetThousandSeparator(2); } },
        { "ValidationMode 2", [&] { control.SetValidationMode(2); } },
        { "ErrorMessageMode 0", [&] { control.SetErrorMessageMode(0); } },
        { "ErrorMessageMode 4", [&] { control.SetErrorMessageMode(4); } },
        { "InputSifting 3", [&] { control.SetInputSifting(3); } },
        { "MessageBoxIcon 5", [&] { control.SetMessageBoxIcon(5); } },
        { "MaxRelativeAccuracy 33", [&] { control.SetMaxRelativeAccuracy(33); } },
    };
    control.SetMustBeType(vldInteger);
    const Settings before = control.settings();
    const ControlState flagsBefore = control.state();
    for (const auto& [name, action] : refused) {
        SCOPED_TRACE(name);
        host.container.notifications.clear();
        try {
            action();
            ADD_FAILURE() << "no error";
        } catch (const PropertyError& error) {
            EXPECT_EQ(error.number(), 380);
        }
        EXPECT_TRUE(host.container.notifications.empty());
        EXPECT_EQ(control.settings(), before);
        EXPECT_EQ(control.state().TypeIsInteger, flagsBefore.TypeIsInteger);
        EXPECT_TRUE(control.state().NumericMode);
    }
}

TEST_F(PropertyModel, DecimalsStayStoredWhenRefusedButAccuracyDoesNot) {
    control.SetMaxRelativeAccuracy(5);
    EXPECT_THROW(control.SetMaxNumberOfDecimals(40), PropertyError);
    EXPECT_EQ(control.MaxNumberOfDecimals(), 40);
    EXPECT_THROW(control.SetMaxRelativeAccuracy(40), PropertyError);
    EXPECT_EQ(control.MaxRelativeAccuracy(), 5);
    EXPECT_EQ(NotificationsOf([&] { control.SetMaxNumberOfDecimals(-5); }), Names { u"MaxNumberOfDecimals" });
    EXPECT_EQ(control.MaxNumberOfDecimals(), 0);
    control.SetMaxRelativeAccuracy(-5);
    EXPECT_EQ(control.MaxRelativeAccuracy(), 0);
}

struct SequenceCase {
    const char* name;
    std::function<void(Quillmar&)> prepare;
    std::function<void(Quillmar&)> action;
    Names expected;
};

// The documented order: store, notify, then the interlocks through the other writers; MustBeType last.
const SequenceCase kSequences[] = {
    { "upper clears lower then proper", [](Quillmar&) {}, [](Quillmar& c) { c.SetMustBeUpperCase(true); },
        { u"MustBeUpperCase", u"MustBeLowerCase", u"MustBeProperCase" } },
    { "lower", [](Quillmar&) {}, [](Quillmar& c) { c.SetMustBeLowerCase(true); },
        { u"MustBeLowerCase", u"MustBeUpperCase", u"MustBeProperCase" } },
    { "proper", [](Quillmar&) {}, [](Quillmar& c) { c.SetMustBeProperCase(true); },
        { u"MustBeProperCase", u"MustBeUpperCase", u"MustBeLowerCase" } },
    { "false clears nothing", [](Quillmar&) {}, [](Quillmar& c) { c.SetMustBeUpperCase(false); },
        { u"MustBeUpperCase" } },
    { "no digits", [](Quillmar&) {}, [](Quillmar& c) { c.SetNoDigits(true); },
        { u"NoDigits", u"OnlyLetters", u"OnlyLettersWithSpace" } },
    { "only letters", [](Quillmar&) {}, [](Quillmar& c) { c.SetOnlyLetters(true); },
        { u"OnlyLetters", u"NoDigits", u"OnlyLettersWithSpace" } },
    { "letters with space", [](Quillmar&) {}, [](Quillmar& c) { c.SetOnlyLettersWithSpace(true); },
        { u"OnlyLettersWithSpace", u"NoDigits", u"OnlyLetters" } },
    { "positive", [](Quillmar&) {}, [](Quillmar& c) { c.SetMustBePositive(true); },
        { u"MustBePositive", u"MustBeNegative" } },
    { "negative", [](Quillmar&) {}, [](Quillmar& c) { c.SetMustBeNegative(true); },
        { u"MustBeNegative", u"MustBePositive" } },
    { "scientific clears no partner", [](Quillmar&) {}, [](Quillmar& c) { c.SetAllowScientificFormat(true); },
        { u"AllowScientificFormat" } },
    { "byte clears the negative rule first", [](Quillmar& c) { c.SetMustBeNegative(true); },
        [](Quillmar& c) { c.SetMustBeType(vldByte); }, { u"MustBeNegative", u"MustBeType" } },
    { "integer", [](Quillmar&) {}, [](Quillmar& c) { c.SetMustBeType(vldInteger); }, { u"MustBeType" } },
    { "date", [](Quillmar&) {}, [](Quillmar& c) { c.SetMustBeType(vldDate); },
        { u"AllowScientificFormat", u"MustBeNegative", u"MustBePositive", u"MustBeType" } },
    { "time", [](Quillmar&) {}, [](Quillmar& c) { c.SetMustBeType(vldTime); },
        { u"AllowScientificFormat", u"MustBeNegative", u"MustBePositive", u"MustBeType" } },
    { "limit ignored quietly", [](Quillmar& c) { c.SetMustBeType(vldInteger); },
        [](Quillmar& c) { c.SetMinValue(u"abc"); }, {} },
    { "limit of a text field", [](Quillmar&) {}, [](Quillmar& c) { c.SetMaxValue(u"5"); }, { u"MaxValue" } },
    { "inert writers", [](Quillmar&) {},
        [](Quillmar& c) {
            c.SetBackColor(255);
            c.SetForeColor(255);
            c.SetFontName(u"Arial");
            c.SetFont(FontDesc { u"Arial", 20 });
        },
        {} },
    { "delegated writers", [](Quillmar&) {},
        [](Quillmar& c) {
            c.SetMaxLength(5);
            c.SetFontBold(true);
            c.SetEnabled(false);
        },
        { u"MaxLength", u"FontBold", u"Enabled" } },
};

TEST_F(PropertyModel, WritersNotifyInTheDocumentedOrder) {
    for (const SequenceCase& c : kSequences) {
        SCOPED_TRACE(c.name);
        standalone::StandaloneHost fresh { "en_US" };
        Quillmar field(fresh.Services());
        c.prepare(field);
        fresh.container.notifications.clear();
        c.action(field);
        EXPECT_EQ(fresh.container.notifications, c.expected);
    }
}

TEST_F(PropertyModel, TypeFlagsFollowTheType) {
    const auto flagsOf = [](const ControlState& s) {
        return std::vector<bool> { s.NumericMode, s.TypeIsByte, s.TypeIsInteger, s.TypeIsLong, s.TypeIsSingle,
            s.TypeIsDouble, s.TypeIsCurrency, s.TypeIsDate, s.TypeIsTime };
    };
    for (int32_t type = vldTime; type >= vldUnspecified; --type) {
        SCOPED_TRACE(type);
        control.SetMustBeType(type);
        std::vector<bool> expected(9, false);
        if (type >= vldByte && type <= vldCurrency)
            expected[0] = expected[static_cast<size_t>(type - 1)] = true;
        if (type == vldDate) expected[7] = true;
        if (type == vldTime) expected[8] = true;
        EXPECT_EQ(flagsOf(control.state()), expected);
    }
}

TEST_F(PropertyModel, SignRuleTurnsADateFieldIntoADoubleField) {
    control.SetMustBeType(vldDate);
    control.SetMinValue(u"12/31/2004");
    EXPECT_EQ(control.MinValue(), Variant(Date { 38352 }));
    control.SetMustBePositive(true);
    EXPECT_EQ(control.MustBeType(), vldDouble);
    EXPECT_TRUE(control.state().NumericMode && control.state().TypeIsDouble && !control.state().TypeIsDate);
    EXPECT_EQ(control.MinValue(), Variant(u""));
    // A later numeric type wins over the double that EnterNumericMode put in.
    control.SetMustBeType(vldDate);
    control.SetMustBeType(vldInteger);
    EXPECT_EQ(control.MustBeType(), vldInteger);
    EXPECT_FALSE(control.state().TypeIsDouble);
}

TEST_F(PropertyModel, DateTypeDropsLimitsOfTheOtherClass) {
    control.SetMustBeType(vldString);
    control.SetDefaultValue(u"10:30");
    control.SetMustBeType(vldTime);
    EXPECT_EQ(control.DefaultValue(), Variant(u"10:30"));
    control.SetMustBeType(vldDate);
    EXPECT_EQ(control.DefaultValue(), Variant(u""));
}

struct WriterCase {
    int32_t type;
    Variant given;
    Variant stored; // Empty: ignored
};

const WriterCase kDefaultCases[] = {
    { vldInteger, u"abc", {} },
    { vldInteger, u"12", 12.0 }, // texts become doubles
    { vldInteger, int32_t { 7 }, int32_t { 7 } },
    { vldString, u"abc", u"abc" },
    { vldDate, u"10:30", {} },
    { vldDate, u"1/2/2003", Date { 37623 } },
    { vldTime, u"12:00 PM", Date { 0.5 } },
    { vldInteger, u"", u"" },
};

TEST_F(PropertyModel, DefaultValueKeepsOnlyValuesOfTheType) {
    for (const WriterCase& c : kDefaultCases) {
        SCOPED_TRACE(c.type);
        standalone::StandaloneHost fresh { "en_US" };
        Quillmar field(fresh.Services());
        field.SetMustBeType(c.type);
        field.SetDefaultValue(u"sentinel");
        field.SetDefaultValue(c.given);
        if (c.stored.IsEmpty())
            EXPECT_NE(fresh.container.notifications.back(), u"DefaultValue");
        else
            EXPECT_EQ(field.DefaultValue(), c.stored);
    }
}

TEST_F(PropertyModel, LimitsExistOnlyForNumbersDatesAndTimes) {
    control.SetMaxValue(u"5");
    EXPECT_EQ(control.MaxValue(), Variant(u""));
    control.SetMustBeType(vldDouble);
    control.SetMaxValue(u"2,5");
    EXPECT_EQ(control.MaxValue(), Variant(25.0)); // the English comma groups digits
    host.locale.Set(LocaleInfo::FromName("de_DE"));
    control.SetMaxValue(u"2,5");
    EXPECT_EQ(control.MaxValue(), Variant(2.5));
    control.SetMustBeType(vldTime);
    EXPECT_EQ(control.MaxValue(), Variant(u""));
}

TEST_F(PropertyModel, ListsAreForDesignTimeOnly) {
    host.container.userMode = true;
    for (const auto& action : std::initializer_list<std::function<void()>> {
             [&] { (void)control.Actions(); }, [&] { (void)control.MustNotBeValues(); } }) {
        try {
            action();
            ADD_FAILURE();
        } catch (const PropertyError& e) {
            EXPECT_EQ(e.number(), 393);
        }
    }
    try {
        control.SetMustNotBeValues({ {}, u"0" });
        ADD_FAILURE();
    } catch (const PropertyError& e) {
        EXPECT_EQ(e.number(), 382);
    }
    host.container.userMode = false;
    const VariantArray actions = control.Actions();
    ASSERT_EQ(actions.size(), 4u);
    EXPECT_EQ(actions[1], Variant(int32_t { 33 }));
    EXPECT_EQ(actions[2], Variant(int32_t { 9 }));
    EXPECT_EQ(actions[3], Variant(int32_t { 17 }));
    control.SetMustNotBeValues({ {}, u"0", u"13", u"99" });
    EXPECT_EQ(control.MustNotBeValues().size(), 4u);
}

TEST_F(PropertyModel, TextWriterRemembersTheLastValidValue) {
    control.SetMustBeType(vldInteger);
    control.SetMinValue(u"10");
    control.SetText(u"12.5");
    EXPECT_TRUE(control.state().LastValidValue.IsEmpty()); // decimals are not an integer's
    control.SetText(u"42");
    EXPECT_EQ(control.state().LastValidValue, Variant(int16_t { 42 }));
    control.SetText(u"5");
    EXPECT_EQ(control.state().LastValidValue, Variant(int16_t { 42 }));
    EXPECT_EQ(control.Text(), u"5");
    EXPECT_EQ(control.CheckInput(), vldCCMinValue);
    EXPECT_FALSE(control.IsValid());
    EXPECT_EQ(events.log, (std::vector<std::string> { "Change", "Change", "Change" }));
}

TEST_F(PropertyModel, ValueKeepsFullPrecisionUntilTheUserEdits) {
    control.SetMustBeType(vldDouble);
    control.SetInputSifting(vldNone);
    control.SetMaxRelativeAccuracy(3);
    control.SetValue(3.14159265);
    EXPECT_EQ(control.Text(), u"3.14");
    EXPECT_EQ(control.Value(), Variant(3.14159265));
    host.editBox.SetText(u"2.5"); // the user types
    EXPECT_EQ(control.Value(), Variant(2.5));
    host.editBox.SetText(u"abc");
    EXPECT_EQ(control.Value(), Variant(u"abc"));
}

TEST_F(PropertyModel, UnspecifiedFieldIsAlwaysValid) {
    control.SetCustomMask(u"###");
    control.SetText(u"abc");
    EXPECT_EQ(control.CheckInput(), 0);
    EXPECT_TRUE(control.IsValid());
    control.SetMustBeType(vldString);
    EXPECT_EQ(control.CheckInput(), vldCCCustomMask);
}

TEST_F(PropertyModel, InertWritersLeaveTheEditBoxAlone) {
    const FontDesc font = host.editBox.Font();
    control.SetFont(FontDesc { u"Arial", 20 });
    control.SetFontName(u"Arial");
    control.SetBackColor(0xFF);
    control.SetForeColor(0xFF);
    EXPECT_EQ(host.editBox.Font(), font);
    EXPECT_EQ(control.BackColor(), 0x80000005u);
    EXPECT_EQ(control.ForeColor(), 0x80000008u);
    control.SetFontSize(12);
    EXPECT_EQ(host.editBox.Font().size, 12.0f);
}

} // namespace
} // namespace quillmar
