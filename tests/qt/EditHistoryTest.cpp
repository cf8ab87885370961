#include "qt/EditHistory.h"

#include <gtest/gtest.h>

namespace quillmar::qt {
namespace {

// The oldest steps go once the history is full; the newest stay undoable in order.
TEST(EditHistoryTest, KeepsTheNewestSteps) {
    EditHistory history;
    history.Reset({});
    for (int i = 1; i <= int(EditHistory::kMaxSteps) + 5; ++i) {
        history.Begin({ QString::number(i - 1), 0, 0 });
        history.End({ QString::number(i), 0, 0 });
    }
    QString undone;
    for (std::size_t i = 0; i < EditHistory::kMaxSteps; ++i)
        undone = history.Undo().text;
    EXPECT_EQ(undone, QStringLiteral("5"));
    EXPECT_FALSE(history.CanUndo());
    EXPECT_EQ(history.Redo().text, QStringLiteral("6"));
}

} // namespace
} // namespace quillmar::qt
