#pragma once

#include <quillmar/CoreExport.h>

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

namespace quillmar {

/// Marks a text of the product for the translation tools: its stable context and its English source, which
/// `lupdate` reads when told `-tr-function-alias QT_TRANSLATE_NOOP+=QUILLMAR_TEXT`. Expands to a
/// `MessageText`.
#define QUILLMAR_TEXT(context, english)                                                                      \
    ::quillmar::MessageText {                                                                                \
        context, english                                                                                     \
    }

/// A text of the product before translation: the context that groups it for translators and its English
/// source (UTF-8), which holds %1, %2 ... where the arguments go.
struct MessageText {
    const char* context; ///< The translation context (UTF-8), "QuillmarMessages" for the control's texts.
    const char* english; ///< The English source (UTF-8).
};

/// The identity of every text the control composes: error messages and their lines, the action lines, the
/// rules in words, placeholders, refusal tips and the default message box title.
enum class MessageId : uint16_t {
    // Error messages.
    Required, ///< "This field is required."
    InvalidNumber, ///< "Invalid numeric entry."
    InvalidDate, ///< "Invalid date entry."
    InvalidTime, ///< "Invalid time entry."
    InvalidText, ///< "Invalid text entry."
    TooManyDecimals, ///< "Invalid number of decimals. Maximum is \%1."
    IsRequired, ///< "\%1 is required."
    ValueNotAllowed, ///< "Value \%1 is not allowed."
    DateNotAllowed, ///< "Date \%1 is not allowed."
    TimeNotAllowed, ///< "Time \%1 is not allowed."
    TextNotAllowed, ///< ""\%1" is not allowed."
    MaskForm, ///< "This field must be in a form like \%1."
    CharactersNotAllowed, ///< "Some of the characters in this text are not allowed."
    OnlyLettersAllowed, ///< "Only letters are allowed."
    OnlyLettersAndSpaceAllowed, ///< "Only letters and space are allowed."
    DigitsNotAllowed, ///< "Digits are not allowed."
    OnlyUpperCaseAllowed, ///< "Only uppercase letters are allowed."
    OnlyLowerCaseAllowed, ///< "Only lowercase letters are allowed."
    OnlyProperCaseAllowed, ///< "Only Proper Case text is allowed."
    MaxLengthOne, ///< "Maximum allowed length of the text is \%1 character."
    MaxLengthMany, ///< "Maximum allowed length of the text is \%1 characters."
    // Action lines.
    PreviousReturned, ///< "Previous value returned."
    DefaultInserted, ///< "Default value inserted."
    ClosestInserted, ///< "Closest value inserted."
    // The default title of the message box.
    InvalidEntryTitle, ///< "Invalid Entry"
    // What an invalid field whose message says nothing shows instead.
    EntryNotValid, ///< "This entry is not valid."
    // The rules in words.
    AnInteger, ///< "An integer"
    APositiveInteger, ///< "A positive integer"
    ANegativeInteger, ///< "A negative integer"
    ANumber, ///< "A number"
    APositiveNumber, ///< "A positive number"
    ANegativeNumber, ///< "A negative number"
    NumberBetween, ///< "\%1 between \%2 and \%3"
    NumberAtLeast, ///< "\%1 >= \%2"
    NumberAtMost, ///< "\%1 <= \%2"
    ADate, ///< "A date"
    DateBetween, ///< "A date between \%1 and \%2"
    DateAfter, ///< "A date after \%1"
    DateBefore, ///< "A date before \%1"
    ATime, ///< "A time"
    TimeBetween, ///< "A time between \%1 and \%2"
    TimeAfter, ///< "A time after \%1"
    TimeBefore, ///< "A time before \%1"
    AtMostDecimal, ///< "\%1, at most \%2 decimal"
    AtMostDecimals, ///< "\%1, at most \%2 decimals"
    LettersOnly, ///< "letters only"
    LettersAndOnly, ///< "letters and \%1 only"
    LettersAndSpacesOnly, ///< "letters and spaces only"
    LettersSpacesAndOnly, ///< "letters, spaces and \%1 only"
    OnlyCharacters, ///< "only \%1"
    NoDigits, ///< "no digits"
    LowerCase, ///< "lower case"
    UpperCase, ///< "upper case"
    ProperCase, ///< "Proper Case"
    AtMostCharacter, ///< "at most \%1 character"
    AtMostCharacters, ///< "at most \%1 characters"
    LikeExample, ///< "like \%1"
    RuleSeparator, ///< ", "
    SpaceName, ///< "space"
    // Placeholders.
    RangePlaceholder, ///< "\%1 – \%2"
    AtLeastPlaceholder, ///< "≥ \%1"
    AtMostPlaceholder, ///< "≤ \%1"
    // Refusal tips.
    TipTimeCharacter, ///< "Only digits, ":" and AM or PM can be typed here"
    TipTimeShape, ///< "That would not make a time"
    TipDateCharacter, ///< "Only digits and / - . can be typed here"
    TipDateShape, ///< "That would not make a date"
    TipNumberCharacter, ///< "Only digits can be typed here"
    TipSecondDecimalSeparator, ///< "The number already has a decimal separator"
    TipGroupSeparatorPlace, ///< "A digit group separator cannot go there"
    TipWholeNumber, ///< "Only whole numbers can be typed here"
    TipPositiveNumber, ///< "The number must be positive"
    TipSecondMinus, ///< "The number already has a minus sign"
    TipExponentSign, ///< "A plus sign can only follow the E"
    TipNumberShape, ///< "That would not make a number"
    TipAtMostDecimal, ///< "At most \%1 decimal"
    TipAtMostDecimals, ///< "At most \%1 decimals"
    TipExcludedCharacter, ///< "This character is not allowed here"
    TipFieldCharacters, ///< "Only the field's own characters can be typed here"
    TipOnlyCharacters, ///< "Only \%1 can be typed here"
    TipNoDigits, ///< "Digits are not allowed here"
    TipOnlyLetters, ///< "Only letters can be typed here"
    TipOnlyLettersAnd, ///< "Only letters and \%1 can be typed here"
    TipOnlyLettersAndSpaces, ///< "Only letters and spaces can be typed here"
    TipOnlyLettersSpacesAnd, ///< "Only letters, spaces and \%1 can be typed here"
    TipPastedNumber, ///< "Numbers here are written like \%1"
    Count ///< The number of identities, not one itself.
};

/// How many message identities there are.
inline constexpr size_t kMessageCount = static_cast<size_t>(MessageId::Count);

/// The context and English source of a message identity (never null).
[[nodiscard]] QUILLMAR_CORE_EXPORT const MessageText& MessageSource(MessageId id);

/// Where the control finds the text of a message identity in the user's language.
class QUILLMAR_CORE_EXPORT MessageCatalogue {
public:
    virtual ~MessageCatalogue() = default;
    /// The text of `id` with %1, %2 ... still in it where the arguments go; the English source when the
    /// catalogue has no text of its own for it.
    [[nodiscard]] virtual std::u16string Template(MessageId id) const = 0;
};

/// The catalogue of the product's own English texts, character for character.
class QUILLMAR_CORE_EXPORT EnglishCatalogue final : public MessageCatalogue {
public:
    [[nodiscard]] std::u16string Template(MessageId id) const override;
};

/// The English catalogue shared by every caller that names no other.
[[nodiscard]] QUILLMAR_CORE_EXPORT const MessageCatalogue& EnglishMessages();

/// `pattern` with %1 ... %9 replaced by `args` in order, once: an argument holding "%2" stays as it is. A
/// placeholder without an argument is left as written.
template <typename Char>
[[nodiscard]] std::basic_string<Char> FillPlaceholders(
    std::basic_string_view<Char> pattern, std::span<const std::basic_string_view<Char>> args) {
    std::basic_string<Char> text;
    text.reserve(pattern.size());
    for (size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] == Char('%') && i + 1 < pattern.size() && pattern[i + 1] >= Char('1')
            && pattern[i + 1] <= Char('9')) {
            const auto index = static_cast<size_t>(pattern[i + 1] - Char('1'));
            if (index < args.size()) {
                text += args[index];
                ++i;
                continue;
            }
        }
        text += pattern[i];
    }
    return text;
}

/// The text of `id` in the catalogue's language with %1 ... %9 replaced by `args` in order, once: an
/// argument holding "%2" stays as it is. A placeholder without an argument is left as written.
[[nodiscard]] QUILLMAR_CORE_EXPORT std::u16string ComposeMessage(
    const MessageCatalogue& catalogue, MessageId id, std::initializer_list<std::u16string_view> args = {});

} // namespace quillmar
