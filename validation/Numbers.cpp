#include "validation/Numbers.h"

#include "validation/NumberGrammar.h"

#include "base/Enums.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <type_traits>

namespace quillmar {
namespace {

// Decimal position of the leading digit: the value lies in [10^(m-1), 10^m).
int64_t Magnitude(const NumberDigits& number) {
    return static_cast<int64_t>(number.digits.size()) + number.exponent;
}

template <typename Float> std::optional<Float> ReadFloat(const NumberDigits& number) {
    if (number.digits.empty()) return number.negative ? -Float(0) : Float(0);
    if (Magnitude(number) > std::numeric_limits<Float>::max_exponent10 + 1) return std::nullopt;
    if (Magnitude(number) < std::numeric_limits<Float>::min_exponent10 - 30)
        return number.negative ? -Float(0) : Float(0);
    // Few digits and a small power of ten: the mantissa and the power are exact, so one multiplication or
    // division rounds once, to the same nearest value std::from_chars gives.
    constexpr int kExactDigits = std::numeric_limits<Float>::digits10;
    constexpr int64_t kExactPower = std::is_same_v<Float, float> ? 10 : 22;
    if (number.digits.size() <= static_cast<size_t>(kExactDigits) && number.exponent >= -kExactPower
        && number.exponent <= kExactPower) {
        static constexpr Float kPowers[] = { 1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11,
            1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22 };
        uint64_t mantissa = 0;
        for (const char digit : number.digits)
            mantissa = mantissa * 10 + static_cast<uint64_t>(digit - '0');
        Float value = static_cast<Float>(mantissa);
        value = number.exponent < 0 ? value / kPowers[-number.exponent] : value * kPowers[number.exponent];
        return number.negative ? -value : value;
    }
    // The ASCII text "[-]<digits>e<exponent>" that std::from_chars reads, on the stack when it fits.
    const size_t needed = number.digits.size() + 24;
    char local[96];
    std::string heap;
    char* const ascii = needed <= sizeof local ? local : (heap.resize(needed), heap.data());
    char* end = ascii;
    if (number.negative) *end++ = '-';
    end = std::copy(number.digits.begin(), number.digits.end(), end);
    *end++ = 'e';
    end = std::to_chars(end, ascii + needed, number.exponent).ptr;
    Float value {};
    const auto [last, error] = std::from_chars(ascii, end, value);
    if (error == std::errc::result_out_of_range) {
        if (Magnitude(number) > 0) return std::nullopt;
        return number.negative ? -Float(0) : Float(0);
    }
    if (error != std::errc() || last != end || !std::isfinite(value)) return std::nullopt;
    return value;
}

// Lays out significant digits `digits` whose leading digit has the power of ten `exp10`.
std::u16string LayOut(
    bool negative, std::string_view digits, int exp10, const LocaleInfo& locale, NumberLayout layout) {
    std::u16string text;
    if (negative) text += u'-';
    auto append = [&](std::string_view ascii) {
        for (char c : ascii)
            text += static_cast<char16_t>(c);
    };
    if (layout == NumberLayout::Plain || (exp10 >= -5 && exp10 < 15)) {
        if (exp10 < 0) {
            text += u'0';
            text += locale.decimalSeparator;
            text.append(static_cast<size_t>(-exp10 - 1), u'0');
            append(digits);
        } else {
            const size_t whole = static_cast<size_t>(exp10) + 1;
            append(digits.substr(0, std::min(whole, digits.size())));
            if (digits.size() < whole) text.append(whole - digits.size(), u'0');
            if (digits.size() > whole) {
                text += locale.decimalSeparator;
                append(digits.substr(whole));
            }
        }
        return text;
    }
    append(digits.substr(0, 1));
    if (digits.size() > 1) {
        text += locale.decimalSeparator;
        append(digits.substr(1));
    }
    text += exp10 < 0 ? u"E-" : u"E+";
    append(std::to_string(exp10 < 0 ? -exp10 : exp10));
    return text;
}

// Splits the output of std::to_chars in scientific form ("d.ddde+XX") and lays it out.
std::u16string LayOutScientific(
    const char* first, const char* last, const LocaleInfo& locale, NumberLayout layout) {
    const std::string_view out(first, static_cast<size_t>(last - first));
    const size_t e = out.find('e');
    std::string digits;
    size_t start = 0;
    bool negative = false;
    if (!out.empty() && out[0] == '-') {
        negative = true;
        start = 1;
    }
    for (size_t i = start; i < e; ++i)
        if (out[i] != '.') digits += out[i];
    while (digits.size() > 1 && digits.back() == '0')
        digits.pop_back();
    int exp10 = 0;
    std::from_chars(out.data() + e + 1 + (out[e + 1] == '+' ? 1 : 0), out.data() + out.size(), exp10);
    if (digits == "0") return u"0";
    return LayOut(negative, digits, exp10, locale, layout);
}

} // namespace

Grouping GroupingOf(int32_t thousandSeparator) noexcept {
    return thousandSeparator == vldTSAllowed ? Grouping::Locale : Grouping::None;
}

std::optional<ParsedNumber> ParseNumber(
    std::u16string_view text, const LocaleInfo& locale, Grouping grouping) {
    std::string all;
    const auto shape
        = grammar::ReadNumber(text, locale, grouping, [&all](char16_t c) { all += static_cast<char>(c); });
    if (!shape) return std::nullopt;
    ParsedNumber number;
    number.negative = shape->negative;
    const size_t firstSignificant = all.find_first_not_of('0');
    if (firstSignificant != std::string::npos) {
        const size_t lastSignificant = all.find_last_not_of('0');
        number.digits = all.substr(firstSignificant, lastSignificant - firstSignificant + 1);
        number.exponent = shape->exponent - static_cast<int64_t>(shape->fractionDigits)
            + static_cast<int64_t>(all.size() - 1 - lastSignificant);
    }
    const std::optional<double> value = ReadFloat<double>(DigitsOf(number));
    if (!value) return std::nullopt;
    number.value = *value;
    return number;
}

bool IsNumericText(std::u16string_view text, const LocaleInfo& locale, Grouping grouping) {
    return ParseNumber(text, locale, grouping).has_value();
}

double TextToNumber(std::u16string_view text, const LocaleInfo& locale, Grouping grouping) {
    const auto number = ParseNumber(text, locale, grouping);
    return number ? number->value : 0.0;
}

std::optional<int64_t> RoundToScale(const ParsedNumber& number, int scale) noexcept {
    return RoundToScale(DigitsOf(number), scale);
}

std::optional<int64_t> RoundToScale(const NumberDigits& number, int scale) noexcept {
    if (number.digits.empty()) return 0;
    const int64_t shift = number.exponent + scale;
    const int64_t size = static_cast<int64_t>(number.digits.size());
    // Count of digits that stay in front of the decimal point after scaling.
    const int64_t kept = size + shift;
    if (kept > 19) return std::nullopt;
    uint64_t magnitude = 0;
    constexpr uint64_t limit = std::numeric_limits<uint64_t>::max() / 10;
    for (int64_t k = 0; k < kept; ++k) {
        if (magnitude > limit) return std::nullopt;
        const uint64_t digit
            = k < size ? static_cast<uint64_t>(number.digits[static_cast<size_t>(k)] - '0') : 0;
        magnitude = magnitude * 10 + digit;
    }
    if (kept >= 0 && kept < size) {
        const char first = number.digits[static_cast<size_t>(kept)];
        // Trailing zeros are stripped, so any digit after the first dropped one is non-zero.
        const bool moreAfter = kept + 1 < size;
        if (first > '5' || (first == '5' && (moreAfter || (magnitude & 1U)))) ++magnitude;
    }
    constexpr uint64_t maxPositive = static_cast<uint64_t>(std::numeric_limits<int64_t>::max());
    if (number.negative) {
        if (magnitude > maxPositive + 1) return std::nullopt;
        return magnitude == maxPositive + 1 ? std::numeric_limits<int64_t>::min()
                                            : -static_cast<int64_t>(magnitude);
    }
    if (magnitude > maxPositive) return std::nullopt;
    return static_cast<int64_t>(magnitude);
}

std::optional<float> ToSingle(const ParsedNumber& number) noexcept {
    return ToSingle(DigitsOf(number));
}

std::optional<float> ToSingle(const NumberDigits& number) noexcept {
    try {
        return ReadFloat<float>(number);
    } catch (...) {
        return std::nullopt;
    }
}

std::optional<double> ToDouble(const NumberDigits& number) noexcept {
    try {
        return ReadFloat<double>(number);
    } catch (...) {
        return std::nullopt;
    }
}

std::u16string FormatDouble(double value, const LocaleInfo& locale, int maxSignificant, NumberLayout layout) {
    if (!std::isfinite(value)) return {};
    if (value == 0) return u"0";
    char buffer[64];
    const auto result = maxSignificant >= 1 && maxSignificant <= 17
        ? std::to_chars(
            buffer, buffer + sizeof buffer, value, std::chars_format::scientific, maxSignificant - 1)
        : std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific);
    return LayOutScientific(buffer, result.ptr, locale, layout);
}

