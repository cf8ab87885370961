#include "control/RangeValue.h"

#include "validation/Conversions.h"

#include <string>

namespace quillmar {

std::optional<Variant> CoerceRangeValue(
    const Variant& value, const TypeFlags& flags, const LocaleInfo& locale) {
    if (value.IsEmpty() || value.IsEmptyString()) return Variant(std::u16string());
    if (flags.NumericMode) {
        const auto number = NumberOf(value, locale);
        if (!number) return std::nullopt;
        return value.IsString() ? Variant(number->value) : value;
    }
    if (flags.TypeIsDate || flags.TypeIsTime) {
        const auto days = DateTimeOf(value, locale);
        if (!days || ClassifyDateTime(value, locale) != (flags.TypeIsDate ? DateClass : TimeClass))
            return std::nullopt;
        return Variant(Date { *days });
    }
    return value;
}

} // namespace quillmar
