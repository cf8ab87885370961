#pragma once

#include <quillmar/CoreExport.h>

#include "base/LocaleInfo.h"
#include "base/Settings.h"
#include "validation/MessageCatalogue.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace quillmar {

/// What a numeric, date or time field requires, in the words of the advanced error message before its
/// " is required.": "A positive integer <= 100", "A number between 0.5 and 9", "A date after 1/1/2000". The
/// sign is worded only when the matching bound does not already imply it; bounds are shown as stored. A date
/// or time field without a bound of its class gives the empty text, and so does a text field.
/// The words come from `catalogue`, as in every function below that takes one.
[[nodiscard]] std::u16string RequirementPhrase(const Settings& settings, const LocaleInfo& locale,
    const MessageCatalogue& catalogue = EnglishMessages());

/// A text that fits the mask, to show it by example: "#" is the next of the digits 1 2 ... 9 0, "?" the next
/// letter A B ..., a list the next such letter or digit it holds (else another character it holds), "*"
/// nothing, any other character itself; "[A-Z][A-Z]-####" gives "AB-1234". The empty text for an empty or
/// malformed mask and for a mask no text matches.
[[nodiscard]] std::u16string MaskExample(std::u16string_view mask);

/// The characters of `set` in words for a tip or a description: each once, in the author's order, separated
/// by spaces, a run of three or more successive digits or letters of one case written "0–9" and the space
/// written "space": "0123456789 +-()" gives "0–9 space + - ( )". The empty text for an empty set and for
/// one holding a control character or more than 24 different characters, which reads better as a rule's
/// name than as a list.
[[nodiscard]] std::u16string CharacterList(
    std::u16string_view set, const MessageCatalogue& catalogue = EnglishMessages());

/// The field's rules in words, as a tip shown before the first key: for numbers and dates the advanced
/// message's wording without " is required." ("An integer between 1 and 100", "A date", "A time before
/// 17:00"), with ", at most N decimals" for a non-integral number limited to N >= 1 decimals; for text the
/// declared rules joined by ", " and begun with a capital ("Letters only, upper case, at most 8 characters,
/// like AB-1234"), naming the characters the author added to a letter rule or allowed alone; the empty text
/// for a text field without rules. `maxLength` is the edit box's limit (0 for none).
[[nodiscard]] QUILLMAR_CORE_EXPORT std::u16string DescribeRules(const Settings& settings,
    const LocaleInfo& locale, int32_t maxLength, const MessageCatalogue& catalogue = EnglishMessages());

/// The text an empty field shows in grey: for a date field the locale's short date of 31 December of `year`,
/// for a time field its short time of 17:30 (both from ICU); for a number its range ("1 – 100", "≥ 0",
/// "≤ 100"); for masked text the mask's example; otherwise the empty text.
[[nodiscard]] QUILLMAR_CORE_EXPORT std::u16string PlaceholderText(const Settings& settings,
    const LocaleInfo& locale, int32_t year, const MessageCatalogue& catalogue = EnglishMessages());

} // namespace quillmar
