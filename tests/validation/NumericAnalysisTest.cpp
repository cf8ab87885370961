#include "validation/NumericAnalysis.h"
#include "validation/Numbers.h"

#include <gtest/gtest.h>

#include <tuple>

namespace quillmar {
namespace {

const LocaleInfo kEnglish = LocaleInfo::FromName("en_US");
const LocaleInfo kGerman = LocaleInfo::FromName("de_DE");

TEST(DecimalExponent, LandsExactPowersOfTenOnTheirExponent) {
    // Zero and the smallest normal magnitudes share the lowest exponent; the logarithm of 9.99999999999999
    // rounds to 1 at 14 decimals.
    const std::pair<double, int16_t> cases[]
        = { { 0, -300 }, { 1e-300, -300 }, { 1000, 3 }, { 0.001, -3 }, { 999.999, 2 }, { -2500, 3 }, { 1, 0 },
              { 9.99999999999999, 1 }, { 1e308, 308 }, { 1e15, 15 }, { 1e-7, -7 } };
    for (const auto& [value, exponent] : cases) {
        SCOPED_TRACE(value);
        EXPECT_EQ(DecimalExponent(value), exponent);
    }
}

TEST(Mantissa, KeepsTheSignAndLiesBetweenOneAndTen) {
    EXPECT_DOUBLE_EQ(Mantissa(-2500), -2.5);
    EXPECT_EQ(Mantissa(0), 0);
    EXPECT_DOUBLE_EQ(Mantissa(0.00123), 1.23);
    EXPECT_DOUBLE_EQ(Mantissa(1000), 1);
    // The smallest doubles exactly, from their shortest decimal form (the least one is written 5E-324).
    EXPECT_EQ(Mantissa(1e-310), 1);
    EXPECT_EQ(Mantissa(2.5e-310), 2.5);
    EXPECT_EQ(Mantissa(-4.9e-324), -5);
    EXPECT_EQ(Mantissa(9.87e-305), 9.87);
}

const std::tuple<Variant, int, std::u16string> kRoundCases[] = {
    // The value, the significant digits to keep and the text.
    { 123456.0, 3, u"123456" }, // whole digits are never replaced by zeros
    { 123456.5, 3, u"123456" }, // ties to even on the whole number
    { 12.3456, 4, u"12.35" }, { 0.0123456, 3, u"0.0123" }, { 2.5, 1, u"2" }, { 3.5, 1, u"4" },
    { -12.3456, 2, u"-12" }, { 99.96, 3, u"100" },
    // The smallest doubles, rounded on their shortest decimal form and written without the noise of their
    // last
    // bits.
    { 1e-310, 3, u"1E-310" }, { 2.4567e-310, 3, u"2.46E-310" }, { 9.995e-310, 3, u"1E-309" },
    { -4.9e-324, 1, u"-5E-324" }, { 1.25e-305, 2, u"1.2E-305" },
    // Not a number, or no accuracy to round to: the value's text unchanged.
    { u"abc", 3, u"abc" }, { 12.3456, 0, u"12.3456" }, { u"1.5", -2, u"1.5" }
};

TEST(RoundToRelativeAccuracy, RoundsSignificantDigitsTiesToEven) {
    for (const auto& [value, digits, expected] : kRoundCases) {
        SCOPED_TRACE(std::string(expected.begin(), expected.end()));
        EXPECT_EQ(RoundToRelativeAccuracy(value, digits, kEnglish), expected);
    }
    EXPECT_EQ(RoundToRelativeAccuracy(12.3456, 4, kGerman), u"12,35");
}

const std::pair<Variant, std::u16string> kScientificCases[] = {
    // Doubles, singles and numeric texts; anything else gives no text.
    { 12345.0, u"1.2345E+4" }, { 0.00012, u"1.2E-4" },
    { 1000.0, u"1E+3" }, // a mantissa without fraction digits loses its separator
    { -1000.0, u"-1E+3" }, { 0.0, u"0E+0" }, { 1.5e300, u"1.5E+300" },
    { 0.1f, u"1E-1" }, // a single shows its own shortest digits, not the double's
    { u"2.5e10", u"2.5E+10" }, { u"abc", u"" }
};

TEST(FormatScientific, WritesOneDigitFractionAndSignedExponent) {
    for (const auto& [value, expected] : kScientificCases) {
        SCOPED_TRACE(std::string(expected.begin(), expected.end()));
        EXPECT_EQ(FormatScientific(value, kEnglish), expected);
    }
    EXPECT_EQ(FormatScientific(12345.0, kGerman), u"1,2345E+4");
}

TEST(ReplaceFrom, ReplacesFromTheStartAndResumesAfterTheReplacement) {
    const struct {
        std::u16string text, find, replacement;
        int64_t start;
        std::u16string expected;
    } cases[] = {
        { u"a0b0c0", u"0", u"", 0, u"abc" }, // a start below 1 searches the whole text
        { u"a0b0c0", u"0", u"", 3, u"a0bc" }, // 1-based: the search starts at "b"
        { u"E5", u"E", u"E+", 1, u"E+5" }, // the replacement holds the needle: no endless loop
        { u"aaaa", u"aa", u"a", 1, u"aa" },
        // Nothing to search in, nothing to search for, or a start past the end.
        { u"", u"x", u"y", 1, u"" },
        { u"abc", u"", u"y", 1, u"abc" },
        { u"abc", u"c", u"d", 10, u"abc" },
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.expected.begin(), c.expected.end()));
        EXPECT_EQ(ReplaceFrom(c.text, c.find, c.replacement, c.start), c.expected);
    }
}

} // namespace
} // namespace quillmar
