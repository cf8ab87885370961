#include "pages/BehaviorPage.h"

#include "base/Enums.h"
#include "base/PropertyError.h"
#include "host/Host.h"
#include "pages/PageChecks.h"
#include "pages/PageWidgets.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <initializer_list>

namespace quillmar::pages {
namespace {

// The product's name, the same in every language.
const QString kMessageTitle = QStringLiteral("Quillmar");

QRadioButton* MakeOption(const char* name, const QString& caption, QWidget* parent) {
    auto* option = new QRadioButton(caption, parent);
    option->setObjectName(QString::fromLatin1(name));
    return option;
}

QGroupBox* MakeFrame(const char* name, const QString& title, QWidget* parent) {
    auto* frame = new QGroupBox(title, parent);
    frame->setObjectName(QString::fromLatin1(name));
    return frame;
}

// An action's text as the list shows it, in the user's language.
QString ActionListText(const std::u16string& english) {
    return QCoreApplication::translate("ActionList", qt::ToQString(english).toUtf8().constData());
}

QListWidgetItem* MakeItem(const QString& text, bool checked) {
    auto* item = new QListWidgetItem(text);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
    return item;
}

} // namespace

BehaviorPage::BehaviorPage(PageServices services, QWidget* parent)
    : PropertyPage(tr("Behavior"), std::move(services), parent) {
    BuildLayout();
    Connect();
    EnableValidationGroup(false);
}

void BehaviorPage::BuildLayout() {
    m_fraInputSifting = MakeFrame("fraInputSifting", tr("InputSifting"), this);
    m_optNone = MakeOption("optNone", tr("None"), m_fraInputSifting);
    m_optWeak = MakeOption("optWeak", tr("Weak"), m_fraInputSifting);
    m_optStrong = MakeOption("optStrong", tr("Strong"), m_fraInputSifting);
    auto* sifting = new QVBoxLayout(m_fraInputSifting);
    for (QRadioButton* option : { m_optNone, m_optWeak, m_optStrong })
        sifting->addWidget(option);
    m_chkBeeping = MakeCheckBox("chkBeeping", this);

    m_chkFinalValidationActive = MakeCheckBox("chkFinalValidationActive", this);
    m_fraValidationMode = MakeFrame("fraValidationMode", tr("ValidationMode"), this);
    m_optAutomatic = MakeOption("optAutomatic", tr("Automatic"), m_fraValidationMode);
    m_optSemiAutomatic = MakeOption("optSemiAutomatic", tr("SemiAutomatic"), m_fraValidationMode);
    auto* mode = new QVBoxLayout(m_fraValidationMode);
    mode->addWidget(m_optAutomatic);
    mode->addWidget(m_optSemiAutomatic);
    m_chkOnErrorSelectEntireField = MakeCheckBox("chkOnErrorSelectEntireField", this);
    m_chkShowAsUnderstood = MakeCheckBox("chkShowAsUnderstood", this);

    m_fraActions = MakeFrame("fraActions", tr("Actions"), this);
    m_lstActions = new QListWidget(m_fraActions);
    m_lstActions->setObjectName(QStringLiteral("lstActions"));
    m_lstActions->setSelectionMode(QAbstractItemView::SingleSelection);
    m_cmdUP = new QPushButton(tr("Move Up"), m_fraActions);
    m_cmdUP->setObjectName(QStringLiteral("cmdUP"));
    m_cmdDown = new QPushButton(tr("Move Down"), m_fraActions);
    m_cmdDown->setObjectName(QStringLiteral("cmdDown"));
    // A click on a move button leaves the focus in the list, so that the arrow keys and the space key go on
    // working on the moved item.
    for (QPushButton* button : { m_cmdUP, m_cmdDown }) {
        button->setFocusPolicy(Qt::TabFocus);
        button->setAutoDefault(false);
    }
    auto* buttons = new QVBoxLayout;
    buttons->addWidget(m_cmdUP);
    buttons->addWidget(m_cmdDown);
    buttons->addStretch(1);
    auto* actions = new QHBoxLayout(m_fraActions);
    actions->addWidget(m_lstActions, 1);
    actions->addLayout(buttons);

    // Left what acts while the user types, right what acts when the user leaves the field, and below, over
    // the whole width, the actions the final validation tries.
    auto* typing = new QVBoxLayout;
    typing->addWidget(m_fraInputSifting);
    typing->addWidget(m_chkBeeping);
    typing->addStretch(1);
    auto* leaving = new QVBoxLayout;
    leaving->addWidget(m_chkFinalValidationActive);
    leaving->addWidget(m_fraValidationMode);
    leaving->addWidget(m_chkOnErrorSelectEntireField);
    leaving->addWidget(m_chkShowAsUnderstood);
    leaving->addStretch(1);
    auto* page = new QGridLayout(this);
    page->addLayout(typing, 0, 0);
    page->addLayout(leaving, 0, 1);
    page->addWidget(m_fraActions, 1, 0, 1, 2);
    page->setRowStretch(1, 1);

    const std::initializer_list<QWidget*> order { m_optNone, m_optWeak, m_optStrong, m_chkBeeping,
        m_chkFinalValidationActive, m_optAutomatic, m_optSemiAutomatic, m_chkOnErrorSelectEntireField,
        m_chkShowAsUnderstood, m_lstActions, m_cmdUP, m_cmdDown };
    for (auto it = order.begin(); it + 1 != order.end(); ++it)
        setTabOrder(*it, *(it + 1));
}

void BehaviorPage::Connect() {
    for (QAbstractButton* button :
        std::initializer_list<QAbstractButton*> { m_optNone, m_optWeak, m_optStrong, m_chkBeeping,
            m_optAutomatic, m_optSemiAutomatic, m_chkOnErrorSelectEntireField, m_chkShowAsUnderstood })
        connect(button, &QAbstractButton::toggled, this, &BehaviorPage::MarkChanged);
    connect(m_chkFinalValidationActive, &QCheckBox::toggled, this, [this](bool checked) {
        MarkChanged();
        EnableValidationGroup(checked);
    });
    connect(m_lstActions, &QListWidget::itemChanged, this, &BehaviorPage::OnItemChanged);
    connect(m_cmdUP, &QPushButton::clicked, this, &BehaviorPage::OnUp);
    connect(m_cmdDown, &QPushButton::clicked, this, &BehaviorPage::OnDown);
}

void BehaviorPage::SelectionChanged() {
    const qt::QuillmarEdit* first = FirstControl();
    if (!first) return;
    const Quillmar& control = first->control();
    SetLoading(true);
    m_chkOnErrorSelectEntireField->setChecked(control.OnErrorSelectEntireField());
    m_chkFinalValidationActive->setChecked(control.FinalValidationActive());
    m_chkBeeping->setChecked(control.Beeping());
    m_chkShowAsUnderstood->setChecked(control.ShowAsUnderstood());

    VariantArray actions;
    try {
        actions = control.Actions();
    } catch (const PropertyError&) {
        // A field at run time keeps its actions to itself: the page lists them unchecked.
    }
    m_entries = EntriesFromActions(actions);
    FillActionList();

    (control.ValidationMode() == vldSemiAutomatic ? m_optSemiAutomatic : m_optAutomatic)->setChecked(true);
    switch (control.InputSifting()) {
    case vldStrong:
        m_optStrong->setChecked(true);
        break;
    case vldWeak:
        m_optWeak->setChecked(true);
        break;
    default:
        m_optNone->setChecked(true);
        break;
    }

    EnableValidationGroup(control.FinalValidationActive());
    m_fraInputSifting->setEnabled(SiftingEnabled(control.MustBeType()));
    SetLoading(false);
}

void BehaviorPage::FillActionList() {
    m_lstActions->clear();
    for (const ActionEntry& entry : m_entries)
        m_lstActions->addItem(MakeItem(ActionListText(ActionText(entry.flag)), entry.checked));
    m_lstActions->addItem(MakeItem(ActionListText(ReturnFocusText()), true));
}

void BehaviorPage::EnableValidationGroup(bool enabled) {
    // Without the final validation the field never runs its actions, never selects or rewrites itself on
    // leaving, and has no validation mode to speak of; sifting and beeping still act while it is typed in.
    for (QWidget* widget : std::initializer_list<QWidget*> {
             m_fraValidationMode, m_chkOnErrorSelectEntireField, m_chkShowAsUnderstood, m_fraActions })
        widget->setEnabled(enabled);
}

void BehaviorPage::OnUp() {
    const int row = m_lstActions->currentRow();
    const MoveOutcome outcome = MoveUp(m_entries, row);
    if (outcome == MoveOutcome::ReturnFocusStays) {
        ShowMessage(tr("This action cannot be moved!"), kMessageTitle, IconInformation);
        return;
    }
    ShowMove(outcome, row, row - 1);
}

void BehaviorPage::OnDown() {
    const int row = m_lstActions->currentRow();
    ShowMove(MoveDown(m_entries, row), row, row + 1);
}

void BehaviorPage::ShowMove(MoveOutcome outcome, int from, int to) {
    if (outcome != MoveOutcome::Moved) return;
    QListWidgetItem* item = m_lstActions->takeItem(from);
    m_lstActions->insertItem(to, item);
    m_lstActions->setCurrentRow(to);
    MarkChanged();
}

void BehaviorPage::OnItemChanged(QListWidgetItem* item) {
    if (Loading()) return;
    const int row = m_lstActions->row(item);
    const bool checked = item->checkState() == Qt::Checked;
    if (row == static_cast<int>(m_entries.size())) {
        if (checked) return;
        // "Return focus" is what the field does after every failed validation; it cannot be turned off.
        item->setCheckState(Qt::Checked);
        ShowMessage(tr("This action cannot be unchecked!\r\n"
                       "(If validation active, this action is always present.)"),
            kMessageTitle, IconInformation);
        return;
    }
    if (row < 0) return;
    ActionEntry& entry = m_entries[static_cast<size_t>(row)];
    if (entry.checked == checked) return;
    entry.checked = checked;
    MarkChanged();
}

void BehaviorPage::ApplyChanges() {
    if (!FirstControl()) return;
    const VariantArray actions = ActionsFromEntries(m_entries);
    const bool selectEntireField = m_chkOnErrorSelectEntireField->isChecked();
    const bool finalValidation = m_chkFinalValidationActive->isChecked();
    const bool beeping = m_chkBeeping->isChecked();
    const bool showAsUnderstood = m_chkShowAsUnderstood->isChecked();
    const int32_t mode = m_optSemiAutomatic->isChecked() ? vldSemiAutomatic : vldAutomatic;
    const int32_t sifting = m_optStrong->isChecked() ? vldStrong : m_optWeak->isChecked() ? vldWeak : vldNone;

    ForEachSelected([&](Quillmar& control) {
        TryWrite([&] { control.SetActions(actions); });
        TryWrite([&] { control.SetOnErrorSelectEntireField(selectEntireField); });
        TryWrite([&] { control.SetFinalValidationActive(finalValidation); });
        TryWrite([&] { control.SetBeeping(beeping); });
        TryWrite([&] { control.SetShowAsUnderstood(showAsUnderstood); });
        TryWrite([&] { control.SetValidationMode(mode); });
        TryWrite([&] { control.SetInputSifting(sifting); });
    });
}

} // namespace quillmar::pages
