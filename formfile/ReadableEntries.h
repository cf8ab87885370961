#pragma once

// The readable notation of a field's entries, as people write them by hand: each value in the plain JSON of
// its property (true, 40, "vldInteger", "Order date"), and a value of another kind tagged with its kind once
// ({"Date": "2024-01-01"}, {"Currency": "12.50"}); the lists as arrays.
#include "base/MemoryPropertyStore.h"
#include "formfile/FormText.h"

#include <optional>
#include <string>
#include <string_view>

namespace quillmar::formtext {

/// True for an entry in the older, type-tagged notation: an object with a "type" field.
[[nodiscard]] bool IsTypeTaggedEntry(const Json& entry);

/// The value of the entry `key` from its readable notation. The plain JSON of the property's kind gives that
/// kind: true or false a Boolean, a text a String, a whole number (or, for a property with named constants,
/// the constant's name such as "vldInteger") an Integer or a Long, a number a Single point size; for a
/// property that holds any single value, null is Empty, a text a String, a number a Double. "Font" is an
/// object of the font's keys; "MouseIcon" base64; "MustNotBeValues" an array of single values; "Actions" an
/// array of {"action": name, "checked": true or false}. A value of any other kind is an object of one field,
/// its kind's name (or "Time"), holding the value as the plain JSON of that kind: a date as
/// "2024-01-01T08:00:00.25" (or its count of days), a time as "08:00:00", a currency amount as a decimal
/// text of up to four decimals, bytes as base64, an array of variants as an array. Plain JSON of another
/// kind reads as what it is (a text a String), so that the entry checks refuse it in their own words.
/// nullopt with the fault in `fault` when the JSON is of no value at all.
[[nodiscard]] std::optional<Variant> ReadableEntryFromJson(
    std::u16string_view key, const Json& value, std::string& fault);

/// The entry `key` in the readable notation on one line, reading back as exactly `value`: a date or time
/// whose text would not give back the same count of days, and list or font bytes that are not exactly
/// those their items give, are written so that they do ({"Date": 45292.1}, {"ByteArray": "mAA="}).
[[nodiscard]] std::string ReadableEntryText(std::u16string_view key, const Variant& value);

} // namespace quillmar::formtext
