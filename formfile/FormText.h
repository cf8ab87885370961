#pragma once

// The texts of values in form files, shared by the form-file reader, writer and checks.
#include "base/MemoryPropertyStore.h"
#include "base/Utf8.h"

#include <nlohmann/json.hpp>

#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>

namespace quillmar::formtext {

using Json = nlohmann::ordered_json;

/// How long a value shown in an error may be before it is cut.
inline constexpr size_t kShownValueLength = 40;

/// A value as JSON writes it, cut to `kShownValueLength` characters.
inline std::string Shown(const Json& value) {
    std::string text = value.dump(-1, ' ', false, Json::error_handler_t::replace);
    if (text.size() > kShownValueLength) text = text.substr(0, kShownValueLength) + "...";
    return text;
}

/// A name in double quotes, its line breaks and other control characters escaped as JSON writes them, so
/// that an error stays one line whatever a damaged file holds.
inline std::string Quoted(std::string_view utf8) {
    return Json(std::string(utf8)).dump(-1, ' ', false, Json::error_handler_t::replace);
}

inline std::string Quoted(std::u16string_view text) {
    return Quoted(quillmar::ToUtf8(text));
}

/// A float as the double of its shortest text, so that 0.1f reads "0.1" in a file and comes back as 0.1f.
inline double SingleAsDouble(float value) {
    if (!std::isfinite(value)) return value;
    std::array<char, 32> buffer {};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    double result = value;
    std::from_chars(buffer.data(), written.ptr, result);
    return result;
}

/// Bytes as base64 with padding.
[[nodiscard]] std::string Base64Encode(const ByteArray& bytes);
/// Strict base64 with padding: groups of four characters, "=" only at the end of the last group; nullopt with
/// the fault in `fault` for anything else.
[[nodiscard]] std::optional<ByteArray> Base64Decode(std::string_view text, std::string& fault);
/// A currency amount as "-12.3456": the whole part, then a point and up to four decimals when there are any.
[[nodiscard]] std::string CurrencyText(Currency amount);
/// An amount from an optional minus, digits, and optionally a point and one to four digits; nullopt for
/// anything else or an amount beyond the currency range.
[[nodiscard]] std::optional<Currency> CurrencyFrom(std::string_view text);

} // namespace quillmar::formtext
