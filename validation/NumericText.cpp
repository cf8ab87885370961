#include "validation/NumericText.h"

#include "base/Enums.h"
#include "validation/Conversions.h"
#include "validation/Numbers.h"

#include <cstdint>

namespace quillmar {
namespace {

bool IsDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

struct NumberShape {
    bool decimalAllowed = false;
    bool exponentAllowed = false;
    bool signAllowed = false;
    char16_t group = 0; // 0: no grouping
};

struct ShapeScan {
    bool ok = false;
    bool negative = false;
    uint64_t wholeValue = 0; // saturates
};

// Walks the text once, checking each character against what may stand at its place.
ShapeScan Scan(std::u16string_view text, const NumberShape& shape, char16_t decimalSeparator) {
    ShapeScan scan;
    size_t i = 0;
    if (shape.signAllowed && !text.empty() && text[0] == u'-') {
        scan.negative = true;
        i = 1;
    }
    size_t mantissaDigits = 0;
    bool afterGroup = false;
    bool sawDecimal = false;
    bool sawExponent = false;
    char16_t previous = 0;
    constexpr uint64_t saturation = UINT64_C(1) << 62;
    for (; i < text.size(); previous = text[i], ++i) {
        const char16_t c = text[i];
        if (IsDigit(c)) {
            if (!sawExponent) {
                ++mantissaDigits;
                // Held at the saturation before multiplying: from 2^64 / 10 on the product would wrap around,
                // and a twenty-digit whole part could pass for a small one.
                if (!sawDecimal)
                    scan.wholeValue = scan.wholeValue >= saturation / 10
                        ? saturation
                        : std::min(scan.wholeValue * 10 + static_cast<uint64_t>(c - u'0'), saturation);
            }
            afterGroup = false;
        } else if (shape.group != 0 && IsGroupSeparator(c, shape.group) && !sawDecimal && !sawExponent) {
            if (mantissaDigits == 0 || afterGroup) return scan;
            afterGroup = true;
        } else if (shape.decimalAllowed && c == decimalSeparator && !sawDecimal && !sawExponent) {
            if (afterGroup) return scan;
            sawDecimal = true;
        } else if (shape.exponentAllowed && (c == u'e' || c == u'E') && !sawExponent) {
            if (mantissaDigits == 0) return scan;
            sawExponent = true;
        } else if (shape.exponentAllowed && (c == u'+' || c == u'-')
            && (previous == u'e' || previous == u'E')) {
            continue;
        } else {
            return scan;
        }
    }
    scan.ok = true;
    return scan;
}

NumberShape ShapeOf(int32_t type, bool allowScientific, std::u16string_view thousandsSeparator) {
    NumberShape shape;
    shape.signAllowed = type != vldByte;
    shape.decimalAllowed = type == vldSingle || type == vldDouble || type == vldCurrency;
    shape.exponentAllowed = allowScientific && (type == vldSingle || type == vldDouble);
    if (shape.signAllowed && !shape.exponentAllowed && thousandsSeparator.size() == 1)
        shape.group = thousandsSeparator[0];
    return shape;
}

uint64_t IntegralLimit(int32_t type, bool negative) {
    switch (type) {
    case vldByte:
        return 255;
    case vldInteger:
        return negative ? 32768 : 32767;
    case vldLong:
        return negative ? UINT64_C(2147483648) : UINT64_C(2147483647);
    default:
        return UINT64_C(922337203685477); // whole part of the largest currency amount
    }
}

// The whole-text test with the number's digits obtained on demand: `numberOf()` gives a pointer to them, or
// null when the text is not a number. Integral types never need them.
template <typename NumberOf>
bool WholeTextTest(std::u16string_view text, int32_t type, bool allowScientific,
    std::u16string_view thousandsSeparator, const LocaleInfo& locale, NumberOf numberOf) {
    if (type < vldByte || type > vldCurrency) return false;
    const ShapeScan scan
        = Scan(text, ShapeOf(type, allowScientific, thousandsSeparator), locale.decimalSeparator);
    if (!scan.ok) return false;
    if (type == vldByte || type == vldInteger || type == vldLong)
        return scan.wholeValue <= IntegralLimit(type, scan.negative);
    // A complete number must convert to the type; a beginning is judged when it is complete.
    const NumberDigits* number = numberOf();
    if (!number) {
        const bool endsWithDigit = !text.empty() && text.back() >= u'0' && text.back() <= u'9';
        if (endsWithDigit) return false; // complete, yet beyond the double range
        return type != vldCurrency || scan.wholeValue <= IntegralLimit(type, scan.negative);
    }
    if (type == vldSingle) return ToSingle(*number).has_value();
    if (type == vldCurrency) return RoundToScale(*number, 4).has_value();
    return true;
}

} // namespace

bool NumericWholeTextTest(std::u16string_view text, int32_t type, bool allowScientific,
    std::u16string_view thousandsSeparator, const LocaleInfo& locale) {
    std::optional<ParsedNumber> parsed;
    NumberDigits digits;
    return WholeTextTest(
        text, type, allowScientific, thousandsSeparator, locale, [&]() -> const NumberDigits* {
            // A beginning judged by its value: its group separators may stand where typing has put them so
            // far.
            parsed = ParseNumber(text, locale, Grouping::Loose);
            if (!parsed) return nullptr;
            digits = DigitsOf(*parsed);
            return &digits;
        });
}

bool NumericWholeTextTest(std::u16string_view text, int32_t type, bool allowScientific,
    std::u16string_view thousandsSeparator, const LocaleInfo& locale, const NumberDigits* number) {
    return WholeTextTest(
        text, type, allowScientific, thousandsSeparator, locale, [number] { return number; });
}

bool ScientificShapeTest(std::u16string_view text, const LocaleInfo& locale) {
    return Scan(text, NumberShape { true, true, true, 0 }, locale.decimalSeparator).ok;
}

} // namespace quillmar
