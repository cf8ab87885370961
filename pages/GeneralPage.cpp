#include "pages/GeneralPage.h"

#include "base/Enums.h"
#include "base/PropertyError.h"
#include "host/Host.h"
#include "pages/PageChecks.h"
#include "validation/Conversions.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace quillmar::pages {
namespace {

// What the three embedded fields share: the page's font, an empty text and an empty forbidden list.
std::vector<quillmar::PropertyEntry> EmbeddedEntries(std::initializer_list<quillmar::PropertyEntry> own) {
    std::vector<quillmar::PropertyEntry> entries {
        { u"FontName", u"MS Sans Serif" },
        { u"FontSize", 8.25f },
        { u"Text", u"" },
        { u"MustNotBeValues", StoredList({}) },
    };
    entries.insert(entries.end(), own);
    return entries;
}

Variant StoredActions(int32_t first, int32_t second, int32_t third) {
    return StoredList({ first, second, third });
}

} // namespace

GeneralPage::GeneralPage(PageServices services, QWidget* parent)
    : PropertyPage(tr("General"), std::move(services), parent) {
    BuildFields();
    BuildLayout();
    Connect();
}

void GeneralPage::BuildFields() {
    m_lblNumberType = new QLabel(tr("MustBeType:"), this);
    m_lblNumberType->setObjectName(QStringLiteral("lblNumberType"));
    m_cboMustBeType = new QComboBox(this);
    m_cboMustBeType->setObjectName(QStringLiteral("cboMustBeType"));
    m_lblNumberType->setBuddy(m_cboMustBeType);

    m_lblText = new QLabel(tr("Text (Value):"), this);
    m_lblText->setObjectName(QStringLiteral("lblText"));
    m_txtText = new QLineEdit(this);
    m_txtText->setObjectName(QStringLiteral("txtText"));
    m_lblText->setBuddy(m_txtText);

    m_lblDefaultValue = new QLabel(tr("DefaultValue:"), this);
    m_lblDefaultValue->setObjectName(QStringLiteral("lblDefaultValue"));
    m_txtDefaultValue = MakeEmbeddedField(QStringLiteral("txtDefaultValue"),
        EmbeddedEntries({
            { u"Actions", StoredActions(32, 8, 16) },
            { u"MessageBoxTitle", u"Property Page: DefaultValue" },
            { u"OnErrorSelectEntireField", true },
        }));
    m_lblDefaultValue->setBuddy(m_txtDefaultValue->lineEdit());

    m_chkRequiredField = new QCheckBox(tr("RequiredField"), this);
    m_chkRequiredField->setObjectName(QStringLiteral("chkRequiredField"));

    m_fraMustNotBeValues = new QGroupBox(this);
    m_fraMustNotBeValues->setObjectName(QStringLiteral("fraMustNotBeValues"));
    m_txtAddNew = MakeEmbeddedField(QStringLiteral("txtAddNew"),
        EmbeddedEntries({
            { u"AllowScientificFormat", true },
            { u"Actions", StoredActions(32, 16, 8) },
            { u"MessageBoxTitle", u"Property Page: AddNew" },
            { u"OnErrorSelectEntireField", true },
        }));
    m_cmdAddNew = new QPushButton(tr("Add New"), this);
    m_cmdAddNew->setObjectName(QStringLiteral("cmdAddNew"));
    m_cboMustNotBe = new QComboBox(this);
    m_cboMustNotBe->setObjectName(QStringLiteral("cboMustNotBe"));
    m_cmdRemove = new QPushButton(tr("Remove Selected"), this);
    m_cmdRemove->setObjectName(QStringLiteral("cmdRemove"));
    // The list buttons act on the entry field or the list: a click leaves the focus where it was, so that
    // a half-typed new value is validated once, by the Add itself, and not again on leaving its field.
    for (QPushButton* button : { m_cmdAddNew, m_cmdRemove }) {
        button->setFocusPolicy(Qt::TabFocus);
        button->setAutoDefault(false);
    }
}

