#pragma once

// The one grammar of numeric texts, shared by the parser that keeps every digit (`ParseNumber`) and the
// one that keeps them in a fixed buffer (`ScanNumber`).
#include "base/LocaleInfo.h"
#include "validation/Numbers.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>

namespace quillmar::grammar {

/// What the grammar read besides the digits.
struct NumberShape {
    bool negative = false;
    /// How many of the digits stand after the decimal separator.
    size_t fractionDigits = 0;
    /// The exponent written after "E" (held within +-2^40).
    int64_t exponent = 0;
};

/// Reads a numeric text: blanks (space, tab) around; an optional "+" or "-"; digits, among which the locale's
/// group separator may stand in the whole part where `grouping` lets it; at most one decimal separator; at
/// least one digit; an optional "E" or "e", an optional sign and one or more digits. Calls `digit(c)` for
/// every digit of the whole part and the fraction, in order. nullopt when the text is not of that shape.
/// O(length).
template <typename Digit>
std::optional<NumberShape> ReadNumber(
    std::u16string_view text, const LocaleInfo& locale, Grouping grouping, Digit&& digit) {
    const auto isDigit = [](char16_t c) { return c >= u'0' && c <= u'9'; };
    const auto isBlank = [](char16_t c) { return c == u' ' || c == u'\t'; };
    size_t i = 0;
    const size_t n = text.size();
    while (i < n && isBlank(text[i]))
        ++i;
    NumberShape shape;
    if (i < n && (text[i] == u'+' || text[i] == u'-')) {
        shape.negative = text[i] == u'-';
        ++i;
    }
    // Under the locale's grouping the group before each separator is checked when the separator is read (the
    // first group holds 1 to a secondary group's digits, the others exactly a secondary group's) and the last
    // group when the whole part ends (exactly the primary size).
    const bool groups
        = grouping != Grouping::None && !(grouping == Grouping::Locale && locale.groupingSize <= 0);
    size_t wholeDigits = 0;
    size_t groupDigits = 0;
    size_t separators = 0;
    const auto secondary = static_cast<size_t>(std::max(locale.secondaryGroupingSize, 0));
    for (; i < n; ++i) {
        if (isDigit(text[i])) {
            digit(text[i]);
            ++wholeDigits;
            ++groupDigits;
        } else if (groups && IsGroupSeparator(text[i], locale.groupSeparator)
            && text[i] != locale.decimalSeparator && wholeDigits > 0 && i + 1 < n && isDigit(text[i + 1])) {
            if (grouping == Grouping::Locale
                && (separators == 0 ? groupDigits > secondary : groupDigits != secondary))
                return std::nullopt;
            ++separators;
            groupDigits = 0;
        } else {
            break;
        }
    }
    if (grouping == Grouping::Locale && separators > 0
        && groupDigits != static_cast<size_t>(locale.groupingSize))
        return std::nullopt;
    if (i < n && text[i] == locale.decimalSeparator) {
        for (++i; i < n && isDigit(text[i]); ++i) {
            digit(text[i]);
            ++shape.fractionDigits;
        }
    }
    if (wholeDigits + shape.fractionDigits == 0) return std::nullopt;
    if (i < n && (text[i] == u'e' || text[i] == u'E')) {
        ++i;
        bool negativeExponent = false;
        if (i < n && (text[i] == u'+' || text[i] == u'-')) {
            negativeExponent = text[i] == u'-';
            ++i;
        }
        const size_t expStart = i;
        for (; i < n && isDigit(text[i]); ++i)
            shape.exponent = std::min<int64_t>(shape.exponent * 10 + (text[i] - u'0'), int64_t { 1 } << 40);
        if (i == expStart) return std::nullopt;
        if (negativeExponent) shape.exponent = -shape.exponent;
    }
    while (i < n && isBlank(text[i]))
        ++i;
    if (i != n) return std::nullopt;
    return shape;
}

} // namespace quillmar::grammar
