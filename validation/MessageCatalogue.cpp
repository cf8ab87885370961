#include "validation/MessageCatalogue.h"

#include "base/Utf8.h"

#include <array>
#include <cassert>

namespace quillmar {
namespace {

struct Entry {
    MessageId id;
    MessageText text;
};

// The one table of the product's English texts. The contexts are stable: translations are found by them.
// "%1" ... are the arguments; a line break between lines is added by the code, never written here.
constexpr Entry kEntries[] = {
    { MessageId::Required, QUILLMAR_TEXT("QuillmarMessages", "This field is required.") },
    { MessageId::InvalidNumber, QUILLMAR_TEXT("QuillmarMessages", "Invalid numeric entry.") },
    { MessageId::InvalidDate, QUILLMAR_TEXT("QuillmarMessages", "Invalid date entry.") },
    { MessageId::InvalidTime, QUILLMAR_TEXT("QuillmarMessages", "Invalid time entry.") },
    { MessageId::InvalidText, QUILLMAR_TEXT("QuillmarMessages", "Invalid text entry.") },
    //: %1 is the largest number of decimals the field takes.
    { MessageId::TooManyDecimals,
        QUILLMAR_TEXT("QuillmarMessages", "Invalid number of decimals. Maximum is %1.") },
    //: %1 is what the field requires, from the rules in words: "An integer between 1 and 100".
    { MessageId::IsRequired, QUILLMAR_TEXT("QuillmarMessages", "%1 is required.") },
    //: %1 is a forbidden number as the author wrote it.
    { MessageId::ValueNotAllowed, QUILLMAR_TEXT("QuillmarMessages", "Value %1 is not allowed.") },
    { MessageId::DateNotAllowed, QUILLMAR_TEXT("QuillmarMessages", "Date %1 is not allowed.") },
    { MessageId::TimeNotAllowed, QUILLMAR_TEXT("QuillmarMessages", "Time %1 is not allowed.") },
    //: %1 is a forbidden text; keep it quoted.
    { MessageId::TextNotAllowed, QUILLMAR_TEXT("QuillmarMessages", "\"%1\" is not allowed.") },
    //: %1 is an example text that fits the field's mask: "AB-1234".
    { MessageId::MaskForm, QUILLMAR_TEXT("QuillmarMessages", "This field must be in a form like %1.") },
    { MessageId::CharactersNotAllowed,
        QUILLMAR_TEXT("QuillmarMessages", "Some of the characters in this text are not allowed.") },
    { MessageId::OnlyLettersAllowed, QUILLMAR_TEXT("QuillmarMessages", "Only letters are allowed.") },
    { MessageId::OnlyLettersAndSpaceAllowed,
        QUILLMAR_TEXT("QuillmarMessages", "Only letters and space are allowed.") },
    { MessageId::DigitsNotAllowed, QUILLMAR_TEXT("QuillmarMessages", "Digits are not allowed.") },
    { MessageId::OnlyUpperCaseAllowed,
        QUILLMAR_TEXT("QuillmarMessages", "Only uppercase letters are allowed.") },
    { MessageId::OnlyLowerCaseAllowed,
        QUILLMAR_TEXT("QuillmarMessages", "Only lowercase letters are allowed.") },
    { MessageId::OnlyProperCaseAllowed,
        QUILLMAR_TEXT("QuillmarMessages", "Only Proper Case text is allowed.") },
    { MessageId::MaxLengthOne,
        QUILLMAR_TEXT("QuillmarMessages", "Maximum allowed length of the text is %1 character.") },
    { MessageId::MaxLengthMany,
        QUILLMAR_TEXT("QuillmarMessages", "Maximum allowed length of the text is %1 characters.") },
    { MessageId::PreviousReturned, QUILLMAR_TEXT("QuillmarMessages", "Previous value returned.") },
    { MessageId::DefaultInserted, QUILLMAR_TEXT("QuillmarMessages", "Default value inserted.") },
    { MessageId::ClosestInserted, QUILLMAR_TEXT("QuillmarMessages", "Closest value inserted.") },
    //: The title of the error message box while the author has not given one.
    { MessageId::InvalidEntryTitle, QUILLMAR_TEXT("QuillmarMessages", "Invalid Entry") },
    //: Shown for an invalid field whose own message is empty, so that it always has a reason to show.
    { MessageId::EntryNotValid, QUILLMAR_TEXT("QuillmarMessages", "This entry is not valid.") },

    { MessageId::AnInteger, QUILLMAR_TEXT("QuillmarRules", "An integer") },
    { MessageId::APositiveInteger, QUILLMAR_TEXT("QuillmarRules", "A positive integer") },
    { MessageId::ANegativeInteger, QUILLMAR_TEXT("QuillmarRules", "A negative integer") },
    { MessageId::ANumber, QUILLMAR_TEXT("QuillmarRules", "A number") },
    { MessageId::APositiveNumber, QUILLMAR_TEXT("QuillmarRules", "A positive number") },
    { MessageId::ANegativeNumber, QUILLMAR_TEXT("QuillmarRules", "A negative number") },
    //: %1 is "An integer", "A positive number" ...; %2 and %3 are the bounds.
    { MessageId::NumberBetween, QUILLMAR_TEXT("QuillmarRules", "%1 between %2 and %3") },
    { MessageId::NumberAtLeast, QUILLMAR_TEXT("QuillmarRules", "%1 >= %2") },
    { MessageId::NumberAtMost, QUILLMAR_TEXT("QuillmarRules", "%1 <= %2") },
    { MessageId::ADate, QUILLMAR_TEXT("QuillmarRules", "A date") },
    { MessageId::DateBetween, QUILLMAR_TEXT("QuillmarRules", "A date between %1 and %2") },
    { MessageId::DateAfter, QUILLMAR_TEXT("QuillmarRules", "A date after %1") },
    { MessageId::DateBefore, QUILLMAR_TEXT("QuillmarRules", "A date before %1") },
    { MessageId::ATime, QUILLMAR_TEXT("QuillmarRules", "A time") },
    { MessageId::TimeBetween, QUILLMAR_TEXT("QuillmarRules", "A time between %1 and %2") },
    { MessageId::TimeAfter, QUILLMAR_TEXT("QuillmarRules", "A time after %1") },
    { MessageId::TimeBefore, QUILLMAR_TEXT("QuillmarRules", "A time before %1") },
    //: %1 is the number rule in words, %2 the largest number of decimals (1).
    { MessageId::AtMostDecimal, QUILLMAR_TEXT("QuillmarRules", "%1, at most %2 decimal") },
    { MessageId::AtMostDecimals, QUILLMAR_TEXT("QuillmarRules", "%1, at most %2 decimals") },
    //: The text rules are joined by the separator below and begin with a capital letter.
    { MessageId::LettersOnly, QUILLMAR_TEXT("QuillmarRules", "letters only") },
    //: %1 lists the characters the author allowed besides letters: "- '".
    { MessageId::LettersAndOnly, QUILLMAR_TEXT("QuillmarRules", "letters and %1 only") },
    { MessageId::LettersAndSpacesOnly, QUILLMAR_TEXT("QuillmarRules", "letters and spaces only") },
    { MessageId::LettersSpacesAndOnly, QUILLMAR_TEXT("QuillmarRules", "letters, spaces and %1 only") },
    //: %1 lists the characters the field takes: "0–9 space + - ( )".
    { MessageId::OnlyCharacters, QUILLMAR_TEXT("QuillmarRules", "only %1") },
    { MessageId::NoDigits, QUILLMAR_TEXT("QuillmarRules", "no digits") },
    { MessageId::LowerCase, QUILLMAR_TEXT("QuillmarRules", "lower case") },
    { MessageId::UpperCase, QUILLMAR_TEXT("QuillmarRules", "upper case") },
    { MessageId::ProperCase, QUILLMAR_TEXT("QuillmarRules", "Proper Case") },
    { MessageId::AtMostCharacter, QUILLMAR_TEXT("QuillmarRules", "at most %1 character") },
    { MessageId::AtMostCharacters, QUILLMAR_TEXT("QuillmarRules", "at most %1 characters") },
    //: %1 is an example text that fits the field's mask: "AB-1234".
    { MessageId::LikeExample, QUILLMAR_TEXT("QuillmarRules", "like %1") },
    { MessageId::RuleSeparator, QUILLMAR_TEXT("QuillmarRules", ", ") },
    //: The space character in a list of characters.
    { MessageId::SpaceName, QUILLMAR_TEXT("QuillmarRules", "space") },
    //: The grey text of an empty number field: its lowest and highest value.
    { MessageId::RangePlaceholder, QUILLMAR_TEXT("QuillmarRules", "%1 – %2") },
    { MessageId::AtLeastPlaceholder, QUILLMAR_TEXT("QuillmarRules", "≥ %1") },
    { MessageId::AtMostPlaceholder, QUILLMAR_TEXT("QuillmarRules", "≤ %1") },

    { MessageId::TipTimeCharacter,
        QUILLMAR_TEXT("QuillmarTips", "Only digits, \":\" and AM or PM can be typed here") },
    { MessageId::TipTimeShape, QUILLMAR_TEXT("QuillmarTips", "That would not make a time") },
    { MessageId::TipDateCharacter, QUILLMAR_TEXT("QuillmarTips", "Only digits and / - . can be typed here") },
    { MessageId::TipDateShape, QUILLMAR_TEXT("QuillmarTips", "That would not make a date") },
    { MessageId::TipNumberCharacter, QUILLMAR_TEXT("QuillmarTips", "Only digits can be typed here") },
    { MessageId::TipSecondDecimalSeparator,
        QUILLMAR_TEXT("QuillmarTips", "The number already has a decimal separator") },
    { MessageId::TipGroupSeparatorPlace,
        QUILLMAR_TEXT("QuillmarTips", "A digit group separator cannot go there") },
    { MessageId::TipWholeNumber, QUILLMAR_TEXT("QuillmarTips", "Only whole numbers can be typed here") },
    { MessageId::TipPositiveNumber, QUILLMAR_TEXT("QuillmarTips", "The number must be positive") },
    { MessageId::TipSecondMinus, QUILLMAR_TEXT("QuillmarTips", "The number already has a minus sign") },
    { MessageId::TipExponentSign, QUILLMAR_TEXT("QuillmarTips", "A plus sign can only follow the E") },
    { MessageId::TipNumberShape, QUILLMAR_TEXT("QuillmarTips", "That would not make a number") },
    { MessageId::TipAtMostDecimal, QUILLMAR_TEXT("QuillmarTips", "At most %1 decimal") },
    { MessageId::TipAtMostDecimals, QUILLMAR_TEXT("QuillmarTips", "At most %1 decimals") },
    { MessageId::TipExcludedCharacter, QUILLMAR_TEXT("QuillmarTips", "This character is not allowed here") },
    { MessageId::TipFieldCharacters,
        QUILLMAR_TEXT("QuillmarTips", "Only the field's own characters can be typed here") },
    //: %1 lists the characters the field takes: "0–9 space + - ( )".
    { MessageId::TipOnlyCharacters, QUILLMAR_TEXT("QuillmarTips", "Only %1 can be typed here") },
    { MessageId::TipNoDigits, QUILLMAR_TEXT("QuillmarTips", "Digits are not allowed here") },
    { MessageId::TipOnlyLetters, QUILLMAR_TEXT("QuillmarTips", "Only letters can be typed here") },
    //: %1 lists the characters the author allowed besides letters: "- '".
    { MessageId::TipOnlyLettersAnd, QUILLMAR_TEXT("QuillmarTips", "Only letters and %1 can be typed here") },
    { MessageId::TipOnlyLettersAndSpaces,
        QUILLMAR_TEXT("QuillmarTips", "Only letters and spaces can be typed here") },
    { MessageId::TipOnlyLettersSpacesAnd,
        QUILLMAR_TEXT("QuillmarTips", "Only letters, spaces and %1 can be typed here") },
    //: %1 is an example number in the user's own notation: "1,234.50".
    { MessageId::TipPastedNumber, QUILLMAR_TEXT("QuillmarTips", "Numbers here are written like %1") },
};

constexpr bool EntriesInOrder() {
    if (std::size(kEntries) != kMessageCount) return false;
    for (size_t i = 0; i < std::size(kEntries); ++i)
        if (static_cast<size_t>(kEntries[i].id) != i) return false;
    return true;
}
static_assert(EntriesInOrder(), "one entry per message identity, in the order of MessageId");

} // namespace

const MessageText& MessageSource(MessageId id) {
    assert(static_cast<size_t>(id) < kMessageCount && "a message identity of the table");
    return kEntries[static_cast<size_t>(id)].text;
}

std::u16string EnglishCatalogue::Template(MessageId id) const {
    return FromUtf8(MessageSource(id).english).value_or(std::u16string());
}

const MessageCatalogue& EnglishMessages() {
    static const EnglishCatalogue catalogue;
    return catalogue;
}

std::u16string ComposeMessage(
    const MessageCatalogue& catalogue, MessageId id, std::initializer_list<std::u16string_view> args) {
    return FillPlaceholders<char16_t>(catalogue.Template(id), std::span(args.begin(), args.size()));
}

} // namespace quillmar
