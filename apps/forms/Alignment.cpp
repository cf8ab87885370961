#include "apps/forms/Alignment.h"

namespace quillmar::forms {

QList<QRect> Aligned(QList<QRect> rects, const QRect& reference, Alignment alignment) {
    for (QRect& r : rects) {
        switch (alignment) {
        case Alignment::Lefts:
            r.moveLeft(reference.left());
            break;
        case Alignment::Rights:
            r.moveRight(reference.right());
            break;
        case Alignment::Tops:
            r.moveTop(reference.top());
            break;
        case Alignment::Bottoms:
            r.moveBottom(reference.bottom());
            break;
        case Alignment::SameWidth:
            r.setWidth(reference.width());
            break;
        case Alignment::SameHeight:
            r.setHeight(reference.height());
            break;
        case Alignment::SameSize:
            r.setSize(reference.size());
            break;
        }
    }
    return rects;
}

} // namespace quillmar::forms
