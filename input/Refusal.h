#pragma once

#include <quillmar/CoreExport.h>

#include <quillmar/base/LocaleInfo.h>
#include <quillmar/base/Settings.h>
#include <quillmar/validation/MessageCatalogue.h>

#include <string>

namespace quillmar {

/// The rule that refused a typed key or a change of the text; `None` when nothing was refused.
enum class Refusal {
    None, ///< Nothing was refused.
    /// A time field takes digits, ":", space and the letters of AM and PM only.
    TimeCharacter,
    /// The text could no longer become a time.
    TimeShape,
    /// A date field takes digits and "/", "-", "." only.
    DateCharacter,
    /// The text could no longer become a date.
    DateShape,
    /// A character no number of the field's type holds.
    NumberCharacter,
    /// A second decimal separator.
    SecondDecimalSeparator,
    /// A group separator first, twice in a row or after the decimal separator.
    GroupSeparatorPlace,
    /// A decimal separator in an integral field.
    WholeNumber,
    /// A minus sign in a field that must be positive.
    PositiveNumber,
    /// A second minus sign.
    SecondMinus,
    /// A plus sign anywhere but right after the exponent's "E".
    ExponentSign,
    /// The text could no longer become a number of the field's type.
    NumberShape,
    /// More decimals than `MaxNumberOfDecimals`.
    TooManyDecimals,
    /// A character of `ExtraExcludedCharacters`.
    ExcludedCharacter,
    /// A character outside `ValidCharactersSet`.
    CharacterSet,
    /// A digit under `NoDigits`.
    NoDigits,
    /// Anything but a letter under `OnlyLetters`.
    OnlyLetters,
    /// Anything but a letter or a space under `OnlyLettersWithSpace`.
    OnlyLettersWithSpace,
    /// A pasted or dropped text that is not a number of the field, nor the beginning of one.
    PastedNumber,
};

/// The refusal in short words for a tip beside the field ("Only digits can be typed here", "At most 2
/// decimals"); the empty text for `None`. `settings` gives the numbers some words name; a refused paste
/// shows how numbers are written in the field, by an example in the locale's own form that follows the
/// field's type, sign and grouping ("Numbers here are written like 1,234.50", "... like 1234"). The words
/// come from `catalogue`.
[[nodiscard]] QUILLMAR_CORE_EXPORT std::u16string RefusalText(Refusal refusal, const Settings& settings,
    const LocaleInfo& locale, const MessageCatalogue& catalogue = EnglishMessages());

/// An example number of the field as the user would write it: 123 for a byte, 1234 for the other whole
/// numbers, 1234.50 otherwise (fewer decimals when `MaxNumberOfDecimals` allows only one), with the locale's
/// separators, grouped when `ThousandSeparator` allows grouping, and a minus sign when it must be negative.
[[nodiscard]] QUILLMAR_CORE_EXPORT std::u16string NumberExample(
    const Settings& settings, const LocaleInfo& locale);

} // namespace quillmar
