#include "input/Refusal.h"

#include "validation/Describe.h"
#include "validation/Numbers.h"

namespace quillmar {

std::u16string NumberExample(const Settings& settings, const LocaleInfo& locale) {
    std::u16string example = settings.MustBeNegative ? u"-" : u"";
    if (settings.MustBeType == vldByte) return example + u"123";
    example += u'1';
    if (settings.ThousandSeparator == vldTSAllowed && locale.groupingSize > 0 && locale.groupingSize <= 3)
        example += locale.groupSeparator;
    example += u"234";
    if (settings.MustBeType == vldInteger || settings.MustBeType == vldLong) return example;
    example += locale.decimalSeparator;
    example += settings.MaxNumberOfDecimals == 1 ? u"5" : u"50";
    return example;
}

std::u16string RefusalText(
    Refusal refusal, const Settings& settings, const LocaleInfo& locale, const MessageCatalogue& catalogue) {
    const auto text = [&catalogue](MessageId id, std::initializer_list<std::u16string_view> args = {}) {
        return ComposeMessage(catalogue, id, args);
    };
    switch (refusal) {
    case Refusal::None:
        return {};
    case Refusal::TimeCharacter:
        return text(MessageId::TipTimeCharacter);
    case Refusal::TimeShape:
        return text(MessageId::TipTimeShape);
    case Refusal::DateCharacter:
        return text(MessageId::TipDateCharacter);
    case Refusal::DateShape:
        return text(MessageId::TipDateShape);
    case Refusal::NumberCharacter:
        return text(MessageId::TipNumberCharacter);
    case Refusal::SecondDecimalSeparator:
        return text(MessageId::TipSecondDecimalSeparator);
    case Refusal::GroupSeparatorPlace:
        return text(MessageId::TipGroupSeparatorPlace);
    case Refusal::WholeNumber:
        return text(MessageId::TipWholeNumber);
    case Refusal::PositiveNumber:
        return text(MessageId::TipPositiveNumber);
    case Refusal::SecondMinus:
        return text(MessageId::TipSecondMinus);
    case Refusal::ExponentSign:
        return text(MessageId::TipExponentSign);
    case Refusal::NumberShape:
        return text(MessageId::TipNumberShape);
    case Refusal::TooManyDecimals: {
        const int decimals = settings.MaxNumberOfDecimals;
        return text(decimals == 1 ? MessageId::TipAtMostDecimal : MessageId::TipAtMostDecimals,
            { FormatInteger(decimals) });
    }
    case Refusal::ExcludedCharacter:
        return text(MessageId::TipExcludedCharacter);
    case Refusal::CharacterSet: {
        const std::u16string valid
            = CharacterList(settings.ValidCharactersSet + settings.ExtraIncludedCharacters, catalogue);
        return valid.empty() ? text(MessageId::TipFieldCharacters)
                             : text(MessageId::TipOnlyCharacters, { valid });
    }
    case Refusal::NoDigits:
        return text(MessageId::TipNoDigits);
    case Refusal::OnlyLetters:
    case Refusal::OnlyLettersWithSpace: {
        // The characters the author added to the rule can be typed too, so the tip names them.
        const std::u16string added = CharacterList(settings.ExtraIncludedCharacters, catalogue);
        const bool spaces = refusal == Refusal::OnlyLettersWithSpace;
        if (added.empty())
            return text(spaces ? MessageId::TipOnlyLettersAndSpaces : MessageId::TipOnlyLetters);
        return text(spaces ? MessageId::TipOnlyLettersSpacesAnd : MessageId::TipOnlyLettersAnd, { added });
    }
    case Refusal::PastedNumber:
        return text(MessageId::TipPastedNumber, { NumberExample(settings, locale) });
    }
    return {};
}

} // namespace quillmar
