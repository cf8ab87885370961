#pragma once

#include "base/LocaleInfo.h"
#include "validation/Numbers.h"

#include <array>
#include <string_view>

namespace quillmar {

/// What `ScanNumber` found.
enum class NumberScanResult {
    /// The text is a number; the scanned number holds it.
    Number,
    /// `ParseNumber` refuses the text.
    NotNumber,
    /// The text may be a number with more significant digits than the scan keeps; ask `ParseNumber`.
    TooManyDigits,
};

/// A number read by `ScanNumber`: its digits live in the scan's own buffer.
struct ScannedNumber {
    /// The number's significant digits, viewing `buffer`.
    NumberDigits digits;
    /// The nearest double, as `ParsedNumber::value`.
    double value = 0;
    /// Room for the significant digits.
    std::array<char, 64> buffer;
};

/// `ParseNumber` without allocating: the same grammar and the same value for every text whose significant
/// digits (from the first non-zero digit to the last one) fit in the buffer, and `TooManyDigits` for the
/// others, which the caller hands to `ParseNumber`. `out` is only meaningful for `Number`. O(length).
[[nodiscard]] NumberScanResult ScanNumber(
    std::u16string_view text, const LocaleInfo& locale, Grouping grouping, ScannedNumber& out) noexcept;

} // namespace quillmar
