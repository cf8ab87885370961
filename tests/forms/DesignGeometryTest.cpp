#include "apps/forms/DesignGeometry.h"

#include <gtest/gtest.h>

namespace quillmar::forms {
namespace {

constexpr QSize kForm { 480, 320 };
// Two fields already on the form: one spanning x 120..319, y 100..120, one x 300..359, y 200..229.
const QList<QRect> kOthers { QRect(120, 100, 200, 21), QRect(300, 200, 60, 30) };

QLine Vertical(int x) {
    return QLine(x, 0, x, kForm.height() - 1);
}
QLine Horizontal(int y) {
    return QLine(0, y, kForm.width() - 1, y);
}

TEST(DesignGeometry, ADraggedBlockMeetsTheNearestSameEdgeWithinFourPixels) {
    const struct {
        QRect block;
        bool alt;
        QPoint shift;
        QList<QLine> guides; // shown once the block is moved by `shift`
    } rows[] = {
        { QRect(123, 160, 100, 21), false, { -3, 0 }, { Vertical(120) } },
        { QRect(124, 160, 100, 21), false, { -4, 0 }, { Vertical(120) } }, // 4 px still meets
        { QRect(125, 160, 100, 21), false, { 0, 0 }, {} },
        { QRect(116, 160, 100, 21), false, { 4, 0 }, { Vertical(120) } },
        { QRect(117, 160, 204, 21), false, { -1, 0 }, { Vertical(319) } }, // the right edge is nearer
        { QRect(118, 160, 204, 21), false, { 2, 0 }, { Vertical(120) } }, // as near: the left edge
        { QRect(10, 197, 50, 31), false, { 0, 2 }, { Horizontal(229) } }, // the bottom edge is nearer
        { QRect(298, 99, 40, 21), false, { 2, 1 }, { Vertical(300), Horizontal(100), Horizontal(120) } },
        { QRect(123, 160, 100, 21), true, { 0, 0 }, {} }, // Alt: placed freely
        { QRect(120, 300, 10, 12), false, { 0, 0 }, { Vertical(120) } }, // already met
    };
    for (const auto& row : rows) {
        const FieldEdges others = row.alt ? FieldEdges {} : EdgesOf(kOthers);
        const QPoint shift = SnapShift(row.block, others);
        EXPECT_EQ(shift, row.shift) << row.block.x() << "," << row.block.y();
        EXPECT_EQ(GuidesFor(row.block.translated(shift), EdgesOf(kOthers), kForm), row.guides)
            << row.block.x() << "," << row.block.y();
    }
}

TEST(DesignGeometry, AHandleDragMovesItsEdgesToTheirSnappedPlace) {
    // A field at x 100..259, y 50..70.
    const QRect start(100, 50, 160, 21);
    const struct {
        int handle;
        QPoint delta;
        bool alt;
        QRect resized;
    } rows[] = {
        { 3, { 24, 0 }, false, QRect(100, 50, 184, 21) },
        { 3, { 58, 0 }, false, QRect(100, 50, 220, 21) }, // right edge 317 meets 319
        { 3, { 58, 0 }, true, QRect(100, 50, 218, 21) },
        { 3, { 55, 0 }, false, QRect(100, 50, 215, 21) }, // 314 is 5 px from 319
        { 7, { 23, 0 }, false, QRect(120, 50, 140, 21) }, // left edge 123 meets 120
        { 7, { 200, 0 }, false, QRect(243, 50, 17, 21) }, // never narrower than the least width
        { 4, { 10, 46 }, false, QRect(100, 50, 170, 71) }, // the corner: bottom 116 meets 120
        { 1, { 0, -60 }, false, QRect(100, 0, 160, 71) }, // cut at the form's top
        { 3, { 400, 0 }, false, QRect(100, 50, 380, 21) }, // cut at the form's right edge
        { 0, { -8, -4 }, false, QRect(92, 46, 168, 25) }, { 2, { 10, -10 }, false, QRect(100, 40, 170, 31) },
        { 6, { -30, 10 }, false, QRect(70, 50, 190, 31) },
        { 5, { 30, -40 }, false, QRect(100, 50, 160, 13) }, // the bottom handle moves only the bottom
    };
    for (const auto& [handle, delta, alt, resized] : rows)
        EXPECT_EQ(
            ResizedByHandle(start, handle, delta, alt ? FieldEdges {} : EdgesOf(kOthers), kForm), resized)
            << "handle " << handle << " by " << delta.x() << "," << delta.y();
}

TEST(DesignGeometry, APressFindsTheHandleOrFormEdgeUnderIt) {
    // A field at x 100..259, y 50..70: its frame runs x 99..259, y 49..70.
    const QRect field(100, 50, 160, 21);
    const struct {
        QPoint at;
        int handle;
        Qt::CursorShape cursor;
    } handles[] = {
        { { 99, 49 }, 0, Qt::SizeFDiagCursor },
        { { 179, 49 }, 1, Qt::SizeVerCursor },
        { { 259, 49 }, 2, Qt::SizeBDiagCursor },
        { { 259, 59 }, 3, Qt::SizeHorCursor },
        { { 259, 70 }, 4, Qt::SizeFDiagCursor },
        { { 179, 70 }, 5, Qt::SizeVerCursor },
        { { 99, 70 }, 6, Qt::SizeBDiagCursor },
        { { 99, 59 }, 7, Qt::SizeHorCursor },
        { { 263, 63 }, 3, Qt::SizeHorCursor }, // 2 px beyond the handle's square still takes it
        { { 264, 59 }, -1, Qt::ArrowCursor },
        { { 179, 60 }, -1, Qt::ArrowCursor },
    };
    for (const auto& [at, handle, cursor] : handles) {
        EXPECT_EQ(HandleAt(field, at), handle) << at.x() << "," << at.y();
        if (handle >= 0) {
            EXPECT_EQ(HandleCursor(handle), cursor) << handle;
        }
    }

    const std::pair<QPoint, Qt::Edges> edges[] = {
        { { 475, 100 }, Qt::RightEdge }, { { 474, 100 }, {} }, { { 200, 315 }, Qt::BottomEdge },
        { { 479, 319 }, Qt::RightEdge | Qt::BottomEdge }, { { 480, 319 }, {} }, // off the form
    };
    for (const auto& [at, taken] : edges)
        EXPECT_EQ(FormEdgesAt(kForm, at), taken) << at.x() << "," << at.y();
}

TEST(DesignGeometry, AFieldIsKeptOnTheFormAndNoSmallerThanAFieldMayBe) {
    const std::pair<QRect, QRect> rows[] = {
        { QRect(-5, 10, 100, 21), QRect(0, 10, 100, 21) },
        { QRect(450, 310, 100, 21), QRect(380, 299, 100, 21) },
        { QRect(10, 10, 5, 5), QRect(10, 10, 16, 12) },
        { QRect(0, 0, 600, 21), QRect(0, 0, 480, 21) },
    };
    for (const auto& [geometry, clamped] : rows)
        EXPECT_EQ(ClampedToForm(geometry, kForm), clamped) << geometry.x() << "," << geometry.y();
}

} // namespace
} // namespace quillmar::forms
