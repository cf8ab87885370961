#pragma once

#include "base/LocaleInfo.h"
#include "base/Settings.h"
#include "validation/MessageCatalogue.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace quillmar {

/// The line that names the corrective action taken, with its own leading line break ("\r\n"):
/// 8 "Previous value returned.", 16 "Default value inserted.", 32 "Closest value inserted.";
/// the empty text for 0 and any other code. The line is in the language of `catalogue`.
[[nodiscard]] std::u16string ActionSuffix(
    int32_t actionCode, const MessageCatalogue& catalogue = EnglishMessages());

/// The error message for a text that broke the constraints `bits` (never 0), in the style of
/// `settings.ErrorMessageMode`: the basic one-line message, or the advanced message (what the field
/// requires, a second line naming a forbidden value, then the action line of `actionCode`); the empty text
/// for `vldCustom` and any other mode. Lines are joined with "\r\n". `maxLength` is the edit box's limit.
/// The words come from `catalogue`; the values shown (bounds, forbidden values, the mask) are the author's,
/// as stored. Never throws.
[[nodiscard]] std::u16string ComposeErrorMessage(std::u16string_view text, int32_t bits, int32_t actionCode,
    const Settings& settings, const LocaleInfo& locale, int32_t maxLength,
    const MessageCatalogue& catalogue = EnglishMessages());

/// The title of the field's message box: the author's `MessageBoxTitle` as written, except that the initial
/// "Invalid Entry" is shown in the language of `catalogue` (the stored value stays as it is).
[[nodiscard]] std::u16string ShownMessageBoxTitle(
    const Settings& settings, const MessageCatalogue& catalogue);

} // namespace quillmar
