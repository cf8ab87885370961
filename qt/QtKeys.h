#pragma once

// How Qt's key and mouse events read as the Windows-style codes and masks the control's events carry.
#include <QKeyEvent>
#include <Qt>

#include <cstdint>

namespace quillmar::qt {

/// The Shift argument of mouse and key events: 1 for Shift, 2 for Ctrl, 4 for Alt.
[[nodiscard]] int16_t ShiftMask(Qt::KeyboardModifiers modifiers);
/// True for a printable character typed with AltGr, which some platforms deliver as Ctrl+Alt.
[[nodiscard]] bool IsAltGrCharacter(const QKeyEvent& event);
/// The Shift argument of a key event: an AltGr character is reported without Ctrl.
[[nodiscard]] int16_t KeyShiftMask(const QKeyEvent& event);
/// True when the key could be an undo or redo shortcut (a cheap test before the key bindings are asked).
[[nodiscard]] bool MayUndoOrRedo(const QKeyEvent& event);
/// Ctrl+Z, or the platform's undo key.
[[nodiscard]] bool IsUndoKey(const QKeyEvent& event);
/// Ctrl+Y, Ctrl+Shift+Z, or the platform's redo key.
[[nodiscard]] bool IsRedoKey(const QKeyEvent& event);
/// True for the platform's paste keys (Ctrl+V, Shift+Insert ...).
[[nodiscard]] bool IsPasteKey(const QKeyEvent& event);
/// True for Return, Enter and Escape: keys of the dialog the field is in, not characters typed into the
/// field, whatever the modifiers.
[[nodiscard]] bool IsDialogKey(const QKeyEvent& event);
/// The Button argument of mouse events: 1 left, 2 right, 4 middle.
[[nodiscard]] int16_t ButtonMask(Qt::MouseButtons buttons);
/// The Windows-style code a key-down reports: letters by their capital, digits and space as themselves,
/// editing and moving keys by their own codes.
[[nodiscard]] int16_t VirtualKey(const QKeyEvent& event);
/// The character code a key types, as the form's KeyPress sees it: printable characters, Backspace (8),
/// Enter (13), Escape (27) and the control characters of Ctrl with a letter (Ctrl+V is 22). 0: no character.
[[nodiscard]] int16_t KeyAscii(const QKeyEvent& event);

} // namespace quillmar::qt
