#pragma once

#include "pages/ActionList.h"
#include "pages/PropertyPage.h"

class QCheckBox;
class QGroupBox;
class QListWidget;
class QListWidgetItem;
class QPushButton;
class QRadioButton;

namespace quillmar::pages {

/// The "Behavior" tab: how the selected fields react while the user types (the sifting level, the beep) and
/// when a value is bad (whether the final validation runs and how, the selection of the field, the rewrite in
/// understood form, and the corrective actions in the order they are tried).
///
/// The action list shows the three corrective actions, each with a check mark that turns it on or off, and
/// below them the fixed "Return focus", which is always last and always checked and is not stored in
/// `Actions`. The author reorders the actions with the two buttons; the moved action stays selected. Moving
/// or checking an action, or touching an option or a switch, marks the page Changed.
///
/// The controls that matter only when the final validation runs are enabled while
/// `chkFinalValidationActive` is checked; the sifting options are enabled when the first selected field's
/// `MustBeType` gives its text something to sift by.
class BehaviorPage final : public PropertyPage {
    Q_OBJECT
public:
    explicit BehaviorPage(PageServices services, QWidget* parent = nullptr);

    /// Loads the page from the first selected field, at every notice (no once-a-second check), without
    /// marking it Changed.
    void SelectionChanged() override;
    /// Writes `Actions` (in the list's order, with its check marks), the four switches, `ValidationMode` and
    /// `InputSifting` to every selected field in selection order; a value a field refuses is skipped.
    void ApplyChanges() override;

private:
    void BuildLayout();
    void Connect();

    /// Fills `lstActions` from the page's action list, then "Return focus", checked.
    void FillActionList();
    /// Exchanges the rows of `lstActions` as a move of the action list did, and selects the moved item.
    void ShowMove(MoveOutcome outcome, int from, int to);

    void OnUp();
    void OnDown();
    void OnItemChanged(QListWidgetItem* item);

    /// Enables the controls that matter only when the final validation runs.
    void EnableValidationGroup(bool enabled);

    QGroupBox* m_fraInputSifting = nullptr;
    QRadioButton* m_optNone = nullptr;
    QRadioButton* m_optWeak = nullptr;
    QRadioButton* m_optStrong = nullptr;
    QCheckBox* m_chkBeeping = nullptr;
    QCheckBox* m_chkFinalValidationActive = nullptr;
    QGroupBox* m_fraValidationMode = nullptr;
    QRadioButton* m_optAutomatic = nullptr;
    QRadioButton* m_optSemiAutomatic = nullptr;
    QCheckBox* m_chkOnErrorSelectEntireField = nullptr;
    QCheckBox* m_chkShowAsUnderstood = nullptr;
    QGroupBox* m_fraActions = nullptr;
    QListWidget* m_lstActions = nullptr;
    QPushButton* m_cmdUP = nullptr;
    QPushButton* m_cmdDown = nullptr;

    /// The corrective actions with their check marks, in the order `lstActions` shows them ("Return focus"
    /// is not among them).
    ActionEntries m_entries;
};

} // namespace quillmar::pages
