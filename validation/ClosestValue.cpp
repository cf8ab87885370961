#include "validation/ClosestValue.h"

#include "validation/Conversions.h"
#include "validation/DateTime.h"
#include "validation/Rules.h"

#include <cmath>
#include <optional>

namespace quillmar {
namespace {

bool IsIntegralType(int32_t type) {
    return type == vldByte || type == vldInteger || type == vldLong;
}

std::optional<double> DateLimit(const Variant& limit, int wantedClass, const LocaleInfo& locale) {
    if (ClassifyDateTime(limit, locale) != wantedClass) return std::nullopt;
    return DateTimeOf(limit, locale);
}

} // namespace

Variant FindClosestValue(
    std::u16string_view text, const Settings& settings, const LocaleInfo& locale, int32_t maxLength) {
    const int32_t type = settings.MustBeType;
    const auto passes = [&](const Variant& candidate) {
        return EvaluateRules(TextOf(candidate, locale), settings, locale, maxLength) == 0;
    };

    Variant candidate;
    if (IsDateTimeType(type)) {
        const auto parsed = ParseDateTime(text, locale);
        if (!parsed) return {};
        const int wantedClass = type == vldDate ? DateClass : TimeClass;
        double days = parsed->days;
        if (const auto maximum = DateLimit(settings.MaxValue, wantedClass, locale);
            maximum && days > *maximum)
            days = *maximum;
        if (const auto minimum = DateLimit(settings.MinValue, wantedClass, locale);
            minimum && days < *minimum)
            days = *minimum;
        candidate = Date { days };
    } else if (IsNumericType(type)) {
        const auto number = ParseNumber(text, locale);
        if (!number) return {};
        double value = number->value;
        if (const auto maximum = NumericValueOf(settings.MaxValue, locale); maximum && value > *maximum)
            value = *maximum;
        if (const auto minimum = NumericValueOf(settings.MinValue, locale); minimum && value < *minimum)
            value = *minimum;
        candidate = value;
    } else {
        return {};
    }

    if (!passes(candidate) && IsIntegralType(type) && candidate.ToDouble()) {
        const double whole = std::nearbyint(*candidate.ToDouble());
        for (const double tried : { whole, whole + 1, whole - 1 }) {
            if (passes(tried)) {
                candidate = tried;
                break;
            }
        }
    }
    if (!passes(candidate) && (settings.MustBePositive || settings.MustBeNegative)) {
        const bool integral = IsIntegralType(type);
        for (const double tried : { 0.0, 1.0, -1.0 }) {
            if (tried != 0 && !integral) break;
            if (passes(tried)) {
                candidate = tried;
                break;
            }
        }
    }
    return passes(candidate) ? candidate : Variant();
}

} // namespace quillmar