void GeneralPage::BuildLayout() {
    auto* fields = new QGridLayout;
    fields->addWidget(m_lblNumberType, 0, 0);
    fields->addWidget(m_cboMustBeType, 0, 1);
    fields->addWidget(m_lblText, 1, 0);
    fields->addWidget(m_txtText, 1, 1);
    fields->addWidget(m_lblDefaultValue, 2, 0);
    fields->addWidget(m_txtDefaultValue, 2, 1);
    fields->addWidget(m_chkRequiredField, 3, 1);
    fields->setColumnStretch(1, 1);

    auto* list = new QGridLayout(m_fraMustNotBeValues);
    list->addWidget(m_txtAddNew, 0, 0);
    list->addWidget(m_cmdAddNew, 0, 1);
    list->addWidget(m_cboMustNotBe, 1, 0);
    list->addWidget(m_cmdRemove, 1, 1);
    list->setColumnStretch(0, 1);

    auto* page = new QVBoxLayout(this);
    page->addLayout(fields);
    page->addWidget(m_fraMustNotBeValues);
    page->addStretch(1);

    // Top to bottom, each entry field before the button that acts on it.
    setTabOrder(m_cboMustBeType, m_txtText);
    setTabOrder(m_txtText, m_txtDefaultValue->lineEdit());
    setTabOrder(m_txtDefaultValue->lineEdit(), m_chkRequiredField);
    setTabOrder(m_chkRequiredField, m_txtAddNew->lineEdit());
    setTabOrder(m_txtAddNew->lineEdit(), m_cmdAddNew);
    setTabOrder(m_cmdAddNew, m_cboMustNotBe);
    setTabOrder(m_cboMustNotBe, m_cmdRemove);
}

void GeneralPage::Connect() {
    connect(m_txtText, &QLineEdit::textChanged, this, &GeneralPage::MarkChanged);
    connect(m_txtDefaultValue, &qt::QuillmarEdit::Change, this, [this] {
        // The field's own validation during Apply may rewrite the text in its understood form: that is
        // not an edit of the author's, and must not read as a refusal.
        if (!m_applying) MarkChanged();
    });
    connect(m_chkRequiredField, &QCheckBox::clicked, this, &GeneralPage::MarkChanged);
    connect(m_cboMustBeType, &QComboBox::currentIndexChanged, this, &GeneralPage::OnTypeChanged);
    connect(m_cmdAddNew, &QPushButton::clicked, this, &GeneralPage::OnAddNew);
    connect(m_cmdRemove, &QPushButton::clicked, this, &GeneralPage::OnRemove);
}

void GeneralPage::SelectionChanged() {
    if (!BeginLoad()) return;
    qt::QuillmarEdit* first = FirstControl();
    if (!first) {
        EndLoad();
        return;
    }
    const Quillmar& control = first->control();
    const int32_t type = control.MustBeType();
    m_chkRequiredField->setChecked(control.RequiredField());
    m_txtText->setText(qt::ToQString(control.Text()));
    m_txtDefaultValue->control().SetText(TextOf(control.DefaultValue(), Services().Locale()));
    m_txtDefaultValue->SetAllowScientificFormat(true);
    m_txtDefaultValue->SetMustBeType(type);
    m_txtAddNew->SetAllowScientificFormat(true);
    m_txtAddNew->SetMustBeType(type);
    LoadTypeList(type);
    VariantArray list;
    try {
        list = control.MustNotBeValues();
    } catch (const PropertyError&) {
        // A field at run time keeps its list to itself: the page shows none.
    }
    LoadForbiddenList(list);
    EnableByType(type);
    EndLoad();
}

int32_t GeneralPage::SelectedType() const {
    return m_cboMustBeType->currentIndex();
}

