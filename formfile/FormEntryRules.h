#pragma once

#include <quillmar/CoreExport.h>

#include "base/LocaleInfo.h"
#include "base/MemoryPropertyStore.h"
#include "base/Variant.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillmar {

/// What is wrong with one stored entry of a field in a form file: a property the field does not have, a
/// value of another kind than the control writes it in, or a value its writer (or the edit box) refuses (a
/// negative `MaxLength`, a `MustBeType` of 42, a list store with a missing item or a key of its own, actions
/// that are not three action words, a font store with a key the font does not have); nullopt when the
/// control takes the entry as it is.
[[nodiscard]] std::optional<std::string> EntryFault(std::u16string_view key, const Variant& value);

/// How a field's limits and default value meet.
enum class RangeCollision {
    None,
    /// `MinValue` lies above `MaxValue`.
    MinAboveMax,
    /// `DefaultValue` lies above `MaxValue`.
    DefaultAboveMax,
    /// `DefaultValue` lies below `MinValue`.
    DefaultBelowMin,
};

/// The first way in which the limits and the default value of a field of `type` exclude each other, in the
/// order listed in `RangeCollision`. A value counts only as the field's checks take it: for a numeric type a
/// value that passes the numeric conversion, for `vldDate` (`vldTime`) one that passes the date conversion
/// as a date (a time); an empty or unconvertible value, and every value of a text type or of
/// `vldUnspecified`, bounds nothing and is never out of range. Texts are read under `locale`.
[[nodiscard]] RangeCollision FindRangeCollision(int32_t type, const Variant& minValue,
    const Variant& maxValue, const Variant& defaultValue, const LocaleInfo& locale);

/// What is wrong with the entries of one field taken together.
struct EntriesFault {
    /// The entry or entries at fault, as a line names them: `entry "MaxLength"`, or
    /// `entries "MinValue" and "MaxValue"`.
    std::string entries;
    /// What is wrong.
    std::string what;
};

/// The first fault of a field's stored entries: the first entry, in store order, with an `EntryFault`;
/// else limits and a default value that exclude each other (`FindRangeCollision` of the stored
/// "MustBeType", "MinValue", "MaxValue" and "DefaultValue", absent ones at their defaults), each value shown
/// as `locale` writes it. nullopt when the field takes the entries as they are.
[[nodiscard]] QUILLMAR_CORE_EXPORT std::optional<EntriesFault> FieldEntriesFault(
    const quillmar::MemoryPropertyStore& entries, const LocaleInfo& locale);

} // namespace quillmar