std::u16string FormatSingle(float value, const LocaleInfo& locale, NumberLayout layout) {
    if (!std::isfinite(value)) return {};
    if (value == 0) return u"0";
    char buffer[64];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific);
    return LayOutScientific(buffer, result.ptr, locale, layout);
}

std::u16string FormatCurrency(Currency value, const LocaleInfo& locale) {
    const bool negative = value.ticks < 0;
    const uint64_t magnitude
        = negative ? 0 - static_cast<uint64_t>(value.ticks) : static_cast<uint64_t>(value.ticks);
    std::u16string text = FormatInteger(static_cast<int64_t>(magnitude / 10000));
    if (negative) text.insert(text.begin(), u'-');
    uint64_t fraction = magnitude % 10000;
    if (fraction != 0) {
        std::u16string decimals(4, u'0');
        for (int k = 3; k >= 0; --k, fraction /= 10)
            decimals[static_cast<size_t>(k)] = static_cast<char16_t>(u'0' + fraction % 10);
        while (decimals.back() == u'0')
            decimals.pop_back();
        text += locale.decimalSeparator;
        text += decimals;
    }
    return text;
}

std::u16string FormatInteger(int64_t value) {
    char buffer[24];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::u16string(buffer, result.ptr);
}

std::u16string DecimalSeparator(const LocaleInfo& locale) {
    return std::u16string(1, locale.decimalSeparator);
}

std::u16string ThousandsSeparator(int32_t thousandSeparator, const LocaleInfo& locale) {
    if (thousandSeparator != vldTSAllowed) return {};
    return std::u16string(1, locale.groupSeparator);
}

} // namespace quillmar
