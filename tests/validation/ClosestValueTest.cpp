#include "validation/ClosestValue.h"

#include <gtest/gtest.h>

#include <functional>

namespace quillmar {
namespace {

struct ClosestCase {
    const char* name;
    std::function<void(Settings&)> declare;
    std::u16string text;
    Variant expected; // Empty: no closest value
};

const ClosestCase kClosestCases[] = {
    { "above the maximum",
        [](Settings& s) {
            s.MustBeType = vldInteger;
            s.MaxValue = 100.0;
        },
        u"250", 100.0 },
    { "below the minimum",
        [](Settings& s) {
            s.MustBeType = vldDouble;
            s.MinValue = u"1.5";
        },
        u"-3", u"1.5" }, // the limit itself, as stored
    { "decimals rounded to even", [](Settings& s) { s.MustBeType = vldLong; }, u"2.5", 2.0 },
    { "rounded value forbidden: one more",
        [](Settings& s) {
            s.MustBeType = vldInteger;
            s.MustNotBeValues = { {}, u"2" };
        },
        u"2.4", 3.0 },
    { "one more forbidden too: one less",
        [](Settings& s) {
            s.MustBeType = vldInteger;
            s.MustNotBeValues = { {}, u"2", u"3" };
        },
        u"2.4", 1.0 },
    { "zero refused: one for a positive integer",
        [](Settings& s) {
            s.MustBeType = vldInteger;
            s.MustBePositive = true;
            s.MustNotBeZero = true;
        },
        u"-7", 1.0 },
    { "zero refused: nothing for a positive double",
        [](Settings& s) {
            s.MustBeType = vldDouble;
            s.MustBePositive = true;
            s.MustNotBeZero = true;
        },
        u"-7", {} },
    { "negative field",
        [](Settings& s) {
            s.MustBeType = vldDouble;
            s.MustBeNegative = true;
        },
        u"5", 0.0 },
    { "not a number", [](Settings& s) { s.MustBeType = vldInteger; }, u"abc", {} },
    { "text field", [](Settings& s) { s.MustBeType = vldString; }, u"abc", {} },
    { "date after the maximum",
        [](Settings& s) {
            s.MustBeType = vldDate;
            s.MaxValue = Date { 38352 };
        },
        u"1/5/2005", Date { 38352 } },
    { "time before the minimum",
        [](Settings& s) {
            s.MustBeType = vldTime;
            s.MinValue = u"9:00";
        },
        u"8:15", u"9:00" },
    { "single limit kept single, so that its text stays 0.1",
        [](Settings& s) {
            s.MustBeType = vldSingle;
            s.MaxValue = 0.1f;
        },
        u"5", 0.1f },
    { "date limit stored as text comes back in its own form",
        [](Settings& s) {
            s.MustBeType = vldDate;
            s.MaxValue = u"12/31/2099";
        },
        u"01/01/2100", u"12/31/2099" },
    { "limit of the other class ignored",
        [](Settings& s) {
            s.MustBeType = vldDate;
            s.MaxValue = u"10:00";
        },
        u"1/5/2005", Date { 38357 } },
};

TEST(FindClosestValue, HoldsTheValueWithinTheRules) {
    const LocaleInfo english = LocaleInfo::FromName("en_US");
    for (const ClosestCase& c : kClosestCases) {
        SCOPED_TRACE(c.name);
        Settings settings;
        c.declare(settings);
        EXPECT_EQ(FindClosestValue(c.text, settings, english, 0), c.expected);
    }
}

} // namespace
} // namespace quillmar
