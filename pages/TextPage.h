#pragma once

#include "pages/PageChecks.h"
#include "pages/PropertyPage.h"

#include <array>
#include <cstdint>

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;

namespace quillmar::pages {

/// The "Text" page: the character rules of a text field. Four plain text boxes hold the mask and the three
/// character sets, six check boxes the letter, digit and case rules. The boxes come in two groups of three
/// (character rules, case rules) in which checking one unchecks the other two, so the page offers at most
/// one rule of each group. The page is usable for text fields only; for any other type it shows the first
/// selected field's settings greyed out, and applying still writes them back. Nothing on the page is
/// refused: applying writes every selected field in selection order.
class TextPage final : public PropertyPage {
    Q_OBJECT
public:
    explicit TextPage(PageServices services, QWidget* parent = nullptr);

    /// Loads the page from the first selected field and enables it for a text field only.
    void SelectionChanged() override;
    /// Writes the mask, the three sets (empty ones included) and the six rules to every selected field.
    void ApplyChanges() override;

private:
    void BuildLayout();
    void Connect();
    /// Enables or disables every control of the page; the values stay visible.
    void EnableAll(bool enabled);
    [[nodiscard]] QCheckBox* Box(TextRule rule) const { return m_rules[static_cast<size_t>(rule)]; }

    QLineEdit* m_txtCustomMask = nullptr;
    QLineEdit* m_txtExtraIncludedCharacters = nullptr;
    QLineEdit* m_txtExtraExcludedCharacters = nullptr;
    QLineEdit* m_txtValidCharactersSet = nullptr;
    std::array<QLabel*, 4> m_labels {};
    /// The six rule boxes, indexed by `TextRule`.
    std::array<QCheckBox*, 6> m_rules {};
    QGroupBox* m_fraCharacterRules = nullptr;
    QGroupBox* m_fraCaseRules = nullptr;
};

} // namespace quillmar::pages
