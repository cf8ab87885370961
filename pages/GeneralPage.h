#pragma once

#include "base/Variant.h"
#include "pages/PropertyPage.h"

#include <functional>
#include <vector>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace quillmar::pages {

/// The "General" tab: the data type, the text, the default value, the required flag and the list of
/// forbidden values. The default value and each new forbidden value are typed into embedded fields that
/// validate themselves as values of the chosen type; a hidden field of the same kind tells whether the
/// listed values still fit the type.
///
/// Applying writes, to every selected field, `Text` and `MustBeType` first; then, for a typed field, checks
/// the default value against its own validation, the first field's `MinValue`/`MaxValue` and the forbidden
/// list, and offers to drop list items the type rejects. A refusal stops there, with `Text` and
/// `MustBeType` already written. Otherwise the list goes to the first selected field only, and the required
/// flag and the default value to every selected field.
class GeneralPage final : public PropertyPage {
    Q_OBJECT
public:
    explicit GeneralPage(PageServices services, QWidget* parent = nullptr);

    /// Loads the page from the first selected field; a second load within the same second only beeps.
    void SelectionChanged() override;
    /// Checks the page and writes it to the selected fields.
    void ApplyChanges() override;

private:
    void BuildFields();
    void BuildLayout();
    void Connect();

    /// The `MustBeTypeConstants` value the type list shows (-1 while it is empty).
    [[nodiscard]] int32_t SelectedType() const;
    void LoadTypeList(int32_t type);
    void LoadForbiddenList(const VariantArray& list);
    /// The forbidden list as the property holds it: slot 0 empty, the items from slot 1 on.
    [[nodiscard]] VariantArray ForbiddenList() const;
    void UpdateCaption();
    void EnableByType(int32_t type);

    void OnTypeChanged();
    void OnAddNew();
    void OnRemove();

    /// True when the default value and the list may be written for the type; shows why not otherwise.
    [[nodiscard]] bool CheckCollisions(int32_t type);
    /// True when the hidden field accepts every list item as a value of the type.
    /// The positions of the forbidden-list items that are no value of the type.
    [[nodiscard]] std::vector<size_t> MisfitItems(int32_t type);
    void RemoveIncompatibleItems(int32_t type);
    /// Writes one property to every selected field (or to the first only); a refused value is skipped.
    void WriteEach(const std::function<void(Quillmar&)>& write, bool firstOnly = false);

    QLabel* m_lblNumberType = nullptr;
    QComboBox* m_cboMustBeType = nullptr;
    QLabel* m_lblText = nullptr;
    QLineEdit* m_txtText = nullptr;
    QLabel* m_lblDefaultValue = nullptr;
    qt::QuillmarEdit* m_txtDefaultValue = nullptr;
    QCheckBox* m_chkRequiredField = nullptr;
    QGroupBox* m_fraMustNotBeValues = nullptr;
    qt::QuillmarEdit* m_txtAddNew = nullptr;
    QPushButton* m_cmdAddNew = nullptr;
    QComboBox* m_cboMustNotBe = nullptr;
    QPushButton* m_cmdRemove = nullptr;
    bool m_applying = false;
};

} // namespace quillmar::pages
