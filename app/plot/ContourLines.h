#pragma once

#include <vtkFloatArray.h>
#include <vtkPolyData.h>
#include <vtkSmartPointer.h>

#include <vector>

namespace veldraw::app {

/// Finds the lines along which values at the points of a surface have certain levels.
class ContourLines
{
public:
    /// The level of each line, zero-based, among the data of the result's cells.
    static constexpr char levelName[] = "level";

    /// Goes through all polygons of @p surface; one with a corner whose value is not a number has no lines.
    /// @param values at its points
    /// @param levels in ascending order
    /// @return lines of as many points as possible, in the order of the levels
    /// @throws std::bad_alloc
    static vtkSmartPointer<vtkPolyData> over(vtkPolyData& surface, vtkFloatArray& values,
                                             std::vector<float> const& levels);
};

} // namespace veldraw::app
