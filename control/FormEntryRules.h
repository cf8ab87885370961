#pragma once

#include "control/Variant.h"

#include <optional>
#include <string>
#include <string_view>

namespace quillmar {

/// What is wrong with one stored entry of a field in a form file: a property the field does not have, a
/// value of another kind than the control writes it in, or a value its writer (or the edit box) refuses (a
/// negative `MaxLength`, a `MustBeType` of 42, a list store with a missing item, actions that are not three
/// action words); nullopt when the control takes the entry as it is.
[[nodiscard]] std::optional<std::string> EntryFault(std::u16string_view key, const Variant& value);

} // namespace quillmar
