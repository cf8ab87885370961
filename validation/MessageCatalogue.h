#pragma once

#include <quillmar/CoreExport.h>

#include <cstdint>
#include <initializer_list>
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
    const char* context;
    const char* english;
};

/// The identity of every text the control composes: error messages and their lines, the action lines, the
/// rules in words, placeholders, refusal tips and the default message box title.
enum class MessageId : uint16_t {
    // Error messages.
    Required,
    InvalidNumber,
    InvalidDate,
    InvalidTime,
    InvalidText,
    TooManyDecimals,
    IsRequired,
    ValueNotAllowed,
    DateNotAllowed,
    TimeNotAllowed,
    TextNotAllowed,
    MaskForm,
    CharactersNotAllowed,
    OnlyLettersAllowed,
    OnlyLettersAndSpaceAllowed,
    DigitsNotAllowed,
    OnlyUpperCaseAllowed,
    OnlyLowerCaseAllowed,
    OnlyProperCaseAllowed,
    MaxLengthOne,
    MaxLengthMany,
    // Action lines.
    PreviousReturned,
    DefaultInserted,
    ClosestInserted,
    // The default title of the message box.
    InvalidEntryTitle,
    // What an invalid field whose message says nothing shows instead.
    EntryNotValid,
    // The rules in words.
    AnInteger,
    APositiveInteger,
    ANegativeInteger,
    ANumber,
    APositiveNumber,
    ANegativeNumber,
    NumberBetween,
    NumberAtLeast,
    NumberAtMost,
    ADate,
    DateBetween,
    DateAfter,
    DateBefore,
    ATime,
    TimeBetween,
    TimeAfter,
    TimeBefore,
    AtMostDecimal,
    AtMostDecimals,
    LettersOnly,
    LettersAndOnly,
    LettersAndSpacesOnly,
    LettersSpacesAndOnly,
    OnlyCharacters,
    NoDigits,
    LowerCase,
    UpperCase,
    ProperCase,
    AtMostCharacter,
    AtMostCharacters,
    LikeExample,
    RuleSeparator,
    SpaceName,
    // Placeholders.
    RangePlaceholder,
    AtLeastPlaceholder,
    AtMostPlaceholder,
    // Refusal tips.
    TipTimeCharacter,
    TipTimeShape,
    TipDateCharacter,
    TipDateShape,
    TipNumberCharacter,
    TipSecondDecimalSeparator,
    TipGroupSeparatorPlace,
    TipWholeNumber,
    TipPositiveNumber,
    TipSecondMinus,
    TipExponentSign,
    TipNumberShape,
    TipAtMostDecimal,
    TipAtMostDecimals,
    TipExcludedCharacter,
    TipFieldCharacters,
    TipOnlyCharacters,
    TipNoDigits,
    TipOnlyLetters,
    TipOnlyLettersAnd,
    TipOnlyLettersAndSpaces,
    TipOnlyLettersSpacesAnd,
    TipPastedNumber,
    Count
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

/// The text of `id` in the catalogue's language with %1 ... %9 replaced by `args` in order, once: an
/// argument holding "%2" stays as it is. A placeholder without an argument is left as written.
[[nodiscard]] QUILLMAR_CORE_EXPORT std::u16string ComposeMessage(
    const MessageCatalogue& catalogue, MessageId id, std::initializer_list<std::u16string_view> args = {});

} // namespace quillmar
