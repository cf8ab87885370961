#include "pages/PageChecks.h"
#include "base/Enums.h"

#include <gtest/gtest.h>

#include <tuple>

namespace quillmar::pages {
namespace {

const LocaleInfo us = LocaleInfo::FromName("en_US");

TEST(PageChecks, LimitsAreCompatibleWithTheirOwnKindOfTypeOnly) {
    const std::tuple<Variant, int32_t, bool> rows[] = {
        { u"12", vldInteger, true },
        { 12.5, vldDouble, true },
        { u"12:30", vldInteger, false }, // a time bounds no number
        { u"12:30", vldTime, true },
        { u"1/1/2000", vldDate, true },
        { u"1/1/2000", vldTime, false },
        { u"1/1/2000 10:00", vldTime, true }, // a date with a time counts as a time
        { u"12", vldDate, false },
        { u"", vldInteger, false },
    };
    for (const auto& [limit, type, compatible] : rows)
        EXPECT_EQ(IsLimitCompatible(limit, type, us), compatible) << "type " << type;
}

TEST(PageChecks, ConvertsByKindUnderTheLocale) {
    EXPECT_EQ(ConvertByKind(u"1,5", ValueKind::Number, LocaleInfo::FromName("de_DE")), 1.5);
    EXPECT_EQ(ConvertByKind(u"1/5", ValueKind::Number, us), std::nullopt);
    EXPECT_EQ(ConvertByKind(u"12:00", ValueKind::Date, us), 0.5);
    EXPECT_EQ(ConvertByKind(u"12/31/1899", ValueKind::Date, us), 1.0);
}

TEST(PageChecks, FindsTheDefaultInTheForbiddenList) {
    const VariantArray list { Variant(), u"abc", u"1.0", u"12/31/1899", u"7" };
    const std::tuple<Variant, int32_t, int> rows[] = {
        { u"abc", vldString, 0 },
        { u"ABC", vldString, -1 }, // text compares case by case
        { u"1", vldString, -1 },
        { u"1", vldDouble, 1 }, // numbers compare by value
        { u"12/31/1899", vldDate, 2 },
        { u"8", vldInteger, -1 },
    };
    for (const auto& [defaultValue, type, index] : rows)
        EXPECT_EQ(FindDefaultInList(list, defaultValue, type, us), index) << "type " << type;
}

// The default against the limits, the maximum first; an unreadable value or limit stops the comparison.
TEST(PageChecks, PlacesAValueAgainstItsLimits) {
    const Variant one(u"1"), ten(u"10"), hundred(u"100"), word(u"abc"), noon(u"12:00");
    const struct {
        const Variant* value;
        const Variant* min;
        const Variant* max;
        ValueKind kind;
        RangePosition expected;
    } rows[] = {
        { &ten, &one, &hundred, ValueKind::Number, RangePosition::Inside },
        { &hundred, &one, &ten, ValueKind::Number, RangePosition::AboveMax }, // beyond both: the maximum
        { &one, &ten, &hundred, ValueKind::Number, RangePosition::BelowMin },
        { &one, nullptr, nullptr, ValueKind::Number, RangePosition::Inside },
        { &word, &one, nullptr, ValueKind::Number, RangePosition::Unreadable },
        { &ten, &word, nullptr, ValueKind::Number, RangePosition::Unreadable },
        { &noon, nullptr, &ten, ValueKind::Number, RangePosition::Unreadable },
        { &ten, nullptr, &one, ValueKind::Number, RangePosition::AboveMax }, // a minimum above the maximum
    };
    for (const auto& row : rows)
        EXPECT_EQ(PositionInRange(*row.value, row.min, row.max, row.kind, us), row.expected);
}

TEST(PageChecks, FindsTheListItemsThatAreNoValueOfTheType) {
    const std::vector<std::u16string> items { u"12", u"abc", u"1.5", u"1/1/2000", u"" };
    EXPECT_EQ(ItemsNotOfType(items, vldInteger, us), (std::vector<size_t> { 1, 2, 3 }));
    EXPECT_EQ(ItemsNotOfType(items, vldDouble, us), (std::vector<size_t> { 1, 3 }));
    EXPECT_EQ(ItemsNotOfType(items, vldDate, us), (std::vector<size_t> { 0, 1, 2 }));
    EXPECT_TRUE(ItemsNotOfType(items, vldString, us).empty());
    EXPECT_TRUE(ItemsNotOfType(items, vldUnspecified, us).empty());
}

TEST(PageChecks, TheListCaptionCountsItsItems) {
    EXPECT_EQ(ForbiddenListCaption(0), u"MustNotBe&Values");
    EXPECT_EQ(ForbiddenListCaption(1), u"MustNotBe&Values (1 item)");
    EXPECT_EQ(ForbiddenListCaption(2), u"MustNotBe&Values (2 items)");
}

} // namespace
} // namespace quillmar::pages
