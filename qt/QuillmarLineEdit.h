#pragma once

#include "host/Host.h"

#include <QLineEdit>

#include <cstdint>
#include <optional>

namespace quillmar::qt {

class QtServices;

/// The edit box: a line edit whose keys, input-method text, mouse, focus and drops go through the control
/// before the line edit acts on them.
class QuillmarLineEdit final : public QLineEdit {
public:
    /// A line edit, child of `parent`, whose events go first to the form and the control that `services`
    /// serve.
    QuillmarLineEdit(QtServices& services, QWidget* parent);

protected:
    bool event(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    struct PointerArguments {
        int16_t button;
        int16_t shift;
        float x;
        float y;
    };
    using MouseHandler = void (EditBoxEvents::*)(int16_t&, int16_t&, float&, float&);

    /// The control's handlers of the edit box's events; null before the control is made.
    EditBoxEvents* Events() const;
    /// Lets the line edit act on a key whose character the form and the control left as `keyAscii`.
    void InsertKey(QKeyEvent* event, int16_t typed, int16_t keyAscii);
    void RaiseMouse(MouseHandler handler, const QMouseEvent& event);
    /// Raises the drag-over event (with its state) or, without one, the drop; the effect the form left, or
    /// nullopt when there is nothing to drop.
    std::optional<int32_t> RaiseDrop(QDropEvent* event, std::optional<int16_t> overState);

    QtServices& m_services;
};

} // namespace quillmar::qt
