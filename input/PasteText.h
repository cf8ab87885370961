#pragma once

#include "control/Settings.h"
#include "host/LocaleInfo.h"

#include <string>
#include <string_view>

namespace quillmar {

/// The text a paste or a drop puts in place of the selection of a numeric, date or time field, made to read
/// as typed in the field's locale; the field's sifting then judges it as it judges any paste. In order: in a
/// currency field every occurrence of the locale's currency symbol and of its three-letter code (from ICU) is
/// removed; decimal digits of any script become ASCII digits, full-width signs and punctuation their ASCII
/// forms, and dashes (U+2212 and the other characters with the Unicode Dash property) "-"; white space around
/// the text is removed. In a numeric field, a space of any width, an apostrophe (U+0027, U+2019, U+02BC) or
/// the locale's group separator standing between two digits becomes the locale's group separator when
/// `ThousandSeparator` allows grouping and is removed when it forbids it. A text that would be left empty
/// (only white space, only a currency symbol) is given back unchanged, for the sifting to refuse; so are the
/// texts of text fields (no type flag). Any code units are accepted (a lone surrogate stays as it is); linear
/// in the text's length.
[[nodiscard]] std::u16string NormalizePastedText(
    std::u16string_view text, const Settings& settings, const TypeFlags& flags, const LocaleInfo& locale);

} // namespace quillmar
