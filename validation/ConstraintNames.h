#pragma once

#include <cstdint>
#include <string_view>

namespace quillmar {

/// The enumerator name of one `ConstraintsConstants` bit ("vldCCMaxValue"); the empty text for a value that
/// is not exactly one known bit.
[[nodiscard]] std::string_view ConstraintName(int32_t bit) noexcept;

/// Calls `visit(name)` for each known bit set in `bits`, lowest bit first.
template <typename Visit> void ForEachConstraintName(int32_t bits, Visit visit) {
    for (int shift = 0; shift < 31; ++shift) {
        const int32_t bit = int32_t { 1 } << shift;
        if ((bits & bit) != 0 && !ConstraintName(bit).empty()) visit(ConstraintName(bit));
    }
}

} // namespace quillmar
