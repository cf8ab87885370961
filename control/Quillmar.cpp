#include "control/Quillmar.h"

#include "control/PropertyTable.h"
#include "control/RangeValue.h"

#include "base/Utf8.h"

#include "validation/Conversions.h"
#include "validation/NumericAnalysis.h"
#include "validation/Rules.h"

#include <algorithm>
#include <cstdint>
#include <string>

namespace quillmar {
namespace {

// Refuses a value outside the range the property's table row gives.
void CheckRange(int32_t value, PropertyId id) {
    const StoredProperty& facts = PropertyFacts(id);
    if (!InRange(facts, value))
        throw PropertyError(PropertyError::InvalidPropertyValue, ToUtf8(facts.key), std::to_string(value));
}

} // namespace

Quillmar::Quillmar(HostServices host)
    : m_host(host) {
    m_host.editBox.SetEvents(this);
}

Quillmar::~Quillmar() {
    m_host.editBox.SetEvents(nullptr);
}

void Quillmar::Notify(std::u16string_view name) {
    m_host.container.PropertyChanged(name);
}

LocaleInfo Quillmar::Locale() const {
    return m_host.locale.Locale();
}

int32_t Quillmar::RulesOf(std::u16string_view text) const {
    return EvaluateRules(text, m_settings, Locale(), m_host.editBox.MaxLength());
}

// Methods.

int32_t Quillmar::CheckInput() const {
    if (m_settings.MustBeType == vldUnspecified) return 0;
    return RulesOf(m_host.editBox.Text());
}

bool Quillmar::IsValid() const {
    if (m_settings.MustBeType == vldUnspecified) return true;
    return CheckInput() <= 0;
}

void Quillmar::Refresh() {
    m_host.editBox.Refresh();
}

void Quillmar::ShowAboutBox() {
    m_host.aboutBox.Show();
}

void Quillmar::OLEDrag() {
    m_host.editBox.OLEDrag();
}

// Type flags.

void Quillmar::ClearTypeFlags() {
    m_state.NumericMode = false;
    m_state.TypeIsByte = false;
    m_state.TypeIsInteger = false;
    m_state.TypeIsLong = false;
    m_state.TypeIsSingle = false;
    m_state.TypeIsDouble = false;
    m_state.TypeIsCurrency = false;
    m_state.TypeIsDate = false;
    m_state.TypeIsTime = false;
}

void Quillmar::EnterNumericMode() {
    m_state.TypeIsDate = false;
    m_state.TypeIsTime = false;
    m_state.NumericMode = true;
    if (IsDateTimeType(m_settings.MustBeType)) {
        // A sign or exponent rule turns a date or time field into a double field, quietly.
        m_settings.MustBeType = vldDouble;
        m_state.TypeIsDouble = true;
    }
    const LocaleInfo locale = Locale();
    for (Variant* limit : { &m_settings.MaxValue, &m_settings.MinValue, &m_settings.DefaultValue })
        if (!IsNumericText(TextOf(*limit, locale), locale)) *limit = std::u16string();
}

void Quillmar::ClearLimitsOfOtherClass(int wantedClass) {
    const LocaleInfo locale = Locale();
    for (Variant* limit : { &m_settings.MaxValue, &m_settings.MinValue, &m_settings.DefaultValue })
        if (ClassifyDateTime(*limit, locale) != wantedClass) *limit = std::u16string();
}

// Properties held by the control.

void Quillmar::SetThousandSeparator(int32_t value) {
    CheckRange(value, PropertyId::ThousandSeparator);
    m_settings.ThousandSeparator = static_cast<ThousandSeparatorConstants>(value);
    Notify(u"ThousandSeparator");
}

void Quillmar::SetMustBePositive(bool value) {
    m_settings.MustBePositive = value;
    Notify(u"MustBePositive");
    if (!value) return;
    EnterNumericMode();
    if (m_settings.MustBePositive) SetMustBeNegative(false);
}

void Quillmar::SetMustBeNegative(bool value) {
    m_settings.MustBeNegative = value;
    Notify(u"MustBeNegative");
    if (!value) return;
    EnterNumericMode();
    if (m_settings.MustBeNegative) SetMustBePositive(false);
}

void Quillmar::SetBeeping(bool value) {
    m_settings.Beeping = value;
    Notify(u"Beeping");
}

void Quillmar::SetMustBeUpperCase(bool value) {
    m_settings.MustBeUpperCase = value;
    Notify(u"MustBeUpperCase");
    if (!value) return;
    SetMustBeLowerCase(false);
    SetMustBeProperCase(false);
}

void Quillmar::SetMustBeLowerCase(bool value) {
    m_settings.MustBeLowerCase = value;
    Notify(u"MustBeLowerCase");
    if (!value) return;
    SetMustBeUpperCase(false);
    SetMustBeProperCase(false);
}

void Quillmar::SetMustBeProperCase(bool value) {
    m_settings.MustBeProperCase = value;
    Notify(u"MustBeProperCase");
    if (!value) return;
    SetMustBeUpperCase(false);
    SetMustBeLowerCase(false);
}

void Quillmar::SetNoDigits(bool value) {
    m_settings.NoDigits = value;
    Notify(u"NoDigits");
    if (!value) return;
    SetOnlyLetters(false);
    SetOnlyLettersWithSpace(false);
}

void Quillmar::SetOnlyLetters(bool value) {
    m_settings.OnlyLetters = value;
    Notify(u"OnlyLetters");
    if (!value) return;
    SetNoDigits(false);
    SetOnlyLettersWithSpace(false);
}

void Quillmar::SetOnlyLettersWithSpace(bool value) {
    m_settings.OnlyLettersWithSpace = value;
    Notify(u"OnlyLettersWithSpace");
    if (!value) return;
    SetNoDigits(false);
    SetOnlyLetters(false);
}

void Quillmar::SetAllowScientificFormat(bool value) {
    m_settings.AllowScientificFormat = value;
    Notify(u"AllowScientificFormat");
    if (value) EnterNumericMode();
}

void Quillmar::SetFinalValidationActive(bool value) {
    m_settings.FinalValidationActive = value;
    Notify(u"FinalValidationActive");
}

void Quillmar::SetValidCharactersSet(std::u16string_view value) {
    m_settings.ValidCharactersSet = value;
    Notify(u"ValidCharactersSet");
}

void Quillmar::SetExtraExcludedCharacters(std::u16string_view value) {
    m_settings.ExtraExcludedCharacters = value;
    Notify(u"ExtraExcludedCharacters");
}

void Quillmar::SetExtraIncludedCharacters(std::u16string_view value) {
    m_settings.ExtraIncludedCharacters = value;
    Notify(u"ExtraIncludedCharacters");
}

void Quillmar::SetRequiredField(bool value) {
    m_settings.RequiredField = value;
    Notify(u"RequiredField");
}

void Quillmar::SetMaxNumberOfDecimals(int32_t value) {
    // Stored before the check, unlike MaxRelativeAccuracy: a refused count stays in place, unannounced.
    m_settings.MaxNumberOfDecimals = static_cast<int16_t>(std::clamp<int32_t>(value, 0, INT16_MAX));
    CheckRange(m_settings.MaxNumberOfDecimals, PropertyId::MaxNumberOfDecimals);
    Notify(u"MaxNumberOfDecimals");
}

void Quillmar::SetCustomMask(std::u16string_view value) {
    m_settings.CustomMask = value;
    Notify(u"CustomMask");
}

void Quillmar::SetDefaultValue(const Variant& value) {
    auto coerced = CoerceRangeValue(value, m_state, Locale());
    if (!coerced) return;
    m_settings.DefaultValue = std::move(*coerced);
    Notify(u"DefaultValue");
}

void Quillmar::SetLimit(Variant& limit, const Variant& value, std::u16string_view name) {
    const LocaleInfo locale = Locale();
    const bool textField = !m_state.NumericMode && !m_state.TypeIsDate && !m_state.TypeIsTime;
    if (textField && !value.IsEmpty() && !value.IsEmptyString()) {
        // A text field has no limits: a number or a date-time is announced but not stored, anything else is
        // ignored.
        if (!NumberOf(value, locale) && !DateTimeOf(value, locale)) return;
    } else {
        auto coerced = CoerceRangeValue(value, m_state, locale);
        if (!coerced) return;
        limit = std::move(*coerced);
    }
    Notify(name);
}

void Quillmar::SetMinValue(const Variant& value) {
    SetLimit(m_settings.MinValue, value, u"MinValue");
}

void Quillmar::SetMaxValue(const Variant& value) {
    SetLimit(m_settings.MaxValue, value, u"MaxValue");
}

void Quillmar::SetMustNotBeZero(bool value) {
    m_settings.MustNotBeZero = value;
    Notify(u"MustNotBeZero");
}

void Quillmar::RequireDesignTime(int error, std::u16string_view name) const {
    if (m_host.container.UserMode()) throw PropertyError(error, ToUtf8(name));
}

VariantArray Quillmar::MustNotBeValues() const {
    RequireDesignTime(PropertyError::NotAvailableAtRunTime, u"MustNotBeValues");
    return m_settings.MustNotBeValues;
}

void Quillmar::SetMustNotBeValues(const VariantArray& value) {
    RequireDesignTime(PropertyError::NotSettableAtRunTime, u"MustNotBeValues");
    m_settings.MustNotBeValues = value;
    Notify(u"MustNotBeValues");
}

VariantArray Quillmar::Actions() const {
    RequireDesignTime(PropertyError::NotAvailableAtRunTime, u"Actions");
    return m_settings.Actions;
}

void Quillmar::SetActions(const VariantArray& value) {
    RequireDesignTime(PropertyError::NotSettableAtRunTime, u"Actions");
    m_settings.Actions = value;
    Notify(u"Actions");
}

void Quillmar::SetShowErrorMessage(bool value) {
    m_settings.ShowErrorMessage = value;
    Notify(u"ShowErrorMessage");
}

void Quillmar::SetValidationMode(int32_t value) {
    CheckRange(value, PropertyId::ValidationMode);
    m_settings.ValidationMode = static_cast<ValidationModeConstants>(value);
    Notify(u"ValidationMode");
}

void Quillmar::SetMessageBoxTitle(std::u16string_view value) {
    m_settings.MessageBoxTitle = value;
    Notify(u"MessageBoxTitle");
}

void Quillmar::SetErrorMessageMode(int32_t value) {
    CheckRange(value, PropertyId::ErrorMessageMode);
    m_settings.ErrorMessageMode = static_cast<ErrorMessageModeConstants>(value);
    Notify(u"ErrorMessageMode");
}

void Quillmar::SetMustBeType(int32_t value) {
    CheckRange(value, PropertyId::MustBeType);
    ClearTypeFlags();
    switch (value) {
    case vldByte:
        m_state.TypeIsByte = true;
        EnterNumericMode();
        SetMustBeNegative(false);
        break;
    case vldInteger:
        m_state.TypeIsInteger = true;
        EnterNumericMode();
        break;
    case vldLong:
        m_state.TypeIsLong = true;
        EnterNumericMode();
        break;
    case vldSingle:
        m_state.TypeIsSingle = true;
        EnterNumericMode();
        break;
    case vldDouble:
        m_state.TypeIsDouble = true;
        EnterNumericMode();
        break;
    case vldCurrency:
        m_state.TypeIsCurrency = true;
        EnterNumericMode();
        break;
    case vldDate:
    case vldTime:
        (value == vldDate ? m_state.TypeIsDate : m_state.TypeIsTime) = true;
        SetAllowScientificFormat(false);
        SetMustBeNegative(false);
        SetMustBePositive(false);
        ClearLimitsOfOtherClass(value == vldDate ? DateClass : TimeClass);
        break;
    default:
        break;
    }
    // Stored after EnterNumericMode, so a date field turned numeric ends with the requested type.
    m_settings.MustBeType = static_cast<MustBeTypeConstants>(value);
    if (m_state.NumericMode) m_state.TypeIsDouble = value == vldDouble;
    Notify(u"MustBeType");
}

void Quillmar::SetOnErrorSelectEntireField(bool value) {
    m_settings.OnErrorSelectEntireField = value;
    Notify(u"OnErrorSelectEntireField");
}

void Quillmar::SetInputSifting(int32_t value) {
    CheckRange(value, PropertyId::InputSifting);
    m_settings.InputSifting = static_cast<InputSiftingConstants>(value);
    Notify(u"InputSifting");
}

void Quillmar::SetMaxRelativeAccuracy(int32_t value) {
    CheckRange(std::max(value, 0), PropertyId::MaxRelativeAccuracy);
    m_settings.MaxRelativeAccuracy = static_cast<int16_t>(std::max(value, 0));
    Notify(u"MaxRelativeAccuracy");
}

void Quillmar::SetMessageBoxIcon(int32_t value) {
    CheckRange(value, PropertyId::MessageBoxIcon);
    m_settings.MessageBoxIcon = static_cast<MsgBoxIcons>(value);
    Notify(u"MessageBoxIcon");
}

void Quillmar::SetErrorMessage(std::u16string_view value) {
    m_settings.ErrorMessage = value;
    Notify(u"ErrorMessage");
}

void Quillmar::SetShowAsUnderstood(bool value) {
    m_settings.ShowAsUnderstood = value;
    Notify(u"ShowAsUnderstood");
}

// Text and value.

void Quillmar::WriteText(std::u16string_view text) {
    m_state.InternalTextChange = true;
    m_host.editBox.SetText(text);
    m_state.InternalTextChange = false;
}

std::u16string Quillmar::Text() const {
    return m_host.editBox.Text();
}

void Quillmar::SetText(std::u16string_view value) {
    WriteText(value);
    const std::u16string text = m_host.editBox.Text();
    if (RulesOf(text) == 0) {
        const LocaleInfo locale = Locale();
        Variant converted
            = ConvertToType(text, m_settings.MustBeType, locale, GroupingOf(m_settings.ThousandSeparator));
        if (!converted.IsEmpty() && RulesOf(TextOf(converted, locale)) == 0)
            m_state.LastValidValue = std::move(converted);
    }
    Notify(u"Text");
}

Variant Quillmar::Value() const {
    const LocaleInfo locale = Locale();
    Variant candidate;
    if (m_settings.MaxRelativeAccuracy != 0 && !m_state.TextEditedSinceValue && !m_state.ExactValue.IsEmpty())
        candidate = ConvertToType(m_state.ExactValue, m_settings.MustBeType, locale);
    else
        candidate = ConvertToType(
            m_host.editBox.Text(), m_settings.MustBeType, locale, GroupingOf(m_settings.ThousandSeparator));
    if (candidate.IsEmpty()) return m_host.editBox.Text();
    return candidate;
}

void Quillmar::SetValue(const Variant& value) {
    const LocaleInfo locale = Locale();
    m_state.InternalTextChange = true;
    if (m_state.NumericMode) {
        if (m_settings.MaxRelativeAccuracy < 1) {
            m_state.ExactValue = Variant();
            m_host.editBox.SetText(TextOf(value, locale));
        } else {
            m_state.ExactValue = value;
            m_host.editBox.SetText(RoundToRelativeAccuracy(value, m_settings.MaxRelativeAccuracy, locale));
        }
        m_state.TextEditedSinceValue = false;
    } else {
        m_host.editBox.SetText(TextOf(value, locale));
    }
    m_state.InternalTextChange = false;
    Notify(u"Value");
}

} // namespace quillmar
