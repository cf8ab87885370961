#pragma once

#include <quillmar/base/Enums.h>
#include <quillmar/base/Variant.h>

#include <string>

namespace quillmar {

/// The declared rules of one field, held by the control and read by the pure checks (conversions,
/// rule checker, messages). Fields carry the names of the properties that set them; the control's
/// writers run the range checks and interlocks before a value lands here.
struct Settings {
    ThousandSeparatorConstants ThousandSeparator = vldTSForbidden;
    bool MustBePositive = false;
    bool MustBeNegative = false;
    bool Beeping = true;
    bool MustBeUpperCase = false;
    bool MustBeLowerCase = false;
    bool MustBeProperCase = false;
    bool NoDigits = false;
    bool OnlyLetters = false;
    bool OnlyLettersWithSpace = false;
    bool AllowScientificFormat = false;
    bool FinalValidationActive = true;
    std::u16string ValidCharactersSet;
    std::u16string ExtraExcludedCharacters;
    std::u16string ExtraIncludedCharacters;
    bool RequiredField = false;
    int16_t MaxNumberOfDecimals = 0;
    std::u16string CustomMask;
    Variant DefaultValue = std::u16string();
    Variant MinValue = std::u16string();
    Variant MaxValue = std::u16string();
    bool MustNotBeZero = false;
    /// Slot 0 unused; the forbidden values stand in slots 1 to the upper bound.
    VariantArray MustNotBeValues = VariantArray(1);
    /// Slots 1 to 3: one `ActionsConstants` flag word each, in the order the actions are tried.
    VariantArray Actions = InitialActions();
    bool ShowErrorMessage = true;
    ValidationModeConstants ValidationMode = vldAutomatic;
    std::u16string MessageBoxTitle = u"Invalid Entry";
    ErrorMessageModeConstants ErrorMessageMode = vldAutoAdvanced;
    MustBeTypeConstants MustBeType = vldUnspecified;
    bool OnErrorSelectEntireField = false;
    InputSiftingConstants InputSifting = vldStrong;
    int16_t MaxRelativeAccuracy = 0;
    MsgBoxIcons MessageBoxIcon = vldMBIExclamation;
    std::u16string ErrorMessage;
    bool ShowAsUnderstood = true;

    /// The actions of a new field: insert closest, return previous, insert default, all checked.
    static VariantArray InitialActions() {
        return { Variant(), Variant(int32_t { vldACInsertClosest | vldACChecked }),
            Variant(int32_t { vldACReturnPrevious | vldACChecked }),
            Variant(int32_t { vldACInsertDefault | vldACChecked }) };
    }

    friend bool operator==(const Settings&, const Settings&) = default;
};

/// The type flags the control derives from `MustBeType` (and from the sign and exponent rules, which make a
/// field numeric). Keystroke sifting and change repair branch on them.
struct TypeFlags {
    bool NumericMode = false;
    bool TypeIsByte = false;
    bool TypeIsInteger = false;
    bool TypeIsLong = false;
    bool TypeIsSingle = false;
    bool TypeIsDouble = false;
    bool TypeIsCurrency = false;
    bool TypeIsDate = false;
    bool TypeIsTime = false;
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
