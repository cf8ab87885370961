#include "apps/forms/Alignment.h"

#include <cstdlib>

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

std::optional<int> SnapOffset(int edge, const QList<int>& targets, int reach) {
    std::optional<int> best;
    for (int target : targets)
        if (std::abs(target - edge) <= reach && (!best || std::abs(target - edge) < std::abs(*best)))
            best = target - edge;
    return best;
}

} // namespace quillmar::forms
