#pragma once

#include <quillmar/CoreExport.h>

#include "base/LocaleInfo.h"
#include "base/Settings.h"

#include <cstdint>
#include <string_view>

namespace quillmar {

/// True when the set is not empty and holds the character (exact, case-sensitive).
[[nodiscard]] bool CharInSet(char16_t c, std::u16string_view set) noexcept;

/// The character rules one code unit breaks under the settings (excluded characters, valid set, no digits,
/// letters only, letters and space), as `EvaluateRules` applies them to each character of a text: an
/// included character is exempt from every rule but the exclusion; code units of 127 and above pass the
/// letter rules.
[[nodiscard]] int32_t CharacterRules(char16_t c, const Settings& settings) noexcept;

/// The constraint bit of a numeric type's own test (`vldCCMustBeByte` ... `vldCCMustBeCurrency`; the
/// currency bit for any other type).
[[nodiscard]] int32_t TypeBit(int32_t type) noexcept;

/// The constraints the text breaks under the settings, as an OR of `ConstraintsConstants` bits; 0 when the
/// text is valid. `maxLength` is the edit box's limit (0: none). Stages, in order: an empty text is only
/// checked against `RequiredField`; a date or time is checked for its class, limits and forbidden values;
/// a number for being a number, sign and zero, forbidden values, limits, the type's shape, decimals and the
/// scientific format; any other text for the mask, case, length and character rules and forbidden values.
/// Conversions that fail count as broken constraints or skipped items; never throws.
/// The type used is `settings.MustBeType`; `vldUnspecified` is checked as text.
[[nodiscard]] QUILLMAR_CORE_EXPORT int32_t EvaluateRules(
    std::u16string_view text, const Settings& settings, const LocaleInfo& locale, int32_t maxLength);

} // namespace quillmar
