#pragma once

#include "kernel/frames/Frame.h"

#include <QColor>

class vtkPlotLine;

namespace veldraw::app {

/// How the curves of a line plot are drawn.
class CurveStyle
{
public:
    /// @param index the place of the line map in its frame, from 0
    static QColor colour(kernel::LineMap const& map, int index);

    /// Whether a curve is drawn at all, as a line or as symbols.
    static bool isSeen(kernel::Frame const& frame, kernel::LineMap const& map);

    /// Gives a curve its line and symbols. @param pixelRatio device pixels a logical pixel
    static void apply(vtkPlotLine& curve, kernel::Frame const& frame, kernel::LineMap const& map, QColor const& colour,
                      double pixelRatio);
};

} // namespace veldraw::app
