#pragma once

#include <QList>
#include <QRect>

#include <optional>

namespace quillmar::forms {

/// The ways the designer lines selected fields up with one of them.
enum class Alignment { Lefts, Rights, Tops, Bottoms, SameWidth, SameHeight, SameSize };

/// The fields at `rects` lined up with the field at `reference`: an edge moved to the reference's edge (the
/// field keeps its size), or a side made as long as the reference's (the field keeps its top-left corner).
[[nodiscard]] QList<QRect> Aligned(QList<QRect> rects, const QRect& reference, Alignment alignment);

/// How far to move an edge of a dragged field at `edge` so that it meets the nearest of the same edges of
/// the other fields at `targets`, within `reach` pixels; nullopt when none is that near (0 when one is
/// already met). Of two as near, the first.
[[nodiscard]] std::optional<int> SnapOffset(int edge, const QList<int>& targets, int reach);

} // namespace quillmar::forms
