#pragma once

#include "app/plot/PlotSpace.h"

#include <array>

namespace veldraw::app {

/// How a field plot is looked at, so that it can be looked at in the same way again, or another one can.
///
/// A camera stands in the scene of a space: a plot of another one is looked at from the same direction, and sees the same part of the
/// data. A fitted view of another size or space is fitted there, from the same direction.
struct ViewPoint
{
    bool inSpace = false; ///< else in a plane
    bool isFitted = false;
    std::array<double, 3> focus{}; ///< in the scene, as the next two
    std::array<double, 3> eye{};
    std::array<double, 3> up{};
    std::array<double, 2> middle{}; ///< where the focus is seen, see vtkCamera::SetWindowCenter()
    double halfHeight = 0.0;        ///< of what is seen in a plane
    PlotSpace space;
    std::array<double, 2> stage{}; ///< width and height of the picture, device pixels

    bool operator==(ViewPoint const& other) const
    {
        return inSpace == other.inSpace && isFitted == other.isFitted && focus == other.focus && eye == other.eye &&
               up == other.up && middle == other.middle && halfHeight == other.halfHeight && space == other.space &&
               stage == other.stage;
    }
    bool operator!=(ViewPoint const& other) const { return !(*this == other); }
};

} // namespace veldraw::app
