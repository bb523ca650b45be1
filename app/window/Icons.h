#pragma once

#include <QIcon>

namespace veldraw::app {

/// The pictures on our buttons and menus.
enum class Glyph
{
    Open,
    Save,
    Picture,
    Undo,
    Redo,
    Fit,
    NewFrame,
    DeleteFrame,
    TileFrames,
    Plot3D,
    Plot2D,
    PlotLine,
    PlotSketch,
    Contour,
    Mesh,
    DeleteVariable,
    Help,
    Back,
    Forward,
    Index,
    ToFirst,
    StepBack,
    Play,
    Pause,
    StepOn,
    ToLast,
    ActiveFrame,
    InactiveFrame
};

/// An icon drawn from lines in the palette's colours: sharp at every size and screen density, readable on dark palettes.
QIcon makeIcon(Glyph glyph);

/// The icon that a plot option names; none for an empty name.
QIcon iconNamed(char const* name);

/// The program's own icon.
QIcon applicationIcon();

} // namespace veldraw::app
