#pragma once

#include "kernel/data/Connectivity.h"

#include <vtkCellArray.h>
#include <vtkSmartPointer.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace veldraw::app {

/// What is to be drawn of a zone: vertices, lines and polygons over some of its points.
///
/// The indices in the cell arrays count the drawn points. Which points and cells of the zone they are is kept beside
/// them, so that values are fetched for the drawn part only.
struct ZoneShape
{
    vtkSmartPointer<vtkCellArray> vertices;
    vtkSmartPointer<vtkCellArray> lines;
    vtkSmartPointer<vtkCellArray> polygons;

    /// A point between two points of the zone, zero-based.
    struct Mix
    {
        std::int64_t first;
        std::int64_t second;
        double share; ///< of the way from the first to the second
    };

    std::int64_t pointCount = 0;
    std::vector<std::int64_t> points; ///< zero-based point of the zone for each drawn one; empty = the same numbers
    std::vector<Mix> mixes;           ///< where each drawn point is, in the place of the above, for a cut through cells
    std::vector<std::int64_t> cells;  ///< value slot of each drawn cell (vertices, lines, polygons); empty = in order

    std::shared_ptr<kernel::Connectivity const> connectivity; ///< keeps adopted cell arrays alive

    std::int64_t pointOf(std::int64_t drawn) const
    {
        return points.empty() ? drawn : points[static_cast<std::size_t>(drawn)];
    }
    std::int64_t cellOf(std::int64_t drawn) const
    {
        return cells.empty() ? drawn : cells[static_cast<std::size_t>(drawn)];
    }
    std::int64_t cellCount() const
    {
        return (vertices ? vertices->GetNumberOfCells() : 0) + (lines ? lines->GetNumberOfCells() : 0) +
               (polygons ? polygons->GetNumberOfCells() : 0);
    }
};

} // namespace veldraw::app
