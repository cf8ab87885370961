#pragma once

#include <QLine>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <optional>

namespace quillmar::forms {

/// How near a dragged edge must come to the same edge of another field to meet it.
inline constexpr int kSnapReach = 4;
/// The side of a selection handle.
inline constexpr int kHandleSize = 6;
/// How near the form's right or bottom edge a press takes hold of it.
inline constexpr int kFormEdgeReach = 5;
/// The least size of a field on the form.
inline constexpr QSize kMinimumFieldSize { 16, 12 };

/// The edges of the fields a drag can meet, each list holding one edge of every such field.
struct FieldEdges {
    QList<int> lefts, rights, tops, bottoms;
};

/// The edges of the fields at `rects`.
[[nodiscard]] FieldEdges EdgesOf(const QList<QRect>& rects);

/// How far to move an edge of a dragged field at `edge` so that it meets the nearest of the same edges of
/// the other fields at `targets`, within `reach` pixels; nullopt when none is that near (0 when one is
/// already met). Of two as near, the first.
[[nodiscard]] std::optional<int> SnapOffset(int edge, const QList<int>& targets, int reach = kSnapReach);

/// How far to move a dragged block of fields at `block` so that its nearest edge meets the same edge of one
/// of `others` (left with left, right with right, top with top, bottom with bottom), each direction on its
/// own; no move in a direction where no edge is within `kSnapReach`. Of the left and right (or top and
/// bottom) edges, the nearer meets; of two as near, the left (top) one. Passing no edges places freely.
[[nodiscard]] QPoint SnapShift(const QRect& block, const FieldEdges& others);

/// The lines drawn across a form of `form` size where an edge of `dragged` lies on the same edge of one of
/// `others`: a vertical line for a left or right edge, a horizontal one for a top or bottom edge.
[[nodiscard]] QList<QLine> GuidesFor(const QRect& dragged, const FieldEdges& others, const QSize& form);

/// The eight handles around `frame` (a selected field's frame), clockwise from the top-left corner: 0 the
/// top-left corner, 1 the top edge, 2 the top-right corner, 3 the right edge, 4 the bottom-right corner,
/// 5 the bottom edge, 6 the bottom-left corner, 7 the left edge.
[[nodiscard]] QList<QRect> HandleRects(const QRect& frame);

/// The selection frame drawn around a field at `geometry`: one pixel outside its top and left edges, on its
/// right and bottom edges.
[[nodiscard]] QRect SelectionFrame(const QRect& geometry);

/// The handle of the field at `geometry` that a press at `point` takes hold of (see `HandleRects`; each
/// handle is grabbed 2 pixels beyond its square), or -1 when none.
[[nodiscard]] int HandleAt(const QRect& geometry, const QPoint& point);

/// The edges of a field that `handle` moves: `Qt::TopEdge` for handles 0 to 2, `Qt::RightEdge` for 2 to 4,
/// `Qt::BottomEdge` for 4 to 6, `Qt::LeftEdge` for 6, 7 and 0; none for -1.
[[nodiscard]] Qt::Edges HandleEdges(int handle);

/// The mouse cursor shown over `handle` (0 to 7): a diagonal, vertical or horizontal resize arrow.
[[nodiscard]] Qt::CursorShape HandleCursor(int handle);

/// The field at `start` resized by dragging `handle` by `delta`: the edges the handle moves follow the
/// mouse, each meeting the same edge of one of `others` within `kSnapReach` (no edges: freely), never
/// making the field smaller than `kMinimumFieldSize`, and the result cut to a form of `form` size.
[[nodiscard]] QRect ResizedByHandle(
    const QRect& start, int handle, const QPoint& delta, const FieldEdges& others, const QSize& form);

/// `geometry` moved and cut to lie on a form of `form` size, no smaller than `kMinimumFieldSize`.
[[nodiscard]] QRect ClampedToForm(QRect geometry, const QSize& form);

/// The form's edges that a press at `point` takes hold of on a form of `form` size: `Qt::RightEdge`,
/// `Qt::BottomEdge`, both (the corner) or none; a point off the form takes none.
[[nodiscard]] Qt::Edges FormEdgesAt(const QSize& form, const QPoint& point);

} // namespace quillmar::forms
