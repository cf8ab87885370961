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
    vldUnspecified = 0,
    vldString = 1,
    vldByte = 2,
    vldInteger = 3,
    vldLong = 4,
    vldSingle = 5,
    vldDouble = 6,
    vldCurrency = 7,
    vldDate = 8,
    vldTime = 9,
};

/// One bit per constraint a text can break; `CheckInput` returns their OR, 0 meaning valid.
enum ConstraintsConstants : int32_t {
    vldCCRequiredField = 1,
    vldCCMustBeNumber = 2,
    vldCCMustBePositive = 4,
    vldCCMustBeNegative = 8,
    vldCCMustNotBeZero = 16,
    vldCCMustNotBeValues = 32,
    vldCCMinValue = 64,
    vldCCMaxValue = 128,
    vldCCMustBeByte = 256,
    vldCCMustBeInteger = 512,
    vldCCMustBeLong = 1024,
    vldCCMustBeSingle = 2048,
    vldCCMustBeDouble = 4096,
    vldCCMustBeCurrency = 8192,
    vldCCMaxNumberOfDecimals = 16384,
    vldCCAllowScientificFormat = 32768,
    vldCCMustBeDate = 65536,
    vldCCMustBeTime = 131072,
    vldCCCustomMask = 262144,
    vldCCMustBeUpperCase = 524288,
    vldCCMustBeLowerCase = 1048576,
    vldCCMustBeProperCase = 2097152,
    vldCCExtraExcludedCharacters = 4194304,
    vldCCValidCharactersSet = 8388608,
    vldCCNoDigits = 16777216,
    vldCCOnlyLetters = 33554432,
    vldCCOnlyLettersWithSpace = 67108864,
    vldCCMaxLength = 134217728,
};

/// Whether leaving the field runs the final validation by itself.
enum ValidationModeConstants : int16_t {
    vldAutomatic = 0,
    vldSemiAutomatic = 1,
};

/// How the error message is composed.
enum ErrorMessageModeConstants : int16_t {
    vldAutoBasic = 1,
    vldAutoAdvanced = 2,
    vldCustom = 3,
};

/// Flags of one entry of `Actions`: the action plus `vldACChecked` when it is enabled.
enum ActionsConstants : int32_t {
    vldACChecked = 1,
    vldACReturnPrevious = 8,
    vldACInsertDefault = 16,
    vldACInsertClosest = 32,
};

/// How hard keystrokes and changes are filtered.
enum InputSiftingConstants : int16_t {
    vldNone = 0,
    vldWeak = 1,
    vldStrong = 2,
};

/// The icon of the error message box.
enum MsgBoxIcons : int16_t {
    vldMBINone = 0,
    vldMBIExclamation = 1,
    vldMBICritical = 2,
    vldMBIInformation = 3,
    vldMBIQuestion = 4,
};

/// Whether the locale's thousands separator may be typed in numbers.
enum ThousandSeparatorConstants : int16_t {
    vldTSForbidden = 0,
    vldTSAllowed = 1,
};

/// The edit box's look: flat or sunken.
enum vldAppearanceConstants : int16_t {
    vldFlat = 0,
    vld3D = 1,
};

/// The edit box's border.
enum vldBorderStyleConstants : int16_t {
    vldNoBorder = 0,
    vldFixedSingle = 1,
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
