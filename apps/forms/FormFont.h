#pragma once

#include <QFont>

namespace quillmar::forms {

/// The font a form gives its fields as their ambient font: the font a field stores when it has none of its
/// own, so that a field keeping the default writes no font entry and a form file reads the same on every
/// machine. (A field showing this font shows the platform's own, as its label does.)
inline QFont FormAmbientFont() {
    QFont font(QStringLiteral("MS Sans Serif"));
    font.setPointSizeF(8.25);
    return font;
}

} // namespace quillmar::forms
