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

    // A limit the value lies beyond is taken as it stands, of its own kind, so that the text written is the
    // limit's own text; only the later steps make new values.
    Variant candidate;
    if (IsDateTimeType(type)) {
        const auto parsed = ParseDateTime(text, locale);
        if (!parsed) return {};
        const int wantedClass = type == vldDate ? DateClass : TimeClass;
        double days = parsed->days;
        candidate = Date { days };
        if (const auto maximum = DateLimit(settings.MaxValue, wantedClass, locale);
            maximum && days > *maximum) {
            days = *maximum;
            candidate = settings.MaxValue;
        }
        if (const auto minimum = DateLimit(settings.MinValue, wantedClass, locale);
            minimum && days < *minimum)
            candidate = settings.MinValue;
    } else if (IsNumericType(type)) {
        const auto number = ParseNumber(text, locale, GroupingOf(settings.ThousandSeparator));
        if (!number) return {};
        double value = number->value;
        candidate = value;
        if (const auto maximum = NumericValueOf(settings.MaxValue, locale); maximum && value > *maximum) {
            value = *maximum;
            candidate = settings.MaxValue;
        }
        if (const auto minimum = NumericValueOf(settings.MinValue, locale); minimum && value < *minimum)
            candidate = settings.MinValue;
    } else {
        return {};
    }

    const auto number = NumericValueOf(candidate, locale);
    if (!passes(candidate) && IsIntegralType(type) && number) {
        const double whole = std::nearbyint(*number);
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
