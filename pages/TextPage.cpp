#include "pages/TextPage.h"

#include "pages/PageWidgets.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include <initializer_list>

namespace quillmar::pages {
namespace {

constexpr std::array kRules { TextRule::OnlyLettersWithSpace, TextRule::OnlyLetters, TextRule::NoDigits,
    TextRule::MustBeProperCase, TextRule::MustBeLowerCase, TextRule::MustBeUpperCase };

QLineEdit* MakeLineEdit(const char* name, const QString& toolTip, QWidget* parent) {
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(QString::fromLatin1(name));
    edit->setToolTip(toolTip);
    return edit;
}

} // namespace

TextPage::TextPage(PageServices services, QWidget* parent)
    : PropertyPage(tr("Text"), services, parent) {
    BuildLayout();
    Connect();
}

void TextPage::BuildLayout() {
    m_txtCustomMask = MakeLineEdit("txtCustomMask",
        tr("A pattern the whole text must match: ? any character, * any run of characters, "
           "# a digit, [a-z] one character of a list, [!0-9] one character not in it."),
        this);
    m_txtExtraIncludedCharacters = MakeLineEdit("txtExtraIncludedCharacters",
        tr("Characters allowed whatever the set, letter and digit rules say."), this);
    m_txtExtraExcludedCharacters = MakeLineEdit(
        "txtExtraExcludedCharacters", tr("Characters never allowed, even when included."), this);
    m_txtValidCharactersSet = MakeLineEdit("txtValidCharactersSet",
        tr("When not empty, the only characters allowed (besides the included ones)."), this);
    m_labels = {
        MakeLabel("lblCustomMask", tr("CustomMask:"), m_txtCustomMask, this),
        MakeLabel(
            "lblExtraIncludedCharacters", tr("ExtraIncludedCharacters:"), m_txtExtraIncludedCharacters, this),
        MakeLabel(
            "lblExtraExcludedCharacters", tr("ExtraExcludedCharacters:"), m_txtExtraExcludedCharacters, this),
        MakeLabel("lblValidCharactersSet", tr("ValidCharactersSet:"), m_txtValidCharactersSet, this),
    };
    auto* sets = new QFormLayout;
    const std::array<QLineEdit*, 4> edits { m_txtCustomMask, m_txtExtraIncludedCharacters,
        m_txtExtraExcludedCharacters, m_txtValidCharactersSet };
    for (size_t i = 0; i < edits.size(); ++i)
        sets->addRow(m_labels[i], edits[i]);

    m_fraCharacterRules = new QGroupBox(tr("Character rules"), this);
    m_fraCharacterRules->setObjectName(QStringLiteral("fraCharacterRules"));
    m_fraCaseRules = new QGroupBox(tr("Case rules"), this);
    m_fraCaseRules->setObjectName(QStringLiteral("fraCaseRules"));
    // In the order of `TextRule`.
    const char* const names[] = { "chkOnlyLettersWithSpace", "chkOnlyLetters", "chkNoDigits",
        "chkMustBeProperCase", "chkMustBeLowerCase", "chkMustBeUpperCase" };
    auto* characterBoxes = new QVBoxLayout(m_fraCharacterRules);
    auto* caseBoxes = new QVBoxLayout(m_fraCaseRules);
    for (size_t i = 0; i < m_rules.size(); ++i) {
        const bool characterRule = i < 3;
        m_rules[i] = MakeCheckBox(names[i], characterRule ? m_fraCharacterRules : m_fraCaseRules);
        (characterRule ? characterBoxes : caseBoxes)->addWidget(m_rules[i]);
    }
    characterBoxes->addStretch();
    caseBoxes->addStretch();

    auto* layout = new QGridLayout(this);
    layout->addLayout(sets, 0, 0, 1, 2);
    layout->addWidget(m_fraCharacterRules, 1, 0);
    layout->addWidget(m_fraCaseRules, 1, 1);
    layout->setRowStretch(2, 1);

    // Top to bottom: the four text boxes, then the character rules and the case rules.
    QWidget* previous = m_txtCustomMask;
    for (QWidget* next : std::initializer_list<QWidget*> { m_txtExtraIncludedCharacters,
             m_txtExtraExcludedCharacters, m_txtValidCharactersSet, m_rules[0], m_rules[1], m_rules[2],
             m_rules[3], m_rules[4], m_rules[5] }) {
        setTabOrder(previous, next);
        previous = next;
    }
}

void TextPage::Connect() {
    for (QLineEdit* edit : { m_txtCustomMask, m_txtExtraIncludedCharacters, m_txtExtraExcludedCharacters,
             m_txtValidCharactersSet })
        connect(edit, &QLineEdit::textEdited, this, &TextPage::MarkChanged);
    for (const TextRule rule : kRules) {
        QCheckBox* box = Box(rule);
        connect(box, &QCheckBox::clicked, this, &TextPage::MarkChanged);
        // Checking a rule, by a click or as the page loads, unchecks the other two of its group. An unchecked
        // box unchecks nothing, so the cascade stops after one step.
        connect(box, &QCheckBox::toggled, this, [this, rule](bool checked) {
            if (!checked) return;
            for (const TextRule other : ExcludedBy(rule))
                Box(other)->setChecked(false);
        });
    }
}

void TextPage::EnableAll(bool enabled) {
    for (QWidget* widget : std::initializer_list<QWidget*> { m_txtCustomMask, m_txtExtraIncludedCharacters,
             m_txtExtraExcludedCharacters, m_txtValidCharactersSet, m_fraCharacterRules, m_fraCaseRules })
        widget->setEnabled(enabled);
    for (QLabel* label : m_labels)
        label->setEnabled(enabled);
    for (QCheckBox* box : m_rules)
        box->setEnabled(enabled);
}

void TextPage::SelectionChanged() {
    SetLoading(true);
    if (const qt::QuillmarEdit* first = FirstControl()) {
        const Quillmar& control = first->control();
        m_txtCustomMask->setText(qt::ToQString(control.CustomMask()));
        m_txtExtraIncludedCharacters->setText(qt::ToQString(control.ExtraIncludedCharacters()));
        m_txtExtraExcludedCharacters->setText(qt::ToQString(control.ExtraExcludedCharacters()));
        m_txtValidCharactersSet->setText(qt::ToQString(control.ValidCharactersSet()));
        Box(TextRule::OnlyLettersWithSpace)->setChecked(control.OnlyLettersWithSpace());
        Box(TextRule::OnlyLetters)->setChecked(control.OnlyLetters());
        Box(TextRule::NoDigits)->setChecked(control.NoDigits());
        Box(TextRule::MustBeProperCase)->setChecked(control.MustBeProperCase());
        Box(TextRule::MustBeLowerCase)->setChecked(control.MustBeLowerCase());
        Box(TextRule::MustBeUpperCase)->setChecked(control.MustBeUpperCase());
        EnableAll(TextPageEnabled(control.MustBeType()));
    } else {
        EnableAll(false);
    }
    SetLoading(false);
}

void TextPage::ApplyChanges() {
    const std::u16string mask = qt::FromQString(m_txtCustomMask->text());
    const std::u16string included = qt::FromQString(m_txtExtraIncludedCharacters->text());
    const std::u16string excluded = qt::FromQString(m_txtExtraExcludedCharacters->text());
    const std::u16string valid = qt::FromQString(m_txtValidCharactersSet->text());
    const auto is = [this](TextRule rule) { return Box(rule)->isChecked(); };

    ForEachSelected([&](Quillmar& control) {
        TryWrite([&] { control.SetCustomMask(mask); });
        TryWrite([&] { control.SetExtraIncludedCharacters(included); });
        TryWrite([&] { control.SetExtraExcludedCharacters(excluded); });
        TryWrite([&] { control.SetValidCharactersSet(valid); });
        // Written in the page's order; the field's own interlocks keep each group exclusive as it goes.
        TryWrite([&] { control.SetOnlyLettersWithSpace(is(TextRule::OnlyLettersWithSpace)); });
        TryWrite([&] { control.SetOnlyLetters(is(TextRule::OnlyLetters)); });
        TryWrite([&] { control.SetNoDigits(is(TextRule::NoDigits)); });
        TryWrite([&] { control.SetMustBeProperCase(is(TextRule::MustBeProperCase)); });
        TryWrite([&] { control.SetMustBeLowerCase(is(TextRule::MustBeLowerCase)); });
        TryWrite([&] { control.SetMustBeUpperCase(is(TextRule::MustBeUpperCase)); });
    });
}

} // namespace quillmar::pages
