#include "validation/NumberScan.h"

#include "validation/NumberGrammar.h"

#include <algorithm>
#include <cstdint>

namespace quillmar {

NumberScanResult ScanNumber(
    std::u16string_view text, const LocaleInfo& locale, Grouping grouping, ScannedNumber& out) noexcept {
    // The digits from the first non-zero one are kept; zeros are held back until a non-zero digit follows
    // them, so trailing zeros never take room and `pendingZeros` ends as their count.
    size_t kept = 0;
    size_t pendingZeros = 0;
    bool overflow = false;
    const auto take = [&](char16_t c) {
        if (c == u'0') {
            if (kept > 0) ++pendingZeros;
            return;
        }
        if (kept + pendingZeros + 1 > out.buffer.size()) {
            overflow = true;
            return;
        }
        std::fill_n(out.buffer.data() + kept, pendingZeros, '0');
        kept += pendingZeros;
        pendingZeros = 0;
        out.buffer[kept++] = static_cast<char>(c);
    };
    const auto shape = grammar::ReadNumber(text, locale, grouping, take);
    if (!shape) return NumberScanResult::NotNumber;
    if (overflow) return NumberScanResult::TooManyDigits;

    out.digits.negative = shape->negative;
    out.digits.digits = std::string_view(out.buffer.data(), kept);
    out.digits.exponent = kept == 0
        ? 0
        : shape->exponent - static_cast<int64_t>(shape->fractionDigits) + static_cast<int64_t>(pendingZeros);
    const std::optional<double> value = ToDouble(out.digits);
    if (!value) return NumberScanResult::NotNumber;
    out.value = *value;
    return NumberScanResult::Number;
}

} // namespace quillmar
