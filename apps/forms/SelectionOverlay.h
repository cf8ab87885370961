#pragma once

#include <QWidget>

namespace quillmar::forms {

class DesignSurface;

/// Draws above a design surface's fields what the surface shows of its own: the frame and handles of each
/// selected field (the primary one's handles filled), the guides where a dragged edge meets another
/// field's, and the grips of the form's right and bottom edges and corner. It covers the whole surface and
/// takes no mouse event; the surface raises it above every field it adds and repaints it when any of these
/// change.
class SelectionOverlay final : public QWidget {
public:
    explicit SelectionOverlay(DesignSurface* surface);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    DesignSurface* m_surface;
};

} // namespace quillmar::forms
