#include "pages/ActionList.h"

#include "control/Enums.h"

#include <gtest/gtest.h>

namespace quillmar::pages {
namespace {

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

} // namespace
} // namespace quillmar::pages
