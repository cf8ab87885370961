#include "validation/Messages.h"

#include "validation/Conversions.h"
#include "validation/DateTime.h"
#include "validation/Describe.h"
#include "validation/Numbers.h"

#include <optional>

namespace quillmar {
namespace {

constexpr std::u16string_view kLineBreak = u"\r\n";

// Bits 4 to 32768 without 16384: the numeric rules whose basic message names only the type.
constexpr int32_t kNumericRuleBits = 49148;

std::u16string DecimalsMessage(const Settings& settings, const MessageCatalogue& catalogue) {
    return ComposeMessage(
        catalogue, MessageId::TooManyDecimals, { FormatInteger(settings.MaxNumberOfDecimals) });
}

std::u16string BasicMessage(int32_t bits, const Settings& settings, const MessageCatalogue& catalogue) {
    const int32_t type = settings.MustBeType;
    const auto text = [&catalogue](MessageId id) { return ComposeMessage(catalogue, id); };
    if (bits == vldCCRequiredField) return text(MessageId::Required);
    if (bits & vldCCMustBeDate) return text(MessageId::InvalidDate);
    if (bits & vldCCMustBeTime) return text(MessageId::InvalidTime);
    if (bits & vldCCMustBeNumber) return text(MessageId::InvalidNumber);
    if (bits & kNumericRuleBits) {
        // A text field refused only by its forbidden values lands here and gets no text at all.
        if (IsNumericType(type)) return text(MessageId::InvalidNumber);
        if (type == vldDate) return text(MessageId::InvalidDate);
        if (type == vldTime) return text(MessageId::InvalidTime);
        return {};
    }
    if (bits == vldCCMaxNumberOfDecimals) return DecimalsMessage(settings, catalogue);
    // The basic text message has always ended in a space.
    if (!IsNumericType(type) && !IsDateTimeType(type)) return text(MessageId::InvalidText) + u" ";
    return {};
}

void NumberMessage(std::u16string_view text, int32_t bits, const Settings& settings, const LocaleInfo& locale,
    const MessageCatalogue& catalogue, std::u16string& main, std::u16string& second) {
    main = ComposeMessage(
        catalogue, MessageId::IsRequired, { RequirementPhrase(settings, locale, catalogue) });

    if (const auto number = ParseNumber(text, locale, GroupingOf(settings.ThousandSeparator))) {
        if (settings.MustNotBeZero && number->value == 0)
            second = ComposeMessage(catalogue, MessageId::ValueNotAllowed, { u"0" });
        const VariantArray& items = settings.MustNotBeValues;
        for (size_t i = 1; i < items.size(); ++i) {
            const auto item = NumberOf(items[i], locale);
            if (item && item->value == number->value) {
                second = ComposeMessage(catalogue, MessageId::ValueNotAllowed, { TextOf(items[i], locale) });
                break;
            }
        }
    }

    if (bits == vldCCMaxNumberOfDecimals) main = DecimalsMessage(settings, catalogue);
    if (bits & vldCCMustBeNumber) main = ComposeMessage(catalogue, MessageId::InvalidNumber);
}

void DateTimeMessage(std::u16string_view text, int32_t bits, const Settings& settings,
    const LocaleInfo& locale, const MessageCatalogue& catalogue, std::u16string& main,
    std::u16string& second) {
    const bool isDate = settings.MustBeType == vldDate;
    const std::u16string phrase = RequirementPhrase(settings, locale, catalogue);
    main = phrase.empty() ? phrase : ComposeMessage(catalogue, MessageId::IsRequired, { phrase });

    if (const auto parsed = ParseDateTime(text, locale)) {
        const VariantArray& items = settings.MustNotBeValues;
        for (size_t i = 1; i < items.size(); ++i) {
            const auto days = DateTimeOf(items[i], locale);
            if (days && *days == parsed->days) {
                second = ComposeMessage(catalogue,
                    isDate ? MessageId::DateNotAllowed : MessageId::TimeNotAllowed,
                    { TextOf(items[i], locale) });
                break;
            }
        }
    }

    const int32_t typeBit = isDate ? vldCCMustBeDate : vldCCMustBeTime;
    if (bits & typeBit)
        main = ComposeMessage(catalogue, isDate ? MessageId::InvalidDate : MessageId::InvalidTime);
}

void TextMessage(std::u16string_view text, int32_t bits, const Settings& settings, const LocaleInfo& locale,
    int32_t maxLength, const MessageCatalogue& catalogue, std::u16string& main, std::u16string& second) {
    main = ComposeMessage(catalogue, MessageId::InvalidText);
    auto addLine = [&](MessageId id, std::initializer_list<std::u16string_view> args = {}) {
        main += kLineBreak;
        main += ComposeMessage(catalogue, id, args);
    };
    if (bits & vldCCCustomMask) addLine(MessageId::MaskForm, { settings.CustomMask });
    if (bits & (vldCCExtraExcludedCharacters | vldCCValidCharactersSet))
        addLine(MessageId::CharactersNotAllowed);
    if (bits & vldCCOnlyLetters) addLine(MessageId::OnlyLettersAllowed);
    if (bits & vldCCOnlyLettersWithSpace) addLine(MessageId::OnlyLettersAndSpaceAllowed);
    if (bits & vldCCNoDigits) addLine(MessageId::DigitsNotAllowed);
    if (bits & vldCCMustBeUpperCase) addLine(MessageId::OnlyUpperCaseAllowed);
    if (bits & vldCCMustBeLowerCase) addLine(MessageId::OnlyLowerCaseAllowed);
    if (bits & vldCCMustBeProperCase) addLine(MessageId::OnlyProperCaseAllowed);
    if (bits & vldCCMaxLength)
        addLine(maxLength == 1 ? MessageId::MaxLengthOne : MessageId::MaxLengthMany,
            { FormatInteger(maxLength) });

    const VariantArray& items = settings.MustNotBeValues;
    for (size_t i = 1; i < items.size(); ++i) {
        const std::u16string item = TextOf(items[i], locale);
        if (item == text) {
            second = ComposeMessage(catalogue, MessageId::TextNotAllowed, { item });
            break;
        }
    }
}

std::u16string AdvancedMessage(std::u16string_view text, int32_t bits, int32_t actionCode,
    const Settings& settings, const LocaleInfo& locale, int32_t maxLength,
    const MessageCatalogue& catalogue) {
    std::u16string main;
    std::u16string second;
    const int32_t type = settings.MustBeType;
    if (bits == vldCCRequiredField)
        main = ComposeMessage(catalogue, MessageId::Required);
    else if (IsNumericType(type))
        NumberMessage(text, bits, settings, locale, catalogue, main, second);
    else if (IsDateTimeType(type))
        DateTimeMessage(text, bits, settings, locale, catalogue, main, second);
    else
        TextMessage(text, bits, settings, locale, maxLength, catalogue, main, second);

    if (!second.empty()) {
        main += kLineBreak;
        main += second;
    }
    return main + ActionSuffix(actionCode, catalogue);
}

} // namespace

std::u16string ActionSuffix(int32_t actionCode, const MessageCatalogue& catalogue) {
    MessageId line;
    switch (actionCode) {
    case vldACReturnPrevious:
        line = MessageId::PreviousReturned;
        break;
    case vldACInsertDefault:
        line = MessageId::DefaultInserted;
        break;
    case vldACInsertClosest:
        line = MessageId::ClosestInserted;
        break;
    default:
        return {};
    }
    std::u16string result(kLineBreak);
    result += ComposeMessage(catalogue, line);
    return result;
}

std::u16string ComposeErrorMessage(std::u16string_view text, int32_t bits, int32_t actionCode,
    const Settings& settings, const LocaleInfo& locale, int32_t maxLength,
    const MessageCatalogue& catalogue) {
    switch (settings.ErrorMessageMode) {
    case vldAutoBasic:
        return BasicMessage(bits, settings, catalogue);
    case vldAutoAdvanced:
        return AdvancedMessage(text, bits, actionCode, settings, locale, maxLength, catalogue);
    default:
        // The custom text is put in by the caller that shows the message.
        return {};
    }
}

std::u16string ShownMessageBoxTitle(const Settings& settings, const MessageCatalogue& catalogue) {
    if (settings.MessageBoxTitle == ComposeMessage(EnglishMessages(), MessageId::InvalidEntryTitle))
        return ComposeMessage(catalogue, MessageId::InvalidEntryTitle);
    return settings.MessageBoxTitle;
}

} // namespace quillmar
