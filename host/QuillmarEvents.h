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
    virtual void OLEStartDrag(DataObject& /*data*/, int32_t& /*allowedEffects*/) { }
    virtual void OLESetData(DataObject& /*data*/, int16_t& /*dataFormat*/) { }
    virtual void OLEGiveFeedback(int32_t& /*effect*/, bool& /*defaultCursors*/) { }
    virtual void OLEDragOver(DataObject& /*data*/, int32_t& /*effect*/, int16_t& /*button*/,
        int16_t& /*shift*/, float& /*x*/, float& /*y*/, int16_t& /*state*/) { }
    virtual void OLEDragDrop(DataObject& /*data*/, int32_t& /*effect*/, int16_t& /*button*/,
        int16_t& /*shift*/, float& /*x*/, float& /*y*/) { }
    virtual void OLECompleteDrag(int32_t& /*effect*/) { }
    virtual void KeyDown(int16_t& /*keyCode*/, int16_t& /*shift*/) { }
    virtual void KeyPress(int16_t& /*keyAscii*/) { }
    virtual void KeyUp(int16_t& /*keyCode*/, int16_t& /*shift*/) { }
    virtual void MouseDown(int16_t& /*button*/, int16_t& /*shift*/, float& /*x*/, float& /*y*/) { }
    virtual void MouseMove(int16_t& /*button*/, int16_t& /*shift*/, float& /*x*/, float& /*y*/) { }
    virtual void MouseUp(int16_t& /*button*/, int16_t& /*shift*/, float& /*x*/, float& /*y*/) { }
    virtual void Click() { }
    virtual void DblClick() { }
    /// The text of the edit box changed.
    virtual void Change() { }
};

} // namespace quillmar
