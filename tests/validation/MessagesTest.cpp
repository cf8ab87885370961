#include "validation/Messages.h"

#include <gtest/gtest.h>

#include <tuple>

namespace quillmar {
namespace {

constexpr int kPositive = 1;
constexpr int kNegative = 2;
constexpr int kNotZero = 4;

const LocaleInfo& Locale(const char* name) {
    static const LocaleInfo us = LocaleInfo::FromName("en_US");
    static const LocaleInfo de = LocaleInfo::FromName("de_DE");
    return std::string_view(name) == "de_DE" ? de : us;
}

// The three action lines show in the messages below; anything else adds no line.
TEST(ActionSuffix, IsEmptyForAnythingButAnActionCode) {
    EXPECT_EQ(ActionSuffix(0), u"");
    EXPECT_EQ(
        ActionSuffix(vldACInsertClosest | vldACChecked), u""); // a whole Actions entry is no action code
}

// The type, the broken constraints and the one line that names them.
const std::tuple<MustBeTypeConstants, int32_t, std::u16string> kBasicCases[] = {
    { vldInteger, vldCCRequiredField, u"This field is required." },
    { vldInteger, vldCCRequiredField | vldCCMustBeNumber, u"Invalid numeric entry." }, // not bit 1 alone
    { vldDate, vldCCMustBeDate | vldCCMinValue, u"Invalid date entry." },
    { vldTime, vldCCMustBeTime, u"Invalid time entry." },
    { vldString, vldCCMustBeNumber, u"Invalid numeric entry." }, // the bit speaks, not the type
    { vldCurrency, vldCCMinValue, u"Invalid numeric entry." },
    { vldDate, vldCCMaxValue, u"Invalid date entry." },
    { vldTime, vldCCMustNotBeValues, u"Invalid time entry." },
    { vldString, vldCCMustNotBeValues, u"" }, // deliberately without text
    { vldDouble, vldCCMaxNumberOfDecimals | vldCCAllowScientificFormat, u"Invalid numeric entry." },
    { vldDouble, vldCCMaxNumberOfDecimals, u"Invalid number of decimals. Maximum is 3." },
    { vldDouble, vldCCMaxNumberOfDecimals | vldCCRequiredField, u"" }, // no rule applies to a number
    { vldUnspecified, vldCCMaxLength, u"Invalid text entry. " },
};

TEST(ComposeErrorMessage, BasicModeGivesOneLineAndNoAction) {
    for (const auto& [type, bits, expected] : kBasicCases) {
        SCOPED_TRACE(bits);
        Settings s;
        s.ErrorMessageMode = vldAutoBasic;
        s.MustBeType = type;
        s.MaxNumberOfDecimals = 3;
        EXPECT_EQ(ComposeErrorMessage(u"x", bits, vldACInsertDefault, s, Locale("en_US"), 10), expected);
    }
}

struct ValueCase {
    MustBeTypeConstants type;
    Variant min;
    Variant max;
    int flags;
    VariantArray items;
    std::u16string text;
    int32_t bits;
    std::u16string expected;
    int32_t action = 0;
    const char* locale = "en_US";
    int32_t maxLength = 5;
};

const ValueCase kValueCases[] = {
    { vldInteger, u"", u"100", kPositive, {}, u"-3", vldCCMustBePositive,
        u"A positive integer <= 100 is required.\r\nDefault value inserted.", vldACInsertDefault },
    // A numeric minimum already says the sign.
    { vldByte, u"1", u"10", kPositive, {}, u"20", vldCCMaxValue,
        u"An integer between 1 and 10 is required." },
    // A bound that is not a number counts as absent.
    { vldLong, u"abc", u"", kPositive, {}, u"-1", vldCCMustBePositive, u"A positive integer is required." },
    { vldDouble, u"", u"", kPositive | kNegative, {}, u"1", vldCCMustBeNegative,
        u"A negative number is required." },
    { vldSingle, u"", u"-1", kNegative, {}, u"1", vldCCMaxValue, u"A number <= -1 is required." },
    { vldCurrency, 2.5, u"", kPositive, {}, u"1", vldCCMinValue, u"A number >= 2.5 is required." },
    { vldInteger, u"", u"", kNotZero, {}, u"0", vldCCMustNotBeZero,
        u"An integer is required.\r\nValue 0 is not allowed." },
    // A forbidden item replaces the zero line; the first numeric match is named, as stored.
    { vldDouble, u"", u"", kNotZero, { {}, u"x", u"0.01", u"0.0", u"0" }, u"-0",
        vldCCMustNotBeZero | vldCCMustNotBeValues, u"A number is required.\r\nValue 0.0 is not allowed." },
    { vldDouble, u"", u"", 0, {}, u"1.234", vldCCMaxNumberOfDecimals,
        u"Invalid number of decimals. Maximum is 2." },
    // The decimals message only stands for that bit alone.
    { vldDouble, u"5", u"", 0, {}, u"1.234", vldCCMaxNumberOfDecimals | vldCCMinValue,
        u"A number >= 5 is required." },
    // A text that is not a number never names a forbidden item.
    { vldInteger, u"1", u"10", 0, { {}, u"abc" }, u"abc", vldCCMustBeNumber, u"Invalid numeric entry." },
    { vldInteger, u"1", u"", 0, {}, u"", vldCCRequiredField,
        u"This field is required.\r\nPrevious value returned.", vldACReturnPrevious },
    { vldDouble, u"1,5", u"", kPositive, {}, u"1", vldCCMinValue, u"A number >= 1,5 is required.", 0,
        "de_DE" },
    { vldDouble, 1.5, 2.5, 0, {}, u"3", vldCCMaxValue, u"A number between 1,5 and 2,5 is required.", 0,
        "de_DE" },
    // "2.5" reads as 25 where the point groups thousands.
    { vldDouble, u"", u"", 0, { {}, u"2.5", u"2,5" }, u"2,5", vldCCMustNotBeValues,
        u"A number is required.\r\nValue 2,5 is not allowed.", 0, "de_DE" },
    // Dates and times.
    { vldDate, u"1/1/2020", u"12/31/2020", 0, {}, u"1/1/2019", vldCCMinValue,
        u"A date between 1/1/2020 and 12/31/2020 is required.\r\nClosest value inserted.",
        vldACInsertClosest },
    // A time bound is ignored by a date field.
    { vldDate, u"1/1/2020", u"17:00", 0, {}, u"1/1/2019", vldCCMinValue,
        u"A date after 1/1/2020 is required." },
    { vldDate, u"", u"12/31/2020", 0, {}, u"1/1/2021", vldCCMaxValue,
        u"A date before 12/31/2020 is required." },
    // Without a bound the main line stays empty, so the second line follows a bare line break.
    { vldDate, u"", u"", 0, { {}, u"x", u"01/01/2020" }, u"1/1/2020", vldCCMustNotBeValues,
        u"\r\nDate 01/01/2020 is not allowed." },
    { vldDate, u"1/1/2020", u"", 0, {}, u"1/1", vldCCMustBeDate, u"Invalid date entry." },
    { vldTime, u"8:00", u"", 0, { {}, u"12:00 PM" }, u"12:00", vldCCMustNotBeValues,
        u"A time after 8:00 is required.\r\nTime 12:00 PM is not allowed." },
    { vldTime, u"8:00", u"", 0, {}, u"1/1/2020", vldCCMustBeTime, u"Invalid time entry." },
    // Text: every line in a fixed order, whatever the order of the bits.
    { vldString, u"", u"", 0, {}, u"x", ~0,
        u"Invalid text entry.\r\nThis field must be in a form like ##-##.\r\n"
        u"Some of the characters in this text are not allowed.\r\nOnly letters are allowed.\r\n"
        u"Only letters and space are allowed.\r\nDigits are not allowed.\r\n"
        u"Only uppercase letters are allowed.\r\nOnly lowercase letters are allowed.\r\n"
        u"Only Proper Case text is allowed.\r\nMaximum allowed length of the text is 5 characters." },
    { vldString, u"", u"", 0, {}, u"x", vldCCValidCharactersSet,
        u"Invalid text entry.\r\nSome of the characters in this text are not allowed." },
    { vldString, u"", u"", 0, {}, u"xy", vldCCMaxLength,
        u"Invalid text entry.\r\nMaximum allowed length of the text is 1 character.", 0, "en_US", 1 },
    // Items match exactly: neither a trailing blank nor another case counts.
    { vldString, u"", u"", 0, { {}, u"ABC", u"abc ", u"abc" }, u"abc", vldCCMustNotBeValues,
        u"Invalid text entry.\r\n\"abc\" is not allowed.\r\nPrevious value returned.", vldACReturnPrevious },
    // Any type outside numbers and dates gets the text lines.
    { vldUnspecified, u"", u"", 0, { {}, u"ABC" }, u"abc", vldCCMustBeUpperCase,
        u"Invalid text entry.\r\nOnly uppercase letters are allowed." },
};

TEST(ComposeErrorMessage, AdvancedModeExplainsTheRuleAndTheAction) {
    for (const ValueCase& c : kValueCases) {
        SCOPED_TRACE(testing::Message() << "row " << &c - kValueCases);
        Settings s;
        s.MustBeType = c.type;
        s.MinValue = c.min;
        s.MaxValue = c.max;
        s.MustBePositive = (c.flags & kPositive) != 0;
        s.MustBeNegative = (c.flags & kNegative) != 0;
        s.MustNotBeZero = (c.flags & kNotZero) != 0;
        if (!c.items.empty()) s.MustNotBeValues = c.items;
        s.MaxNumberOfDecimals = 2;
        s.CustomMask = u"##-##";
        EXPECT_EQ(
            ComposeErrorMessage(c.text, c.bits, c.action, s, Locale(c.locale), c.maxLength), c.expected);
    }
}

TEST(ComposeErrorMessage, CustomAndUnknownModesGiveNoText) {
    Settings s;
    s.ErrorMessage = u"Own text"; // put in by the caller that shows the message
    for (const auto mode : { vldCustom, static_cast<ErrorMessageModeConstants>(0) }) {
        s.ErrorMessageMode = mode;
        EXPECT_EQ(
            ComposeErrorMessage(u"x", vldCCRequiredField, vldACInsertDefault, s, Locale("en_US"), 5), u"");
    }
}

} // namespace
} // namespace quillmar
