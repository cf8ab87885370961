#pragma once

// Reading a field's entries in either notation, as the form reader and the entries reader share it.
#include "base/MemoryPropertyStore.h"
#include "formfile/FaultLine.h"
#include "formfile/FormText.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace quillmar::formtext {

/// A JSON integer that fits `Int`; nullopt for any other value.
template <typename Int> std::optional<Int> IntegerOf(const Json& value) {
    if (value.is_number_unsigned()) {
        const auto number = value.get<uint64_t>();
        if (number > static_cast<uint64_t>(std::numeric_limits<Int>::max())) return std::nullopt;
        return static_cast<Int>(number);
    }
    if (!value.is_number_integer()) return std::nullopt;
    const auto number = value.get<int64_t>();
    if (number < std::numeric_limits<Int>::min() || number > std::numeric_limits<Int>::max())
        return std::nullopt;
    return static_cast<Int>(number);
}

/// A value of a plain kind (Empty, Boolean, Byte, Integer, Long, Single, Double, Currency) as JSON holds it
/// in both notations: null, true or false, a number within the kind's range, a currency amount as decimal
/// text; nullopt for any other JSON, or any other kind.
[[nodiscard]] std::optional<Variant> PlainValueFromJson(Variant::Kind kind, const Json& value);

/// The first field of `object` that is none of `known`, as "field "x" is not one <owner> has (a, b ...)",
/// so that a misspelt name is refused rather than ignored; nullopt when every field is known.
template <size_t N>
std::optional<std::string> UnknownField(
    const Json& object, const std::array<const char*, N>& known, std::string_view owner) {
    for (const auto& [key, value] : object.items()) {
        if (std::find(known.begin(), known.end(), key) != known.end()) continue;
        std::string names;
        for (const char* name : known)
            names += (names.empty() ? "" : ", ") + std::string(name);
        return "field " + Quoted(key) + " is not one " + std::string(owner) + " has (" + names + ")";
    }
    return std::nullopt;
}

/// Parses JSON text, refusing nesting deeper than 64 levels; nullopt with one line in `fault` (without the
/// parser's quote of the bytes it last read, which need not be text).
[[nodiscard]] std::optional<Json> ParseLimited(std::string_view json, std::string& fault);

/// Reads the object `properties` of entries into `store`, in the object's order. On a fault sets `error`
/// to one line naming `where` and the entry and returns false. `where.entry` is cleared on success.
[[nodiscard]] bool ReadEntries(
    const Json& properties, Location& where, MemoryPropertyStore& store, std::string& error);

} // namespace quillmar::formtext
