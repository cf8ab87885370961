#pragma once

#include <quillmar/CoreExport.h>

#include <quillmar/host/Host.h>

#include <cstdint>

namespace quillmar {

/// The events the control raises to the form, each before the control acts on it. Arguments are passed
/// by reference, so that a form can change or cancel a key. Every method does nothing by default.
class QUILLMAR_CORE_EXPORT QuillmarEvents {
public:
    virtual ~QuillmarEvents() = default;
    /// A drag starts from the field; `allowedEffects` says whether the data may be copied (1) or moved (2),
    /// and setting it to 0 cancels the drag.
    virtual void OLEStartDrag(DataObject& /*data*/, int32_t& /*allowedEffects*/) { }
    /// The target of a drag from the field asks for the data in `dataFormat`; the form may put it into
    /// `data` (the selected text goes as plain text otherwise).
    virtual void OLESetData(DataObject& /*data*/, int16_t& /*dataFormat*/) { }
    /// A drag from the field moves over a target that would take `effect`; set `defaultCursors` to false
    /// after showing a cursor of the form's own.
    virtual void OLEGiveFeedback(int32_t& /*effect*/, bool& /*defaultCursors*/) { }
    /// A drag enters (`state` 0), leaves (1) or moves over (2) the field. `effect` is the drop the field
    /// would take (0 none, 1 copy, 2 move; set it to 0 to refuse the drop); `button`, `shift`, `x` and `y`
    /// are those of the mouse events.
    virtual void OLEDragOver(DataObject& /*data*/, int32_t& /*effect*/, int16_t& /*button*/,
        int16_t& /*shift*/, float& /*x*/, float& /*y*/, int16_t& /*state*/) { }
    /// Data was dropped on the field, with the arguments of `OLEDragOver`; an `effect` set to 0 refuses it.
    virtual void OLEDragDrop(DataObject& /*data*/, int32_t& /*effect*/, int16_t& /*button*/,
        int16_t& /*shift*/, float& /*x*/, float& /*y*/) { }
    /// A drag from the field ended; `effect` says what the target did (0 nothing, 1 copied, 2 moved).
    virtual void OLECompleteDrag(int32_t& /*effect*/) { }
    /// A key went down in the field: `keyCode` is its virtual key code and `shift` holds 1 for Shift, 2 for
    /// Ctrl and 4 for Alt.
    virtual void KeyDown(int16_t& /*keyCode*/, int16_t& /*shift*/) { }
    /// A character is about to go into the field, before the field sifts it; set `keyAscii` to another
    /// character to type that one instead, or to 0 to type nothing.
    virtual void KeyPress(int16_t& /*keyAscii*/) { }
    /// A key went up in the field, with the arguments of `KeyDown`.
    virtual void KeyUp(int16_t& /*keyCode*/, int16_t& /*shift*/) { }
    /// A mouse button went down, the mouse moved, or a button went up over the field: `button` holds 1 for
    /// the left button, 2 for the right and 4 for the middle one, `shift` as for `KeyDown`, and `x` and `y`
    /// the position in the edit box's coordinates.
    ///@{
    virtual void MouseDown(int16_t& /*button*/, int16_t& /*shift*/, float& /*x*/, float& /*y*/) { }
    virtual void MouseMove(int16_t& /*button*/, int16_t& /*shift*/, float& /*x*/, float& /*y*/) { }
    virtual void MouseUp(int16_t& /*button*/, int16_t& /*shift*/, float& /*x*/, float& /*y*/) { }
    ///@}
    /// The field was clicked, or double-clicked.
    ///@{
    virtual void Click() { }
    virtual void DblClick() { }
    ///@}
    /// The text of the edit box changed.
    virtual void Change() { }
};

} // namespace quillmar
