#pragma once

#include <quillmar/CoreExport.h>

#include "base/LocaleInfo.h"
#include "base/Variant.h"
#include "validation/Numbers.h"

#include <optional>
#include <string>

namespace quillmar {

/// Date-time classes of a value, as `ClassifyDateTime` reports them.
enum DateTimeClass : int {
    NotDateTime = 0,
    DateClass = 1,
    TimeClass = 2,
};

/// The text form of a value under the locale: a string as it is; numbers as `FormatInteger`,
/// `FormatSingle`, `FormatDouble` (shortest round trip) and `FormatCurrency`; dates as `FormatDateTime`;
/// Booleans "True" or "False"; Empty, byte arrays and arrays the empty text.
[[nodiscard]] QUILLMAR_CORE_EXPORT std::u16string TextOf(const Variant& value, const LocaleInfo& locale);

/// The exact number a value stands for: a string through `ParseNumber` under `grouping`, a number or
/// Boolean (-1, 0) by its own value; nullopt for anything else (dates included: their text is not a number).
[[nodiscard]] std::optional<ParsedNumber> NumberOf(
    const Variant& value, const LocaleInfo& locale, Grouping grouping = Grouping::Locale);

/// The value of `NumberOf` as a double, read directly from numeric variants (the checks compare doubles).
[[nodiscard]] QUILLMAR_CORE_EXPORT std::optional<double> NumericValueOf(
    const Variant& value, const LocaleInfo& locale);

/// True when `NumberOf` gives a number.
[[nodiscard]] QUILLMAR_CORE_EXPORT bool IsNumericValue(const Variant& value, const LocaleInfo& locale);

/// The date-time number of a value: a `Date` as it is, anything else through the date parser applied to
/// its text form; nullopt when it is not a date or time.
[[nodiscard]] QUILLMAR_CORE_EXPORT std::optional<double> DateTimeOf(
    const Variant& value, const LocaleInfo& locale);

/// 0 when the value does not pass the date conversion, else 2 (a time) when its text form holds ":",
/// else 1 (a date). A date followed by a time therefore counts as a time.
[[nodiscard]] QUILLMAR_CORE_EXPORT int ClassifyDateTime(const Variant& value, const LocaleInfo& locale);

/// The value converted to the given `MustBeTypeConstants` type: the text itself for `vldUnspecified` and
/// `vldString`; the byte, 16-bit or 32-bit integer (rounded ties to even), the single, the double or the
/// currency amount (four decimals, ties to even) for numeric texts within the type's range; the date-time
/// for texts of class 1 (`vldDate`) or 2 (`vldTime`). Numeric texts are read under `grouping` (a field's
/// text under its `GroupingOf(ThousandSeparator)`). Empty on any failure, for a type outside 0..9 too.
[[nodiscard]] Variant ConvertToType(
    const Variant& value, int32_t type, const LocaleInfo& locale, Grouping grouping = Grouping::Locale);

} // namespace quillmar
