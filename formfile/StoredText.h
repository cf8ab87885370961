#pragma once

#include "validation/PreparedRules.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace quillmar {

/// The text a person would have typed for a stored value of a field, under the field's locale: an integer
/// as its digits; a real number with the locale's decimal separator (as a single for a single field, plain
/// digits unless the field takes the exponent form); a text "YYYY-MM-DD" in a date field or "HH:MM:SS" in
/// a time field in the locale's date or time form; a number text with "." in a numeric field with the
/// locale's separator; a null as the empty text; any other text as it is.
struct StoredValue {
    enum class Kind { Null, Integer, Real, Text } kind = Kind::Null;
    int64_t integer = 0;
    double real = 0;
    std::string_view text; // UTF-8
};
[[nodiscard]] std::u16string TypedText(const StoredValue& value, const PreparedRules& rules);

} // namespace quillmar
