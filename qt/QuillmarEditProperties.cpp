// The Qt face of the control's writers: a value the field refuses is reported (a warning and a signal)
// instead of thrown, because Qt's property system cannot carry an exception.
#include "qt/QtServices.h"
#include "qt/QuillmarEdit.h"

#include "control/PropertyTable.h"

#include <QDebug>

#include <algorithm>
#include <cstring>
#include <string>
#include <utility>

namespace quillmar::qt {
namespace {

constexpr int kInvalidValue = PropertyError::InvalidPropertyValue;

const StoredProperty& FactsOf(const char* name) {
    const std::u16string key(name, name + std::strlen(name));
    const StoredProperty* facts = FindStoredProperty(key);
    Q_ASSERT_X(facts, "QuillmarEdit", "a ranged property without a row in the property table");
    return *facts;
}

} // namespace

template <typename Write> void QuillmarEdit::Guarded(const char* name, const QVariant& value, Write&& write) {
    try {
        write();
    } catch (const PropertyError& error) {
        const bool runTime = error.number() == PropertyError::NotSettableAtRunTime;
        Refuse(name, value, error.number(), runTime ? "cannot be set at run time" : "out of range");
    }
}

template <typename Write> void QuillmarEdit::InRangeOnly(const char* name, int value, Write&& write) {
    if (InRange(FactsOf(name), value))
        Guarded(name, value, std::forward<Write>(write));
    else
        Refuse(name, value, kInvalidValue, "out of range");
}

void QuillmarEdit::Refuse(const char* name, const QVariant& value, int error, const char* why) {
    qWarning().nospace() << "QuillmarEdit " << objectName() << ": " << name << " refuses " << value << ", "
                         << why << " (" << error << ")";
    emit PropertyRefused(QString::fromLatin1(name), value, error);
}

// The control's checked writers.

void QuillmarEdit::SetThousandSeparator(ThousandSeparatorConstants value) {
    SetThousandSeparator(static_cast<int>(value));
}
void QuillmarEdit::SetThousandSeparator(int value) {
    Guarded("ThousandSeparator", value, [&] { m_control->SetThousandSeparator(value); });
}
void QuillmarEdit::SetValidationMode(ValidationModeConstants value) {
    SetValidationMode(static_cast<int>(value));
}
void QuillmarEdit::SetValidationMode(int value) {
    Guarded("ValidationMode", value, [&] { m_control->SetValidationMode(value); });
}
void QuillmarEdit::SetErrorMessageMode(ErrorMessageModeConstants value) {
    SetErrorMessageMode(static_cast<int>(value));
}
void QuillmarEdit::SetErrorMessageMode(int value) {
    Guarded("ErrorMessageMode", value, [&] { m_control->SetErrorMessageMode(value); });
}
void QuillmarEdit::SetMustBeType(MustBeTypeConstants value) {
    SetMustBeType(static_cast<int>(value));
}
void QuillmarEdit::SetMustBeType(int value) {
    Guarded("MustBeType", value, [&] { m_control->SetMustBeType(value); });
}
void QuillmarEdit::SetInputSifting(InputSiftingConstants value) {
    SetInputSifting(static_cast<int>(value));
}
void QuillmarEdit::SetInputSifting(int value) {
    Guarded("InputSifting", value, [&] { m_control->SetInputSifting(value); });
}
void QuillmarEdit::SetMessageBoxIcon(MsgBoxIcons value) {
    SetMessageBoxIcon(static_cast<int>(value));
}
void QuillmarEdit::SetMessageBoxIcon(int value) {
    Guarded("MessageBoxIcon", value, [&] { m_control->SetMessageBoxIcon(value); });
}
void QuillmarEdit::SetMaxRelativeAccuracy(int value) {
    Guarded("MaxRelativeAccuracy", value, [&] { m_control->SetMaxRelativeAccuracy(value); });
}

void QuillmarEdit::SetMaxNumberOfDecimals(int value) {
    // Checked here: the control keeps a refused count stored; a negative count is 0, as the control takes it.
    InRangeOnly("MaxNumberOfDecimals", std::max(value, 0), [&] { m_control->SetMaxNumberOfDecimals(value); });
}

// The limits and the default: the control ignores a value of another type silently; here it is refused.

void QuillmarEdit::SetDefaultValue(const QVariant& value) {
    const int changes = m_services->Notifications();
    m_control->SetDefaultValue(FromQVariant(value, MustBeType()));
    if (m_services->Notifications() == changes)
        Refuse("DefaultValue", value, kInvalidValue, "not of the field's type");
}
void QuillmarEdit::SetMinValue(const QVariant& value) {
    const int changes = m_services->Notifications();
    m_control->SetMinValue(FromQVariant(value, MustBeType()));
    if (m_services->Notifications() == changes)
        Refuse("MinValue", value, kInvalidValue, "not of the field's type");
}
void QuillmarEdit::SetMaxValue(const QVariant& value) {
    const int changes = m_services->Notifications();
    m_control->SetMaxValue(FromQVariant(value, MustBeType()));
    if (m_services->Notifications() == changes)
        Refuse("MaxValue", value, kInvalidValue, "not of the field's type");
}

// The lists, design-time properties: at run time a write is refused and a read gives an empty list.

QVariantList QuillmarEdit::MustNotBeValues() const {
    if (m_services->m_userMode) return {};
    return ToQVariant(Variant(m_control->MustNotBeValues()), MustBeType()).toList();
}
void QuillmarEdit::SetMustNotBeValues(const QVariantList& value) {
    Guarded("MustNotBeValues", value,
        [&] { m_control->SetMustNotBeValues(FromQVariant(value, MustBeType()).AsArray()); });
}
QVariantList QuillmarEdit::Actions() const {
    if (m_services->m_userMode) return {};
    return ToQVariant(Variant(m_control->Actions())).toList();
}
void QuillmarEdit::SetActions(const QVariantList& value) {
    Guarded("Actions", value, [&] { m_control->SetActions(FromQVariant(value).AsArray()); });
}

// The edit box's numbers, held to the values the box has.

void QuillmarEdit::SetAppearance(vldAppearanceConstants value) {
    SetAppearance(static_cast<int>(value));
}
void QuillmarEdit::SetAppearance(int value) {
    InRangeOnly("Appearance", value, [&] { m_control->SetAppearance(static_cast<int16_t>(value)); });
}
void QuillmarEdit::SetBorderStyle(vldBorderStyleConstants value) {
    SetBorderStyle(static_cast<int>(value));
}
void QuillmarEdit::SetBorderStyle(int value) {
    InRangeOnly("BorderStyle", value, [&] { m_control->SetBorderStyle(static_cast<int16_t>(value)); });
}
void QuillmarEdit::SetAlignment(int value) {
    InRangeOnly("Alignment", value, [&] { m_control->SetAlignment(static_cast<int16_t>(value)); });
}
void QuillmarEdit::SetAlignment(Qt::Alignment value) {
    const Qt::Alignment horizontal = value & Qt::AlignHorizontal_Mask;
    SetAlignment(horizontal == Qt::AlignRight ? 1 : horizontal == Qt::AlignHCenter ? 2 : 0);
}
Qt::Alignment QuillmarEdit::QtAlignment() const {
    const Qt::Alignment horizontal[] = { Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter };
    const int alignment = Alignment();
    return (alignment >= 0 && alignment <= 2 ? horizontal[alignment] : Qt::AlignLeft) | Qt::AlignVCenter;
}
void QuillmarEdit::SetMousePointer(int value) {
    InRangeOnly("MousePointer", value, [&] { m_control->SetMousePointer(static_cast<int16_t>(value)); });
}
void QuillmarEdit::SetOLEDragMode(int value) {
    InRangeOnly("OLEDragMode", value, [&] { m_control->SetOLEDragMode(static_cast<int16_t>(value)); });
}
void QuillmarEdit::SetOLEDropMode(int value) {
    InRangeOnly("OLEDropMode", value, [&] { m_control->SetOLEDropMode(static_cast<int16_t>(value)); });
}

} // namespace quillmar::qt
