#pragma once

#include "pages/PropertyPage.h"

#include <array>
#include <cstdint>

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QRadioButton;

namespace quillmar::pages {

/// The "Error Message" page: whether a field that fails its final validation shows a message, in which
/// style (a basic or an advanced message composed by the field, or the author's own text), under which
/// title and with which icon. The style, title and icon are usable only while the message is shown, the
/// author's text only for the custom style, and the show-message box not at all for a field of unspecified
/// type, which is never validated. The custom text may run over several lines, stored with "\r\n" breaks.
/// Nothing on the page is refused: applying writes every selected field in selection order.
class ErrorMsgPage final : public PropertyPage {
    Q_OBJECT
public:
    explicit ErrorMsgPage(PageServices services, QWidget* parent = nullptr);

    /// Loads the page from the first selected field.
    void SelectionChanged() override;
    /// Writes the message, the title, the show flag, the style and the icon to every selected field.
    void ApplyChanges() override;

private:
    void BuildLayout();
    void Connect();
    /// The `MsgBoxIcons` value of the first icon option that is set; 0 when none is.
    [[nodiscard]] int16_t SelectedIcon() const;
    /// The `ErrorMessageModeConstants` value of the style option that is set; 0 when none is.
    [[nodiscard]] int32_t SelectedMode() const;
    /// The custom message's label and box are usable for the custom style only.
    void UpdateCustomFields();
    /// Enables or disables the style and icon frames with their options, the title and the custom message
    /// together; the custom message then stays off unless the custom style is set.
    void EnableMessageFields(bool enabled);

    QCheckBox* m_chkShowErrorMessage = nullptr;
    QGroupBox* m_fraErrorMessageMode = nullptr;
    QRadioButton* m_optAutoBasic = nullptr;
    QRadioButton* m_optAutoAdvanced = nullptr;
    QRadioButton* m_optCustom = nullptr;
    QGroupBox* m_fraMessageBoxIcon = nullptr;
    /// Indexed by the `MsgBoxIcons` value each stands for.
    std::array<QRadioButton*, 5> m_optIcon {};
    QLabel* m_lblMessageBoxTitle = nullptr;
    QLineEdit* m_txtMessageBoxTitle = nullptr;
    QLabel* m_lblErrorMessage = nullptr;
    QPlainTextEdit* m_txtErrorMessage = nullptr;
    /// The first selected field's type at the last load.
    int32_t m_type = 0;
};

} // namespace quillmar::pages
