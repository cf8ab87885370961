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

std::u16string RefusalText(Refusal refusal, const Settings& settings, const LocaleInfo& locale) {
    switch (refusal) {
    case Refusal::None:
        return {};
    case Refusal::TimeCharacter:
        return u"Only digits, \":\" and AM or PM can be typed here";
    case Refusal::TimeShape:
        return u"That would not make a time";
    case Refusal::DateCharacter:
        return u"Only digits and / - . can be typed here";
    case Refusal::DateShape:
        return u"That would not make a date";
    case Refusal::NumberCharacter:
        return u"Only digits can be typed here";
    case Refusal::SecondDecimalSeparator:
        return u"The number already has a decimal separator";
    case Refusal::GroupSeparatorPlace:
        return u"A digit group separator cannot go there";
    case Refusal::WholeNumber:
        return u"Only whole numbers can be typed here";
    case Refusal::PositiveNumber:
        return u"The number must be positive";
    case Refusal::SecondMinus:
        return u"The number already has a minus sign";
    case Refusal::ExponentSign:
        return u"A plus sign can only follow the E";
    case Refusal::NumberShape:
        return u"That would not make a number";
    case Refusal::TooManyDecimals: {
        const int decimals = settings.MaxNumberOfDecimals;
        return u"At most " + FormatInteger(decimals) + (decimals == 1 ? u" decimal" : u" decimals");
    }
    case Refusal::ExcludedCharacter:
        return u"This character is not allowed here";
    case Refusal::CharacterSet: {
        const std::u16string valid
            = CharacterList(settings.ValidCharactersSet + settings.ExtraIncludedCharacters);
        return valid.empty() ? u"Only the field's own characters can be typed here"
                             : u"Only " + valid + u" can be typed here";
    }
    case Refusal::NoDigits:
        return u"Digits are not allowed here";
    case Refusal::OnlyLetters:
    case Refusal::OnlyLettersWithSpace: {
        // The characters the author added to the rule can be typed too, so the tip names them.
        const std::u16string added = CharacterList(settings.ExtraIncludedCharacters);
        const bool spaces = refusal == Refusal::OnlyLettersWithSpace;
        if (added.empty())
            return spaces ? u"Only letters and spaces can be typed here" : u"Only letters can be typed here";
        return (spaces ? u"Only letters, spaces and " : u"Only letters and ") + added + u" can be typed here";
    }
    case Refusal::PastedNumber:
        return u"Numbers here are written like " + NumberExample(settings, locale);
    }
    return {};
}

} // namespace quillmar
