#include "formfile/StoredText.h"

#include "base/Utf8.h"
#include "validation/DateTime.h"
#include "validation/Numbers.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace quillmar {
namespace {

bool AllDigits(std::string_view text) {
    return !text.empty()
        && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

int ReadInt(std::string_view digits) {
    int value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return value;
}

// "YYYY-MM-DD" as days, when it is one.
std::optional<double> IsoDate(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-' || !AllDigits(text.substr(0, 4))
        || !AllDigits(text.substr(5, 2)) || !AllDigits(text.substr(8, 2)))
        return std::nullopt;
    return SerialFromDate(ReadInt(text.substr(0, 4)), ReadInt(text.substr(5, 2)), ReadInt(text.substr(8, 2)));
}

// "HH:MM:SS" as the fraction of a day, when it is one.
std::optional<double> IsoTime(std::string_view text) {
    if (text.size() != 8 || text[2] != ':' || text[5] != ':' || !AllDigits(text.substr(0, 2))
        || !AllDigits(text.substr(3, 2)) || !AllDigits(text.substr(6, 2)))
        return std::nullopt;
    const int hours = ReadInt(text.substr(0, 2));
    const int minutes = ReadInt(text.substr(3, 2));
    const int seconds = ReadInt(text.substr(6, 2));
    if (hours > 23 || minutes > 59 || seconds > 59) return std::nullopt;
    return (hours * 3600 + minutes * 60 + seconds) / 86400.0;
}

// "[-]digits[.digits]", the stored form of a currency amount.
bool IsPointNumber(std::string_view text) {
    if (text.starts_with('-')) text.remove_prefix(1);
    const size_t point = text.find('.');
    if (point == std::string_view::npos) return AllDigits(text);
    return AllDigits(text.substr(0, point)) && AllDigits(text.substr(point + 1));
}

std::u16string Utf16(std::string_view utf8) {
    std::u16string text;
    if (!AppendUtf16(utf8, text)) {
        text.clear();
        for (const char c : utf8) // not UTF-8: each byte as the character of its code
            text += static_cast<char16_t>(static_cast<unsigned char>(c));
    }
    return text;
}

} // namespace

std::u16string TypedText(const StoredValue& value, const PreparedRules& rules) {
    const LocaleInfo& locale = rules.locale();
    const Settings& settings = rules.settings();
    const NumberLayout layout = settings.AllowScientificFormat ? NumberLayout::Natural : NumberLayout::Plain;
    switch (value.kind) {
    case StoredValue::Kind::Null:
        return {};
    case StoredValue::Kind::Integer:
        return FormatInteger(value.integer);
    case StoredValue::Kind::Real:
        if (settings.MustBeType == vldSingle)
            return FormatSingle(static_cast<float>(value.real), locale, layout);
        return FormatDouble(value.real, locale, 0, layout);
    case StoredValue::Kind::Text:
        break;
    }
    if (settings.MustBeType == vldDate)
        if (const auto days = IsoDate(value.text)) return FormatDateTime(Date { *days }, locale);
    if (settings.MustBeType == vldTime)
        if (const auto day = IsoTime(value.text)) return FormatDateTime(Date { *day }, locale);
    std::u16string text = Utf16(value.text);
    if (IsNumericType(settings.MustBeType) && IsPointNumber(value.text))
        std::replace(text.begin(), text.end(), u'.', locale.decimalSeparator);
    return text;
}

} // namespace quillmar
