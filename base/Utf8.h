#pragma once

#include <quillmar/CoreExport.h>

#include <optional>
#include <string>
#include <string_view>

namespace quillmar {

/// Writes the UTF-16 form of UTF-8 bytes to `out`, which has room for `utf8.size()` units, and sets
/// `written`. Returns false when the bytes are not UTF-8 (as `AppendUtf16` says).
[[nodiscard]] bool DecodeUtf8(std::string_view utf8, char16_t* out, size_t& written) noexcept;

/// Appends the UTF-16 form of UTF-8 bytes to `out`. Returns false, leaving `out` partly appended, when the
/// bytes are not UTF-8 (a stray or missing continuation byte, an overlong form, a surrogate, a code point
/// beyond U+10FFFF). Runs of ASCII go through a fast path.
[[nodiscard]] bool AppendUtf16(std::string_view utf8, std::u16string& out);

/// Appends the UTF-8 form of a UTF-16 text; an unpaired surrogate becomes U+FFFD.
void AppendUtf8(std::u16string_view utf16, std::string& out);

/// The UTF-8 form of a UTF-16 text; a lone surrogate becomes U+FFFD.
[[nodiscard]] QUILLMAR_CORE_EXPORT std::string ToUtf8(std::u16string_view text);
/// The UTF-16 form of a UTF-8 text; nullopt for invalid UTF-8 (overlong forms, surrogates, code points
/// above U+10FFFF, truncated sequences).
[[nodiscard]] QUILLMAR_CORE_EXPORT std::optional<std::u16string> FromUtf8(std::string_view text);

} // namespace quillmar
