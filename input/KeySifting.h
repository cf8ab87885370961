#pragma once

#include "base/LocaleInfo.h"
#include "base/Settings.h"
#include "input/Refusal.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillmar {

/// A text the control writes into the edit box itself, with the selection to set afterwards.
struct TextEdit {
    std::u16string text;
    int32_t selStart = 0;
    int32_t selLength = 0;
};

/// What becomes of a typed character under weak sifting.
struct KeyPressOutcome {
    /// The character to insert, possibly changed (case forcing); 0 inserts nothing.
    int16_t keyAscii = 0;
    /// A refused key beeps (when the field beeps at all).
    bool beep = false;
    /// A text the control writes first: a minus sign put in front of a number.
    std::optional<TextEdit> edit;
    /// The rule that refused the key; `None` when it was accepted (also when the handler moved a minus).
    Refusal refusal = Refusal::None;
};

/// The text the edit box would hold with the key typed over the selection.
[[nodiscard]] std::u16string WouldBeText(
    std::u16string_view text, int32_t selStart, int32_t selLength, char16_t key);

/// Sifts one typed character of a field under weak sifting, before the edit box inserts it over the
/// selection of `text`. Time fields take digits, ":", space, a, m, p in a time's shape; date fields digits
/// and
/// "/", "-", "." in a date's shape; numeric fields the type's characters in their places (a minus typed
/// inside a number moves to the front; `MustBeNegative` puts one there first); text fields are case-forced
/// and held to the character rules. The caller sifts only under weak sifting, without Ctrl, and never
/// Backspace.
[[nodiscard]] KeyPressOutcome SiftKeyPress(int16_t keyAscii, std::u16string_view text, int32_t selStart,
    int32_t selLength, const Settings& settings, const TypeFlags& flags, const LocaleInfo& locale);

} // namespace quillmar
