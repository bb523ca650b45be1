#include "app/plot/FrameGrip.h"

#include "app/plot/PageOverlay.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <optional>

namespace veldraw::app {

namespace {

constexpr int edgeWidth = 5; // logical pixels
constexpr int cornerSize = 12;
constexpr double smallest = 0.5; // inches

/// One axis of a frame.
struct Span
{
    double start;
    double length;

    double end() const { return start + length; }
};

Span stretched(Span span, bool isAtStart, bool isAtEnd, double way)
{
    double const most = std::max(0.0, span.length - smallest);
    if (isAtStart)
        return {span.start + std::min(way, most), span.length - std::min(way, most)};
    return {span.start, span.length + (isAtEnd ? std::max(way, -most) : 0.0)};
}

// @return the way from the nearest of the places to its nearest line
std::optional<double> wayTo(std::vector<double> const& lines, double reach, std::initializer_list<double> places)
{
    std::optional<double> nearest;
    for (double const place : places) {
        for (double const line : lines) {
            double const way = line - place;
            if (std::abs(way) <= reach && (!nearest || std::abs(way) < std::abs(*nearest)))
                nearest = way;
        }
    }
    return nearest;
}

Span caughtOn(std::vector<double> const& lines, double reach, Span span, bool isAtStart, bool isAtEnd)
{
    if (isAtStart == isAtEnd) // as a whole, or not at all
        return isAtStart ? Span{span.start + wayTo(lines, reach, {span.start, span.end()}).value_or(0.0), span.length}
                         : span;
    double const way = wayTo(lines, reach, {isAtStart ? span.start : span.end()}).value_or(0.0);
    return stretched(span, isAtStart, isAtEnd, way);
}

} // namespace

Qt::CursorShape FrameGrip::cursor() const
{
    if (edges == (Qt::LeftEdge | Qt::TopEdge) || edges == (Qt::RightEdge | Qt::BottomEdge))
        return Qt::SizeFDiagCursor;
    if (edges == (Qt::RightEdge | Qt::TopEdge) || edges == (Qt::LeftEdge | Qt::BottomEdge))
        return Qt::SizeBDiagCursor;
    if (edges & (Qt::LeftEdge | Qt::RightEdge))
        return Qt::SizeHorCursor;
    return edges ? Qt::SizeVerCursor : Qt::ArrowCursor;
}

FrameGrip gripAt(QRect const& area, QPoint const& at)
{
    if (!area.contains(at))
        return {};
    int const left = at.x() - area.left();
    int const right = area.right() - at.x();
    int const top = at.y() - area.top();
    int const bottom = area.bottom() - at.y();
    // Along one edge the other one is met early, so that corners are easy to take.
    bool const isBeside = std::min(left, right) < edgeWidth;
    bool const isAboveOrBelow = std::min(top, bottom) < edgeWidth;
    int const reachX = isAboveOrBelow ? cornerSize : edgeWidth;
    int const reachY = isBeside ? cornerSize : edgeWidth;
    Qt::Edges edges;
    edges.setFlag(Qt::LeftEdge, left < reachX && left <= right);
    edges.setFlag(Qt::RightEdge, right < reachX && right < left);
    edges.setFlag(Qt::TopEdge, top < reachY && top <= bottom);
    edges.setFlag(Qt::BottomEdge, bottom < reachY && bottom < top);
    return {!edges && top < PageOverlay::headerHeight, edges};
}

kernel::Rectangle dragged(kernel::Rectangle const& frame, FrameGrip grip, QPointF const& way)
{
    if (grip.isHeader)
        return {frame.x + way.x(), frame.y + way.y(), frame.width, frame.height};
    Span const x = stretched({frame.x, frame.width}, grip.edges.testFlag(Qt::LeftEdge),
                             grip.edges.testFlag(Qt::RightEdge), way.x());
    Span const y = stretched({frame.y, frame.height}, grip.edges.testFlag(Qt::TopEdge),
                             grip.edges.testFlag(Qt::BottomEdge), way.y());
    return {x.start, y.start, x.length, y.length};
}

kernel::Rectangle caught(kernel::Rectangle const& frame, FrameGrip grip, CatchingLines const& lines)
{
    auto const has = [grip](Qt::Edge edge) { return grip.isHeader || grip.edges.testFlag(edge); };
    Span const x = caughtOn(lines.x, lines.reach.x(), {frame.x, frame.width}, has(Qt::LeftEdge), has(Qt::RightEdge));
    Span const y = caughtOn(lines.y, lines.reach.y(), {frame.y, frame.height}, has(Qt::TopEdge), has(Qt::BottomEdge));
    return {x.start, y.start, x.length, y.length};
}

} // namespace veldraw::app
