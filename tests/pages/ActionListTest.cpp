#include "pages/ActionList.h"

#include "base/Enums.h"

#include <gtest/gtest.h>

#include <tuple>

namespace quillmar::pages {
namespace {

const ActionEntry closest { vldACInsertClosest, true }, previous { vldACReturnPrevious, true },
    fallback { vldACInsertDefault, true };

TEST(ActionList, ReadsEachActionOnceAndWritesItBackInListOrder) {
    const std::tuple<const char*, VariantArray, ActionEntries> rows[] = {
        { "unchecked and reordered", { Variant(), 16, 33, 8 },
            { { vldACInsertDefault, false }, closest, { vldACReturnPrevious, false } } },
        // A slot that holds no action, or an action listed already, is passed over; what is missing comes
        // last, unchecked.
        { "a lost slot", { Variant(), 17, Variant(), 17 },
            { fallback, { vldACInsertClosest, false }, { vldACReturnPrevious, false } } },
        { "two actions in one slot: the first of closest, default, previous", { Variant(), 49, 9 },
            { closest, previous, { vldACInsertDefault, false } } },
    };
    for (const auto& [name, actions, entries] : rows)
        EXPECT_EQ(EntriesFromActions(actions), entries) << name;
    EXPECT_EQ(ActionsFromEntries(std::get<2>(rows[0])), std::get<1>(rows[0]));
}

// The moves on the page's list are driven through the page; here what it cannot reach.
TEST(ActionList, NothingMovesAboveTheFirstRowOrWithoutARow) {
    ActionEntries entries { closest, previous, fallback };
    EXPECT_EQ(MoveUp(entries, 0), MoveOutcome::Unchanged);
    EXPECT_EQ(MoveUp(entries, -1), MoveOutcome::Unchanged);
    EXPECT_EQ(MoveDown(entries, -1), MoveOutcome::Unchanged);
    EXPECT_EQ(entries, (ActionEntries { closest, previous, fallback }));
}

} // namespace
} // namespace quillmar::pages
