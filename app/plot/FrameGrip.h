#pragma once

#include "kernel/frames/Frame.h"

#include <QPointF>
#include <QRect>
#include <Qt>

#include <vector>

namespace veldraw::app {

/// The part of a frame by which the mouse takes it: its header, which moves it, or an edge or a corner, which make it smaller and larger. Or none of
/// these.
struct FrameGrip
{
    bool isHeader = false;
    Qt::Edges edges;

    bool isNothing() const { return !isHeader && edges == Qt::Edges(); }
    Qt::CursorShape cursor() const;
};

/// @param area of the frame with its border, logical pixels; @param at inside or outside of it
FrameGrip gripAt(QRect const& area, QPoint const& at);

/// The rectangle of a frame that was taken there and dragged so far, at least half an inch wide and high. @param way inches
kernel::Rectangle dragged(kernel::Rectangle const& frame, FrameGrip grip, QPointF const& way);

/// Where the edges of a frame catch.
struct CatchingLines
{
    std::vector<double> x; ///< inches, as the next ones
    std::vector<double> y;
    QPointF reach; ///< how near an edge must come
};

/// The same frame with the edges that move on the nearest lines; one that is moved as a whole keeps its size.
kernel::Rectangle caught(kernel::Rectangle const& frame, FrameGrip grip, CatchingLines const& lines);

} // namespace veldraw::app
