#pragma once

#include <cstdint>

// The Qt binding defines QUILLMAR_QT_META for itself and for everything that links it: there the
// enumerations are also meta-enumerations of the namespace, so that QVariant, QMetaEnum, debuggers and
// Qt Designer show their enumerator names. The core itself never needs Qt.
#if defined(QUILLMAR_QT_META)
#include <quillmar/QtExport.h>

#include <QtCore/qobjectdefs.h>
#endif

namespace quillmar {
#if defined(QUILLMAR_QT_META)
// The namespace's meta-object lives in the Qt binding's library.
Q_NAMESPACE_EXPORT(QUILLMAR_QT_EXPORT)
#endif

/// The data type a field must hold.
enum MustBeTypeConstants : int32_t {
    vldUnspecified = 0, ///< No type: the field checks nothing.
    vldString = 1, ///< Text.
    vldByte = 2, ///< A whole number from 0 to 255.
    vldInteger = 3, ///< A whole number from -32,768 to 32,767.
    vldLong = 4, ///< A whole number from -2,147,483,648 to 2,147,483,647.
    vldSingle = 5, ///< A single-precision floating-point number.
    vldDouble = 6, ///< A double-precision floating-point number.
    vldCurrency = 7, ///< An amount with at most four decimals.
    vldDate = 8, ///< A date.
    vldTime = 9, ///< A time of day.
};

/// One bit per constraint a text can break; `CheckInput` returns their OR, 0 meaning valid.
enum ConstraintsConstants : int32_t {
    vldCCRequiredField = 1, ///< The field is empty but required.
    vldCCMustBeNumber = 2, ///< The text is no number.
    vldCCMustBePositive = 4, ///< The number is below zero.
    vldCCMustBeNegative = 8, ///< The number is above zero.
    vldCCMustNotBeZero = 16, ///< The number is zero.
    vldCCMustNotBeValues = 32, ///< The value is one of `MustNotBeValues`.
    vldCCMinValue = 64, ///< The value is below `MinValue`.
    vldCCMaxValue = 128, ///< The value is above `MaxValue`.
    vldCCMustBeByte = 256, ///< The number is no byte.
    vldCCMustBeInteger = 512, ///< The number is no 16-bit integer.
    vldCCMustBeLong = 1024, ///< The number is no 32-bit integer.
    vldCCMustBeSingle = 2048, ///< The number does not fit a single.
    vldCCMustBeDouble = 4096, ///< The number does not fit a double.
    vldCCMustBeCurrency = 8192, ///< The number is no currency amount.
    vldCCMaxNumberOfDecimals = 16384, ///< More decimals than `MaxNumberOfDecimals`.
    vldCCAllowScientificFormat = 32768, ///< An exponent where none is allowed.
    vldCCMustBeDate = 65536, ///< The text is no date.
    vldCCMustBeTime = 131072, ///< The text is no time.
    vldCCCustomMask = 262144, ///< The text does not match `CustomMask`.
    vldCCMustBeUpperCase = 524288, ///< The text is not in capitals.
    vldCCMustBeLowerCase = 1048576, ///< The text is not in small letters.
    vldCCMustBeProperCase = 2097152, ///< The text is not in proper case.
    vldCCExtraExcludedCharacters = 4194304, ///< A character of `ExtraExcludedCharacters`.
    vldCCValidCharactersSet = 8388608, ///< A character outside `ValidCharactersSet`.
    vldCCNoDigits = 16777216, ///< A digit under `NoDigits`.
    vldCCOnlyLetters = 33554432, ///< Something other than letters under `OnlyLetters`.
    vldCCOnlyLettersWithSpace = 67108864, ///< Not letters and spaces alone (`OnlyLettersWithSpace`).
    vldCCMaxLength = 134217728, ///< The text is longer than `MaxLength`.
};

/// Whether leaving the field runs the final validation by itself.
enum ValidationModeConstants : int16_t {
    vldAutomatic = 0, ///< Leaving the field validates it.
    vldSemiAutomatic = 1, ///< Only a call of `Validate` validates it.
};

/// How the error message is composed.
enum ErrorMessageModeConstants : int16_t {
    vldAutoBasic = 1, ///< A short message for the first broken rule.
    vldAutoAdvanced = 2, ///< A message that names what the field takes.
    vldCustom = 3, ///< The author's own `ErrorMessage`.
};

/// Flags of one entry of `Actions`: the action plus `vldACChecked` when it is enabled.
enum ActionsConstants : int32_t {
    vldACChecked = 1, ///< The action is enabled.
    vldACReturnPrevious = 8, ///< Put back the last valid value.
    vldACInsertDefault = 16, ///< Insert `DefaultValue`.
    vldACInsertClosest = 32, ///< Insert the allowed value closest to the text.
};

/// How hard keystrokes and changes are filtered.
enum InputSiftingConstants : int16_t {
    vldNone = 0, ///< No filtering.
    vldWeak = 1, ///< Each typed key is checked; a key that cannot lead to a valid text is refused.
    vldStrong
    = 2, ///< The whole text is checked after each change and springs back when it cannot become valid.
};

/// The icon of the error message box.
enum MsgBoxIcons : int16_t {
    vldMBINone = 0, ///< No icon.
    vldMBIExclamation = 1, ///< An exclamation mark.
    vldMBICritical = 2, ///< A stop sign.
    vldMBIInformation = 3, ///< An "i".
    vldMBIQuestion = 4, ///< A question mark.
};

/// Whether the locale's thousands separator may be typed in numbers.
enum ThousandSeparatorConstants : int16_t {
    vldTSForbidden = 0, ///< No thousands separator.
    vldTSAllowed = 1, ///< Thousands separators may be typed.
};

/// The edit box's look: flat or sunken.
enum vldAppearanceConstants : int16_t {
    vldFlat = 0, ///< Flat.
    vld3D = 1, ///< Sunken.
};

/// The edit box's border.
enum vldBorderStyleConstants : int16_t {
    vldNoBorder = 0, ///< No border.
    vldFixedSingle = 1, ///< A single line.
};

#if defined(QUILLMAR_QT_META)
Q_ENUM_NS(MustBeTypeConstants)
Q_ENUM_NS(ConstraintsConstants)
Q_ENUM_NS(ValidationModeConstants)
Q_ENUM_NS(ErrorMessageModeConstants)
Q_ENUM_NS(ActionsConstants)
Q_ENUM_NS(InputSiftingConstants)
Q_ENUM_NS(MsgBoxIcons)
Q_ENUM_NS(ThousandSeparatorConstants)
Q_ENUM_NS(vldAppearanceConstants)
Q_ENUM_NS(vldBorderStyleConstants)
#endif

} // namespace quillmar
