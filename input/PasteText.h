#pragma once

#include "base/LocaleInfo.h"
#include "base/Settings.h"

#include <optional>
#include <string>
#include <string_view>

namespace quillmar {

/// The text a paste or a drop puts in place of the selection of a numeric, date or time field, made to read
/// as typed in the field's locale, or nullopt when the field refuses the paste whole. The field's sifting
/// then judges an accepted paste as it judges any change. In order: in a currency field every occurrence of
/// the locale's currency symbol and of its three-letter code (from ICU) is removed; decimal digits of any
/// script become ASCII digits, full-width signs and punctuation their ASCII forms, and dashes (U+2212 and the
/// other characters with the Unicode Dash property) "-"; white space around the text is removed. In a
/// numeric field, a space of any width, an apostrophe (U+0027, U+2019, U+02BC) or the locale's group
/// separator standing between two digits is a group mark. The paste is then judged with its marks as the
/// locale's group separator: unless it is a number under the locale's grouping, or the beginning of one that
/// ends in a sign, separator or exponent letter, and (with the marks kept when `ThousandSeparator` allows
/// grouping, removed when it forbids it) a number of the field's type or the beginning of one, it is refused,
/// so that "1 234,50" in en_US is never read as 123450. Texts of text fields (no type flag), and every paste
/// into a field that does not sift (`InputSifting` = `vldNone`), are given back as they came. Any code units
/// are accepted (a lone surrogate stays as it is); linear in the text's length.
[[nodiscard]] std::optional<std::u16string> NormalizePastedText(
    std::u16string_view text, const Settings& settings, const TypeFlags& flags, const LocaleInfo& locale);

} // namespace quillmar
