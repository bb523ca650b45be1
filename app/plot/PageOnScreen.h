#pragma once

#include "app/plot/FrameView.h"
#include "kernel/frames/Page.h"

#include <QRect>
#include <QRectF>

namespace veldraw::app {

/// Places the frames of a page in the widget that shows it. The scale is chosen so that the paper and all frames, also those
/// beside the paper, are in view.
class PageOnScreen
{
public:
    /// @param widget in logical pixels; @param gap that is left free around the page
    PageOnScreen(kernel::Page const& page, QRect const& widget, int gap = 6);

    /// The frame with its header and border. Neighbours on the paper are neighbours on the screen.
    QRect frameOf(kernel::Rectangle const& onPaper) const;

    /// @param way logical pixels @return the same way on the paper, inches
    QPointF onPaper(QPointF const& way) const;

    /// The rectangle of the plot in a frame, below the header.
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
