#include "validation/NumericAnalysis.h"

#include "validation/Conversions.h"
#include "validation/Numbers.h"
#include "validation/Pattern.h"

#include <charconv>
#include <cmath>
#include <string>
#include <string_view>

namespace quillmar {
namespace {

// The decimal separator written so that the pattern matcher reads it literally.
std::u16string PatternLiteral(char16_t c) {
    if (c == u'*' || c == u'?' || c == u'#' || c == u'[') return std::u16string { u'[', c, u']' };
    return std::u16string(1, c);
}

double PowerOfTen(int exponent) {
    return std::pow(10.0, exponent);
}

// Multiplies by 10^exponent, dividing for negative exponents so that 0.0123 stays as exact as it can. Beyond
// 10^300 the power is applied in two halves: the smallest doubles need 10^323, which no double holds.
double ScaleByPowerOfTen(double value, int exponent) {
    if (exponent > 300 || exponent < -300) {
        const int half = exponent / 2;
        return ScaleByPowerOfTen(ScaleByPowerOfTen(value, half), exponent - half);
    }
    return exponent < 0 ? value / PowerOfTen(-exponent) : value * PowerOfTen(exponent);
}

// Below this decimal exponent a power of ten that scales the value to [1, 10) lies outside the double range,
// and scaling in two halves through the subnormal numbers loses digits; there the decimal analysis reads the
// value's shortest decimal form instead.
constexpr int kSmallestScaledExponent = -300;

// The shortest decimal form of a finite, non-zero double (std::to_chars): the sign, the significant digits
// and the power of ten of the first digit.
struct ShortestDecimal {
    bool negative = false;
    std::string digits;
    int exponent = 0;
};

ShortestDecimal ShortestOf(double value) {
    char buffer[64];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific);
    const std::string_view out(buffer, static_cast<size_t>(result.ptr - buffer));
    ShortestDecimal decimal;
    size_t i = 0;
    if (out[0] == '-') {
        decimal.negative = true;
        i = 1;
    }
    const size_t e = out.find('e');
    for (; i < e; ++i)
        if (out[i] != '.') decimal.digits += out[i];
    std::from_chars(
        out.data() + e + 1 + (out[e + 1] == '+' ? 1 : 0), out.data() + out.size(), decimal.exponent);
    return decimal;
}

// The double of "[-]<digits>" read with the first digit at the power of ten `exponent`.
double FromDecimal(bool negative, std::string_view digits, int exponent) {
    std::string ascii = negative ? "-" : "";
    ascii += digits;
    ascii += 'e';
    ascii += std::to_string(exponent - static_cast<int>(digits.size()) + 1);
    double value = 0;
    std::from_chars(ascii.data(), ascii.data() + ascii.size(), value);
    return value;
}

// Rounds a decimal's digits to `count` significant digits, ties to even; a carry out of the first digit
// raises the exponent.
void RoundDigits(ShortestDecimal& decimal, size_t count) {
    if (decimal.digits.size() <= count) return;
    const char next = decimal.digits[count];
    const bool beyondHalf = decimal.digits.find_first_not_of('0', count + 1) != std::string::npos;
    const bool lastOdd = count > 0 && (decimal.digits[count - 1] - '0') % 2 == 1;
    const bool up = next > '5' || (next == '5' && (beyondHalf || lastOdd));
    decimal.digits.resize(count);
    if (!up) return;
    size_t i = count;
    while (i > 0 && decimal.digits[i - 1] == '9')
        decimal.digits[--i] = '0';
    if (i == 0) {
        decimal.digits.insert(decimal.digits.begin(), '1');
        decimal.digits.pop_back();
        ++decimal.exponent;
    } else {
        ++decimal.digits[i - 1];
    }
}

// One digit, the separator, the fraction digits, "E" and the exponent (minus sign only when negative).
std::u16string ScientificPicture(const Variant& value, const LocaleInfo& locale) {
    const auto number = NumberOf(value, locale);
    if (!number) return {};
    char buffer[64];
    std::to_chars_result result {};
    if (value.kind() == Variant::Kind::Single) {
        result
            = std::to_chars(buffer, buffer + sizeof buffer, value.AsSingle(), std::chars_format::scientific);
    } else {
        // At most 15 significant digits, so that floating-point noise is not shown.
        result
            = std::to_chars(buffer, buffer + sizeof buffer, number->value, std::chars_format::scientific, 14);
    }
    const std::string_view out(buffer, static_cast<size_t>(result.ptr - buffer));
    const size_t e = out.find('e');
    std::u16string text;
    size_t i = 0;
    if (out[0] == '-') {
        text += u'-';
        i = 1;
    }
    text += static_cast<char16_t>(out[i]);
    text += locale.decimalSeparator;
    std::string fraction;
    for (size_t k = i + 2; k < e; ++k)
        fraction += out[k];
    while (!fraction.empty() && fraction.back() == '0')
        fraction.pop_back();
    for (char c : fraction)
        text += static_cast<char16_t>(c);
    int exponent = 0;
    std::from_chars(out.data() + e + 1 + (out[e + 1] == '+' ? 1 : 0), out.data() + out.size(), exponent);
    if (number->digits.empty()) exponent = 0;
    text += u'E';
    text += FormatInteger(exponent);
    return text;
}

} // namespace

