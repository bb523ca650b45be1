#pragma once

#include "kernel/data/DataSet.h"
#include "kernel/frames/LineMap.h"

#include <vtkSmartPointer.h>
#include <vtkTable.h>

#include <array>
#include <cstdint>

namespace veldraw::app {

/// The points of one curve of a line plot.
///
/// Where points or cells are hidden the curve has a gap, and so it has where a value is not positive along a logarithmic axis.
///
/// A copy, so that the plot never holds the kernel's buffers. A curve of more than half a million points is thinned to
/// the first, smallest, largest and last value of each of many short stretches, which draws the same pixels.
struct LinePoints
{
    /// Two columns with the places along the axes, which are common logarithms along a logarithmic one, and two with the values. Null
    /// when x and y do not belong together: one has values at points, the other in cells, of a zone that is no line.
    vtkSmartPointer<vtkTable> table;

    /// A number of a table of points. @param column 0 to 3: the places along x and y, the values of x and y
    static double number(vtkTable& points, vtkIdType row, vtkIdType column);

    std::int64_t notPositive = 0; ///< points left out because of a logarithmic axis

    /// @param zone, x, y one-based numbers that exist
    /// @param indices points to take along I, J and K; of a finite-element zone the first counts
    /// @param isLogarithmic the axes x and y
    static LinePoints create(kernel::DataSet const& dataSet, int zone, int x, int y,
                             std::array<kernel::IndexRange, 3> const& indices, std::array<bool, 2> isLogarithmic = {});
};

} // namespace veldraw::app
