#include "validation/Conversions.h"

#include "base/Enums.h"
#include "validation/DateTime.h"

#include <charconv>
#include <cmath>

namespace quillmar {
namespace {

// Locale-free reading of a number written by std::to_chars.
std::optional<ParsedNumber> ParseAscii(const char* first, const char* last) {
    static const LocaleInfo invariant;
    return ParseNumber(std::u16string(first, last), invariant);
}

std::optional<ParsedNumber> ExactDouble(double value) {
    if (!std::isfinite(value)) return std::nullopt;
    char buffer[64];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return ParseAscii(buffer, result.ptr);
}

std::optional<ParsedNumber> ExactInteger(int64_t value, int scale) {
    std::string ascii = std::to_string(value);
    if (scale != 0) ascii += "e-" + std::to_string(scale);
    return ParseAscii(ascii.data(), ascii.data() + ascii.size());
}

template <typename Int> Variant IntegralOf(const std::optional<ParsedNumber>& number) {
    if (!number) return {};
    const auto rounded = RoundToScale(*number, 0);
    if (!rounded || *rounded < std::numeric_limits<Int>::min() || *rounded > std::numeric_limits<Int>::max())
        return {};
    return Variant(static_cast<Int>(*rounded));
}

} // namespace

std::u16string TextOf(const Variant& value, const LocaleInfo& locale) {
    switch (value.kind()) {
    case Variant::Kind::String:
        return value.AsString();
    case Variant::Kind::Boolean:
        return value.AsBoolean() ? u"True" : u"False";
    case Variant::Kind::Byte:
        return FormatInteger(value.AsByte());
    case Variant::Kind::Integer:
        return FormatInteger(value.AsInteger());
    case Variant::Kind::Long:
        return FormatInteger(value.AsLong());
    case Variant::Kind::Single:
        return FormatSingle(value.AsSingle(), locale);
    case Variant::Kind::Double:
        return FormatDouble(value.AsDouble(), locale);
    case Variant::Kind::Currency:
        return FormatCurrency(value.AsCurrency(), locale);
    case Variant::Kind::Date:
        return FormatDateTime(value.AsDate(), locale);
    default:
        return {};
    }
}

std::optional<ParsedNumber> NumberOf(const Variant& value, const LocaleInfo& locale, Grouping grouping) {
    switch (value.kind()) {
    case Variant::Kind::String:
        return ParseNumber(value.AsString(), locale, grouping);
    case Variant::Kind::Boolean:
        return ExactInteger(value.AsBoolean() ? -1 : 0, 0);
    case Variant::Kind::Byte:
        return ExactInteger(value.AsByte(), 0);
    case Variant::Kind::Integer:
        return ExactInteger(value.AsInteger(), 0);
    case Variant::Kind::Long:
        return ExactInteger(value.AsLong(), 0);
    case Variant::Kind::Single:
        return ExactDouble(value.AsSingle());
    case Variant::Kind::Double:
        return ExactDouble(value.AsDouble());
    case Variant::Kind::Currency:
        return ExactInteger(value.AsCurrency().ticks, 4);
    default:
        return std::nullopt;
    }
}

std::optional<double> NumericValueOf(const Variant& value, const LocaleInfo& locale) {
    if (value.IsNumber() || value.kind() == Variant::Kind::Boolean) return value.ToDouble();
    const auto number = NumberOf(value, locale);
    return number ? std::optional<double>(number->value) : std::nullopt;
}

bool IsNumericValue(const Variant& value, const LocaleInfo& locale) {
    return NumberOf(value, locale).has_value();
}

std::optional<double> DateTimeOf(const Variant& value, const LocaleInfo& locale) {
    if (value.kind() == Variant::Kind::Date) {
        if (FormatDateTime(value.AsDate(), locale).empty()) return std::nullopt;
        return value.AsDate().days;
    }
    const auto parsed = ParseDateTime(TextOf(value, locale), locale);
    if (!parsed) return std::nullopt;
    return parsed->days;
}

int ClassifyDateTime(const Variant& value, const LocaleInfo& locale) {
    const std::u16string text = TextOf(value, locale);
    if (!IsDateText(text, locale)) return NotDateTime;
    return text.find(u':') != std::u16string::npos ? TimeClass : DateClass;
}

Variant ConvertToType(const Variant& value, int32_t type, const LocaleInfo& locale, Grouping grouping) {
    switch (type) {
    case vldUnspecified:
    case vldString:
        return TextOf(value, locale);
    case vldByte:
        return IntegralOf<uint8_t>(NumberOf(value, locale, grouping));
    case vldInteger:
        return IntegralOf<int16_t>(NumberOf(value, locale, grouping));
    case vldLong:
        return IntegralOf<int32_t>(NumberOf(value, locale, grouping));
    case vldSingle: {
        if (value.kind() == Variant::Kind::Single) return value;
        const auto number = NumberOf(value, locale, grouping);
        if (!number) return {};
        const auto single = ToSingle(*number);
        return single ? Variant(*single) : Variant();
    }
    case vldDouble: {
        const auto number = NumberOf(value, locale, grouping);
        return number ? Variant(number->value) : Variant();
    }
    case vldCurrency: {
        const auto number = NumberOf(value, locale, grouping);
        if (!number) return {};
        const auto ticks = RoundToScale(*number, 4);
        return ticks ? Variant(Currency { *ticks }) : Variant();
    }
    case vldDate:
    case vldTime: {
        const int wanted = type == vldDate ? DateClass : TimeClass;
        if (ClassifyDateTime(value, locale) != wanted) return {};
        const auto days = DateTimeOf(value, locale);
        return days ? Variant(Date { *days }) : Variant();
    }
    default:
        return {};
    }
}

} // namespace quillmar