void GeneralPage::LoadTypeList(int32_t type) {
    {
        const QSignalBlocker quiet(m_cboMustBeType);
        m_cboMustBeType->clear();
        m_cboMustBeType->addItems({ tr("Unspecified"), tr("String"), tr("Byte"), tr("Integer"), tr("Long"),
            tr("Single"), tr("Double"), tr("Currency"), tr("Date"), tr("Time") });
        m_cboMustBeType->setCurrentIndex(type);
    }
    // Selecting the type is a type change, whether or not the list already showed it.
    OnTypeChanged();
}

void GeneralPage::LoadForbiddenList(const VariantArray& list) {
    const LocaleInfo locale = Services().Locale();
    m_cboMustNotBe->clear();
    for (size_t i = 1; i < list.size(); ++i)
        m_cboMustNotBe->addItem(qt::ToQString(TextOf(list[i], locale)));
    // Nothing is picked until the author picks it, so that Remove never takes an item by surprise.
    m_cboMustNotBe->setCurrentIndex(-1);
    UpdateCaption();
}

VariantArray GeneralPage::ForbiddenList() const {
    VariantArray list(static_cast<size_t>(m_cboMustNotBe->count()) + 1);
    for (int i = 0; i < m_cboMustNotBe->count(); ++i)
        list[static_cast<size_t>(i) + 1] = qt::FromQString(m_cboMustNotBe->itemText(i));
    return list;
}

void GeneralPage::UpdateCaption() {
    m_fraMustNotBeValues->setTitle(
        qt::ToQString(ForbiddenListCaption(static_cast<size_t>(m_cboMustNotBe->count()))));
}

void GeneralPage::EnableByType(int32_t type) {
    const bool enabled = GeneralTypedFieldsEnabled(type);
    for (QWidget* widget : std::initializer_list<QWidget*> { m_lblDefaultValue, m_txtDefaultValue,
             m_chkRequiredField, m_fraMustNotBeValues, m_cmdAddNew, m_txtAddNew, m_cmdRemove })
        widget->setEnabled(enabled);
}

void GeneralPage::OnTypeChanged() {
    MarkChanged();
    const int32_t type = SelectedType();
    if (type < 0) return;
    // The texts already typed stay as they are: one that no longer fits is caught by its field's own
    // validation or by the checks of Apply.
    m_txtDefaultValue->SetAllowScientificFormat(true);
    m_txtDefaultValue->SetMustBeType(type);
    m_txtAddNew->SetAllowScientificFormat(true);
    m_txtAddNew->SetMustBeType(type);
    EnableByType(type);
}

void GeneralPage::OnAddNew() {
    const QString text = m_txtAddNew->Text();
    if (text.isEmpty()) return;
    const bool valid = m_txtAddNew->Validate();
    m_txtAddNew->setFocus(Qt::OtherFocusReason);
    if (!valid) return;
    m_cboMustNotBe->addItem(text);
    m_cboMustNotBe->setCurrentIndex(m_cboMustNotBe->count() - 1);
    UpdateCaption();
    MarkChanged();
}

void GeneralPage::OnRemove() {
    const int index = m_cboMustNotBe->currentIndex();
    if (index < 0) return;
    m_cboMustNotBe->removeItem(index);
    m_cboMustNotBe->setCurrentIndex(-1);
    UpdateCaption();
    MarkChanged();
}

void GeneralPage::ApplyChanges() {
    if (!FirstControl()) return;
    m_applying = true;
    const std::u16string text = qt::FromQString(m_txtText->text());
    const int32_t type = SelectedType();
    WriteEach([&](Quillmar& control) {
        control.SetText(text);
        control.SetMustBeType(type);
    });
    if (type != vldUnspecified && !CheckCollisions(type)) {
        m_applying = false;
        // Set directly: a refusal must show even while a skipped load leaves the loading flag set.
        SetChanged(true);
        return;
    }
    const VariantArray list = ForbiddenList();
    WriteEach([&](Quillmar& control) { control.SetMustNotBeValues(list); }, true);
    const bool required = m_chkRequiredField->isChecked();
    const Variant defaultValue(qt::FromQString(m_txtDefaultValue->Text()));
    WriteEach([&](Quillmar& control) {
        control.SetRequiredField(required);
        control.SetDefaultValue(defaultValue);
    });
    m_applying = false;
}

