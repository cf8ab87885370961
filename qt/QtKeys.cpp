#include "qt/QtKeys.h"

#include <QKeySequence>

namespace quillmar::qt {
namespace {

constexpr int16_t kShiftMask = 1;
constexpr int16_t kCtrlMask = 2;
constexpr int16_t kAltMask = 4;

} // namespace

int16_t ShiftMask(Qt::KeyboardModifiers modifiers) {
    int16_t mask = 0;
    if (modifiers & Qt::ShiftModifier) mask |= kShiftMask;
    if (modifiers & Qt::ControlModifier) mask |= kCtrlMask;
    if (modifiers & Qt::AltModifier) mask |= kAltMask;
    return mask;
}

// A printable character typed with AltGr, which some platforms deliver as Ctrl+Alt: it is typing, not a
// Ctrl shortcut, so it is reported without the Ctrl bit and sifted like any typed key.
bool IsAltGrCharacter(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    if (!(modifiers & Qt::ControlModifier) || !(modifiers & Qt::AltModifier)) return false;
    const QString text = event.text();
    return text.size() == 1 && text[0].unicode() >= 32 && text[0].unicode() != 127;
}

// The Shift argument of a key event.
int16_t KeyShiftMask(const QKeyEvent& event) {
    const int16_t mask = ShiftMask(event.modifiers());
    return IsAltGrCharacter(event) ? static_cast<int16_t>(mask & ~kCtrlMask) : mask;
}

// Whether a key may be one of the platform's undo or redo keys: those all come with a modifier other than
// Shift, or are the keyboard's own Undo and Redo keys. Looking a key up among the platform's bindings costs
// more than the rest of a typed key, so plain typing skips it.
bool MayUndoOrRedo(const QKeyEvent& event) {
    return (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) != Qt::NoModifier
        || event.key() == Qt::Key_Undo || event.key() == Qt::Key_Redo;
}

// The keys that undo and redo in the field: the platform's own, and Ctrl+Z, Ctrl+Y and Ctrl+Shift+Z
// everywhere.
bool IsUndoKey(const QKeyEvent& event) {
    if (!MayUndoOrRedo(event)) return false;
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    return event.matches(QKeySequence::Undo)
        || (modifiers == Qt::ControlModifier && event.key() == Qt::Key_Z);
}

bool IsRedoKey(const QKeyEvent& event) {
    if (!MayUndoOrRedo(event)) return false;
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    return event.matches(QKeySequence::Redo) || (modifiers == Qt::ControlModifier && event.key() == Qt::Key_Y)
        || (modifiers == (Qt::ControlModifier | Qt::ShiftModifier) && event.key() == Qt::Key_Z);
}

bool IsPasteKey(const QKeyEvent& event) {
    // Looking the platform's bindings up is dear; a plain key (Backspace, say) is never one of them.
    const bool plain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (plain && event.key() != Qt::Key_Paste && event.key() != Qt::Key_F18) return false;
    return event.matches(QKeySequence::Paste);
}

bool IsDialogKey(const QKeyEvent& event) {
    const int key = event.key();
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape;
}

int16_t ButtonMask(Qt::MouseButtons buttons) {
    int16_t mask = 0;
    if (buttons & Qt::LeftButton) mask |= 1;
    if (buttons & Qt::RightButton) mask |= 2;
    if (buttons & Qt::MiddleButton) mask |= 4;
    return mask;
}

// The Windows-style code a key-down reports: letters by their capital, digits and space as themselves,
// editing and moving keys by their own codes.
int16_t VirtualKey(const QKeyEvent& event) {
    const int key = event.key();
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)
        || key == Qt::Key_Space)
        return static_cast<int16_t>(key);
    switch (key) {
    case Qt::Key_Backspace:
        return 8;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return 9;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return 13;
    case Qt::Key_Shift:
        return 16;
    case Qt::Key_Control:
        return 17;
    case Qt::Key_Alt:
        return 18;
    case Qt::Key_Escape:
        return 27;
    case Qt::Key_PageUp:
        return 33;
    case Qt::Key_PageDown:
        return 34;
    case Qt::Key_End:
        return 35;
    case Qt::Key_Home:
        return 36;
    case Qt::Key_Left:
        return 37;
    case Qt::Key_Up:
        return 38;
    case Qt::Key_Right:
        return 39;
    case Qt::Key_Down:
        return 40;
    case Qt::Key_Insert:
        return 45;
    case Qt::Key_Delete:
        return 46;
    case Qt::Key_Semicolon:
    case Qt::Key_Colon:
        return 186;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        return 187;
    case Qt::Key_Comma:
        return 188;
    case Qt::Key_Minus:
        return 189;
    case Qt::Key_Period:
        return 190;
    case Qt::Key_Slash:
        return 191;
    default:
        if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return static_cast<int16_t>(112 + key - Qt::Key_F1);
        return event.text().isEmpty() ? 0 : 229; // a character that does not come from one known key
    }
}

// The character code a key types, as the form's KeyPress sees it: printable characters, Backspace (8),
// Enter (13), Escape (27) and the control characters of Ctrl with a letter (Ctrl+V is 22). 0: no character.
int16_t KeyAscii(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Backspace:
        return 8;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return 13;
    case Qt::Key_Escape:
        return 27;
    default:
        break;
    }
    if ((event.modifiers() & Qt::ControlModifier) && !IsAltGrCharacter(event) && event.key() >= Qt::Key_A
        && event.key() <= Qt::Key_Z)
        return static_cast<int16_t>(event.key() - Qt::Key_A + 1);
    const QString text = event.text();
    if (text.size() != 1 || text[0].unicode() < 32 || text[0].unicode() == 127) return 0;
    return static_cast<int16_t>(text[0].unicode());
}

} // namespace quillmar::qt
