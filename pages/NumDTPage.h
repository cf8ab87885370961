#pragma once

#include "pages/PropertyPage.h"

#include <QString>

#include <cstdint>
#include <optional>

class QCheckBox;
class QComboBox;
class QLabel;

namespace quillmar::pages {

/// The "Number/Date,Time" page: the sign rules, the scientific format, the range, the decimals, the relative
/// accuracy and the thousand separator of the selected fields. Its four entry fields are `QuillmarEdit`s,
/// so the range limits are typed as values of the selected field's type and the two counts as integers from
/// 0 to 32. Which controls are usable follows the first selected field's `MustBeType`. On apply the page
/// refuses a minimum above the maximum and limits that exclude the first selected field's `DefaultValue`,
/// and otherwise writes every selected field in selection order.
class NumDTPage final : public PropertyPage {
    Q_OBJECT
public:
    explicit NumDTPage(PageServices services, QWidget* parent = nullptr);

    /// Loads the page from the first selected field (at most once a second: a repeat within the same second
    /// beeps and loads nothing) and enables the controls its type offers.
    void SelectionChanged() override;
    /// Checks the entry fields and the range, then writes the sign rules, the scientific format, the limits
    /// (an empty limit clears it), the counts (an empty count leaves it) and the separator (only when an item
    /// is selected) to every selected field. A refusal writes nothing and leaves the page Changed.
    void ApplyChanges() override;

private:
    void BuildLayout();
    void Connect();
    /// Enables each control and its label as the type offers it; values are kept.
    void EnableByType(int32_t type);
    /// True when the page may be applied; a refusal has already beeped, told and put the focus.
    [[nodiscard]] bool CollisionCheck();
    /// Refuses with a beep and a message, the focus on `field` (when enabled) with its whole text selected.
    void RefuseRange(const QString& text, const QString& title, qt::QuillmarEdit* field);
    /// The author touched a control (not a rewrite made while the page applies).
    void Touched();
    /// A count field's text as the integer it stands for; nullopt when it stands for none.
    [[nodiscard]] std::optional<int32_t> CountOf(const QString& text);

    QComboBox* m_cboSep1000 = nullptr;
    QLabel* m_lblSep1000 = nullptr;
    qt::QuillmarEdit* m_txtMaxNumberOfDecimals = nullptr;
    QLabel* m_lblMaxNumberOfDecimals = nullptr;
    qt::QuillmarEdit* m_txtMaxRelativeAccuracy = nullptr;
    QLabel* m_lblMaxRelativeAccuracy = nullptr;
    QCheckBox* m_chkMustNotBeZero = nullptr;
    QCheckBox* m_chkMustBePositive = nullptr;
    QCheckBox* m_chkMustBeNegative = nullptr;
    QCheckBox* m_chkAllowScientificFormat = nullptr;
    qt::QuillmarEdit* m_txtMinValue = nullptr;
    QLabel* m_lblMinValue = nullptr;
    qt::QuillmarEdit* m_txtMaxValue = nullptr;
    QLabel* m_lblMaxValue = nullptr;
    bool m_applying = false;
};

} // namespace quillmar::pages
