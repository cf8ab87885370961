#pragma once

#include "base/LocaleInfo.h"
#include "base/Settings.h"
#include "base/Variant.h"

#include <optional>

namespace quillmar {

/// A limit (`MinValue`, `MaxValue`) or default value given as `value`, as a field of the type `flags`
/// describe holds it; texts are read under `locale`. Empty and the empty string give the empty string (the
/// value is cleared). A numeric field holds a number: a text as its double, any other value that reads as
/// a number as given. A date (time) field holds a date-time of its own class as a `Date`. A text field
/// holds the value as given. nullopt when the field cannot hold the value, which the writers then ignore.
[[nodiscard]] std::optional<Variant> CoerceRangeValue(
    const Variant& value, const TypeFlags& flags, const LocaleInfo& locale);

} // namespace quillmar
