#include "pages/NumDTPage.h"

#include "base/Enums.h"
#include "pages/PageChecks.h"
#include "pages/PageWidgets.h"
#include "validation/Conversions.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

#include <cmath>
#include <initializer_list>
#include <limits>
#include <vector>

namespace quillmar::pages {
namespace {

using quillmar::PropertyEntry;

// The stored entries of a count field: an integer from 0 to 32 that puts back the closest allowed value,
// the previous one or 0 without asking.
std::vector<PropertyEntry> CountFieldEntries(const char16_t* title) {
    return {
        { u"FontName", Variant(u"MS Sans Serif") },
        { u"FontSize", Variant(8.25f) },
        { u"MustBePositive", Variant(true) },
        { u"Text", Variant(u"0") },
        { u"DefaultValue", Variant(int32_t { 0 }) },
        { u"MinValue", Variant(int32_t { 0 }) },
        { u"MaxValue", Variant(int32_t { 32 }) },
        { u"Actions", StoredList({ int32_t { 33 }, int32_t { 9 }, int32_t { 17 } }) },
        { u"MessageBoxTitle", Variant(title) },
        { u"MustBeType", Variant(int32_t { vldInteger }) },
        { u"OnErrorSelectEntireField", Variant(true) },
    };
}

// The stored entries of a limit field; its type is set from the selected field at every load.
std::vector<PropertyEntry> LimitFieldEntries(const char16_t* text, const char16_t* title) {
    return {
        { u"FontName", Variant(u"MS Sans Serif") },
        { u"FontSize", Variant(8.25f) },
        { u"AllowScientificFormat", Variant(true) },
        { u"Text", Variant(text) },
        { u"MustNotBeValues", StoredList({}) },
        { u"Actions", StoredList({ int32_t { 32 }, int32_t { 16 }, int32_t { 8 } }) },
        { u"MessageBoxTitle", Variant(title) },
        { u"OnErrorSelectEntireField", Variant(true) },
    };
}

std::u16string TextOfField(const qt::QuillmarEdit* field) {
    return field->control().Text();
}

} // namespace

NumDTPage::NumDTPage(PageServices services, QWidget* parent)
    : PropertyPage(tr("Number/Date,Time"), services, parent) {
    BuildLayout();
    Connect();
    EnableByType(vldUnspecified);
}

void NumDTPage::BuildLayout() {
    auto* frame3 = new QGroupBox(this);
    frame3->setObjectName(QStringLiteral("Frame3"));
    m_cboSep1000 = new QComboBox(frame3);
    m_cboSep1000->setObjectName(QStringLiteral("cboSep1000"));
    m_txtMaxNumberOfDecimals = MakeEmbeddedField(
        QStringLiteral("txtMaxNumberOfDecimals"), CountFieldEntries(u"Invalid Entry: MaxNumberOfDecimals"));
    m_txtMaxRelativeAccuracy = MakeEmbeddedField(
        QStringLiteral("txtMaxRelativeAccuracy"), CountFieldEntries(u"Invalid Entry: MaxRelativeAccuracy"));
    m_lblSep1000 = MakeLabel("lblSep1000", tr("ThousandSeparator:"), m_cboSep1000, frame3);
    m_lblMaxNumberOfDecimals
        = MakeLabel("lblMaxNumberOfDecimals", tr("MaxNumberOfDecimals:"), m_txtMaxNumberOfDecimals, frame3);
    m_lblMaxRelativeAccuracy
        = MakeLabel("lblMaxRelativeAccuracy", tr("MaxRelativeAccuracy:"), m_txtMaxRelativeAccuracy, frame3);
    auto* counts = new QFormLayout(frame3);
    counts->addRow(m_lblSep1000, m_cboSep1000);
    counts->addRow(m_lblMaxNumberOfDecimals, m_txtMaxNumberOfDecimals);
    counts->addRow(m_lblMaxRelativeAccuracy, m_txtMaxRelativeAccuracy);

    auto* frame1 = new QGroupBox(this);
    frame1->setObjectName(QStringLiteral("Frame1"));
    m_chkMustNotBeZero = MakeCheckBox("chkMustNotBeZero", frame1);
    m_chkMustBePositive = MakeCheckBox("chkMustBePositive", frame1);
    m_chkMustBeNegative = MakeCheckBox("chkMustBeNegative", frame1);
    m_chkAllowScientificFormat = MakeCheckBox("chkAllowScientificFormat", frame1);
    auto* checks = new QVBoxLayout(frame1);
    for (QCheckBox* box :
        { m_chkMustNotBeZero, m_chkMustBePositive, m_chkMustBeNegative, m_chkAllowScientificFormat })
        checks->addWidget(box);
    checks->addStretch();

    m_txtMinValue = MakeEmbeddedField(QStringLiteral("txtMinValue"),
        LimitFieldEntries(u"-9.20000000000003E+185", u"Property Page: MinValue"));
    m_txtMaxValue = MakeEmbeddedField(
        QStringLiteral("txtMaxValue"), LimitFieldEntries(u"", u"Property Page: MaxValue"));
    m_lblMinValue = MakeLabel("lblMinValue", tr("MinValue:"), m_txtMinValue, this);
    m_lblMaxValue = MakeLabel("lblMaxValue", tr("MaxValue:"), m_txtMaxValue, this);
    auto* range = new QFormLayout;
    range->addRow(m_lblMinValue, m_txtMinValue);
    range->addRow(m_lblMaxValue, m_txtMaxValue);

    auto* layout = new QGridLayout(this);
    layout->addWidget(frame3, 0, 0);
    layout->addWidget(frame1, 0, 1);
    layout->addLayout(range, 1, 0, 1, 2);
    layout->setRowStretch(2, 1);

    // The controls are visited in the order they stand: the counts, the rules, then the range.
    const std::initializer_list<QWidget*> order { m_cboSep1000, m_txtMaxNumberOfDecimals,
        m_txtMaxRelativeAccuracy, m_chkMustNotBeZero, m_chkMustBePositive, m_chkMustBeNegative,
        m_chkAllowScientificFormat, m_txtMinValue, m_txtMaxValue };
    for (auto it = order.begin(); it + 1 != order.end(); ++it)
        setTabOrder(*it, *(it + 1));
}

void NumDTPage::Connect() {
    for (qt::QuillmarEdit* field :
        { m_txtMinValue, m_txtMaxValue, m_txtMaxNumberOfDecimals, m_txtMaxRelativeAccuracy })
        connect(field, &qt::QuillmarEdit::Change, this, [this] { Touched(); });
    for (QCheckBox* box : { m_chkMustNotBeZero, m_chkAllowScientificFormat })
        connect(box, &QCheckBox::toggled, this, [this] { Touched(); });
    connect(m_cboSep1000, &QComboBox::currentIndexChanged, this, [this] { Touched(); });
    // A field cannot be both positive and negative: checking one rule clears the other.
    connect(m_chkMustBeNegative, &QCheckBox::toggled, this, [this](bool checked) {
        Touched();
        if (checked) m_chkMustBePositive->setChecked(false);
    });
    connect(m_chkMustBePositive, &QCheckBox::toggled, this, [this](bool checked) {
        Touched();
        if (checked) m_chkMustBeNegative->setChecked(false);
    });
}

void NumDTPage::SelectionChanged() {
    if (!BeginLoad()) return;
    const qt::QuillmarEdit* first = FirstControl();
    if (!first) {
        EnableByType(vldUnspecified);
        EndLoad();
        return;
    }
    const Quillmar& control = first->control();
    const LocaleInfo locale = Services().Locale();
    m_txtMaxRelativeAccuracy->SetText(QString::number(control.MaxRelativeAccuracy()));
    m_chkMustNotBeZero->setChecked(control.MustNotBeZero());
    m_txtMaxValue->SetText(qt::ToQString(TextOf(control.MaxValue(), locale)));
    m_txtMinValue->SetText(qt::ToQString(TextOf(control.MinValue(), locale)));
    m_txtMaxNumberOfDecimals->SetText(QString::number(control.MaxNumberOfDecimals()));
    m_chkAllowScientificFormat->setChecked(control.AllowScientificFormat());
    m_chkMustBeNegative->setChecked(control.MustBeNegative());
    m_chkMustBePositive->setChecked(control.MustBePositive());

    m_cboSep1000->clear();
    m_cboSep1000->addItems({ tr("Forbidden"), tr("Allowed") });
    // A stored separator other than 0 or 1 selects nothing, and applying then leaves it as it is.
    const int separator = control.ThousandSeparator();
    m_cboSep1000->setCurrentIndex(separator == vldTSForbidden || separator == vldTSAllowed ? separator : -1);

    const int32_t type = control.MustBeType();
    m_txtMinValue->SetAllowScientificFormat(true);
    m_txtMaxValue->SetAllowScientificFormat(true);
    m_txtMinValue->SetMustBeType(type);
    m_txtMaxValue->SetMustBeType(type);
    EnableByType(type);
    EndLoad();
}

void NumDTPage::EnableByType(int32_t type) {
    const NumDTEnables on = NumDTEnablesFor(type);
    const auto enable = [](std::initializer_list<QWidget*> widgets, bool enabled) {
        for (QWidget* widget : widgets)
            widget->setEnabled(enabled);
    };
    enable({ m_txtMinValue, m_lblMinValue, m_txtMaxValue, m_lblMaxValue }, on.range);
    enable({ m_chkMustBePositive, m_chkMustBeNegative }, on.sign);
    enable({ m_chkMustNotBeZero }, on.notZero);
    enable({ m_chkAllowScientificFormat }, on.scientific);
    enable({ m_txtMaxNumberOfDecimals, m_lblMaxNumberOfDecimals, m_txtMaxRelativeAccuracy,
               m_lblMaxRelativeAccuracy },
        on.decimals);
    enable({ m_cboSep1000, m_lblSep1000 }, on.thousands);
}

void NumDTPage::Touched() {
    if (!m_applying) MarkChanged();
}

std::optional<int32_t> NumDTPage::CountOf(const QString& text) {
    const std::optional<double> number = NumericValueOf(Variant(qt::FromQString(text)), Services().Locale());
    if (!number || !std::isfinite(*number)) return std::nullopt;
    // Rounded half to even, as a number becomes an integer property.
    const double rounded = std::nearbyint(*number);
    if (rounded < std::numeric_limits<int32_t>::min() || rounded > std::numeric_limits<int32_t>::max())
        return std::nullopt;
    return static_cast<int32_t>(rounded);
}

void NumDTPage::RefuseRange(const QString& text, const QString& title, qt::QuillmarEdit* field) {
    Beep();
    ShowMessage(text, title, IconExclamation);
    if (field->isEnabled()) FocusField(field, true);
}

bool NumDTPage::CollisionCheck() {
    for (qt::QuillmarEdit* field :
        { m_txtMaxValue, m_txtMinValue, m_txtMaxNumberOfDecimals, m_txtMaxRelativeAccuracy }) {
        // The field has told the author what is wrong with its entry.
        if (field->isEnabled() && !field->Validate()) {
            FocusField(field);
            return false;
        }
    }
    const Quillmar& control = FirstControl()->control();
    const int32_t type = control.MustBeType();
    if (type == vldString) return true;
    const ValueKind kind = KindOfType(type);
    const LocaleInfo locale = Services().Locale();
    const Variant minText(TextOfField(m_txtMinValue));
    const Variant maxText(TextOfField(m_txtMaxValue));
    const Variant* min = minText.AsString().empty() ? nullptr : &minText;
    const Variant* max = maxText.AsString().empty() ? nullptr : &maxText;
    // A limit or default that does not convert refuses without a word.
    if (min && max) {
        const RangePosition order = PositionInRange(*min, nullptr, max, kind, locale);
        if (order == RangePosition::Unreadable) return false;
        if (order == RangePosition::AboveMax) {
            RefuseRange(
                tr("MaxValue must be >= than MinValue."), tr("Property Page: Min/MaxValue"), m_txtMaxValue);
            return false;
        }
    }
    // The default is the one the selected field holds now; an edit not yet applied elsewhere is not seen.
    const Variant& defaultValue = control.DefaultValue();
    if (TextOf(defaultValue, locale).empty()) return true;
    switch (PositionInRange(defaultValue, min, max, kind, locale)) {
    case RangePosition::Unreadable:
        return false;
    case RangePosition::AboveMax:
        RefuseRange(tr("MaxValue is in a collision with the DefaultValue."), tr("Property Page: MaxValue"),
            m_txtMaxValue);
        return false;
    case RangePosition::BelowMin:
        RefuseRange(tr("MinValue is in a collision with the DefaultValue."), tr("Property Page: MinValue"),
            m_txtMinValue);
        return false;
    case RangePosition::Inside:
        break;
    }
    return true;
}

void NumDTPage::ApplyChanges() {
    if (!FirstControl()) return;
    // Validating an entry field may rewrite it in its understood form; that is no edit of the author's.
    m_applying = true;
    const bool accepted = CollisionCheck();
    m_applying = false;
    if (!accepted) {
        SetChanged(true);
        return;
    }
    const bool negative = m_chkMustBeNegative->isChecked();
    const bool positive = m_chkMustBePositive->isChecked();
    const bool scientific = m_chkAllowScientificFormat->isChecked();
    const bool notZero = m_chkMustNotBeZero->isChecked();
    const Variant maxValue(TextOfField(m_txtMaxValue));
    const Variant minValue(TextOfField(m_txtMinValue));
    // An empty count leaves the property as it is, while an empty limit clears the limit.
    const QString decimalsText = m_txtMaxNumberOfDecimals->Text();
    const QString accuracyText = m_txtMaxRelativeAccuracy->Text();
    const std::optional<int32_t> decimals = decimalsText.isEmpty() ? std::nullopt : CountOf(decimalsText);
    const std::optional<int32_t> accuracy = accuracyText.isEmpty() ? std::nullopt : CountOf(accuracyText);
    const int separator = m_cboSep1000->currentIndex();

    ForEachSelected([&](Quillmar& control) {
        TryWrite([&] { control.SetMustBeNegative(negative); });
        TryWrite([&] { control.SetMustBePositive(positive); });
        TryWrite([&] { control.SetAllowScientificFormat(scientific); });
        TryWrite([&] { control.SetMustNotBeZero(notZero); });
        TryWrite([&] { control.SetMaxValue(maxValue); });
        TryWrite([&] { control.SetMinValue(minValue); });
        if (decimals) TryWrite([&] { control.SetMaxNumberOfDecimals(*decimals); });
        if (accuracy) TryWrite([&] { control.SetMaxRelativeAccuracy(*accuracy); });
        if (separator >= 0) TryWrite([&] { control.SetThousandSeparator(separator); });
    });
}

} // namespace quillmar::pages
