#include "validation/NumberScan.h"

#include <algorithm>
#include <cstdint>

namespace quillmar {
namespace {

bool IsDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}
bool IsBlank(char16_t c) {
    return c == u' ' || c == u'\t';
}

} // namespace

NumberScanResult ScanNumber(std::u16string_view text, const LocaleInfo& locale, ScannedNumber& out) noexcept {
    size_t i = 0;
    const size_t n = text.size();
    while (i < n && IsBlank(text[i]))
        ++i;
    bool negative = false;
    if (i < n && (text[i] == u'+' || text[i] == u'-')) {
        negative = text[i] == u'-';
        ++i;
    }
    // The digits from the first non-zero one are kept; zeros are held back until a non-zero digit follows
    // them, so trailing zeros never take room and `pendingZeros` ends as their count.
    size_t kept = 0;
    size_t pendingZeros = 0;
    size_t wholeDigits = 0;
    size_t fractionDigits = 0;
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
    for (; i < n; ++i) {
        if (IsDigit(text[i])) {
            take(text[i]);
            ++wholeDigits;
        } else if (IsGroupSeparator(text[i], locale.groupSeparator) && text[i] != locale.decimalSeparator
            && wholeDigits > 0 && i + 1 < n && IsDigit(text[i + 1])) {
            continue;
        } else {
            break;
        }
    }
    if (i < n && text[i] == locale.decimalSeparator) {
        for (++i; i < n && IsDigit(text[i]); ++i) {
            take(text[i]);
            ++fractionDigits;
        }
    }
    if (wholeDigits + fractionDigits == 0) return NumberScanResult::NotNumber;
    int64_t exponent = 0;
    if (i < n && (text[i] == u'e' || text[i] == u'E')) {
        ++i;
        bool negativeExponent = false;
        if (i < n && (text[i] == u'+' || text[i] == u'-')) {
            negativeExponent = text[i] == u'-';
            ++i;
        }
        const size_t expStart = i;
        for (; i < n && IsDigit(text[i]); ++i)
            exponent = std::min<int64_t>(exponent * 10 + (text[i] - u'0'), int64_t { 1 } << 40);
        if (i == expStart) return NumberScanResult::NotNumber;
        if (negativeExponent) exponent = -exponent;
    }
    while (i < n && IsBlank(text[i]))
        ++i;
    if (i != n) return NumberScanResult::NotNumber;
    if (overflow) return NumberScanResult::TooManyDigits;

    out.digits.negative = negative;
    out.digits.digits = std::string_view(out.buffer.data(), kept);
    out.digits.exponent = kept == 0
        ? 0
        : exponent - static_cast<int64_t>(fractionDigits) + static_cast<int64_t>(pendingZeros);
    const std::optional<double> value = ToDouble(out.digits);
    if (!value) return NumberScanResult::NotNumber;
    out.value = *value;
    return NumberScanResult::Number;
}

} // namespace quillmar
