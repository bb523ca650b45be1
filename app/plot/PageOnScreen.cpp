#include "app/plot/PageOnScreen.h"

#include "app/plot/PageOverlay.h"

#include <algorithm>

namespace veldraw::app {

PageOnScreen::PageOnScreen(kernel::Page const& page, QRect const& widget, int gap)
    : m_paper(0.0, 0.0, std::max(page.paperWidth, 0.1), std::max(page.paperHeight, 0.1))
{
    m_screen = QRectF(widget).adjusted(gap, gap, -gap, -gap);
    for (auto const& frame : page.frames)
        m_paper |= QRectF(frame->rectangle.x, frame->rectangle.y, frame->rectangle.width, frame->rectangle.height);
}

QPoint PageOnScreen::toScreen(double x, double y) const
{
    double const xScale = m_screen.width() / m_paper.width();
    double const yScale = m_screen.height() / m_paper.height();
    return QPointF(m_screen.left() + (x - m_paper.left()) * xScale, m_screen.top() + (y - m_paper.top()) * yScale)
        .toPoint();
}

QPointF PageOnScreen::onPaper(QPointF const& way) const
{
    return {way.x() * m_paper.width() / std::max(1.0, m_screen.width()),
            way.y() * m_paper.height() / std::max(1.0, m_screen.height())};
}

// Corners are rounded, not sizes.
QRect PageOnScreen::frameOf(kernel::Rectangle const& onPaper) const
{
    QPoint const topLeft = toScreen(onPaper.x, onPaper.y);
    QPoint const bottomRight = toScreen(onPaper.x + onPaper.width, onPaper.y + onPaper.height) - QPoint(1, 1);
    return QRect(topLeft, bottomRight).adjusted(1, 1, -1, -1);
}

QRect PageOnScreen::contentOf(QRect const& frame)
{
    int const border = PageOverlay::borderWidth;
    return frame.adjusted(border, PageOverlay::headerHeight, -border, -border);
}

ViewArea PageOnScreen::viewAreaOf(QRect const& content, QSize const& widget, double pixelRatio)
{
    double const width = std::max(widget.width(), 1);
    double const height = std::max(widget.height(), 1);
    ViewArea area;
    area.fraction = QRectF(content.left() / width, 1.0 - (content.top() + content.height()) / height,
                           content.width() / width, content.height() / height);
    area.width = std::max(content.width() * pixelRatio, 1.0);
    area.height = std::max(content.height() * pixelRatio, 1.0);
    area.pixelRatio = pixelRatio;
    return area;
}

} // namespace veldraw::app
