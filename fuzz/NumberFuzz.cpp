// The numeric parser and the conversion to every type, under three locales. A parsed number's text reads
// back as the same double; a converted value's text converts back to the same value, passes the rules of
// its type and can be typed (each beginning of it passes the whole-text test); a text the rules accept
// converts to the type and can be typed one character at a time.
#include "fuzz/FuzzSupport.h"
#include "validation/Conversions.h"
#include "validation/Numbers.h"
#include "validation/NumericText.h"
#include "validation/Rules.h"

#include <cmath>

namespace quillmar::fuzz {
namespace {

constexpr size_t kMaxTextLength = 400;

bool HoldsKindOf(const Variant& value, int32_t type) {
    switch (type) {
    case vldByte:
        return value.kind() == Variant::Kind::Byte;
    case vldInteger:
        return value.kind() == Variant::Kind::Integer;
    case vldLong:
        return value.kind() == Variant::Kind::Long;
    case vldSingle:
        return value.kind() == Variant::Kind::Single;
    case vldDouble:
        return value.kind() == Variant::Kind::Double;
    case vldCurrency:
        return value.kind() == Variant::Kind::Currency;
    default:
        return value.kind() == Variant::Kind::Date;
    }
}

void CheckParse(std::u16string_view text, const LocaleInfo& locale) {
    const auto number = ParseNumber(text, locale);
    Require(
        IsNumericText(text, locale) == number.has_value(), "IsNumericText disagrees with the parser", text);
    if (!number) return;
    Require(std::isfinite(number->value), "a parsed number is not finite", text);
    Require(
        number->digits.find_first_not_of("0123456789") == std::string::npos, "digits hold a non-digit", text);
    Require(number->digits.empty() || (number->digits.front() != '0' && number->digits.back() != '0'),
        "digits keep a leading or trailing zero", text);
    // Each grouping takes what a stricter one takes, as the same number: none, the locale's groups, any.
    const auto plain = ParseNumber(text, locale, Grouping::None);
    const auto loose = ParseNumber(text, locale, Grouping::Loose);
    Require(!plain || plain->value == number->value, "a number without groups reads differently", text);
    Require(loose && loose->value == number->value, "a well-grouped number reads differently loosely", text);
    const std::u16string shown = TextOf(Variant(number->value), locale);
    const auto again = ParseNumber(shown, locale);
    Require(again && again->value == number->value, "the text of a parsed double reads back differently",
        text, shown);
}

// A numeric value's text as the control shows it must convert back, be valid for its type, and be
// typeable one character at a time under strong sifting.
void CheckNumericValue(
    const Variant& value, int32_t type, std::u16string_view text, const LocaleInfo& locale) {
    Require(HoldsKindOf(value, type), "a conversion gave a value of another kind", text);
    const std::u16string shown = TextOf(value, locale);
    Require(ConvertToType(shown, type, locale) == value, "a converted value's text converts differently",
        text, shown);
    const bool floating = type == vldSingle || type == vldDouble;
    Settings settings;
    settings.MustBeType = static_cast<MustBeTypeConstants>(type);
    settings.AllowScientificFormat = floating;
    Require(EvaluateRules(shown, settings, locale, 0) == 0, "a converted value's text breaks its rules", text,
        shown);
    for (size_t length = 0; length <= shown.size(); ++length)
        Require(NumericWholeTextTest(shown.substr(0, length), type, floating, u"", locale),
            "a beginning of a value's text fails the whole-text test", shown, shown.substr(0, length));
}

// The whole-text test refuses a number too large for a float type even where an exponent typed next would
// scale it back into range; that is the one beginning of a valid number it may refuse.
bool TooLargeForItsType(std::u16string_view begun, int32_t type, const LocaleInfo& locale) {
    if (type != vldSingle && type != vldDouble) return false;
    const size_t lastDigit = begun.find_last_of(u"0123456789");
    if (lastDigit == std::u16string_view::npos) return false;
    const auto number = ParseNumber(begun.substr(0, lastDigit + 1), locale, Grouping::Loose);
    return !number || (type == vldSingle && !ToSingle(*number));
}

void CheckConversions(std::u16string_view text, const LocaleInfo& locale, bool scientific, bool grouping) {
    for (int32_t type = vldUnspecified; type <= vldTime; ++type) {
        const Variant value = ConvertToType(text, type, locale, grouping ? Grouping::Locale : Grouping::None);
        if (type == vldUnspecified || type == vldString) {
            Require(value == Variant(text), "a text type does not keep the text", text);
            continue;
        }
        if (IsNumericType(type) && !value.IsEmpty()) CheckNumericValue(value, type, text, locale);
        if (IsDateTimeType(type) && !value.IsEmpty()) {
            Require(HoldsKindOf(value, type), "a conversion gave a value of another kind", text);
            Require(ClassifyDateTime(text, locale) == (type == vldDate ? DateClass : TimeClass),
                "a date-time converted against its class", text);
        }
        Settings settings;
        settings.MustBeType = static_cast<MustBeTypeConstants>(type);
        settings.AllowScientificFormat = scientific && !IsDateTimeType(type);
        settings.ThousandSeparator = grouping ? vldTSAllowed : vldTSForbidden;
        if (text.empty() || EvaluateRules(text, settings, locale, 0) != 0) continue;
        Require(!value.IsEmpty(), "a text the rules accept does not convert to its type", text);
        // Strong sifting must let a user type any number the rules accept, one character at a time.
        if (!IsNumericType(type)) continue;
        const std::u16string thousands = ThousandsSeparator(settings.ThousandSeparator, locale);
        for (size_t length = 0; length < text.size(); ++length) {
            const std::u16string_view begun = text.substr(0, length);
            Require(NumericWholeTextTest(begun, type, settings.AllowScientificFormat, thousands, locale)
                    || TooLargeForItsType(begun, type, locale),
                "a beginning of a valid number fails the whole-text test", text, begun);
        }
    }
}

} // namespace
} // namespace quillmar::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace quillmar::fuzz;
    ByteReader reader({ data, size });
    const uint8_t choice = reader.Byte();
    const std::u16string text = reader.Rest();
    if (text.size() > kMaxTextLength) return 0;
    const quillmar::LocaleInfo& locale = Locales()[choice % 3];
    CheckParse(text, locale);
    CheckConversions(text, locale, (choice & 4) != 0, (choice & 8) != 0);
    return 0;
}
