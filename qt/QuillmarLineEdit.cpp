// The edit box of QuillmarEdit: each event goes to the form and the control before the line edit acts on it.
#include "qt/QuillmarLineEdit.h"

#include "qt/FieldHints.h"
#include "qt/QtKeys.h"
#include "qt/QtServices.h"
#include "qt/UserEditLimits.h"

#include <QAbstractButton>
#include <QApplication>
#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>

namespace quillmar::qt {
namespace {

// The edit box that is deciding whether it may be left, and taking the focus back if not; one per
// user-interface thread. The focus another field gets and loses meanwhile only passed through it.
thread_local const QLineEdit* keepingFocus = nullptr;

// Marks an edit box as deciding on its leave for the scope.
class KeepingFocus {
public:
    explicit KeepingFocus(const QLineEdit* edit)
        : m_was(keepingFocus) {
        keepingFocus = edit;
    }
    ~KeepingFocus() { keepingFocus = m_was; }
    KeepingFocus(const KeepingFocus&) = delete;
    KeepingFocus& operator=(const KeepingFocus&) = delete;

private:
    const QLineEdit* m_was;
};

} // namespace

QuillmarLineEdit::QuillmarLineEdit(QtServices& services, QWidget* parent)
    : QLineEdit(parent)
    , m_services(services) {
    setMouseTracking(true);
    setAcceptDrops(false);
}

EditBoxEvents* QuillmarLineEdit::Events() const {
    return m_services.Events();
}

bool QuillmarLineEdit::event(QEvent* event) {
    // The undo and redo keys reach the field before any shortcut of the window.
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (IsUndoKey(key) || IsRedoKey(key)) {
            event->accept();
            return true;
        }
    }
    return QLineEdit::event(event);
}

// The line edit's own menu, with Undo and Redo working on the field's history and Paste saying, as Ctrl+V
// does, why the field refused what it brought.
void QuillmarLineEdit::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* menu = createStandardContextMenu();
    for (QAction* action : menu->actions()) {
        // The actions are known by their text, as the line edit names them (before any shortcut it shows).
        const QString name = action->text().section(u'\t', 0, 0);
        if (name == QLineEdit::tr("&Paste")) {
            action->setObjectName(QStringLiteral("edit-paste"));
            QObject::disconnect(action, &QAction::triggered, nullptr, nullptr);
            QObject::connect(action, &QAction::triggered, this, [this] {
                const FieldHints::EditWatch watch(m_services.m_owner.hints());
                const QtServices::HistoryStep step(m_services);
                paste();
            });
            continue;
        }
        const bool undo = name == QLineEdit::tr("&Undo");
        if (!undo && name != QLineEdit::tr("&Redo")) continue;
        action->setObjectName(undo ? QStringLiteral("edit-undo") : QStringLiteral("edit-redo"));
        QObject::disconnect(action, &QAction::triggered, nullptr, nullptr);
        action->setEnabled(undo ? m_services.CanUndo() : m_services.CanRedo());
        QObject::connect(action, &QAction::triggered, this, [this, undo] {
            const QtServices::HistoryStep noStep(m_services); // the restore is no step of its own
            undo ? m_services.Undo() : m_services.Redo();
        });
    }
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(event->globalPos());
}

void QuillmarLineEdit::keyPressEvent(QKeyEvent* event) {
    const FieldHints::EditWatch watch(m_services.m_owner.hints(), *event);
    const QtServices::HistoryStep step(m_services);
    EditBoxEvents* events = Events();
    if (!events) return QLineEdit::keyPressEvent(event);
    int16_t keyCode = VirtualKey(*event);
    int16_t shift = KeyShiftMask(*event);
    events->OnKeyDown(keyCode, shift);
    const int16_t typed = KeyAscii(*event);
    if (typed == 0) return QLineEdit::keyPressEvent(event);
    int16_t keyAscii = typed;
    // Return, Enter and Escape belong to the dialog: the form sees them (and may cancel them), but the
    // control never sifts them, so that they go on as from any line edit, to the default button or to close.
    if (IsDialogKey(*event))
        m_services.KeyPress(keyAscii);
    else
        events->OnKeyPress(keyAscii);
    if (keyAscii == 0) return event->accept();
    UserEditLimits& limits = m_services.Limits();
    const bool wasTyping = limits.typing;
    limits.typing = static_cast<uint16_t>(keyAscii) >= 32;
    InsertKey(event, typed, keyAscii);
    limits.typing = wasTyping;
}

void QuillmarLineEdit::InsertKey(QKeyEvent* event, int16_t typed, int16_t keyAscii) {
    if (keyAscii == typed) {
        if (IsRedoKey(*event)) return m_services.Redo();
        if (IsUndoKey(*event)) return m_services.Undo();
        return QLineEdit::keyPressEvent(event);
    }
    // The form or the control changed the key: the changed character is what the box receives.
    const char16_t changed = static_cast<char16_t>(static_cast<uint16_t>(keyAscii));
    if (changed == 8) {
        QKeyEvent backspace(QEvent::KeyPress, Qt::Key_Backspace, Qt::NoModifier);
        return QLineEdit::keyPressEvent(&backspace);
    }
    if (changed < 32) return event->accept();
    QKeyEvent replaced(QEvent::KeyPress, 0, Qt::NoModifier, QString(QChar(changed)));
    QLineEdit::keyPressEvent(&replaced);
}

