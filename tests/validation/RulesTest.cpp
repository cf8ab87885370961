#include "validation/Rules.h"
#include "validation/ColumnCheck.h"
#include "validation/Numbers.h"
#include "validation/NumericText.h"

#include <gtest/gtest.h>

#include <functional>
#include <tuple>

namespace quillmar {
namespace {

struct RuleCase {
    const char* name;
    std::u16string text;
    int32_t expected;
    MustBeTypeConstants type;
    std::function<void(Settings&)> declare = [](Settings&) {};
    const char* locale = "en_US";
    int32_t maxLength = 0;
};

// A forbidden-values list: slot 0 unused.
template <typename... Items> VariantArray Forbidden(Items... items) {
    return { Variant(), Variant(items)... };
}

const RuleCase kRuleCases[] = {
    // Empty texts only meet RequiredField.
    { "empty optional", u"", 0, vldUnspecified,
        [](Settings& s) { s.CustomMask = u"###", s.MinValue = 5.0; } },
    { "empty required", u"", vldCCRequiredField, vldInteger, [](Settings& s) { s.RequiredField = true; } },
    // Numbers.
    { "not a number stops", u"abc", vldCCMustBeNumber, vldInteger, [](Settings& s) { s.MinValue = 5.0; } },
    { "sign and minimum", u"-5", vldCCMustBePositive | vldCCMinValue, vldInteger,
        [](Settings& s) { s.MustBePositive = true, s.MinValue = 0.0; } },
    { "zero meets both signs", u"0", 0, vldInteger,
        [](Settings& s) { s.MustBePositive = s.MustBeNegative = true; } },
    { "zero refused", u"0", vldCCMustNotBeZero, vldInteger, [](Settings& s) { s.MustNotBeZero = true; } },
    { "negative rule", u"0.5", vldCCMustBeNegative, vldDouble, [](Settings& s) { s.MustBeNegative = true; } },
    { "forbidden by value", u"1.0", vldCCMustNotBeValues, vldDouble,
        [](Settings& s) { s.MustNotBeValues = Forbidden(u"x", u"1"); } },
    { "maximum", u"10.5", vldCCMaxValue, vldDouble, [](Settings& s) { s.MaxValue = u"10"; } },
    { "maximum met", u"10", 0, vldDouble, [](Settings& s) { s.MaxValue = 10.0; } },
    // Each type names its own bit.
    { "byte range", u"256", vldCCMustBeByte, vldByte },
    { "integer range", u"32768", vldCCMustBeInteger, vldInteger },
    { "integer lowest", u"-32768", 0, vldInteger },
    { "long range", u"2147483648", vldCCMustBeLong, vldLong },
    { "single range", u"1e39", vldCCMustBeSingle, vldSingle,
        [](Settings& s) { s.AllowScientificFormat = true; } },
    { "currency", u"922337203685477.5808", vldCCMustBeCurrency, vldCurrency },
    { "grouping forbidden", u"1,000", vldCCMustBeNumber, vldLong },
    { "grouping allowed", u"1,000", 0, vldLong, [](Settings& s) { s.ThousandSeparator = vldTSAllowed; } },
    { "grouping in German", u"1.000,5", 0, vldDouble, [](Settings& s) { s.ThousandSeparator = vldTSAllowed; },
        "de_DE" },
    { "decimals over", u"12.345", vldCCMaxNumberOfDecimals, vldDouble,
        [](Settings& s) { s.MaxNumberOfDecimals = 2; } },
    { "decimals at limit", u"12.345", 0, vldDouble, [](Settings& s) { s.MaxNumberOfDecimals = 3; } },
    { "decimals with comma", u"1,25", vldCCMaxNumberOfDecimals, vldDouble,
        [](Settings& s) { s.MaxNumberOfDecimals = 1; }, "fr_FR" },
    { "exponent not allowed", u"1E5", vldCCMustBeDouble | vldCCAllowScientificFormat, vldDouble },
    { "exponent allowed", u"-1.5e-5", 0, vldDouble, [](Settings& s) { s.AllowScientificFormat = true; } },
    // Dates and times.
    { "date with a time", u"12/31/2004 10:00", vldCCMustBeDate, vldDate },
    { "date in day order", u"31/12/2004", 0, vldDate, [](Settings&) {}, "en_GB" },
    { "date in month order", u"31/12/2004", vldCCMustBeDate, vldDate },
    { "time is not a date", u"12/31/2004", vldCCMustBeTime, vldTime },
    { "time limits", u"8:59 AM", vldCCMinValue, vldTime,
        [](Settings& s) { s.MinValue = u"9:00", s.MaxValue = u"17:00"; } },
    { "limit of the other class ignored", u"1/1/2030", 0, vldDate,
        [](Settings& s) { s.MaxValue = u"10:00"; } },
    { "date maximum", u"1/1/2005", vldCCMaxValue, vldDate, [](Settings& s) { s.MaxValue = Date { 38352 }; } },
    { "date forbidden", u"12/31/2004", vldCCMustNotBeValues, vldDate,
        [](Settings& s) { s.MustNotBeValues = Forbidden(u"abc", u"2004-12-31"); } },
    // Text: unspecified is checked as text, like a string.
    { "mask", u"123-4", vldCCCustomMask, vldString, [](Settings& s) { s.CustomMask = u"###-##"; } },
    { "upper", u"ABc", vldCCMustBeUpperCase, vldUnspecified, [](Settings& s) { s.MustBeUpperCase = true; } },
    { "lower", u"\u00C9t\u00E9", vldCCMustBeLowerCase, vldUnspecified,
        [](Settings& s) { s.MustBeLowerCase = true; } },
    { "proper lowers nothing", u"New YORK", 0, vldUnspecified,
        [](Settings& s) { s.MustBeProperCase = true; } },
    { "proper", u"new York", vldCCMustBeProperCase, vldUnspecified,
        [](Settings& s) { s.MustBeProperCase = true; } },
    { "max length", u"abcd", vldCCMaxLength, vldUnspecified, [](Settings&) {}, "en_US", 3 },
    { "max length met", u"abc", 0, vldUnspecified, [](Settings&) {}, "en_US", 3 },
    { "included hyphen", u"Jean-Luc", 0, vldUnspecified,
        [](Settings& s) { s.OnlyLetters = true, s.ExtraIncludedCharacters = u"-"; } },
    { "accented letter", u"Ren\u00E9", 0, vldUnspecified, [](Settings& s) { s.OnlyLetters = true; } },
    { "space among letters", u"a b", vldCCOnlyLetters, vldUnspecified,
        [](Settings& s) { s.OnlyLetters = true; } },
    { "space allowed", u"a b~", vldCCOnlyLettersWithSpace, vldUnspecified,
        [](Settings& s) { s.OnlyLettersWithSpace = true; } },
    { "excluded and included", u"x", vldCCExtraExcludedCharacters, vldUnspecified,
        [](Settings& s) { s.ExtraExcludedCharacters = s.ExtraIncludedCharacters = u"x"; } },
    { "valid set", u"abzd", vldCCValidCharactersSet, vldUnspecified,
        [](Settings& s) { s.ValidCharactersSet = u"abc", s.ExtraIncludedCharacters = u"z"; } },
    { "no digits", u"a1", vldCCNoDigits, vldUnspecified, [](Settings& s) { s.NoDigits = true; } },
    { "forbidden text is exact", u"admin", 0, vldUnspecified,
        [](Settings& s) { s.MustNotBeValues = Forbidden(u"Admin"); } },
    { "forbidden text", u"Admin", vldCCMustNotBeValues, vldUnspecified,
        [](Settings& s) { s.MustNotBeValues = Forbidden(u"Admin"); } },
};

TEST(EvaluateRules, ReportsTheBrokenConstraints) {
    for (const RuleCase& c : kRuleCases) {
        SCOPED_TRACE(c.name);
        Settings settings;
        settings.MustBeType = c.type;
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

// A group separator stands only between the locale's digit groups, in the whole part; a number without one
// always reads, and a field that forbids grouping takes none. The rule checker, the prepared rules and the
// column check agree on every row.
TEST(EvaluateRules, GroupSeparatorsOnlyBetweenTheLocalesDigitGroups) {
    constexpr int32_t kNumber = vldCCMustBeNumber;
    const struct {
        const char* locale;
        std::u16string text;
        int32_t allowed; // the bits with grouping allowed
        int32_t forbidden; // and forbidden
    } rows[] = {
        { "en_US", u"1,234,567.5", 0, kNumber },
        { "en_US", u"1234567.5", 0, 0 },
        { "en_US", u"-12,345", 0, kNumber },
        { "en_US", u"1,2,3", kNumber, kNumber },
        { "en_US", u"12,34", kNumber, kNumber },
        { "en_US", u"1,234,50", kNumber, kNumber }, // "1 234,50" read with the wrong decimal separator
        { "en_US", u"1234,567", kNumber, kNumber }, // a first group longer than the others
        { "en_US", u"1,234.567,8", kNumber, kNumber }, // never in the fraction
        { "de_DE", u"1.234.567,5", 0, kNumber },
        { "de_DE", u"12.34,5", kNumber, kNumber },
        { "fr_FR", u"1\u202F234,5", 0, kNumber },
        { "fr_FR", u"1 234 567", 0, kNumber }, // a typed space stands for the narrow no-break space
        { "fr_FR", u"12 34", kNumber, kNumber },
        { "en_IN", u"12,34,567", 0, kNumber },
        { "en_IN", u"1,234,567", kNumber, kNumber },
        { "en_IN", u"123,456", kNumber, kNumber },
        { "en_IN", u"1,23,45,678", 0, kNumber },
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.locale) + " " + std::string(row.text.begin(), row.text.end()));
        const LocaleInfo locale = LocaleInfo::FromName(row.locale);
        for (const bool grouped : { true, false }) {
            Settings settings;
            settings.MustBeType = vldDouble;
            settings.ThousandSeparator = grouped ? vldTSAllowed : vldTSForbidden;
            const PreparedRules prepared(settings, locale, 0);
            const std::u16string_view texts[] = { row.text };
            int32_t column[1] = { -1 };
            CheckColumn(prepared, texts, column);
            const int32_t expected = grouped ? row.allowed : row.forbidden;
            EXPECT_EQ(EvaluateRules(row.text, settings, locale, 0), expected) << "grouped " << grouped;
            EXPECT_EQ(prepared.Evaluate(row.text), expected) << "grouped " << grouped;
            EXPECT_EQ(column[0], expected) << "grouped " << grouped;
        }
    }
}

// The text, its type, whether the exponent form is allowed, and whether the text passes: beginnings of
// numbers pass; texts that can no longer become a number of the type fail.
const std::tuple<std::u16string, int32_t, bool, bool> kWholeTextCases[] = {
    { u"18446744073719103230", vldLong, false,
        false }, // twenty digits must not wrap around to a small number
    // Signs and groups.
    { u"", vldInteger, false, true }, { u"-", vldInteger, false, true }, { u"-", vldByte, false, false },
    { u"1,", vldLong, false, true }, { u"1,,", vldLong, false, false }, { u",1", vldLong, false, false },
    { u"1,0.5", vldDouble, false, true }, { u"1.5,0", vldDouble, false, false },
    { u"1,23", vldDouble, false, true }, // on its way to 1,234: its groups are judged when it is complete
    // Decimals and exponents.
    { u"1.", vldDouble, false, true }, { u"1.", vldInteger, false, false },
    { u"1.2.", vldDouble, false, false }, { u"5-", vldDouble, false, false },
    { u"1e", vldDouble, true, true }, { u"1e-", vldDouble, true, true }, { u"1e-5", vldDouble, true, true },
    { u"e", vldDouble, true, false }, { u"1e5e", vldDouble, true, false },
    { u"1e5-", vldDouble, true, false }, { u"1e+-5", vldDouble, true, false },
    { u"1e5", vldCurrency, true, false }, { u"1e400", vldDouble, true, false },
    // The ends of the ranges; a currency amount is rounded to four decimals first.
    { u"255", vldByte, false, true }, { u"0256", vldByte, false, false },
    { u"-2147483648", vldLong, false, true }, { u"-2147483649", vldLong, false, false },
    { u"1.23456", vldCurrency, false, true }, { u"922337203685478", vldCurrency, false, false }
};

TEST(NumericWholeTextTest, AcceptsBeginningsOfNumbersOnly) {
    const LocaleInfo english = LocaleInfo::FromName("en_US");
    for (const auto& [text, type, scientific, expected] : kWholeTextCases) {
        SCOPED_TRACE(std::string(text.begin(), text.end()) + " type " + std::to_string(type));
        EXPECT_EQ(NumericWholeTextTest(text, type, scientific, u",", english), expected);
    }
}

} // namespace
} // namespace quillmar