std::u16string FormatScientific(const Variant& value, const LocaleInfo& locale) {
    std::u16string text = ScientificPicture(value, locale);
    if (text.empty()) return text;
    const std::u16string separator = PatternLiteral(locale.decimalSeparator);
    for (int run = 1; run <= 30; ++run) {
        const std::u16string zeros(static_cast<size_t>(run), u'0');
        if (MatchPattern(text, u"*" + separator + u"*" + zeros + u"E*")) {
            const size_t from = text.find(zeros, text.find(locale.decimalSeparator));
            text = ReplaceFrom(text, zeros, u"", static_cast<int64_t>(from) + 1);
            break;
        }
    }
    text = ReplaceFrom(text, std::u16string { locale.decimalSeparator, u'E' }, u"E", 1);
    if (MatchPattern(text, u"*E#*")) text = ReplaceFrom(text, u"E", u"E+", 1);
    return text;
}

std::u16string ReplaceFrom(
    std::u16string text, std::u16string_view find, std::u16string_view replacement, int64_t start) {
    if (text.empty() || find.empty()) return text;
    size_t position = start <= 1 ? 0 : static_cast<size_t>(start - 1);
    while (position <= text.size()) {
        position = text.find(find, position);
        if (position == std::u16string::npos) break;
        text.replace(position, find.size(), replacement);
        position += replacement.size();
    }
    return text;
}

int16_t DecimalExponent(double value) noexcept {
    if (!std::isfinite(value)) return 0;
    double magnitude = std::fabs(value);
    if (magnitude == 0) magnitude = 1e-300;
    const double logarithm = std::log(magnitude) / std::log(10.0);
    const double rounded = std::nearbyint(logarithm * 1e14) / 1e14;
    return static_cast<int16_t>(std::floor(rounded));
}

double Mantissa(double value) noexcept {
    if (value == 0 || !std::isfinite(value)) return value == 0 ? 0 : value;
    const int exponent = DecimalExponent(value);
    if (exponent >= kSmallestScaledExponent) return ScaleByPowerOfTen(value, -exponent);
    try {
        // The digits of the shortest form, placed against the value's own decimal exponent.
        const ShortestDecimal decimal = ShortestOf(value);
        return FromDecimal(decimal.negative, decimal.digits, decimal.exponent - exponent);
    } catch (...) {
        return ScaleByPowerOfTen(value, -exponent);
    }
}

std::u16string RoundToRelativeAccuracy(const Variant& value, int digits, const LocaleInfo& locale) {
    const auto number = NumberOf(value, locale);
    if (!number || digits <= 0) return TextOf(value, locale);
    const double x = number->value;
    const int exponent = DecimalExponent(x);
    if (exponent > 0 && exponent >= digits - 1) return FormatDouble(std::nearbyint(x), locale, 15);
    if (x != 0 && exponent < kSmallestScaledExponent) {
        // The shortest form's digits rounded, then written shortest: at these magnitudes a double holds fewer
        // than 15 digits, and 15 of them would show the noise of its last bits.
        ShortestDecimal decimal = ShortestOf(x);
        RoundDigits(decimal, static_cast<size_t>(digits));
        return FormatDouble(FromDecimal(decimal.negative, decimal.digits, decimal.exponent), locale);
    }
    const double scaled = std::nearbyint(ScaleByPowerOfTen(Mantissa(x), digits - 1));
    const double rounded = ScaleByPowerOfTen(ScaleByPowerOfTen(scaled, -(digits - 1)), exponent);
    return FormatDouble(rounded, locale, 15);
}

} // namespace quillmar
