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

TEST(PageChecks, TheListCaptionCountsItsItems) {
    EXPECT_EQ(ForbiddenListCaption(0), u"MustNotBe&Values");
    EXPECT_EQ(ForbiddenListCaption(1), u"MustNotBe&Values (1 item)");
    EXPECT_EQ(ForbiddenListCaption(2), u"MustNotBe&Values (2 items)");
}

} // namespace
} // namespace quillmar::pages
