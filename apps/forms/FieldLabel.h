#pragma once

#include <QRect>

namespace quillmar::forms {

/// The width of the label to the left of each field, in design mode as when the form runs.
inline constexpr int kLabelWidth = 104;
/// The space between a label and its field.
inline constexpr int kLabelGap = 8;

/// Where the label of a field at `field` goes: to its left, as high as the field, its text right-aligned.
[[nodiscard]] inline QRect LabelGeometry(const QRect& field) {
    return { field.left() - kLabelWidth - kLabelGap, field.top(), kLabelWidth, field.height() };
}

} // namespace quillmar::forms
