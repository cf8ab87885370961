#pragma once

#include <QList>
#include <QRect>

namespace quillmar::forms {

/// The ways the designer lines selected fields up with one of them.
enum class Alignment { Lefts, Rights, Tops, Bottoms, SameWidth, SameHeight, SameSize };

/// The fields at `rects` lined up with the field at `reference`: an edge moved to the reference's edge (the
/// field keeps its size), or a side made as long as the reference's (the field keeps its top-left corner).
[[nodiscard]] QList<QRect> Aligned(QList<QRect> rects, const QRect& reference, Alignment alignment);

} // namespace quillmar::forms