void GeneralPage::WriteEach(const std::function<void(Quillmar&)>& write, bool firstOnly) {
    ForEachSelected([&](Quillmar& control) { TryWrite([&] { write(control); }); }, firstOnly);
}

bool GeneralPage::CheckCollisions(int32_t type) {
    if (m_txtDefaultValue->isEnabled() && !m_txtDefaultValue->Validate()) {
        FocusField(m_txtDefaultValue, true);
        return false;
    }
    const LocaleInfo locale = Services().Locale();
    const ValueKind kind = KindOfType(type);
    const Variant defaultText(qt::FromQString(m_txtDefaultValue->Text()));
    const Quillmar& first = FirstControl()->control();

    // A limit of the type's own class bounds the default; one that cannot bound it is skipped. A default
    // that does not convert while such a limit exists refuses without a word.
    const auto bounding = [&](const Variant& limit) {
        return limit.IsEmpty() || limit.IsEmptyString() || !IsLimitCompatible(limit, type, locale) ? nullptr
                                                                                                   : &limit;
    };
    const RangePosition position
        = PositionInRange(defaultText, bounding(first.MinValue()), bounding(first.MaxValue()), kind, locale);
    if (position == RangePosition::Unreadable) return false;
    if (position != RangePosition::Inside) {
        Beep();
        ShowMessage(tr("DefaultValue is in a collision with Min/Max range."),
            tr("Property Page: DefaultValue"), IconExclamation);
        if (m_txtDefaultValue->isEnabled()) FocusField(m_txtDefaultValue, true);
        return false;
    }

    if (!defaultText.IsEmptyString() && m_cboMustNotBe->count() > 0) {
        Variant needle = defaultText;
        if (type != vldString) {
            const auto converted = ConvertByKind(defaultText, kind, locale);
            if (!converted) return false;
            needle = kind == ValueKind::Date ? Variant(Date { *converted }) : Variant(*converted);
        }
        const int index = FindDefaultInList(ForbiddenList(), needle, type, locale);
        if (index >= 0) {
            m_cboMustNotBe->setCurrentIndex(index);
            Beep();
            ShowMessage(tr("DefaultValue is in a collision with an item in the MustNotBeValues list!"),
                tr("Property Page: DefaultValue"), IconExclamation);
            return false;
        }
    }

    if (!MisfitItems(type).empty()) {
        const Answer answer = Ask(tr("Some of the items in the MustNotBeValues list are incompatible "
                                     "with the current settings.\r\nWould you like them to be "
                                     "removed from the list?\r\n"),
            tr("Property Page: MustNotBeValues"), IconQuestion);
        if (answer == Answer::Cancel) return false;
        if (answer == Answer::Yes) RemoveIncompatibleItems(type);
    }
    return true;
}

std::vector<size_t> GeneralPage::MisfitItems(int32_t type) {
    std::vector<std::u16string> items;
    for (int i = 0; i < m_cboMustNotBe->count(); ++i)
        items.push_back(qt::FromQString(m_cboMustNotBe->itemText(i)));
    return ItemsNotOfType(items, type, Services().Locale());
}

void GeneralPage::RemoveIncompatibleItems(int32_t type) {
    // The caption keeps the count it showed until the next load, add or remove.
    const std::vector<size_t> misfits = MisfitItems(type);
    for (auto i = misfits.rbegin(); i != misfits.rend(); ++i)
        m_cboMustNotBe->removeItem(static_cast<int>(*i));
}

} // namespace quillmar::pages
