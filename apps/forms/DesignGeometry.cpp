#include "apps/forms/DesignGeometry.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace quillmar::forms {
namespace {

// The nearer of two offsets, or the one there is; of two as near, the first.
std::optional<int> Nearer(std::optional<int> a, std::optional<int> b) {
    if (!a || !b) return a ? a : b;
    return std::abs(*b) < std::abs(*a) ? b : a;
}

} // namespace

FieldEdges EdgesOf(const QList<QRect>& rects) {
    FieldEdges edges;
    for (const QRect& r : rects) {
        edges.lefts << r.left();
        edges.rights << r.right();
        edges.tops << r.top();
        edges.bottoms << r.bottom();
    }
    return edges;
}

std::optional<int> SnapOffset(int edge, const QList<int>& targets, int reach) {
    std::optional<int> best;
    for (int target : targets)
        if (std::abs(target - edge) <= reach && (!best || std::abs(target - edge) < std::abs(*best)))
            best = target - edge;
    return best;
}

QPoint SnapShift(const QRect& block, const FieldEdges& others) {
    const auto dx = Nearer(SnapOffset(block.left(), others.lefts), SnapOffset(block.right(), others.rights));
    const auto dy = Nearer(SnapOffset(block.top(), others.tops), SnapOffset(block.bottom(), others.bottoms));
    return { dx.value_or(0), dy.value_or(0) };
}

QList<QLine> GuidesFor(const QRect& dragged, const FieldEdges& others, const QSize& form) {
    QList<QLine> guides;
    for (const auto& [edge, targets] :
        { std::pair { dragged.left(), &others.lefts }, std::pair { dragged.right(), &others.rights } })
        if (targets->contains(edge)) guides << QLine(edge, 0, edge, form.height() - 1);
    for (const auto& [edge, targets] :
        { std::pair { dragged.top(), &others.tops }, std::pair { dragged.bottom(), &others.bottoms } })
        if (targets->contains(edge)) guides << QLine(0, edge, form.width() - 1, edge);
    return guides;
}

QList<QRect> HandleRects(const QRect& frame) {
    const QRect& r = frame;
    const QPoint points[]
        = { r.topLeft(), { r.center().x(), r.top() }, r.topRight(), { r.right(), r.center().y() },
              r.bottomRight(), { r.center().x(), r.bottom() }, r.bottomLeft(), { r.left(), r.center().y() } };
    QList<QRect> handles;
    for (const QPoint& p : points)
        handles << QRect(p.x() - kHandleSize / 2, p.y() - kHandleSize / 2, kHandleSize, kHandleSize);
    return handles;
}

QRect SelectionFrame(const QRect& geometry) {
    return geometry.adjusted(-1, -1, 0, 0);
}

int HandleAt(const QRect& geometry, const QPoint& point) {
    const QList<QRect> handles = HandleRects(SelectionFrame(geometry));
    for (int i = 0; i < handles.size(); ++i)
        if (handles[i].adjusted(-2, -2, 2, 2).contains(point)) return i;
    return -1;
}

Qt::Edges HandleEdges(int handle) {
    Qt::Edges edges;
    if (handle < 0) return edges;
    if (handle <= 2) edges |= Qt::TopEdge;
    if (handle >= 2 && handle <= 4) edges |= Qt::RightEdge;
    if (handle >= 4 && handle <= 6) edges |= Qt::BottomEdge;
    if (handle == 0 || handle >= 6) edges |= Qt::LeftEdge;
    return edges;
}

Qt::CursorShape HandleCursor(int handle) {
    static constexpr Qt::CursorShape shapes[]
        = { Qt::SizeFDiagCursor, Qt::SizeVerCursor, Qt::SizeBDiagCursor, Qt::SizeHorCursor };
    return shapes[handle % 4];
}

QRect ResizedByHandle(
    const QRect& start, int handle, const QPoint& delta, const FieldEdges& others, const QSize& form) {
    const Qt::Edges edges = HandleEdges(handle);
    const bool top = edges & Qt::TopEdge;
    const bool right = edges & Qt::RightEdge;
    const bool bottom = edges & Qt::BottomEdge;
    const bool left = edges & Qt::LeftEdge;
    QRect r = start;
    // The edges the handle moves meet the same edges of another field nearby.
    const auto snapped
        = [](int moved, const QList<int>& targets) { return moved + SnapOffset(moved, targets).value_or(0); };
    QPoint d = delta;
    if (left) d.setX(snapped(r.left() + d.x(), others.lefts) - r.left());
    if (right) d.setX(snapped(r.right() + d.x(), others.rights) - r.right());
    if (top) d.setY(snapped(r.top() + d.y(), others.tops) - r.top());
    if (bottom) d.setY(snapped(r.bottom() + d.y(), others.bottoms) - r.bottom());
    if (top) r.setTop(std::min(r.top() + d.y(), r.bottom() - kMinimumFieldSize.height()));
    if (right) r.setRight(std::max(r.right() + d.x(), r.left() + kMinimumFieldSize.width()));
    if (bottom) r.setBottom(std::max(r.bottom() + d.y(), r.top() + kMinimumFieldSize.height()));
    if (left) r.setLeft(std::min(r.left() + d.x(), r.right() - kMinimumFieldSize.width()));
    return r.intersected(QRect(QPoint(0, 0), form));
}

QRect ClampedToForm(QRect geometry, const QSize& form) {
    geometry.setWidth(std::clamp(geometry.width(), kMinimumFieldSize.width(), form.width()));
    geometry.setHeight(std::clamp(geometry.height(), kMinimumFieldSize.height(), form.height()));
    geometry.moveLeft(std::clamp(geometry.left(), 0, form.width() - geometry.width()));
    geometry.moveTop(std::clamp(geometry.top(), 0, form.height() - geometry.height()));
    return geometry;
}

Qt::Edges FormEdgesAt(const QSize& form, const QPoint& point) {
    Qt::Edges edges;
    if (!QRect(QPoint(0, 0), form).contains(point)) return edges;
    if (point.x() >= form.width() - kFormEdgeReach) edges |= Qt::RightEdge;
    if (point.y() >= form.height() - kFormEdgeReach) edges |= Qt::BottomEdge;
    return edges;
}

} // namespace quillmar::forms
