#include "validation/Rules.h"
#include "validation/Numbers.h"
#include "validation/NumericText.h"

#include <gtest/gtest.h>

#include <functional>

namespace quillmar {
namespace {

struct RuleCase {
    const char* name;
    std::function<void(Settings&)> declare;
    std::u16string text;
    int32_t expected;
    const char* locale = "en_US";
    int32_t maxLength = 0;
};

Settings Numeric(MustBeTypeConstants type) {
    Settings s;
    s.MustBeType = type;
    return s;
}

const RuleCase kRuleCases[] = {
    // Empty texts only meet RequiredField.
    { "empty optional",
        [](Settings& s) {
            s.CustomMask = u"###";
            s.MinValue = 5.0;
        },
        u"", 0 },
    { "empty required",
        [](Settings& s) {
            s.RequiredField = true;
            s.MustBeType = vldInteger;
        },
        u"", vldCCRequiredField },
    // Numbers.
    { "not a number stops",
        [](Settings& s) {
            s = Numeric(vldInteger);
            s.MinValue = 5.0;
        },
        u"abc", vldCCMustBeNumber },
    { "sign and minimum",
        [](Settings& s) {
            s = Numeric(vldInteger);
            s.MustBePositive = true;
            s.MinValue = 0.0;
        },
        u"-5", vldCCMustBePositive | vldCCMinValue },
    { "zero meets both signs",
        [](Settings& s) {
            s = Numeric(vldInteger);
            s.MustBePositive = s.MustBeNegative = true;
        },
        u"0", 0 },
    { "zero refused",
        [](Settings& s) {
            s = Numeric(vldInteger);
            s.MustNotBeZero = true;
        },
        u"0", vldCCMustNotBeZero },
    { "negative rule",
        [](Settings& s) {
            s = Numeric(vldDouble);
            s.MustBeNegative = true;
        },
        u"0.5", vldCCMustBeNegative },
    { "forbidden by value",
        [](Settings& s) {
            s = Numeric(vldDouble);
            s.MustNotBeValues = { {}, u"x", u"1" };
        },
        u"1.0", vldCCMustNotBeValues },
    { "maximum",
        [](Settings& s) {
            s = Numeric(vldDouble);
            s.MaxValue = u"10";
        },
        u"10.5", vldCCMaxValue },
    { "maximum met",
        [](Settings& s) {
            s = Numeric(vldDouble);
            s.MaxValue = 10.0;
        },
        u"10", 0 },
    { "byte range", [](Settings& s) { s = Numeric(vldByte); }, u"256", vldCCMustBeByte },
    { "byte has no sign", [](Settings& s) { s = Numeric(vldByte); }, u"-1", vldCCMustBeByte },
    { "integer range", [](Settings& s) { s = Numeric(vldInteger); }, u"32768", vldCCMustBeInteger },
    { "integer lowest", [](Settings& s) { s = Numeric(vldInteger); }, u"-32768", 0 },
    { "integer has no decimals", [](Settings& s) { s = Numeric(vldInteger); }, u"2.5", vldCCMustBeInteger },
    { "long range", [](Settings& s) { s = Numeric(vldLong); }, u"2147483648", vldCCMustBeLong },
    { "single range",
        [](Settings& s) {
            s = Numeric(vldSingle);
            s.AllowScientificFormat = true;
        },
        u"1e39", vldCCMustBeSingle },
    { "double minus inside", [](Settings& s) { s = Numeric(vldDouble); }, u"1-", vldCCMustBeNumber },
    { "currency", [](Settings& s) { s = Numeric(vldCurrency); }, u"922337203685477.5808",
        vldCCMustBeCurrency },
    { "grouping forbidden", [](Settings& s) { s = Numeric(vldLong); }, u"1,000", vldCCMustBeLong },
    { "grouping allowed",
        [](Settings& s) {
            s = Numeric(vldLong);
            s.ThousandSeparator = vldTSAllowed;
        },
        u"1,000", 0 },
    { "grouping in German",
        [](Settings& s) {
            s = Numeric(vldDouble);
            s.ThousandSeparator = vldTSAllowed;
        },
        u"1.000,5", 0, "de_DE" },
    { "decimals over",
        [](Settings& s) {
            s = Numeric(vldDouble);
            s.MaxNumberOfDecimals = 2;
        },
        u"12.345", vldCCMaxNumberOfDecimals },
    { "decimals at limit",
        [](Settings& s) {
            s = Numeric(vldDouble);
            s.MaxNumberOfDecimals = 3;
        },
        u"12.345", 0 },
    { "decimals with comma",
        [](Settings& s) {
            s = Numeric(vldDouble);
            s.MaxNumberOfDecimals = 1;
        },
        u"1,25", vldCCMaxNumberOfDecimals, "fr_FR" },
    { "exponent not allowed", [](Settings& s) { s = Numeric(vldDouble); }, u"1E5",
        vldCCMustBeDouble | vldCCAllowScientificFormat },
    { "exponent allowed",
        [](Settings& s) {
            s = Numeric(vldDouble);
            s.AllowScientificFormat = true;
        },
        u"-1.5e-5", 0 },
    // Dates and times.
    { "date with a time", [](Settings& s) { s.MustBeType = vldDate; }, u"12/31/2004 10:00", vldCCMustBeDate },
    { "date in day order", [](Settings& s) { s.MustBeType = vldDate; }, u"31/12/2004", 0, "en_GB" },
    { "date in month order", [](Settings& s) { s.MustBeType = vldDate; }, u"31/12/2004", vldCCMustBeDate },
    { "date in German", [](Settings& s) { s.MustBeType = vldDate; }, u"31.12.2004", 0, "de_DE" },
    { "time is not a date", [](Settings& s) { s.MustBeType = vldTime; }, u"12/31/2004", vldCCMustBeTime },
    { "time limits",
        [](Settings& s) {
            s.MustBeType = vldTime;
            s.MinValue = u"9:00";
            s.MaxValue = u"17:00";
        },
        u"8:59 AM", vldCCMinValue },
    { "limit of the other class ignored",
        [](Settings& s) {
            s.MustBeType = vldDate;
            s.MaxValue = u"10:00";
        },
        u"1/1/2030", 0 },
    { "date maximum",
        [](Settings& s) {
            s.MustBeType = vldDate;
            s.MaxValue = Date { 38352 };
        },
        u"1/1/2005", vldCCMaxValue },
    { "date forbidden",
        [](Settings& s) {
            s.MustBeType = vldDate;
            s.MustNotBeValues = { {}, u"abc", u"2004-12-31" };
        },
        u"12/31/2004", vldCCMustNotBeValues },
    // Text.
    { "mask",
        [](Settings& s) {
            s.MustBeType = vldString;
            s.CustomMask = u"###-##";
        },
        u"123-4", vldCCCustomMask },
    { "malformed mask",
        [](Settings& s) {
            s.MustBeType = vldString;
            s.CustomMask = u"[a-";
        },
        u"a", vldCCCustomMask },
    { "upper", [](Settings& s) { s.MustBeUpperCase = true; }, u"ABc", vldCCMustBeUpperCase },
    { "lower", [](Settings& s) { s.MustBeLowerCase = true; }, u"\u00C9t\u00E9", vldCCMustBeLowerCase },
    { "proper lowers nothing", [](Settings& s) { s.MustBeProperCase = true; }, u"New YORK", 0 },
    { "proper", [](Settings& s) { s.MustBeProperCase = true; }, u"new York", vldCCMustBeProperCase },
    { "max length", [](Settings&) {}, u"abcd", vldCCMaxLength, "en_US", 3 },
    { "max length met", [](Settings&) {}, u"abc", 0, "en_US", 3 },
    { "included hyphen",
        [](Settings& s) {
            s.OnlyLetters = true;
            s.ExtraIncludedCharacters = u"-";
        },
        u"Jean-Luc", 0 },
    { "accented letter", [](Settings& s) { s.OnlyLetters = true; }, u"Ren\u00E9", 0 },
    { "digit among letters", [](Settings& s) { s.OnlyLetters = true; }, u"R2", vldCCOnlyLetters },
    { "space among letters", [](Settings& s) { s.OnlyLetters = true; }, u"a b", vldCCOnlyLetters },
    { "space allowed", [](Settings& s) { s.OnlyLettersWithSpace = true; }, u"a b~",
        vldCCOnlyLettersWithSpace },
    { "excluded and included",
        [](Settings& s) { s.ExtraExcludedCharacters = s.ExtraIncludedCharacters = u"x"; }, u"x",
        vldCCExtraExcludedCharacters },
    { "valid set",
        [](Settings& s) {
            s.ValidCharactersSet = u"abc";
            s.ExtraIncludedCharacters = u"z";
        },
        u"abzd", vldCCValidCharactersSet },
    { "no digits", [](Settings& s) { s.NoDigits = true; }, u"a1", vldCCNoDigits },
    { "forbidden text is exact",
        [](Settings& s) {
            s.MustNotBeValues = { {}, u"Admin" };
        },
        u"admin", 0 },
    { "forbidden text",
        [](Settings& s) {
            s.MustNotBeValues = { {}, u"Admin" };
        },
        u"Admin", vldCCMustNotBeValues },
    { "several text bits",
        [](Settings& s) {
            s.NoDigits = true;
            s.MustBeUpperCase = true;
        },
        u"a1", vldCCNoDigits | vldCCMustBeUpperCase },
};

TEST(EvaluateRules, ReportsTheBrokenConstraints) {
    for (const RuleCase& c : kRuleCases) {
        SCOPED_TRACE(c.name);
        Settings settings;
        c.declare(settings);
        EXPECT_EQ(EvaluateRules(c.text, settings, LocaleInfo::FromName(c.locale), c.maxLength), c.expected);
    }
}

TEST(EvaluateRules, LongTextWithEveryCharacterRule) {
    Settings settings;
    settings.MustBeType = vldString;
    settings.ValidCharactersSet = u"abcdefghijklmnopqrstuvwxyz ";
    settings.ExtraExcludedCharacters = u"#";
    settings.ExtraIncludedCharacters = u"-";
    settings.OnlyLettersWithSpace = true;
    settings.MustBeLowerCase = true;
    std::u16string text(65536, u'a');
    EXPECT_EQ(EvaluateRules(text, settings, LocaleInfo {}, 0), 0);
    text.back() = u'#';
    EXPECT_EQ(EvaluateRules(text, settings, LocaleInfo {}, 0),
        vldCCExtraExcludedCharacters | vldCCValidCharactersSet | vldCCOnlyLettersWithSpace);
}

struct WholeTextCase {
    std::u16string text;
    int32_t type;
    bool scientific;
    bool expected;
};

// Beginnings of numbers pass; texts that can no longer become a number of the type fail.
const WholeTextCase kWholeTextCases[] = {
    { u"", vldInteger, false, true },
    { u"-", vldInteger, false, true },
    { u"-", vldByte, false, false },
    { u"1,", vldLong, false, true },
    { u"1,,", vldLong, false, false },
    { u",1", vldLong, false, false },
    { u"1,0.5", vldDouble, false, true },
    { u"1.5,0", vldDouble, false, false },
    { u"1.", vldDouble, false, true },
    { u"1.", vldInteger, false, false },
    { u"1.2.", vldDouble, false, false },
    { u"5-", vldDouble, false, false },
    { u"1e", vldDouble, true, true },
    { u"1e-", vldDouble, true, true },
    { u"1e-5", vldDouble, true, true },
    { u"e", vldDouble, true, false },
    { u"1e5e", vldDouble, true, false },
    { u"1e5-", vldDouble, true, false },
    { u"1e+-5", vldDouble, true, false },
    { u"1e5", vldCurrency, true, false },
    { u"1e400", vldDouble, true, false },
    { u"255", vldByte, false, true },
    { u"0256", vldByte, false, false },
    { u"-2147483648", vldLong, false, true },
    { u"-2147483649", vldLong, false, false },
    { u"1.23456", vldCurrency, false, true }, // rounds to four decimals
    { u"922337203685478", vldCurrency, false, false },
};

TEST(NumericWholeTextTest, AcceptsBeginningsOfNumbersOnly) {
    const LocaleInfo english = LocaleInfo::FromName("en_US");
    for (const WholeTextCase& c : kWholeTextCases) {
        SCOPED_TRACE(std::string(c.text.begin(), c.text.end()) + " type " + std::to_string(c.type));
        EXPECT_EQ(NumericWholeTextTest(c.text, c.type, c.scientific, u",", english), c.expected);
    }
}

} // namespace
} // namespace quillmar
