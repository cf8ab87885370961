// What the control does with the events of its edit box: each event reaches the form first, then keys are
// sifted, changes repaired or undone, snapshots taken and the focus exit validated.
#include "control/Quillmar.h"

#include "input/ChangeRepair.h"
#include "input/KeySifting.h"
#include "input/PasteText.h"

namespace quillmar {
namespace {

// The control that holds the user after a failed final validation; one per user-interface thread, so that
// two invalid fields never pull the focus back and forth.
thread_local int32_t focusHoldWindow = 0;

constexpr int16_t kCtrlMask = 2;
constexpr int16_t kBackspace = 8;

} // namespace

int32_t Quillmar::FocusHoldWindow() noexcept {
    return focusHoldWindow;
}

void Quillmar::Beep() {
    if (m_settings.Beeping) m_host.alerts.Beep();
}

void Quillmar::TakeSnapshot() {
    m_state.SavedText = m_host.editBox.Text();
    m_state.SavedSelStart = m_host.editBox.SelStart();
    m_state.SavedSelLength = m_host.editBox.SelLength();
}

void Quillmar::GuardedWrite(std::u16string_view text, int32_t selStart, int32_t selLength) {
    m_state.InternalTextChange = true;
    m_host.editBox.SetText(text);
    m_host.editBox.SetSelStart(selStart);
    m_host.editBox.SetSelLength(selLength);
    m_state.InternalTextChange = false;
}

void Quillmar::RestoreSnapshot(Refusal refusal) {
    m_lastRefusal = refusal;
    Beep();
    GuardedWrite(m_state.SavedText, m_state.SavedSelStart, m_state.SavedSelLength);
}

// Keys.

void Quillmar::OnKeyDown(int16_t& keyCode, int16_t& shift) {
    if (m_events) m_events->KeyDown(keyCode, shift);
    m_state.CtrlKeyDown = (shift & kCtrlMask) != 0;
}

void Quillmar::OnKeyPress(int16_t& keyAscii) {
    if (m_events) m_events->KeyPress(keyAscii);
    if (m_settings.InputSifting != vldWeak || m_state.CtrlKeyDown || keyAscii == kBackspace || keyAscii == 0)
        return;
    EditBox& box = m_host.editBox;
    m_lastRefusal = Refusal::None;
    const KeyPressOutcome outcome
        = SiftKeyPress(keyAscii, box.Text(), box.SelStart(), box.SelLength(), m_settings, m_state, Locale());
    if (outcome.edit) {
        box.SetText(outcome.edit->text);
        box.SetSelStart(outcome.edit->selStart);
        box.SetSelLength(outcome.edit->selLength);
    }
    keyAscii = outcome.keyAscii;
    if (outcome.refusal != Refusal::None) m_lastRefusal = outcome.refusal;
    if (outcome.beep) Beep();
}

void Quillmar::OnKeyUp(int16_t& keyCode, int16_t& shift) {
    if (m_events) m_events->KeyUp(keyCode, shift);
    m_state.CtrlKeyDown = false;
    TakeSnapshot();
}

// Mouse.

void Quillmar::OnMouseDown(int16_t& button, int16_t& shift, float& x, float& y) {
    if (m_events) m_events->MouseDown(button, shift, x, y);
}

void Quillmar::OnMouseMove(int16_t& button, int16_t& shift, float& x, float& y) {
    if (m_events) m_events->MouseMove(button, shift, x, y);
    try {
        const auto toolTip = m_host.container.ExtenderToolTipText();
        if (toolTip && m_host.editBox.ToolTipText() != *toolTip) m_host.editBox.SetToolTipText(*toolTip);
    } catch (...) {
        // A host without a tool tip for its controls leaves the edit box's as it is.
    }
}

void Quillmar::OnMouseUp(int16_t& button, int16_t& shift, float& x, float& y) {
    TakeSnapshot();
    if (m_events) m_events->MouseUp(button, shift, x, y);
}

void Quillmar::OnClick() {
    if (m_events) m_events->Click();
}

void Quillmar::OnDblClick() {
    if (m_events) m_events->DblClick();
}

// Changes.

void Quillmar::OnChange() {
    if (m_events) m_events->Change();
    if (!m_state.ExactValue.IsEmpty()) m_state.TextEditedSinceValue = true;
    if (m_state.InternalTextChange) return;
    m_lastRefusal = Refusal::None;
    if (m_settings.MustBeType == vldUnspecified || m_settings.InputSifting != vldStrong) return;
    RepairChange();
}

void Quillmar::RepairChange() {
    EditBox& box = m_host.editBox;
    // An emptied field is left as it is, and its last settled text stays what a refused change restores.
    if (box.Text().empty()) return;
    const ChangeRepair repair = RepairChangedText(box.Text(), m_settings, m_state, Locale());
    for (const RepairEdit& edit : repair.edits) {
        int32_t selStart = box.SelStart();
        int32_t selLength = box.SelLength();
        if (edit.selection == RepairSelection::CaretAtEnd) {
            selStart = static_cast<int32_t>(edit.text.size());
            selLength = 0;
        } else if (edit.selection == RepairSelection::AfterLeadingMinus) {
            ++selStart;
        }
        GuardedWrite(edit.text, selStart, selLength);
    }
    // The final validation's own writes (the understood form, a corrective action) are repaired above but
    // never refused: the field would otherwise spring back to the text it just reported and corrected.
    if (repair.refused) {
        if (!m_state.ProgrammaticWrite) RestoreSnapshot(repair.refusal);
        return;
    }
    if (repair.refusal != Refusal::None) m_lastRefusal = repair.refusal;
    if (!m_state.ProgrammaticWrite) TakeSnapshot();
}

// Pastes and drops: numbers, dates and times copied from elsewhere are made to read as typed here before
// the change they cause is sifted.

bool Quillmar::OnPasteText(std::u16string& text) {
    m_lastRefusal = Refusal::None;
    std::optional<std::u16string> normalized = NormalizePastedText(text, m_settings, m_state, Locale());
    if (!normalized) {
        // Refused whole, as a refused key is: nothing is written.
        m_lastRefusal = Refusal::PastedNumber;
        Beep();
        return false;
    }
    text = std::move(*normalized);
    return true;
}

// Focus.

void Quillmar::OnFocusExit() {
    if (!m_settings.FinalValidationActive || m_settings.ValidationMode != vldAutomatic) return;
    const bool valid = IsValid();
    const int32_t handle = hwnd();
    const bool other = focusHoldWindow != 0 && focusHoldWindow != handle;
    if (valid || other) {
        Validate();
        focusHoldWindow = 0;
        return;
    }
    try {
        if (m_host.container.ExtenderVisible() && !Validate()) m_host.container.SetFocus();
    } catch (...) {
        // A host that cannot tell visibility or return the focus simply lets the user leave.
    }
    focusHoldWindow = handle;
}

// Drag and drop: forwarded as they come.

void Quillmar::OnOLEStartDrag(DataObject& data, int32_t& allowedEffects) {
    if (m_events) m_events->OLEStartDrag(data, allowedEffects);
}

void Quillmar::OnOLESetData(DataObject& data, int16_t& dataFormat) {
    if (m_events) m_events->OLESetData(data, dataFormat);
}

void Quillmar::OnOLEGiveFeedback(int32_t& effect, bool& defaultCursors) {
    if (m_events) m_events->OLEGiveFeedback(effect, defaultCursors);
}

void Quillmar::OnOLEDragOver(
    DataObject& data, int32_t& effect, int16_t& button, int16_t& shift, float& x, float& y, int16_t& state) {
    if (m_events) m_events->OLEDragOver(data, effect, button, shift, x, y, state);
}

void Quillmar::OnOLEDragDrop(
    DataObject& data, int32_t& effect, int16_t& button, int16_t& shift, float& x, float& y) {
    if (m_events) m_events->OLEDragDrop(data, effect, button, shift, x, y);
}

void Quillmar::OnOLECompleteDrag(int32_t& effect) {
    if (m_events) m_events->OLECompleteDrag(effect);
}

// Surface.

void Quillmar::Resize(int32_t width, int32_t height) {
    // Each step stands alone: a host that fails to place the edit box still gets the size the box has.
    const auto step = [](auto&& action) {
        try {
            action();
        } catch (...) {
            // A resize never fails the host.
        }
    };
    step([&] { m_host.editBox.Move(0, 0, width, height); });
    step([&] { m_host.container.SetWidth(m_host.editBox.Width()); });
    step([&] { m_host.container.SetHeight(m_host.editBox.Height()); });
}

void Quillmar::Show() {
    try {
        if (const auto toolTip = m_host.container.ExtenderToolTipText())
            m_host.editBox.SetToolTipText(*toolTip);
    } catch (...) {
        // A host without a tool tip for its controls shows none.
    }
}

} // namespace quillmar
