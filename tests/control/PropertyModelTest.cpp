#include "control/Quillmar.h"
#include "host/standalone/StandaloneHost.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <tuple>

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

// The number of the error `action` raises; 0 when it raises none.
int ErrorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const PropertyError& error) {
        return error.number();
    }
    return 0;
}

// What the error `action` raises says; empty when it raises none.
std::string MessageOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const PropertyError& error) {
        return error.what();
    }
    return {};
}

TEST_F(PropertyModel, RangeChecksRaise380AndChangeNothing) {
    // Just beyond each end of the ranges.
    const std::function<void()> refused[] = { [&] { control.SetMustBeType(10); },
        [&] { control.SetMustBeType(-1); }, [&] { control.SetThousandSeparator(2); },
        [&] { control.SetValidationMode(2); }, [&] { control.SetErrorMessageMode(0); },
        [&] { control.SetErrorMessageMode(4); }, [&] { control.SetInputSifting(3); },
        [&] { control.SetMessageBoxIcon(5); }, [&] { control.SetMaxRelativeAccuracy(33); } };
    control.SetMustBeType(vldInteger);
    const Settings before = control.settings();
    for (const auto& action : refused) {
        SCOPED_TRACE(&action - refused);
        EXPECT_EQ(NotificationsOf([&] { EXPECT_EQ(ErrorOf(action), 380); }), Names {});
        EXPECT_EQ(control.settings(), before);
        EXPECT_TRUE(control.state().NumericMode && control.state().TypeIsInteger);
    }
    EXPECT_EQ(MessageOf([&] { control.SetMustBeType(42); }), "MustBeType: 42 is out of range (380)");
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

// The documented order: store, notify, then the interlocks through the other writers; MustBeType last.
TEST_F(PropertyModel, WritersNotifyInTheDocumentedOrder) {
    const std::pair<void (Quillmar::*)(bool), Names> rules[] = {
        { &Quillmar::SetMustBeUpperCase, { u"MustBeUpperCase", u"MustBeLowerCase", u"MustBeProperCase" } },
        { &Quillmar::SetMustBeLowerCase, { u"MustBeLowerCase", u"MustBeUpperCase", u"MustBeProperCase" } },
        { &Quillmar::SetMustBeProperCase, { u"MustBeProperCase", u"MustBeUpperCase", u"MustBeLowerCase" } },
        { &Quillmar::SetNoDigits, { u"NoDigits", u"OnlyLetters", u"OnlyLettersWithSpace" } },
        { &Quillmar::SetOnlyLetters, { u"OnlyLetters", u"NoDigits", u"OnlyLettersWithSpace" } },
        { &Quillmar::SetOnlyLettersWithSpace, { u"OnlyLettersWithSpace", u"NoDigits", u"OnlyLetters" } },
        { &Quillmar::SetMustBePositive, { u"MustBePositive", u"MustBeNegative" } },
        { &Quillmar::SetMustBeNegative, { u"MustBeNegative", u"MustBePositive" } },
        { &Quillmar::SetAllowScientificFormat, { u"AllowScientificFormat" } }, // it has no partner
    };
    for (const auto& [rule, expected] : rules) {
        SCOPED_TRACE(testing::PrintToString(expected[0]));
        EXPECT_EQ(NotificationsOf([&, set = rule] { (control.*set)(true); }), expected);
    }
    EXPECT_EQ(NotificationsOf([&] { control.SetMustBeUpperCase(false); }), Names { u"MustBeUpperCase" });
    EXPECT_EQ(NotificationsOf([&] { control.SetMaxValue(u"5"); }), Names { u"MaxValue" }); // stored or not
    control.SetMustBeNegative(true);
    EXPECT_EQ(NotificationsOf([&] { control.SetMustBeType(vldByte); }),
        (Names { u"MustBeNegative", u"MustBeType" }));
    EXPECT_EQ(NotificationsOf([&] { control.SetMustBeType(vldInteger); }), Names { u"MustBeType" });
    EXPECT_EQ(NotificationsOf([&] { control.SetMinValue(u"abc"); }), Names {}); // ignored quietly
    EXPECT_EQ(NotificationsOf([&] { control.SetMustBeType(vldDate); }), // and a time alike
        (Names { u"AllowScientificFormat", u"MustBeNegative", u"MustBePositive", u"MustBeType" }));
    EXPECT_EQ(NotificationsOf(
                  [&] { control.SetMaxLength(5), control.SetFontBold(true), control.SetEnabled(false); }),
        (Names { u"MaxLength", u"FontBold", u"Enabled" })); // writers that hand over to the edit box
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

TEST_F(PropertyModel, DefaultValueKeepsOnlyValuesOfTheType) {
    const std::tuple<int32_t, Variant, Variant> cases[] = {
        // The value stored, or Empty where the value is ignored, quietly.
        { vldInteger, u"abc", {} },
        { vldInteger, u"12", 12.0 }, // texts become doubles
        { vldInteger, int32_t { 7 }, int32_t { 7 } },
        { vldString, u"abc", u"abc" },
        { vldDate, u"10:30", {} },
        { vldDate, u"1/2/2003", Date { 37623 } },
        { vldTime, u"12:00 PM", Date { 0.5 } },
        { vldInteger, u"", u"" },
    };
    for (const auto& [type, given, stored] : cases) {
        SCOPED_TRACE(type);
        control.SetMustBeType(type);
        control.SetDefaultValue(u"");
        const Names sent = NotificationsOf([&, value = given] { control.SetDefaultValue(value); });
        EXPECT_EQ(sent, stored.IsEmpty() ? Names {} : Names { u"DefaultValue" });
        EXPECT_EQ(control.DefaultValue(), stored.IsEmpty() ? Variant(u"") : stored);
    }
}

TEST_F(PropertyModel, LimitsExistOnlyForNumbersDatesAndTimes) {
    control.SetMaxValue(u"5");
    EXPECT_EQ(control.MaxValue(), Variant(u""));
    control.SetMustBeType(vldDouble);
    control.SetMaxValue(u"2,500");
    EXPECT_EQ(control.MaxValue(), Variant(2500.0)); // the English comma groups digits
    control.SetMaxValue(u"2,5"); // in threes only: not a number, so ignored
    EXPECT_EQ(control.MaxValue(), Variant(2500.0));
    host.locale.Set(LocaleInfo::FromName("de_DE"));
    control.SetMaxValue(u"2,5");
    EXPECT_EQ(control.MaxValue(), Variant(2.5));
    control.SetMustBeType(vldTime);
    EXPECT_EQ(control.MaxValue(), Variant(u""));
    // A date or time type drops the limits of the other class only.
    control.SetMustBeType(vldString);
    control.SetDefaultValue(u"10:30");
    control.SetMustBeType(vldTime);
    EXPECT_EQ(control.DefaultValue(), Variant(u"10:30"));
    control.SetMustBeType(vldDate);
    EXPECT_EQ(control.DefaultValue(), Variant(u""));
}

TEST_F(PropertyModel, ListsAreForDesignTimeOnly) {
    host.container.userMode = true;
    EXPECT_EQ(ErrorOf([&] { (void)control.Actions(); }), 393);
    EXPECT_EQ(ErrorOf([&] { (void)control.MustNotBeValues(); }), 393);
    EXPECT_EQ(ErrorOf([&] { control.SetMustNotBeValues({ {}, u"0" }); }), 382);
    EXPECT_EQ(MessageOf([&] { control.SetActions({}); }), "Actions: cannot be set at run time (382)");
    EXPECT_EQ(MessageOf([&] { (void)control.MustNotBeValues(); }),
        "MustNotBeValues: cannot be read at run time (393)");
    host.container.userMode = false;
    EXPECT_EQ(control.Actions(), Settings::InitialActions());
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

TEST_F(PropertyModel, InertWritersLeaveTheEditBoxAlone) {
    const FontDesc font = host.editBox.Font();
    control.SetFont(FontDesc { u"Arial", 20 });
    control.SetFontName(u"Arial");
    control.SetBackColor(0xFF);
    control.SetForeColor(0xFF);
    EXPECT_TRUE(host.container.notifications.empty());
    EXPECT_EQ(host.editBox.Font(), font);
    EXPECT_EQ(control.BackColor(), 0x80000005u);
    EXPECT_EQ(control.ForeColor(), 0x80000008u);
    control.SetFontSize(12);
    EXPECT_EQ(host.editBox.Font().size, 12.0f);
}

} // namespace
} // namespace quillmar
