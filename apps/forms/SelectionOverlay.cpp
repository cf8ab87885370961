#include "apps/forms/SelectionOverlay.h"

#include "apps/forms/DesignGeometry.h"
#include "apps/forms/DesignSurface.h"

#include <QPainter>

namespace quillmar::forms {

SelectionOverlay::SelectionOverlay(DesignSurface* surface)
    : QWidget(surface)
    , m_surface(surface) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void SelectionOverlay::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QList<int> selected = m_surface->Selection();
    const QColor accent = palette().color(QPalette::Highlight);
    const int primary = m_surface->Primary();
    for (int id : selected) {
        const QRect r = SelectionFrame(m_surface->GeometryOf(id));
        painter.setPen(QPen(accent, 1, Qt::DashLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(r);
        painter.setPen(accent);
        painter.setBrush(id == primary ? QBrush(accent) : QBrush(Qt::white));
        for (const QRect& handle : HandleRects(r))
            painter.drawRect(handle);
    }
    // Where a dragged field's edge meets the same edge of another.
    painter.setPen(QPen(accent, 1));
    for (const QLine& guide : m_surface->Guides())
        painter.drawLine(guide);
    // The form's own grips: the middle of its right and bottom edges and its corner.
    painter.setPen(palette().color(QPalette::Dark));
    painter.setBrush(palette().color(QPalette::Base));
    const int w = width();
    const int h = height();
    for (const QPoint& p : { QPoint(w - kHandleSize, h / 2 - kHandleSize / 2),
             QPoint(w / 2 - kHandleSize / 2, h - kHandleSize), QPoint(w - kHandleSize, h - kHandleSize) })
        painter.drawRect(QRect(p, QSize(kHandleSize - 1, kHandleSize - 1)));
}

} // namespace quillmar::forms
