#include "validation/Rules.h"

#include "validation/Conversions.h"
#include "validation/DateTime.h"
#include "validation/NumericText.h"
#include "validation/Pattern.h"
#include "validation/TextCase.h"

namespace quillmar {
namespace {

int32_t DateTimeRules(std::u16string_view text, const Settings& settings, const LocaleInfo& locale) {
    const int32_t typeBit = settings.MustBeType == vldDate ? vldCCMustBeDate : vldCCMustBeTime;
    const int wantedClass = settings.MustBeType == vldDate ? DateClass : TimeClass;
    const auto parsed = ParseDateTime(text, locale);
    if (!parsed) return typeBit;
    const bool isTime = text.find(u':') != std::u16string_view::npos;
    if ((isTime ? TimeClass : DateClass) != wantedClass) return typeBit;

    int32_t result = 0;
    auto limitOf = [&](const Variant& limit) -> std::optional<double> {
        if (limit.IsEmpty() || limit.IsEmptyString()) return std::nullopt;
        const auto days = DateTimeOf(limit, locale);
        if (!days || ClassifyDateTime(limit, locale) != wantedClass) return std::nullopt;
        return days;
    };
    if (const auto minimum = limitOf(settings.MinValue); minimum && parsed->days < *minimum)
        result |= vldCCMinValue;
    if (const auto maximum = limitOf(settings.MaxValue); maximum && parsed->days > *maximum)
        result |= vldCCMaxValue;
    const VariantArray& forbidden = settings.MustNotBeValues;
    for (size_t i = 1; i < forbidden.size(); ++i) {
        const auto days = DateTimeOf(forbidden[i], locale);
        if (days && *days == parsed->days) result |= vldCCMustNotBeValues;
    }
    return result;
}

// The pattern of a text with more than `decimals` digits after the decimal separator.
std::u16string TooManyDecimalsPattern(char16_t separator, int decimals) {
    std::u16string pattern = u"*";
    if (separator == u'*' || separator == u'?' || separator == u'#' || separator == u'[')
        pattern += std::u16string { u'[', separator, u']' };
    else
        pattern += separator;
    pattern.append(static_cast<size_t>(decimals) + 1, u'#');
    pattern += u'*';
    return pattern;
}

int32_t NumericRules(std::u16string_view text, const Settings& settings, const LocaleInfo& locale) {
    const auto number = ParseNumber(text, locale, GroupingOf(settings.ThousandSeparator));
    if (!number) return vldCCMustBeNumber;
    const double value = number->value;
    int32_t result = 0;
    if (value < 0 && settings.MustBePositive) result |= vldCCMustBePositive;
    if (value > 0 && settings.MustBeNegative) result |= vldCCMustBeNegative;
    if (value == 0 && settings.MustNotBeZero) result |= vldCCMustNotBeZero;
    const VariantArray& forbidden = settings.MustNotBeValues;
    for (size_t i = 1; i < forbidden.size(); ++i) {
        const auto item = NumericValueOf(forbidden[i], locale);
        if (item && *item == value) result |= vldCCMustNotBeValues;
    }
    if (const auto minimum = NumericValueOf(settings.MinValue, locale); minimum && value < *minimum)
        result |= vldCCMinValue;
    if (const auto maximum = NumericValueOf(settings.MaxValue, locale); maximum && value > *maximum)
        result |= vldCCMaxValue;
    const std::u16string thousands = ThousandsSeparator(settings.ThousandSeparator, locale);
    if (!NumericWholeTextTest(text, settings.MustBeType, settings.AllowScientificFormat, thousands, locale))
        result |= TypeBit(settings.MustBeType);
    if (settings.MaxNumberOfDecimals > 0
        && MatchPattern(text, TooManyDecimalsPattern(locale.decimalSeparator, settings.MaxNumberOfDecimals)))
        result |= vldCCMaxNumberOfDecimals;
    if (!settings.AllowScientificFormat && text.find_first_of(u"eE") != std::u16string_view::npos)
        result |= vldCCAllowScientificFormat;
    return result;
}

int32_t TextRules(
    std::u16string_view text, const Settings& settings, const LocaleInfo& locale, int32_t maxLength) {
    int32_t result = 0;
    if (!settings.CustomMask.empty() && !MatchPattern(text, settings.CustomMask)) result |= vldCCCustomMask;
    if (settings.MustBeUpperCase && UpperCase(text) != text) result |= vldCCMustBeUpperCase;
    if (settings.MustBeLowerCase && LowerCase(text) != text) result |= vldCCMustBeLowerCase;
    if (settings.MustBeProperCase && ProperCase(text) != text) result |= vldCCMustBeProperCase;
    if (maxLength > 0 && text.size() > static_cast<size_t>(maxLength)) result |= vldCCMaxLength;
    const bool anyCharacterRule = !settings.ExtraExcludedCharacters.empty()
        || !settings.ValidCharactersSet.empty() || settings.NoDigits || settings.OnlyLetters
        || settings.OnlyLettersWithSpace;
    if (anyCharacterRule) {
        for (char16_t c : text)
            result |= CharacterRules(c, settings);
    }
    const VariantArray& forbidden = settings.MustNotBeValues;
    for (size_t i = 1; i < forbidden.size(); ++i)
        if (TextOf(forbidden[i], locale) == text) result |= vldCCMustNotBeValues;
    return result;
}

} // namespace

int32_t TypeBit(int32_t type) noexcept {
    switch (type) {
    case vldByte:
        return vldCCMustBeByte;
    case vldInteger:
        return vldCCMustBeInteger;
    case vldLong:
        return vldCCMustBeLong;
    case vldSingle:
        return vldCCMustBeSingle;
    case vldDouble:
        return vldCCMustBeDouble;
    default:
        return vldCCMustBeCurrency;
    }
}

int32_t CharacterRules(char16_t c, const Settings& settings) noexcept {
    int32_t result = 0;
    if (CharInSet(c, settings.ExtraExcludedCharacters)) result |= vldCCExtraExcludedCharacters;
    // An included character is exempt from the rules below, though not from the exclusion above.
    if (CharInSet(c, settings.ExtraIncludedCharacters)) return result;
    if (!settings.ValidCharactersSet.empty() && !CharInSet(c, settings.ValidCharactersSet))
        result |= vldCCValidCharactersSet;
    if (settings.NoDigits && c >= u'0' && c <= u'9') result |= vldCCNoDigits;
    const bool asciiLetter = (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
    // Characters of code 127 and above always pass the letter rules: they are taken for letters.
    if (settings.OnlyLetters && !asciiLetter && c < 127) result |= vldCCOnlyLetters;
    if (settings.OnlyLettersWithSpace && !asciiLetter && c != u' ' && c < 127)
        result |= vldCCOnlyLettersWithSpace;
    return result;
}

bool CharInSet(char16_t c, std::u16string_view set) noexcept {
    return !set.empty() && set.find(c) != std::u16string_view::npos;
}

int32_t EvaluateRules(
    std::u16string_view text, const Settings& settings, const LocaleInfo& locale, int32_t maxLength) {
    if (text.empty()) return settings.RequiredField ? vldCCRequiredField : 0;
    if (IsDateTimeType(settings.MustBeType)) return DateTimeRules(text, settings, locale);
    if (IsNumericType(settings.MustBeType)) return NumericRules(text, settings, locale);
    return TextRules(text, settings, locale, maxLength);
}

} // namespace quillmar
