#pragma once

#include "app/plot/FrameView.h"
#include "kernel/frames/Page.h"

#include <QRect>
#include <QRectF>

namespace veldraw::app {

/// Where the frames of a page stand in the widget that the paper fills. Frames that lie beside the paper shrink the scale, so that
/// everything is in view.
class PageOnScreen
{
public:
    /// @param widget in logical pixels; @param gap that is left free around the page
    PageOnScreen(kernel::Page const& page, QRect const& widget, int gap = 6);

    /// The frame with its header and border. Neighbours on the paper are neighbours on the screen.
    QRect frameOf(kernel::Rectangle const& onPaper) const;

    /// The plot in it, below the header.
    static QRect contentOf(QRect const& frame);

    /// The same for VTK, which counts from the bottom. @param widget size of the widget; @param pixelRatio device pixels a
    /// logical one
    static ViewArea viewAreaOf(QRect const& content, QSize const& widget, double pixelRatio);

private:
    QPoint toScreen(double x, double y) const;

    QRectF m_screen;
    QRectF m_paper; ///< with what lies beside it, inches
};

} // namespace veldraw::app
