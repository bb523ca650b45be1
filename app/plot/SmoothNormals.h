#pragma once

#include "kernel/base/Progress.h"

#include <vtkFloatArray.h>
#include <vtkPolyData.h>
#include <vtkSmartPointer.h>

namespace veldraw::app {

/// Directions that make a curved surface look smooth: at each point the mean of those of the polygons around it, each of length 1
/// whatever its size. Edges stay sharp only where faces do not share points.
///
/// VTK's filter gives the same, from a copy of the cells and lists of those at each point, several times the memory of the surface.
class SmoothNormals
{
public:
    /// Three components for each point of @p surface, whose points are floats; all 0 where no polygon with an area meets.
    /// @throws kernel::Interrupted, std::bad_alloc
    static vtkSmartPointer<vtkFloatArray> create(vtkPolyData& surface, kernel::Progress const& progress);
};

} // namespace veldraw::app