void QuillmarLineEdit::keyReleaseEvent(QKeyEvent* event) {
    QLineEdit::keyReleaseEvent(event);
    if (event->isAutoRepeat() || !Events()) return;
    int16_t keyCode = VirtualKey(*event);
    int16_t shift = KeyShiftMask(*event);
    Events()->OnKeyUp(keyCode, shift);
}

void QuillmarLineEdit::inputMethodEvent(QInputMethodEvent* event) {
    const QtServices::HistoryStep step(m_services);
    EditBoxEvents* events = Events();
    if (!events || event->commitString().isEmpty()) return QLineEdit::inputMethodEvent(event);
    // Text committed by an input method meets the same sifting as typed keys, one character at a time.
    QString accepted;
    for (const QChar c : event->commitString()) {
        int16_t keyAscii = static_cast<int16_t>(c.unicode());
        events->OnKeyPress(keyAscii);
        if (keyAscii != 0) accepted += QChar(static_cast<char16_t>(static_cast<uint16_t>(keyAscii)));
    }
    QInputMethodEvent sifted(event->preeditString(), event->attributes());
    sifted.setCommitString(accepted, event->replacementStart(), event->replacementLength());
    UserEditLimits& limits = m_services.Limits();
    limits.composing = true;
    QLineEdit::inputMethodEvent(&sifted);
    limits.composing = false;
}

void QuillmarLineEdit::RaiseMouse(MouseHandler handler, const QMouseEvent& event) {
    if (!Events()) return;
    PointerArguments a {};
    a.button
        = ButtonMask(event.type() == QEvent::MouseMove ? event.buttons() : Qt::MouseButtons(event.button()));
    a.shift = ShiftMask(event.modifiers());
    a.x = static_cast<float>(event.position().x());
    a.y = static_cast<float>(event.position().y());
    (Events()->*handler)(a.button, a.shift, a.x, a.y);
}

void QuillmarLineEdit::mousePressEvent(QMouseEvent* event) {
    RaiseMouse(&EditBoxEvents::OnMouseDown, *event);
    QLineEdit::mousePressEvent(event);
}

void QuillmarLineEdit::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    RaiseMouse(&EditBoxEvents::OnMouseUp, *event);
    if (Events() && rect().contains(event->position().toPoint())) Events()->OnClick();
}

void QuillmarLineEdit::mouseDoubleClickEvent(QMouseEvent* event) {
    QLineEdit::mouseDoubleClickEvent(event);
    if (Events()) Events()->OnDblClick();
}

void QuillmarLineEdit::mouseMoveEvent(QMouseEvent* event) {
    RaiseMouse(&EditBoxEvents::OnMouseMove, *event);
    QLineEdit::mouseMoveEvent(event);
}

void QuillmarLineEdit::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    // The field is left only for another widget of the form: not for its own message box or about box,
    // a context menu, or another application's window.
    const Qt::FocusReason reason = event->reason();
    if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason || m_services.InOwnDialog())
        return;
    // Nor is it left when the focus only passed through it, on its way back to a field that refused to be
    // left: the person clicked here, but never got here.
    if (keepingFocus && keepingFocus != this) return;
    if (m_services.SkipFocusExit()) return m_services.SetSkipFocusExit(false);
    // Validated once the focus has settled, so that a message box never opens inside a focus change.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (!Events()) return;
            const KeepingFocus deciding(this);
            bool cancel = false;
            emit m_services.m_owner.BeforeLeaving(cancel);
            if (cancel) {
                // The focus stays, and a button pressed to leave the field is not clicked when released.
                auto* button = qobject_cast<QAbstractButton*>(QApplication::focusWidget());
                if (button && button->isDown()) button->setDown(false);
                setFocus(Qt::OtherFocusReason);
                return;
            }
            Events()->OnFocusExit();
        },
        Qt::QueuedConnection);
}

std::optional<int32_t> QuillmarLineEdit::RaiseDrop(QDropEvent* event, std::optional<int16_t> overState) {
    if (!Events() || !event->mimeData()->hasText()) return std::nullopt;
    DataObject data;
    data.SetData(FromQString(event->mimeData()->text()), kTextFormat);
    PointerArguments a { ButtonMask(event->buttons()), ShiftMask(event->modifiers()),
        static_cast<float>(event->position().x()), static_cast<float>(event->position().y()) };
    int32_t effect = 1;
    if (overState) {
        int16_t state = *overState;
        Events()->OnOLEDragOver(data, effect, a.button, a.shift, a.x, a.y, state);
    } else {
        Events()->OnOLEDragDrop(data, effect, a.button, a.shift, a.x, a.y);
    }
    return effect;
}

void QuillmarLineEdit::dragEnterEvent(QDragEnterEvent* event) {
    if (RaiseDrop(event, int16_t { 0 }).value_or(0) != 0)
        QLineEdit::dragEnterEvent(event);
    else
        event->ignore();
}

void QuillmarLineEdit::dragMoveEvent(QDragMoveEvent* event) {
    if (RaiseDrop(event, int16_t { 2 }).value_or(0) != 0)
        QLineEdit::dragMoveEvent(event);
    else
        event->ignore();
}

void QuillmarLineEdit::dropEvent(QDropEvent* event) {
    // An automatic drop target inserts the text; a manual one leaves the drop to the form.
    if (RaiseDrop(event, std::nullopt).value_or(0) == 0 || m_services.OLEDropMode() != 2)
        return event->ignore();
    const FieldHints::EditWatch watch(m_services.m_owner.hints());
    const QtServices::HistoryStep step(m_services);
    QLineEdit::dropEvent(event);
}

} // namespace quillmar::qt
