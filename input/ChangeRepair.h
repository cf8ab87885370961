#pragma once

#include "base/LocaleInfo.h"
#include "base/Settings.h"
#include "input/Refusal.h"

#include <string>
#include <string_view>
#include <vector>

namespace quillmar {

/// Where a repair leaves the selection after writing its text, from the selection the edit box holds.
enum class RepairSelection {
    /// Where it was (a case forced, decimals cut away).
    Kept,
    /// A caret at the end of the text (spaces trimmed).
    CaretAtEnd,
    /// One place to the right, past the minus put in front.
    AfterLeadingMinus,
};

/// One text a repair writes into the edit box.
struct RepairEdit {
    std::u16string text;
    RepairSelection selection = RepairSelection::Kept;
};

/// What strong sifting makes of a changed text.
struct ChangeRepair {
    /// The texts to write, in order; each starts from the one before.
    std::vector<RepairEdit> edits;
    /// True when the repaired text can no longer become valid: the field springs back to its last settled
    /// text.
    bool refused = false;
    /// The rule that refused the text, or that cut it (`TooManyDecimals`); `None` when nothing was refused.
    Refusal refusal = Refusal::None;
};

/// Repairs a changed text under strong sifting, in this order: upper, lower and proper case forced (each
/// only under its rule); in a numeric field the spaces around the number trimmed (unless the locale groups
/// with a typed space), a minus put in front under `MustBeNegative` (also when trimming left nothing), and
/// decimals beyond `MaxNumberOfDecimals` cut away (a text in exponent form with too many decimals is refused
/// instead); then the whole-text test judges the result. The empty text is left alone. Pure: the control
/// writes the edits and springs back or settles.
[[nodiscard]] ChangeRepair RepairChangedText(
    std::u16string_view text, const Settings& settings, const TypeFlags& flags, const LocaleInfo& locale);

} // namespace quillmar
