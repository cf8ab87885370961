#pragma once

#include "base/LocaleInfo.h"
#include "base/Variant.h"

#include <optional>
#include <string>
#include <string_view>

namespace quillmar {

/// A number read from a text, kept exactly: the value is `digits` x 10^`exponent`, negated when `negative`.
struct ParsedNumber {
    bool negative = false;
    /// The significant decimal digits (ASCII) without leading or trailing zeros; empty for zero.
    std::string digits;
    /// The power of ten of the last digit.
    int64_t exponent = 0;
    /// The nearest double (a signed zero for zero or an underflow).
    double value = 0;
};

/// A number's sign, significant digits and power of ten as `ParsedNumber` holds them, without owning the
/// digits: the allocation-free checks read numbers through it.
struct NumberDigits {
    bool negative = false;
    /// The significant decimal digits (ASCII) without leading or trailing zeros; empty for zero.
    std::string_view digits;
    /// The power of ten of the last digit.
    int64_t exponent = 0;
};

/// The digits of a parsed number, viewing its `digits`.
[[nodiscard]] inline NumberDigits DigitsOf(const ParsedNumber& number) noexcept {
    return { number.negative, number.digits, number.exponent };
}

/// Where the locale's group separator may stand in the whole part of a number's text.
enum class Grouping {
    /// Nowhere: a text with a group separator is not a number.
    None,
    /// Only between the locale's digit groups: the group before the decimal separator holds exactly
    /// `LocaleInfo::groupingSize` digits, each group before it `secondaryGroupingSize`, the first one 1 to
    /// that many ("1,234,567"; "12,34,567" in en_IN). Never first, last or twice in a row, never in the
    /// fraction. A number without separators always reads.
    Locale,
    /// Between any two digits of the whole part: the texts a user passes through while typing or deleting
    /// in a grouped number ("1,23", "1,234,56"). Only for judging such beginnings, never a value.
    Loose,
};

/// The grouping a field's `ThousandSeparator` setting allows: `Grouping::Locale` for `vldTSAllowed`,
/// `Grouping::None` for every other value.
[[nodiscard]] Grouping GroupingOf(int32_t thousandSeparator) noexcept;

/// The one numeric parser of the system. Accepts: blanks (space, tab) before and after; an optional
/// leading "+" or "-"; decimal digits among which the locale's group separator may stand in the whole part
/// as `grouping` says (where that separator is a space of any width, an ordinary or no-break space also
/// counts); at most one locale decimal separator; at least one digit; an optional exponent of "E" or "e",
/// an optional sign and one or more digits. A value beyond the double range is not a number.
/// Never throws; O(length).
[[nodiscard]] std::optional<ParsedNumber> ParseNumber(
    std::u16string_view text, const LocaleInfo& locale, Grouping grouping = Grouping::Locale);

/// True when `ParseNumber` accepts the text.
[[nodiscard]] bool IsNumericText(
    std::u16string_view text, const LocaleInfo& locale, Grouping grouping = Grouping::Locale);

/// The text's value as a double; 0 when the text is not a number.
[[nodiscard]] double TextToNumber(
    std::u16string_view text, const LocaleInfo& locale, Grouping grouping = Grouping::Locale);

/// The number x 10^scale rounded to the nearest integer, ties to even, computed exactly from the digits;
/// nullopt when the result lies outside the signed 64-bit range.
[[nodiscard]] std::optional<int64_t> RoundToScale(const ParsedNumber& number, int scale) noexcept;
/// `RoundToScale` of digits held elsewhere.
[[nodiscard]] std::optional<int64_t> RoundToScale(const NumberDigits& number, int scale) noexcept;

/// The number rounded once to the nearest 32-bit float; nullopt beyond the float range.
[[nodiscard]] std::optional<float> ToSingle(const ParsedNumber& number) noexcept;
/// `ToSingle` of digits held elsewhere; allocates nothing for up to 64 digits.
[[nodiscard]] std::optional<float> ToSingle(const NumberDigits& number) noexcept;

/// The nearest double, as `ParseNumber` computes its value: a signed zero for zero or an underflow, nullopt
/// beyond the double range. Allocates nothing for up to 64 digits.
[[nodiscard]] std::optional<double> ToDouble(const NumberDigits& number) noexcept;

/// How a number's text is laid out: plain digits for everyday magnitudes and exponent form beyond them, or
/// plain digits always (for fields that do not take the exponent form).
enum class NumberLayout { Natural, Plain };

/// The text of a double with the locale's decimal separator and no grouping: the shortest text that reads
/// back as the same double, or, when `maxSignificant` is 1 to 17, the value rounded to that many significant
/// digits with trailing zeros dropped. In the natural layout, plain digits for magnitudes from 1E-5 up to
/// below 1E+15, otherwise one digit, the separator, the fraction and "E+n" or "E-n"; in the plain layout,
/// plain digits at every magnitude. Non-finite values give the empty text.
[[nodiscard]] std::u16string FormatDouble(double value, const LocaleInfo& locale, int maxSignificant = 0,
    NumberLayout layout = NumberLayout::Natural);

/// The shortest text that reads back as the same 32-bit float (laid out as `FormatDouble`).
[[nodiscard]] std::u16string FormatSingle(
    float value, const LocaleInfo& locale, NumberLayout layout = NumberLayout::Natural);

/// The text of a currency amount: the whole part, then the separator and up to four decimals
/// without trailing zeros.
[[nodiscard]] std::u16string FormatCurrency(Currency value, const LocaleInfo& locale);

/// The decimal text of an integer.
[[nodiscard]] std::u16string FormatInteger(int64_t value);

/// True for the spaces a locale may group digits with (ordinary, no-break, narrow no-break, thin): where the
/// locale groups with one of them, a typed ordinary space stands for it.
[[nodiscard]] constexpr bool IsSpaceLike(char16_t c) noexcept {
    return c == u' ' || c == 0x00A0 || c == 0x202F || c == 0x2009;
}

/// True when `c` is the group separator `separator`, or a space standing for a space-like separator.
[[nodiscard]] constexpr bool IsGroupSeparator(char16_t c, char16_t separator) noexcept {
    return c == separator || (IsSpaceLike(separator) && IsSpaceLike(c));
}

/// The locale's decimal separator as a one-character text.
[[nodiscard]] std::u16string DecimalSeparator(const LocaleInfo& locale);

/// The thousands separator that may be typed: the locale's group separator when `thousandSeparator` is
/// `vldTSAllowed`, the empty text for `vldTSForbidden` and any other value.
[[nodiscard]] std::u16string ThousandsSeparator(int32_t thousandSeparator, const LocaleInfo& locale);

} // namespace quillmar
