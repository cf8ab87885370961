#pragma once

#include <QWidget>

class QCheckBox;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace quillmar::forms {

class DesignSurface;

/// What the designer edits of the form itself: its title and the hints its fields give when it runs.
struct FormSettings {
    QString title;
    bool showRefusalTips = false;
    bool showInlineState = false;
    friend bool operator==(const FormSettings&, const FormSettings&) = default;
};

/// The side panel of the designer: the form's title and hints; the name, label and tool tip of the one
/// selected field (disabled unless exactly one is selected); and the fields in tab order, which the buttons
/// reorder and whose rows select fields. It edits nothing itself: each finished edit (Return or leaving the
/// box) is reported for the designer to check and turn into an undoable command, and `Refresh` shows what
/// holds.
class FieldPanel : public QWidget {
    Q_OBJECT
public:
    explicit FieldPanel(DesignSurface& surface, QWidget* parent = nullptr);

    /// Shows the surface's fields and selection and the form's settings.
    void Refresh(const FormSettings& form);

    [[nodiscard]] QLineEdit* NameBox() const { return m_name; }
    [[nodiscard]] QLineEdit* LabelBox() const { return m_label; }
    [[nodiscard]] QLineEdit* ToolTipBox() const { return m_toolTip; }
    [[nodiscard]] QLineEdit* TitleBox() const { return m_title; }
    [[nodiscard]] QCheckBox* RefusalTipsBox() const { return m_refusalTips; }
    [[nodiscard]] QCheckBox* InlineStateBox() const { return m_inlineState; }
    [[nodiscard]] QListWidget* TabOrderList() const { return m_order; }
    [[nodiscard]] QPushButton* EarlierButton() const { return m_earlier; }
    [[nodiscard]] QPushButton* LaterButton() const { return m_later; }

signals:
    void NameEdited(int id, const QString& name);
    void LabelEdited(int id, const QString& label);
    void ToolTipEdited(int id, const QString& toolTip);
    /// The form's title or a hint was changed; `after` is the whole of the form's settings.
    void FormEdited(const FormSettings& after);
    /// Moves the selected field `delta` places in the tab order.
    void TabOrderMove(int delta);

private:
    void Commit(QLineEdit* box);

    DesignSurface& m_surface;
    QLineEdit* m_title = nullptr;
    QCheckBox* m_refusalTips = nullptr;
    QCheckBox* m_inlineState = nullptr;
    QLineEdit* m_name = nullptr;
    QLineEdit* m_label = nullptr;
    QLineEdit* m_toolTip = nullptr;
    QListWidget* m_order = nullptr;
    QPushButton* m_earlier = nullptr;
    QPushButton* m_later = nullptr;
    int m_shownId = 0;
    FormSettings m_shownForm;
    bool m_refreshing = false;
};

} // namespace quillmar::forms
