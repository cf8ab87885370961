#pragma once

#include <quillmar/base/Enums.h>
#include <quillmar/base/Variant.h>

#include <string>

namespace quillmar {

/// The declared rules of one field, held by the control and read by the pure checks (conversions,
/// rule checker, messages). Fields carry the names of the properties that set them; the control's
/// writers run the range checks and interlocks before a value lands here.
struct Settings {
    /// Whether a number may carry the locale's thousands separator (`vldTSAllowed`) or not (`vldTSForbidden`,
    /// the default).
    ThousandSeparatorConstants ThousandSeparator = vldTSForbidden;
    /// A number may not be below zero (zero passes unless `MustNotBeZero`). Setting it makes the field
    /// numeric.
    bool MustBePositive = false;
    /// A number may not be above zero (zero passes unless `MustNotBeZero`). Setting it makes the field
    /// numeric.
    bool MustBeNegative = false;
    /// Whether a refused key, a change sprung back and a failed final validation sound the beep; on by
    /// default.
    bool Beeping = true;
    /// The text must be in capitals; typed letters are turned into capitals. One of the three case rules.
    bool MustBeUpperCase = false;
    /// The text must be in small letters; typed letters are turned into small ones. One of the three case
    /// rules.
    bool MustBeLowerCase = false;
    /// Every word must begin with a capital and go on in small letters. One of the three case rules.
    bool MustBeProperCase = false;
    /// The text may hold no digit. One of the three character-class rules.
    bool NoDigits = false;
    /// The text may hold letters only. One of the three character-class rules.
    bool OnlyLetters = false;
    /// The text may hold letters and spaces only. One of the three character-class rules.
    bool OnlyLettersWithSpace = false;
    /// Whether a number may be written with an exponent (1.5E3). Setting it makes the field numeric.
    bool AllowScientificFormat = false;
    /// Whether the final validation runs when the focus leaves the field; on by default. Off, leaving never
    /// checks the text.
    bool FinalValidationActive = true;
    /// The only characters the text may hold; empty for no such rule.
    std::u16string ValidCharactersSet;
    /// Characters the text may not hold, beside those the other rules refuse.
    std::u16string ExtraExcludedCharacters;
    /// Characters the text may hold although `ValidCharactersSet`, `NoDigits`, `OnlyLetters` or
    /// `OnlyLettersWithSpace` would refuse them; `ExtraExcludedCharacters` still refuses them.
    std::u16string ExtraIncludedCharacters;
    /// An empty text is not valid.
    bool RequiredField = false;
    /// The most digits a number may have after the decimal separator, 0 to 32; 0 for no limit.
    int16_t MaxNumberOfDecimals = 0;
    /// A pattern the whole text must match, case-sensitively: `?` any one character, `*` any run, `#` a
    /// digit, `[a-z]` one of a list (`[!...]` one not in it); empty for none. A malformed pattern never
    /// matches.
    std::u16string CustomMask;
    /// The value the corrective action "insert default" puts in the field; the empty string for none. It has
    /// the field's type: a number, a date or a time, or any value for a text field.
    Variant DefaultValue = std::u16string();
    /// The smallest value a number, date or time may have; the empty string for no lower limit.
    Variant MinValue = std::u16string();
    /// The largest value a number, date or time may have; the empty string for no upper limit.
    Variant MaxValue = std::u16string();
    /// A number equal to zero is not valid.
    bool MustNotBeZero = false;
    /// Slot 0 unused; the forbidden values stand in slots 1 to the upper bound.
    VariantArray MustNotBeValues = VariantArray(1);
    /// Slots 1 to 3: one `ActionsConstants` flag word each, in the order the actions are tried.
    VariantArray Actions = InitialActions();
    /// Whether a failed final validation explains itself in a message box; on by default.
    bool ShowErrorMessage = true;
    /// Whether leaving the field runs the final validation by itself (`vldAutomatic`, the default) or only
    /// when the program calls `Validate` (`vldSemiAutomatic`).
    ValidationModeConstants ValidationMode = vldAutomatic;
    /// The title of the error message box; "Invalid Entry" by default.
    std::u16string MessageBoxTitle = u"Invalid Entry";
    /// How the error message is composed: a short basic message for the first broken rule, an advanced one
    /// that says what the field takes (the default), or the author's own `ErrorMessage`.
    ErrorMessageModeConstants ErrorMessageMode = vldAutoAdvanced;
    /// The data type the field must hold (`vldUnspecified` for no rules at all). The type decides how the
    /// text is sifted, converted and checked.
    MustBeTypeConstants MustBeType = vldUnspecified;
    /// Whether a failed final validation selects the whole text, so that the next key replaces it.
    bool OnErrorSelectEntireField = false;
    /// How hard typing is filtered: not at all (`vldNone`), key by key (`vldWeak`), or the whole text after
    /// each change, which springs back when it can no longer become valid (`vldStrong`, the default).
    InputSiftingConstants InputSifting = vldStrong;
    /// The significant digits a number written to `Value` is shown with, 0 to 32; 0 shows it in full. `Value`
    /// keeps the exact number until the user edits the text.
    int16_t MaxRelativeAccuracy = 0;
    /// The icon of the error message box; `vldMBIExclamation` by default.
    MsgBoxIcons MessageBoxIcon = vldMBIExclamation;
    /// The author's own error message, shown when `ErrorMessageMode` is `vldCustom`.
    std::u16string ErrorMessage;
    /// Whether a valid text is rewritten, on leaving the field, as the value it was understood as (in that
    /// value's own text form); on by default.
    bool ShowAsUnderstood = true;

    /// The actions of a new field: insert closest, return previous, insert default, all checked.
    static VariantArray InitialActions() {
        return { Variant(), Variant(int32_t { vldACInsertClosest | vldACChecked }),
            Variant(int32_t { vldACReturnPrevious | vldACChecked }),
            Variant(int32_t { vldACInsertDefault | vldACChecked }) };
    }

    /// Two fields have the same rules when every setting is equal.
    friend bool operator==(const Settings&, const Settings&) = default;
};

/// The type flags the control derives from `MustBeType` (and from the sign and exponent rules, which make a
/// field numeric). Keystroke sifting and change repair branch on them.
struct TypeFlags {
    /// The field holds a number: set by a numeric type and by the sign and exponent rules, cleared only by
    /// a new `MustBeType`.
    bool NumericMode = false;
    /// The flag of the field's numeric type; at most one is set, none for a text, date or time field.
    ///@{
    bool TypeIsByte = false;
    bool TypeIsInteger = false;
    bool TypeIsLong = false;
    bool TypeIsSingle = false;
    bool TypeIsDouble = false;
    bool TypeIsCurrency = false;
    ///@}
    /// Set when `MustBeType` is `vldDate` or `vldTime`.
    ///@{
    bool TypeIsDate = false;
    bool TypeIsTime = false;
    ///@}
};

/// True for the numeric types `vldByte` to `vldCurrency`.
[[nodiscard]] constexpr bool IsNumericType(int32_t type) noexcept {
    return type >= vldByte && type <= vldCurrency;
}

/// True for `vldDate` and `vldTime`.
[[nodiscard]] constexpr bool IsDateTimeType(int32_t type) noexcept {
    return type == vldDate || type == vldTime;
}

} // namespace quillmar
