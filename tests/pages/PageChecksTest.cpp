#include "pages/PageChecks.h"
#include "control/Enums.h"

#include <gtest/gtest.h>

namespace quillmar::pages {
namespace {

const LocaleInfo us = LocaleInfo::FromName("en_US");
const LocaleInfo de = LocaleInfo::FromName("de_DE");

TEST(PageChecks, LimitsAreCompatibleWithTheirOwnKindOfTypeOnly) {
    struct Row {
        Variant limit;
        int32_t type;
        bool compatible;
    };
    const Row rows[] = {
        { u"12", vldInteger, true },
        { 12.5, vldDouble, true },
        { u"12:30", vldInteger, false }, // a time bounds no number
        { u"12:30", vldTime, true },
        { u"1/1/2000", vldDate, true },
        { u"1/1/2000", vldTime, false },
        { u"1/1/2000 10:00", vldTime, true }, // a date with a time counts as a time
        { u"12", vldDate, false },
        { u"abc", vldString, false },
        { u"", vldInteger, false },
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << "type " << row.type);
        EXPECT_EQ(IsLimitCompatible(row.limit, row.type, us), row.compatible);
    }
}

TEST(PageChecks, ConvertsByKindUnderTheLocale) {
    EXPECT_EQ(ConvertByKind(u"1,5", ValueKind::Number, de), 1.5);
    EXPECT_EQ(ConvertByKind(u"1/5", ValueKind::Number, us), std::nullopt);
    EXPECT_EQ(ConvertByKind(u"", ValueKind::Number, us), std::nullopt);
    EXPECT_EQ(ConvertByKind(u"12:00", ValueKind::Date, us), 0.5);
    EXPECT_EQ(ConvertByKind(u"12/31/1899", ValueKind::Date, us), 1.0);
    EXPECT_EQ(KindOfType(vldTime), ValueKind::Date);
    EXPECT_EQ(KindOfType(vldCurrency), ValueKind::Number);
}

TEST(PageChecks, FindsTheDefaultInTheForbiddenList) {
    const VariantArray list { Variant(), u"abc", u"1.0", u"12/31/1899", u"7" };
    struct Row {
        Variant defaultValue;
        int32_t type;
        int index;
    };
    const Row rows[] = {
        { u"abc", vldString, 0 },
        { u"ABC", vldString, -1 }, // text compares case by case
        { u"1", vldString, -1 },
        { u"1", vldDouble, 1 }, // numbers compare by value
        { u"7", vldInteger, 3 },
        { u"12/31/1899", vldDate, 2 },
        { u"8", vldInteger, -1 },
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << "type " << row.type);
        EXPECT_EQ(FindDefaultInList(list, row.defaultValue, row.type, us), row.index);
    }
    EXPECT_EQ(FindDefaultInList(VariantArray(1), u"abc", vldString, us), -1);
}

TEST(PageChecks, CheckingARuleUnchecksTheRestOfItsGroupOnly) {
    using enum TextRule;
    EXPECT_EQ(ExcludedBy(NoDigits), (std::array { OnlyLetters, OnlyLettersWithSpace }));
    EXPECT_EQ(ExcludedBy(OnlyLettersWithSpace), (std::array { OnlyLetters, NoDigits }));
    EXPECT_EQ(ExcludedBy(MustBeUpperCase), (std::array { MustBeLowerCase, MustBeProperCase }));
    EXPECT_EQ(ExcludedBy(MustBeProperCase), (std::array { MustBeLowerCase, MustBeUpperCase }));
    EXPECT_EQ(MessageFieldsEnabled(vldUnspecified, true, true), (MessageFieldEnables { true, true, false }));
    EXPECT_EQ(MessageFieldsEnabled(vldInteger, false, true), (MessageFieldEnables { false, false, true }));
    EXPECT_EQ(MessageFieldsEnabled(vldInteger, true, false), (MessageFieldEnables { true, false, true }));
    EXPECT_TRUE(TextPageEnabled(vldString));
    EXPECT_FALSE(TextPageEnabled(vldUnspecified) || SiftingEnabled(vldUnspecified));
}

} // namespace
} // namespace quillmar::pages
