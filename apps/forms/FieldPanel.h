#pragma once

#include <QWidget>

class QLineEdit;
class QListWidget;
class QPushButton;

namespace quillmar::forms {

class DesignSurface;

/// The side panel of the designer: the form's title; the name, label and tool tip of the one selected field
/// (disabled unless exactly one is selected); and the fields in tab order, which the buttons reorder and
/// whose rows select fields. It edits nothing itself: each finished edit (Return or leaving the box) is
/// reported for the designer to check and turn into an undoable command, and `Refresh` shows what holds.
class FieldPanel : public QWidget {
    Q_OBJECT
public:
    explicit FieldPanel(DesignSurface& surface, QWidget* parent = nullptr);

    /// Shows the surface's fields and selection and the form's title.
    void Refresh(const QString& title);

    [[nodiscard]] QLineEdit* NameBox() const { return m_name; }
    [[nodiscard]] QLineEdit* LabelBox() const { return m_label; }
    [[nodiscard]] QLineEdit* ToolTipBox() const { return m_toolTip; }
    [[nodiscard]] QLineEdit* TitleBox() const { return m_title; }
    [[nodiscard]] QListWidget* TabOrderList() const { return m_order; }
    [[nodiscard]] QPushButton* EarlierButton() const { return m_earlier; }
    [[nodiscard]] QPushButton* LaterButton() const { return m_later; }

signals:
    void NameEdited(int id, const QString& name);
    void LabelEdited(int id, const QString& label);
    void ToolTipEdited(int id, const QString& toolTip);
    void TitleEdited(const QString& title);
    /// Moves the selected field `delta` places in the tab order.
    void TabOrderMove(int delta);

private:
    void Commit(QLineEdit* box);

    DesignSurface& m_surface;
    QLineEdit* m_title = nullptr;
    QLineEdit* m_name = nullptr;
    QLineEdit* m_label = nullptr;
    QLineEdit* m_toolTip = nullptr;
    QListWidget* m_order = nullptr;
    QPushButton* m_earlier = nullptr;
    QPushButton* m_later = nullptr;
    int m_shownId = 0;
    QString m_shownTitle;
    bool m_refreshing = false;
};

} // namespace quillmar::forms
