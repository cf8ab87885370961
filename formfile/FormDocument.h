#pragma once

#include <quillmar/base/MemoryPropertyStore.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace quillmar {

/// One field of a form: the name its control is known by (the extender name), the label shown beside it,
/// its place and size in pixels, its properties as `WriteProperties` wrote them, and the tool tip it shows
/// (the extender's ToolTipText; empty for none).
struct FormControl {
    std::u16string name; ///< The name the field's control is known by (its extender name).
    std::u16string label; ///< The label shown beside the field; empty for none.
    /// The field's place (its top-left corner in the form) and size, in pixels, 0 to `kMaxFormExtent`.
    ///@{
    int32_t left = 0;
    int32_t top = 0;
    int32_t width = 0;
    int32_t height = 0;
    ///@}
    quillmar::MemoryPropertyStore properties; ///< The field's properties as `WriteProperties` wrote them.
    std::u16string toolTip; ///< The tip the field shows; empty for none.
    /// Two fields are equal when every part is.
    friend bool operator==(const FormControl&, const FormControl&) = default;
};

/// The largest form size, field size and distance of a field from the form's corner, in pixels.
inline constexpr int32_t kMaxFormExtent = 10000;
/// The most fields a form holds.
inline constexpr size_t kMaxFormFields = 1000;

/// The font of a form's fields. A field whose font entries ("FontName", "FontSize") are left out reads this
/// font; the default is the font a field reads when it stores none, so that a form without a font of its own
/// reads as it always did.
struct FormFont {
    std::u16string name = u"MS Sans Serif"; ///< The face name.
    float size = 8.25f; ///< The size in points.
    /// The same face and size.
    friend bool operator==(const FormFont&, const FormFont&) = default;
};

/// A form: its title, its client size in pixels, its fields in tab order, and the hints every field of it
/// gives while it is filled in.
struct FormDocument {
    std::u16string title; ///< The window title of the form.
    /// The form's client size in pixels, up to `kMaxFormExtent`.
    ///@{
    int32_t width = 0;
    int32_t height = 0;
    ///@}
    std::vector<FormControl> controls; ///< The fields in tab order, at most `kMaxFormFields`.
    /// The font every field has unless its own entries name another.
    FormFont font = {};
    /// A short tip at the caret naming the rule that refused a key or a paste.
    bool showRefusalTips = false;
    /// A frame colour and an icon in a field whose text breaks one of its rules.
    bool showInlineState = false;
    /// Two forms are equal when every part is.
    friend bool operator==(const FormDocument&, const FormDocument&) = default;
};

} // namespace quillmar
