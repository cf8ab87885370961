#pragma once

#include "base/LocaleInfo.h"
#include "base/Variant.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace quillmar {

/// The value in scientific notation: one digit, the locale's decimal separator, the fraction digits
/// (up to 15 significant digits for a double, the shortest exact digits for a single), "E", and the
/// exponent with "+" or "-" ("1.2345E+4", "1.2E-4", "1E+3", "0E+0"). The digit run that stands directly
/// before the "E" is cleaned as the field has always done it: when a zero stands there, every zero from
/// the first zero after the separator onwards is removed. A value that is not a number gives the empty text.
[[nodiscard]] std::u16string FormatScientific(const Variant& value, const LocaleInfo& locale);

/// Replaces every occurrence of `find` in `text` from the 1-based `start` on (0 counts as 1) by
/// `replacement`, resuming the search after each inserted replacement. An empty text or an empty
/// `find` leaves the text as it is.
[[nodiscard]] std::u16string ReplaceFrom(
    std::u16string text, std::u16string_view find, std::u16string_view replacement, int64_t start);

/// The decimal exponent of a number: the floor of its base-10 logarithm rounded to 14 decimals, so that
/// exact powers of ten land on their exponent. Zero has the exponent -300; a non-finite value gives 0.
[[nodiscard]] int16_t DecimalExponent(double value) noexcept;

/// The number divided by ten to the power of its decimal exponent: the sign kept, the magnitude in
/// [1, 10); 0 for 0.
[[nodiscard]] double Mantissa(double value) noexcept;

/// The value shown with `digits` significant digits, ties to even, as text with the locale's separator
/// and at most 15 significant digits. Digits of the whole part are never replaced by zeros: a value with
/// at least `digits` whole digits is only rounded to a whole number. A value that is not a number, or
/// `digits` of 0 or less, gives the value's text unchanged.
[[nodiscard]] std::u16string RoundToRelativeAccuracy(
    const Variant& value, int digits, const LocaleInfo& locale);

} // namespace quillmar
