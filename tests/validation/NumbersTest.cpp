#include "validation/Numbers.h"
#include "base/Enums.h"
#include "validation/Conversions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>
#include <tuple>

namespace quillmar {
namespace {

const LocaleInfo& Locale(const std::string& name) {
    static std::map<std::string, LocaleInfo> cache;
    auto it = cache.find(name);
    if (it == cache.end()) it = cache.emplace(name, LocaleInfo::FromName(name)).first;
    return it->second;
}

constexpr double kNotNumeric = std::numeric_limits<double>::quiet_NaN();

// The locale, the text and its value, or kNotNumeric.
const std::tuple<const char*, std::u16string, double> kParseCases[] = {
    // The same texts read under locales that swap the roles of "." and ",".
    { "en_US", u"1,234.5", 1234.5 }, { "en_GB", u"1,234.5", 1234.5 },
    { "de_DE", u"1,234.5", kNotNumeric }, // a group separator after the decimal comma
    { "fr_FR", u"1,234.5", kNotNumeric }, { "en_US", u"1.234,5", kNotNumeric },
    { "de_DE", u"1.234,5", 1234.5 },
    { "fr_FR", u"1 234,5", 1234.5 }, // typed with an ordinary space for the narrow no-break one
    { "fr_FR", u"1\u202F234,5", 1234.5 }, { "de_DE", u"1 234,5", kNotNumeric },
    // Signs, exponents, blanks and leading zeros.
    { "en_US", u"  -12.5e3 ", -12500 }, { "de_DE", u"-12,5E-1", -1.25 }, { "en_US", u"+.5", 0.5 },
    { "en_US", u"5.", 5 }, { "en_US", u"007", 7 }, { "en_US", u"1e-400", 0 }, // underflow reads as zero
    { "en_US", u"1e400", kNotNumeric }, // overflow is not a number
    { "en_US", u"1e99999999999999999999", kNotNumeric },
    // Not numbers.
    { "en_US", u".", kNotNumeric }, { "en_US", u"-", kNotNumeric }, { "en_US", u"", kNotNumeric },
    { "en_US", u"1e+", kNotNumeric }, { "en_US", u"e5", kNotNumeric }, { "en_US", u"1,,000", kNotNumeric },
    { "en_US", u",100", kNotNumeric }, { "en_US", u"1,000,", kNotNumeric },
    { "en_US", u"1.2.3", kNotNumeric }, { "en_US", u"--1", kNotNumeric }, { "en_US", u"1 2", kNotNumeric },
    { "en_US", u"12abc", kNotNumeric },
    { "en_US", u"\u0661\u0662", kNotNumeric } // Arabic-Indic digits are not read
};

TEST(NumericParser, ReadsLocaleNumbersAndRefusesTheRest) {
    for (const auto& [locale, text, expected] : kParseCases) {
        SCOPED_TRACE(std::string(locale) + " " + std::string(text.begin(), text.end()));
        const auto parsed = ParseNumber(text, Locale(locale));
        EXPECT_EQ(IsNumericText(text, Locale(locale)), !std::isnan(expected));
        if (std::isnan(expected)) {
            EXPECT_FALSE(parsed);
        } else {
            ASSERT_TRUE(parsed);
            EXPECT_EQ(parsed->value, expected);
        }
    }
}

TEST(NumericParser, LongTextsStayLinearAndExact) {
    const std::u16string digits(65536, u'9');
    EXPECT_FALSE(IsNumericText(digits, Locale("en_US"))); // 10^65536 overflows a double
    const std::u16string small = u"0." + std::u16string(65536, u'0') + u"1";
    EXPECT_EQ(TextToNumber(small, Locale("en_US")), 0.0);
}

const std::tuple<std::u16string, int32_t, Variant> kConvertCases[] = {
    // Beyond a type's range: empty, never wrapped.
    { u"300", vldByte, {} }, { u"255.4", vldByte, uint8_t { 255 } }, { u"255.5", vldByte, {} },
    { u"-0.4", vldByte, uint8_t { 0 } }, { u"32767.5", vldInteger, {} },
    { u"-32768.5", vldInteger, int16_t { -32768 } }, { u"2147483647", vldLong, int32_t { 2147483647 } },
    { u"2147483648", vldLong, {} },
    // Ties to even, decided on the digits rather than on the double.
    { u"2.5", vldInteger, int16_t { 2 } }, { u"3.5", vldInteger, int16_t { 4 } },
    { u"-2.5", vldInteger, int16_t { -2 } }, { u"0.5000000000000000001", vldInteger, int16_t { 1 } },
    { u"1.00005", vldCurrency, Currency { 10000 } }, { u"1.00015", vldCurrency, Currency { 10002 } },
    { u"922337203685477.5807", vldCurrency, Currency { std::numeric_limits<int64_t>::max() } },
    { u"922337203685477.5808", vldCurrency, {} },
    { u"-922337203685477.5808", vldCurrency, Currency { std::numeric_limits<int64_t>::min() } },
    { u"0.1", vldSingle, 0.1f }, { u"3.4e38", vldSingle, 3.4e38f }, { u"3.5e38", vldSingle, {} },
    { u"1e308", vldDouble, 1e308 }, { u"abc", vldDouble, {} }, { u"abc", vldString, u"abc" },
    { u"", vldUnspecified, u"" }, { u"12/31/2004", vldDate, Date { 38352 } },
    { u"12/31/2004 10:30", vldDate, {} }, // a date with a time counts as a time
    { u"10:30", vldTime, Date { 0.4375 } }, { u"12/31/2004", vldTime, {} }, { u"5", 10, {} } // no such type
};

TEST(ConvertToType, AppliesRangesAndRounding) {
    for (const auto& [text, type, expected] : kConvertCases) {
        SCOPED_TRACE(std::string(text.begin(), text.end()) + " as " + std::to_string(type));
        EXPECT_EQ(ConvertToType(text, type, Locale("en_US")), expected);
    }
}

TEST(ConvertToType, ConvertsValuesAsWellAsTexts) {
    const LocaleInfo& en = Locale("en_US");
    EXPECT_EQ(ConvertToType(Variant(2.5), vldInteger, en), Variant(int16_t { 2 }));
    EXPECT_EQ(ConvertToType(Variant(int32_t { 70000 }), vldInteger, en), Variant());
    EXPECT_EQ(ConvertToType(Variant(Currency { 15000 }), vldLong, en), Variant(int32_t { 2 }));
    EXPECT_EQ(ConvertToType(Variant(1.25), vldString, Locale("de_DE")), Variant(u"1,25"));
    EXPECT_EQ(ConvertToType(Variant(Date { 38352 }), vldDate, en), Variant(Date { 38352 }));
}

const std::tuple<double, int, std::u16string> kFormatCases[] = {
    // The shortest text that reads back, or the given number of significant digits.
    { 0.1, 0, u"0.1" }, { 0.1 + 0.2, 0, u"0.30000000000000004" }, { 0.1 + 0.2, 15, u"0.3" },
    { 123456789012345, 0, u"123456789012345" }, { 1e15, 0, u"1E+15" }, { 0.00001, 0, u"0.00001" },
    { 0.000001, 0, u"1E-6" }, { -1234.5, 0, u"-1234.5" }, { -0.0, 0, u"0" }, { 100, 0, u"100" }
};

TEST(NumberText, IsShortestAndUngrouped) {
    for (const auto& [value, maxSignificant, expected] : kFormatCases) {
        SCOPED_TRACE(value);
        EXPECT_EQ(FormatDouble(value, Locale("en_US"), maxSignificant), expected);
    }
    EXPECT_EQ(FormatDouble(-1234.5, Locale("de_DE")), u"-1234,5");
    EXPECT_EQ(FormatSingle(0.1f, Locale("fr_FR")), u"0,1");
    EXPECT_EQ(FormatCurrency(Currency { -12345 }, Locale("en_US")), u"-1.2345");
    EXPECT_EQ(FormatCurrency(Currency { 10000 }, Locale("en_US")), u"1");
    EXPECT_EQ(FormatCurrency(Currency { std::numeric_limits<int64_t>::min() }, Locale("de_DE")),
        u"-922337203685477,5808");
}

TEST(LocaleSeparators, FollowTheLocaleAndTheSetting) {
    EXPECT_EQ(DecimalSeparator(Locale("de_DE")), u",");
    EXPECT_EQ(ThousandsSeparator(vldTSAllowed, Locale("de_DE")), u".");
    EXPECT_EQ(ThousandsSeparator(vldTSAllowed, Locale("fr_FR")), u"\u202F");
    for (const char* name : { "en_US", "de_DE", "fr_FR" }) {
        EXPECT_EQ(ThousandsSeparator(vldTSForbidden, Locale(name)), u"");
        EXPECT_EQ(ThousandsSeparator(7, Locale(name)), u"");
    }
}

} // namespace
} // namespace quillmar
