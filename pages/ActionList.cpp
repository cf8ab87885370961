#include "pages/ActionList.h"

#include "base/Enums.h"
#include "base/Utf8.h"
#include "validation/MessageCatalogue.h"

#include <limits>

namespace quillmar::pages {
namespace {

constexpr int32_t kActionFlags[] = { vldACInsertClosest, vldACInsertDefault, vldACReturnPrevious };
// The order the initial list tries the actions in, for actions a stored list lacks.
constexpr int32_t kInitialOrder[] = { vldACInsertClosest, vldACReturnPrevious, vldACInsertDefault };

int32_t FlagWord(const Variant& slot) {
    const auto value = slot.ToDouble();
    constexpr double kLowest = std::numeric_limits<int32_t>::min();
    constexpr double kHighest = std::numeric_limits<int32_t>::max();
    return value && *value >= kLowest && *value <= kHighest ? static_cast<int32_t>(*value) : 0;
}

bool Listed(const ActionEntries& entries, int32_t flag) {
    for (const ActionEntry& entry : entries)
        if (entry.flag == flag) return true;
    return false;
}

} // namespace

std::u16string ActionText(int32_t flag) {
    switch (flag) {
    case vldACInsertClosest:
        return FromUtf8(QUILLMAR_TEXT("ActionList", "Insert closest value if possible").english)
            .value_or(std::u16string());
    case vldACInsertDefault:
        return FromUtf8(QUILLMAR_TEXT("ActionList", "Insert default value if exist").english)
            .value_or(std::u16string());
    case vldACReturnPrevious:
        return FromUtf8(QUILLMAR_TEXT("ActionList", "Return previous value if valid").english)
            .value_or(std::u16string());
    default:
        return {};
    }
}

std::u16string ReturnFocusText() {
    return FromUtf8(QUILLMAR_TEXT("ActionList", "Return focus").english).value_or(std::u16string());
}

ActionEntries EntriesFromActions(const VariantArray& actions) {
    ActionEntries entries;
    for (size_t i = 1; i < actions.size(); ++i) {
        const int32_t word = FlagWord(actions[i]);
        for (const int32_t flag : kActionFlags) {
            if ((word & flag) == 0) continue;
            if (!Listed(entries, flag)) entries.push_back({ flag, (word & vldACChecked) != 0 });
            break;
        }
    }
    for (const int32_t flag : kInitialOrder)
        if (!Listed(entries, flag)) entries.push_back({ flag, false });
    return entries;
}

VariantArray ActionsFromEntries(const ActionEntries& entries) {
    VariantArray actions(1);
    for (const ActionEntry& entry : entries)
        actions.emplace_back(entry.flag | (entry.checked ? int32_t { vldACChecked } : 0));
    return actions;
}

bool SwapEntries(ActionEntries& entries, int i, int j) {
    const int count = static_cast<int>(entries.size());
    if (i == j || i < 1 || j < 1 || i > count || j > count) return false;
    std::swap(entries[static_cast<size_t>(i - 1)], entries[static_cast<size_t>(j - 1)]);
    return true;
}

MoveOutcome MoveUp(ActionEntries& entries, int row) {
    if (row == static_cast<int>(entries.size())) return MoveOutcome::ReturnFocusStays;
    return SwapEntries(entries, row + 1, row) ? MoveOutcome::Moved : MoveOutcome::Unchanged;
}

MoveOutcome MoveDown(ActionEntries& entries, int row) {
    // The row below the last entry is "Return focus", which the swap does not know: nothing moves there.
    return SwapEntries(entries, row + 1, row + 2) ? MoveOutcome::Moved : MoveOutcome::Unchanged;
}

} // namespace quillmar::pages
