#include "pages/PageChecks.h"

#include "base/Enums.h"
#include "base/Settings.h"
#include "validation/Conversions.h"
#include "validation/Rules.h"

namespace quillmar::pages {

ValueKind KindOfType(int32_t type) noexcept {
    return type == vldDate || type == vldTime ? ValueKind::Date : ValueKind::Number;
}

std::optional<double> ConvertByKind(const Variant& value, ValueKind kind, const LocaleInfo& locale) {
    return kind == ValueKind::Number ? NumericValueOf(value, locale) : DateTimeOf(value, locale);
}

LimitClass ClassifyLimit(const Variant& limit, const LocaleInfo& locale) {
    if (IsNumericValue(limit, locale)) return LimitClass::Number;
    switch (ClassifyDateTime(limit, locale)) {
    case DateClass:
        return LimitClass::Date;
    case TimeClass:
        return LimitClass::Time;
    default:
        return LimitClass::None;
    }
}

bool IsLimitCompatible(const Variant& limit, int32_t type, const LocaleInfo& locale) {
    const LimitClass limitClass = ClassifyLimit(limit, locale);
    if (type == vldDate) return limitClass == LimitClass::Date;
    if (type == vldTime) return limitClass == LimitClass::Time;
    return limitClass == LimitClass::Number;
}

int FindDefaultInList(
    const VariantArray& list, const Variant& defaultValue, int32_t type, const LocaleInfo& locale) {
    const bool text = type == vldUnspecified || type == vldString;
    const std::u16string defaultText = TextOf(defaultValue, locale);
    const auto number = NumericValueOf(defaultValue, locale);
    const auto days = DateTimeOf(defaultValue, locale);
    for (size_t i = 1; i < list.size(); ++i) {
        const Variant& item = list[i];
        bool matches = false;
        if (text) {
            matches = TextOf(item, locale) == defaultText;
        } else {
            const auto itemNumber = NumericValueOf(item, locale);
            const auto itemDays = DateTimeOf(item, locale);
            matches = (itemNumber && number && *itemNumber == *number)
                || (itemDays && days && *itemDays == *days);
        }
        if (matches) return static_cast<int>(i) - 1;
    }
    return -1;
}

std::u16string ForbiddenListCaption(size_t count) {
    std::u16string caption = u"MustNotBe&Values";
    if (count == 0) return caption;
    for (const char c : " (" + std::to_string(count) + (count == 1 ? " item)" : " items)"))
        caption += static_cast<char16_t>(c);
    return caption;
}

bool GeneralTypedFieldsEnabled(int32_t type) noexcept {
    return type != vldUnspecified;
}

NumDTEnables NumDTEnablesFor(int32_t type) noexcept {
    NumDTEnables on;
    if (type == vldUnspecified) return on;
    const bool signedNumber = type >= vldInteger && type <= vldCurrency;
    on.range = type != vldString;
    on.sign = signedNumber;
    on.notZero = type != vldString && type != vldDate && type != vldTime;
    on.scientific = type == vldSingle || type == vldDouble;
    on.decimals = type == vldSingle || type == vldDouble || type == vldCurrency;
    on.thousands = signedNumber;
    return on;
}

std::array<TextRule, 2> ExcludedBy(TextRule rule) noexcept {
    switch (rule) {
    case TextRule::OnlyLettersWithSpace:
        return { TextRule::OnlyLetters, TextRule::NoDigits };
    case TextRule::OnlyLetters:
        return { TextRule::NoDigits, TextRule::OnlyLettersWithSpace };
    case TextRule::NoDigits:
        return { TextRule::OnlyLetters, TextRule::OnlyLettersWithSpace };
    case TextRule::MustBeProperCase:
        return { TextRule::MustBeLowerCase, TextRule::MustBeUpperCase };
    case TextRule::MustBeLowerCase:
        return { TextRule::MustBeUpperCase, TextRule::MustBeProperCase };
    case TextRule::MustBeUpperCase:
        break;
    }
    return { TextRule::MustBeLowerCase, TextRule::MustBeProperCase };
}

bool TextPageEnabled(int32_t type) noexcept {
    return type == vldString;
}

bool SiftingEnabled(int32_t type) noexcept {
    return type != vldUnspecified;
}

MessageFieldEnables MessageFieldsEnabled(int32_t type, bool showErrorMessage, bool custom) noexcept {
    return { showErrorMessage, showErrorMessage && custom, type != vldUnspecified };
}

RangePosition PositionInRange(
    const Variant& value, const Variant* min, const Variant* max, ValueKind kind, const LocaleInfo& locale) {
    for (const bool isMax : { true, false }) {
        const Variant* limit = isMax ? max : min;
        if (!limit) continue;
        const std::optional<double> bound = ConvertByKind(*limit, kind, locale);
        const std::optional<double> converted = ConvertByKind(value, kind, locale);
        if (!bound || !converted) return RangePosition::Unreadable;
        if (isMax && *converted > *bound) return RangePosition::AboveMax;
        if (!isMax && *converted < *bound) return RangePosition::BelowMin;
    }
    return RangePosition::Inside;
}

std::vector<size_t> ItemsNotOfType(
    const std::vector<std::u16string>& items, int32_t type, const LocaleInfo& locale) {
    std::vector<size_t> misfits;
    if (type == vldUnspecified || type == vldString) return misfits;
    Settings settings;
    settings.MustBeType = static_cast<MustBeTypeConstants>(type);
    for (size_t i = 0; i < items.size(); ++i)
        if (EvaluateRules(items[i], settings, locale, 0) != 0) misfits.push_back(i);
    return misfits;
}

} // namespace quillmar::pages
