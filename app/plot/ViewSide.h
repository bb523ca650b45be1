#pragma once

namespace veldraw::app {

/// Sides from which a plot in space is looked at.
enum class ViewSide
{
    PlusX, ///< from where X is large, with Z upwards
    MinusX,
    PlusY,
    MinusY,
    PlusZ, ///< with Y upwards
    MinusZ,
    Isometric ///< with all three axes of the same length
};

/// Ways along the views that a plot had.
enum class ViewStep
{
    Back,
    On
};

} // namespace veldraw::app
