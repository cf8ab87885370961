// The final validation of the field: the rewrite of a valid text, the corrective actions and the message box.
#include "control/Quillmar.h"

#include "validation/ClosestValue.h"
#include "validation/Conversions.h"
#include "validation/Messages.h"
#include "validation/Numbers.h"
#include "validation/NumericAnalysis.h"
#include "validation/TextCase.h"

namespace quillmar {
namespace {

int16_t IconFlag(int32_t icon) {
    switch (icon) {
    case vldMBIExclamation:
        return IconExclamation;
    case vldMBICritical:
        return IconStop;
    case vldMBIInformation:
        return IconInformation;
    case vldMBIQuestion:
        return IconQuestion;
    default:
        return IconNone;
    }
}

int32_t FlagWord(const Variant& entry) {
    const auto value = entry.ToDouble();
    return value ? static_cast<int32_t>(*value) : 0;
}

bool IsEmptyValue(const Variant& value) {
    return value.IsEmpty() || value.IsEmptyString();
}

// The plain text of a converted value; a single or double is written in digits even when large or small, so
// that a field without the exponent form does not get a text it refuses.
std::u16string UnderstoodText(const Variant& value, const LocaleInfo& locale) {
    if (value.kind() == Variant::Kind::Double)
        return FormatDouble(value.AsDouble(), locale, 0, NumberLayout::Plain);
    if (value.kind() == Variant::Kind::Single)
        return FormatSingle(value.AsSingle(), locale, NumberLayout::Plain);
    return TextOf(value, locale);
}

} // namespace

// The final validation's own writes go through change processing like the user's (so a rule that repairs a
// text repairs these too), and the text they leave, with the caret at its end, is what a refused change
// springs back to.
void Quillmar::WriteCorrection(std::u16string_view text) {
    m_state.ProgrammaticWrite = true;
    m_host.editBox.SetText(text);
    m_state.ProgrammaticWrite = false;
    m_host.editBox.SetSelLength(0);
    m_host.editBox.SetSelStart(static_cast<int32_t>(m_host.editBox.Text().size()));
    TakeSnapshot();
}

bool Quillmar::Validate() {
    if (m_settings.MustBeType == vldUnspecified || !m_settings.FinalValidationActive) return true;
    const LocaleInfo locale = Locale();
    const std::u16string text = m_host.editBox.Text();
    int32_t bits = RulesOf(text);
    if (bits == 0) {
        const Variant value
            = ConvertToType(text, m_settings.MustBeType, locale, GroupingOf(m_settings.ThousandSeparator));
        if (!value.IsEmpty() && m_settings.ShowAsUnderstood) {
            const bool scientific = m_settings.AllowScientificFormat
                && (m_settings.MustBeType == vldSingle || m_settings.MustBeType == vldDouble)
                && UpperCase(text).find(u'E') != std::u16string::npos;
            WriteCorrection(scientific ? FormatScientific(value, locale) : UnderstoodText(value, locale));
        }
        if (!value.IsEmpty()) bits = RulesOf(m_host.editBox.Text());
        if (bits == 0) {
            if (!value.IsEmpty()) m_state.LastValidValue = value;
            TakeSnapshot();
            return true;
        }
    }
    const std::u16string savedText = m_host.editBox.Text();
    const int32_t actionCode = PerformActions();
    if (m_settings.OnErrorSelectEntireField) {
        m_host.editBox.SetSelStart(0);
        m_host.editBox.SetSelLength(static_cast<int32_t>(m_host.editBox.Text().size()));
    }
    if (m_settings.Beeping) m_host.alerts.Beep();
    // The constraints of the text as the user left it are reported, even when an action replaced it.
    if (m_settings.ShowErrorMessage) ShowErrorBox(savedText, bits, actionCode);
    return false;
}

int32_t Quillmar::PerformActions() {
    const LocaleInfo locale = Locale();
    const VariantArray& actions = m_settings.Actions;
    for (size_t i = 1; i < actions.size(); ++i) {
        const int32_t flags = FlagWord(actions[i]);
        if ((flags & vldACChecked) == 0) continue;
        switch (flags & 248) {
        case vldACReturnPrevious: {
            if (m_state.LastValidValue.IsEmpty()) break;
            const std::u16string previous = TextOf(m_state.LastValidValue, locale);
            if (RulesOf(previous) != 0) break;
            WriteCorrection(previous);
            m_state.PreviousText = previous;
            return vldACReturnPrevious;
        }
        case vldACInsertDefault: {
            if (IsEmptyValue(m_settings.DefaultValue)) break;
            const std::u16string fallback = TextOf(m_settings.DefaultValue, locale);
            const bool typed = IsNumericType(m_settings.MustBeType) || IsDateTimeType(m_settings.MustBeType);
            if (typed && RulesOf(fallback) != 0) break;
            WriteCorrection(fallback);
            return vldACInsertDefault;
        }
        case vldACInsertClosest: {
            const Variant closest
                = FindClosestValue(m_host.editBox.Text(), m_settings, locale, m_host.editBox.MaxLength());
            if (closest.IsEmpty()) break;
            const std::u16string closestText = TextOf(closest, locale);
            if (RulesOf(closestText) != 0) break;
            WriteCorrection(closestText);
            return vldACInsertClosest;
        }
        default:
            break;
        }
    }
    return 0;
}

std::u16string Quillmar::CurrentErrorMessage() const {
    const std::u16string text = m_host.editBox.Text();
    const int32_t bits = CheckInput();
    if (bits <= 0) return {};
    std::u16string message = m_settings.ErrorMessageMode == vldCustom
        ? m_settings.ErrorMessage
        : ComposeErrorMessage(
            text, bits, 0, m_settings, Locale(), m_host.editBox.MaxLength(), m_host.catalogue);
    if (message.find_first_not_of(u" \r\n") == std::u16string::npos)
        return ComposeMessage(m_host.catalogue, MessageId::EntryNotValid);
    return message;
}

void Quillmar::ShowErrorBox(std::u16string_view savedText, int32_t bits, int32_t actionCode) {
    const std::u16string message = m_settings.ErrorMessageMode == vldCustom
        ? m_settings.ErrorMessage
        : ComposeErrorMessage(
            savedText, bits, actionCode, m_settings, Locale(), m_host.editBox.MaxLength(), m_host.catalogue);
    m_host.alerts.MessageBox(
        message, ShownMessageBoxTitle(m_settings, m_host.catalogue), IconFlag(m_settings.MessageBoxIcon));
}

} // namespace quillmar
