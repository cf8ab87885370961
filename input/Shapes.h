#pragma once

#include "base/LocaleInfo.h"
#include "base/Settings.h"
#include "input/Refusal.h"

#include <string_view>

namespace quillmar {

/// The characters a date field takes, and those a time field takes.
inline constexpr std::u16string_view kDateCharacters = u"0123456789/-.";
inline constexpr std::u16string_view kTimeCharacters = u"0123456789: ampAMP";

/// True when the text is a date, or the beginning of one, as the date parser reads dates: at most three
/// numbers separated by "/", "-" or ".", in the locale's order of day, month and year (a first number of
/// three or four digits being a year), a day up to 31 (up to the length of the month once both are known), a
/// month up to 12, a year of up to four digits; never five digits in a row. The empty text passes.
[[nodiscard]] bool DateShapeTest(std::u16string_view text, const LocaleInfo& locale);

/// True when the text is a time, or the beginning of one: hours (up to 23, up to 12 with a designator),
/// ":" and minutes, optionally ":" and seconds (each up to 59), then optionally one space and a prefix of
/// "AM" or "PM" in either case. The empty text passes.
[[nodiscard]] bool TimeShapeTest(std::u16string_view text);

/// True when a typed character passes the character rules of a text field: not excluded; then included, or
/// in the valid set, no digit under `NoDigits`, and under the letter rules an ASCII letter, a character of
/// code 127 or above, or (with `OnlyLettersWithSpace`) a space.
[[nodiscard]] bool TextCharacterAllowed(char16_t c, const Settings& settings) noexcept;

/// The character rule of a text field that refuses the character, `None` when `TextCharacterAllowed`.
[[nodiscard]] Refusal TextCharacterRefusal(char16_t c, const Settings& settings) noexcept;

/// The type whose rules the keys and changes of a field follow, as its type flags say: a field made
/// numeric by a sign or exponent rule without a numeric type follows the double's rules.
[[nodiscard]] int32_t SiftingType(const TypeFlags& flags) noexcept;

/// True when the whole text may stand as typed so far in a field of the type the flags give: the date or
/// time shape, every character passing the text rules, or the numeric whole-text test.
[[nodiscard]] bool WholeTextTest(
    std::u16string_view text, const TypeFlags& flags, const Settings& settings, const LocaleInfo& locale);

/// The rule by which `WholeTextTest` refuses the text: a character the type never takes (a letter in a date
/// or a number, a decimal separator in a whole number), else the date or time shape or the number's shape;
/// for text the first refused character's rule; `None` when the text passes.
[[nodiscard]] Refusal WholeTextRefusal(
    std::u16string_view text, const TypeFlags& flags, const Settings& settings, const LocaleInfo& locale);

} // namespace quillmar
