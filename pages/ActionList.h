#pragma once

#include "base/Variant.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quillmar::pages {

/// One corrective action as the Behavior page lists it: its `ActionsConstants` flag (`vldACInsertClosest`,
/// `vldACReturnPrevious` or `vldACInsertDefault`) and whether it is on.
struct ActionEntry {
    int32_t flag = 0;
    bool checked = false;
    friend bool operator==(const ActionEntry&, const ActionEntry&) = default;
};

/// The page's list: each of the three actions exactly once, in the order they are tried.
using ActionEntries = std::vector<ActionEntry>;

/// The item text of an action flag ("Insert closest value if possible" ...); the empty text for any other.
[[nodiscard]] std::u16string ActionText(int32_t flag);
/// The text of the fixed last item, "Return focus".
[[nodiscard]] std::u16string ReturnFocusText();

/// The list of an `Actions` value (slots 1 to 3). Each slot stands for the first of insert closest, insert
/// default and return previous that its flags hold, checked when they hold `vldACChecked`; a slot that holds
/// no action, or one already listed, is passed over, and an action no slot holds is added unchecked at the
/// end, so that the list always holds the three actions once each.
[[nodiscard]] ActionEntries EntriesFromActions(const VariantArray& actions);
/// The `Actions` value of a list: slot 0 Empty, then each entry's flag, plus `vldACChecked` when it is on.
[[nodiscard]] VariantArray ActionsFromEntries(const ActionEntries& entries);

/// Exchanges entries i and j (1-based); does nothing and answers false when i equals j or either lies
/// outside 1 to the number of entries.
bool SwapEntries(ActionEntries& entries, int i, int j);

/// What a move on the shown list did. The shown list is the entries in order, then "Return focus" (at row
/// index `entries.size()`, 0-based).
enum class MoveOutcome {
    /// The item was exchanged with its neighbour and is now at the row the move gives.
    Moved,
    /// Nothing to do: no item selected, the first item moved up, or an item moved down onto "Return focus".
    Unchanged,
    /// "Return focus" was asked to move up: it never moves, and the author is told so.
    ReturnFocusStays,
};

/// Moves the entry shown at `row` (0-based) one row up.
[[nodiscard]] MoveOutcome MoveUp(ActionEntries& entries, int row);
/// Moves the entry shown at `row` (0-based) one row down; nothing ever goes below "Return focus".
[[nodiscard]] MoveOutcome MoveDown(ActionEntries& entries, int row);

} // namespace quillmar::pages
