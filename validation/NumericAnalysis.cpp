#include "validation/NumericAnalysis.h"

#include "validation/Conversions.h"
#include "validation/Numbers.h"
#include "validation/Pattern.h"

#include <charconv>
#include <cmath>

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
    return ScaleByPowerOfTen(value, -DecimalExponent(value));
}

std::u16string RoundToRelativeAccuracy(const Variant& value, int digits, const LocaleInfo& locale) {
    const auto number = NumberOf(value, locale);
    if (!number || digits <= 0) return TextOf(value, locale);
    const double x = number->value;
    const int exponent = DecimalExponent(x);
    if (exponent > 0 && exponent >= digits - 1) return FormatDouble(std::nearbyint(x), locale, 15);
    const double scaled = std::nearbyint(ScaleByPowerOfTen(Mantissa(x), digits - 1));
    const double rounded = ScaleByPowerOfTen(ScaleByPowerOfTen(scaled, -(digits - 1)), exponent);
    return FormatDouble(rounded, locale, 15);
}

} // namespace quillmar
