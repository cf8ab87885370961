#include "validation/Messages.h"

#include "validation/Conversions.h"
#include "validation/DateTime.h"
#include "validation/Describe.h"
#include "validation/Numbers.h"

#include <optional>

namespace quillmar {
namespace {

constexpr std::u16string_view kLineBreak = u"\r\n";
constexpr std::u16string_view kRequired = u"This field is required.";
constexpr std::u16string_view kInvalidNumber = u"Invalid numeric entry.";
constexpr std::u16string_view kInvalidDate = u"Invalid date entry.";
constexpr std::u16string_view kInvalidTime = u"Invalid time entry.";

// Bits 4 to 32768 without 16384: the numeric rules whose basic message names only the type.
constexpr int32_t kNumericRuleBits = 49148;

std::u16string DecimalsMessage(const Settings& settings) {
    return u"Invalid number of decimals. Maximum is " + FormatInteger(settings.MaxNumberOfDecimals) + u".";
}

std::u16string BasicMessage(int32_t bits, const Settings& settings) {
    const int32_t type = settings.MustBeType;
    if (bits == vldCCRequiredField) return std::u16string(kRequired);
    if (bits & vldCCMustBeDate) return std::u16string(kInvalidDate);
    if (bits & vldCCMustBeTime) return std::u16string(kInvalidTime);
    if (bits & vldCCMustBeNumber) return std::u16string(kInvalidNumber);
    if (bits & kNumericRuleBits) {
        // A text field refused only by its forbidden values lands here and gets no text at all.
        if (IsNumericType(type)) return std::u16string(kInvalidNumber);
        if (type == vldDate) return std::u16string(kInvalidDate);
        if (type == vldTime) return std::u16string(kInvalidTime);
        return {};
    }
    if (bits == vldCCMaxNumberOfDecimals) return DecimalsMessage(settings);
    if (!IsNumericType(type) && !IsDateTimeType(type)) return u"Invalid text entry. ";
    return {};
}

void NumberMessage(std::u16string_view text, int32_t bits, const Settings& settings, const LocaleInfo& locale,
    std::u16string& main, std::u16string& second) {
    main = RequirementPhrase(settings, locale) + u" is required.";

    if (const auto number = ParseNumber(text, locale, GroupingOf(settings.ThousandSeparator))) {
        if (settings.MustNotBeZero && number->value == 0) second = u"Value 0 is not allowed.";
        const VariantArray& items = settings.MustNotBeValues;
        for (size_t i = 1; i < items.size(); ++i) {
            const auto item = NumberOf(items[i], locale);
            if (item && item->value == number->value) {
                second = u"Value " + TextOf(items[i], locale) + u" is not allowed.";
                break;
            }
        }
    }

    if (bits == vldCCMaxNumberOfDecimals) main = DecimalsMessage(settings);
    if (bits & vldCCMustBeNumber) main = std::u16string(kInvalidNumber);
}

void DateTimeMessage(std::u16string_view text, int32_t bits, const Settings& settings,
    const LocaleInfo& locale, std::u16string& main, std::u16string& second) {
    const bool isDate = settings.MustBeType == vldDate;
    main = RequirementPhrase(settings, locale);
    if (!main.empty()) main += u" is required.";

    if (const auto parsed = ParseDateTime(text, locale)) {
        const VariantArray& items = settings.MustNotBeValues;
        for (size_t i = 1; i < items.size(); ++i) {
            const auto days = DateTimeOf(items[i], locale);
            if (days && *days == parsed->days) {
                second = (isDate ? u"Date " : u"Time ") + TextOf(items[i], locale) + u" is not allowed.";
                break;
            }
        }
    }

    const int32_t typeBit = isDate ? vldCCMustBeDate : vldCCMustBeTime;
    if (bits & typeBit) main = std::u16string(isDate ? kInvalidDate : kInvalidTime);
}

void TextMessage(std::u16string_view text, int32_t bits, const Settings& settings, const LocaleInfo& locale,
    int32_t maxLength, std::u16string& main, std::u16string& second) {
    main = u"Invalid text entry.";
    auto addLine = [&](std::u16string_view line) {
        main += kLineBreak;
        main += line;
    };
    if (bits & vldCCCustomMask) addLine(u"This field must be in a form like " + settings.CustomMask + u".");
    if (bits & (vldCCExtraExcludedCharacters | vldCCValidCharactersSet))
        addLine(u"Some of the characters in this text are not allowed.");
    if (bits & vldCCOnlyLetters) addLine(u"Only letters are allowed.");
    if (bits & vldCCOnlyLettersWithSpace) addLine(u"Only letters and space are allowed.");
    if (bits & vldCCNoDigits) addLine(u"Digits are not allowed.");
    if (bits & vldCCMustBeUpperCase) addLine(u"Only uppercase letters are allowed.");
    if (bits & vldCCMustBeLowerCase) addLine(u"Only lowercase letters are allowed.");
    if (bits & vldCCMustBeProperCase) addLine(u"Only Proper Case text is allowed.");
    if (bits & vldCCMaxLength)
        addLine(u"Maximum allowed length of the text is " + FormatInteger(maxLength)
            + (maxLength == 1 ? u" character." : u" characters."));

    const VariantArray& items = settings.MustNotBeValues;
    for (size_t i = 1; i < items.size(); ++i) {
        const std::u16string item = TextOf(items[i], locale);
        if (item == text) {
            second = u"\"" + item + u"\" is not allowed.";
            break;
        }
    }
}

std::u16string AdvancedMessage(std::u16string_view text, int32_t bits, int32_t actionCode,
    const Settings& settings, const LocaleInfo& locale, int32_t maxLength) {
    std::u16string main;
    std::u16string second;
    const int32_t type = settings.MustBeType;
    if (bits == vldCCRequiredField)
        main = kRequired;
    else if (IsNumericType(type))
        NumberMessage(text, bits, settings, locale, main, second);
    else if (IsDateTimeType(type))
        DateTimeMessage(text, bits, settings, locale, main, second);
    else
        TextMessage(text, bits, settings, locale, maxLength, main, second);

    if (!second.empty()) {
        main += kLineBreak;
        main += second;
    }
    return main + ActionSuffix(actionCode);
}

} // namespace

std::u16string ActionSuffix(int32_t actionCode) {
    std::u16string_view line;
    switch (actionCode) {
    case vldACReturnPrevious:
        line = u"Previous value returned.";
        break;
    case vldACInsertDefault:
        line = u"Default value inserted.";
        break;
    case vldACInsertClosest:
        line = u"Closest value inserted.";
        break;
    default:
        return {};
    }
    std::u16string result(kLineBreak);
    result += line;
    return result;
}

std::u16string ComposeErrorMessage(std::u16string_view text, int32_t bits, int32_t actionCode,
    const Settings& settings, const LocaleInfo& locale, int32_t maxLength) {
    switch (settings.ErrorMessageMode) {
    case vldAutoBasic:
        return BasicMessage(bits, settings);
    case vldAutoAdvanced:
        return AdvancedMessage(text, bits, actionCode, settings, locale, maxLength);
    default:
        // The custom text is put in by the caller that shows the message.
        return {};
    }
}

} // namespace quillmar
