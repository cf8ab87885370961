#include "validation/ConstraintNames.h"

#include "base/Enums.h"

namespace quillmar {

std::string_view ConstraintName(int32_t bit) noexcept {
    switch (bit) {
    case vldCCRequiredField:
        return "vldCCRequiredField";
    case vldCCMustBeNumber:
        return "vldCCMustBeNumber";
    case vldCCMustBePositive:
        return "vldCCMustBePositive";
    case vldCCMustBeNegative:
        return "vldCCMustBeNegative";
    case vldCCMustNotBeZero:
        return "vldCCMustNotBeZero";
    case vldCCMustNotBeValues:
        return "vldCCMustNotBeValues";
    case vldCCMinValue:
        return "vldCCMinValue";
    case vldCCMaxValue:
        return "vldCCMaxValue";
    case vldCCMustBeByte:
        return "vldCCMustBeByte";
    case vldCCMustBeInteger:
        return "vldCCMustBeInteger";
    case vldCCMustBeLong:
        return "vldCCMustBeLong";
    case vldCCMustBeSingle:
        return "vldCCMustBeSingle";
    case vldCCMustBeDouble:
        return "vldCCMustBeDouble";
    case vldCCMustBeCurrency:
        return "vldCCMustBeCurrency";
    case vldCCMaxNumberOfDecimals:
        return "vldCCMaxNumberOfDecimals";
    case vldCCAllowScientificFormat:
        return "vldCCAllowScientificFormat";
    case vldCCMustBeDate:
        return "vldCCMustBeDate";
    case vldCCMustBeTime:
        return "vldCCMustBeTime";
    case vldCCCustomMask:
        return "vldCCCustomMask";
    case vldCCMustBeUpperCase:
        return "vldCCMustBeUpperCase";
    case vldCCMustBeLowerCase:
        return "vldCCMustBeLowerCase";
    case vldCCMustBeProperCase:
        return "vldCCMustBeProperCase";
    case vldCCExtraExcludedCharacters:
        return "vldCCExtraExcludedCharacters";
    case vldCCValidCharactersSet:
        return "vldCCValidCharactersSet";
    case vldCCNoDigits:
        return "vldCCNoDigits";
    case vldCCOnlyLetters:
        return "vldCCOnlyLetters";
    case vldCCOnlyLettersWithSpace:
        return "vldCCOnlyLettersWithSpace";
    case vldCCMaxLength:
        return "vldCCMaxLength";
    default:
        return {};
    }
}

} // namespace quillmar
