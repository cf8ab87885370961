#pragma once

#include <string>
#include <string_view>

namespace quillmar {

/// The text with every code point mapped to its simple upper-case form; the length never changes.
[[nodiscard]] std::u16string UpperCase(std::u16string_view text);

/// The text with every code point mapped to its simple lower-case form; the length never changes.
[[nodiscard]] std::u16string LowerCase(std::u16string_view text);

/// The text with its first character and every character that follows a space in upper case; every other
/// character is left exactly as it is (nothing is lowered).
[[nodiscard]] std::u16string ProperCase(std::u16string_view text);

} // namespace quillmar
