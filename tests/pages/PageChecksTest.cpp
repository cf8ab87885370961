#include "pages/PageChecks.h"
#include "control/Enums.h"
#include "pages/ActionList.h"

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

TEST(PageChecks, CaptionCountsTheItems) {
    EXPECT_EQ(ForbiddenListCaption(0), u"MustNotBe&Values");
    EXPECT_EQ(ForbiddenListCaption(1), u"MustNotBe&Values (1 item)");
    EXPECT_EQ(ForbiddenListCaption(12), u"MustNotBe&Values (12 items)");
}

TEST(PageChecks, EachTypeOffersItsOwnNumberFields) {
    // range, sign, notZero, scientific, decimals, thousands
    const NumDTEnables none {};
    EXPECT_EQ(NumDTEnablesFor(vldUnspecified), none);
    EXPECT_EQ(NumDTEnablesFor(vldString), none);
    EXPECT_EQ(NumDTEnablesFor(vldByte), (NumDTEnables { true, false, true, false, false, false }));
    EXPECT_EQ(NumDTEnablesFor(vldInteger), (NumDTEnables { true, true, true, false, false, true }));
    EXPECT_EQ(NumDTEnablesFor(vldDouble), (NumDTEnables { true, true, true, true, true, true }));
    EXPECT_EQ(NumDTEnablesFor(vldCurrency), (NumDTEnables { true, true, true, false, true, true }));
    EXPECT_EQ(NumDTEnablesFor(vldDate), (NumDTEnables { true, false, false, false, false, false }));
    EXPECT_FALSE(GeneralTypedFieldsEnabled(vldUnspecified));
    EXPECT_TRUE(GeneralTypedFieldsEnabled(vldString));
}

TEST(ActionList, ReadsEachActionOnceAndWritesItBackInListOrder) {
    const ActionEntry closest { vldACInsertClosest, true }, previous { vldACReturnPrevious, true },
        fallback { vldACInsertDefault, true };
    struct Row {
        const char* name;
        VariantArray actions;
        ActionEntries entries;
    };
    const Row rows[] = {
        { "the initial list", { Variant(), 33, 9, 17 }, { closest, previous, fallback } },
        { "unchecked and reordered", { Variant(), 16, 33, 8 },
            { { vldACInsertDefault, false }, closest, { vldACReturnPrevious, false } } },
        // A slot that holds no action, or an action listed already, is passed over; what is missing comes
        // last, unchecked.
        { "a lost slot", { Variant(), 17, Variant(), 17 },
            { fallback, { vldACInsertClosest, false }, { vldACReturnPrevious, false } } },
        { "two actions in one slot: the first of closest, default, previous", { Variant(), 49, 9 },
            { closest, previous, { vldACInsertDefault, false } } },
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(EntriesFromActions(row.actions), row.entries);
    }
    EXPECT_EQ(ActionsFromEntries(rows[1].entries), (VariantArray { Variant(), 16, 33, 8 }));
}

TEST(ActionList, MovesStopAtTheEndsAndReturnFocusStaysLast) {
    const ActionEntries initial = EntriesFromActions({ Variant(), 33, 9, 17 });
    struct Row {
        bool up;
        int row;
        MoveOutcome outcome;
        std::vector<int32_t> flags; // the order after the move
    };
    const Row rows[] = {
        { true, 1, MoveOutcome::Moved, { vldACReturnPrevious, vldACInsertClosest, vldACInsertDefault } },
        { false, 1, MoveOutcome::Moved, { vldACInsertClosest, vldACInsertDefault, vldACReturnPrevious } },
        { true, 0, MoveOutcome::Unchanged, { vldACInsertClosest, vldACReturnPrevious, vldACInsertDefault } },
        // Just above "Return focus": moving down changes nothing.
        { false, 2, MoveOutcome::Unchanged, { vldACInsertClosest, vldACReturnPrevious, vldACInsertDefault } },
        { true, 3, MoveOutcome::ReturnFocusStays,
            { vldACInsertClosest, vldACReturnPrevious, vldACInsertDefault } },
        { false, -1, MoveOutcome::Unchanged,
            { vldACInsertClosest, vldACReturnPrevious, vldACInsertDefault } },
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << (row.up ? "up " : "down ") << row.row);
        ActionEntries entries = initial;
        EXPECT_EQ(row.up ? MoveUp(entries, row.row) : MoveDown(entries, row.row), row.outcome);
        std::vector<int32_t> flags;
        for (const ActionEntry& entry : entries)
            flags.push_back(entry.flag);
        EXPECT_EQ(flags, row.flags);
    }
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
