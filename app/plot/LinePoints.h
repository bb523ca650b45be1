#pragma once

#include "kernel/data/DataSet.h"
#include "kernel/frames/LineMap.h"

#include <vtkSmartPointer.h>
#include <vtkTable.h>

#include <array>

namespace veldraw::app {

/// The points of one curve of a line plot, in two columns.
///
/// Where points or cells are hidden the curve has a gap.
///
/// A copy, so that the plot never holds the kernel's buffers. A curve of more than half a million points is thinned to
/// the first, smallest, largest and last value of each of many short stretches, which draws the same pixels.
class LinePoints
{
public:
    /// @param zone, x, y one-based numbers that exist
    /// @param indices points to take along I, J and K; of a finite-element zone the first counts
    /// @return null when x and y do not belong together: one has values at points, the other in cells, of a zone that
    /// is no line
    static vtkSmartPointer<vtkTable> create(kernel::DataSet const& dataSet, int zone, int x, int y,
                                            std::array<kernel::IndexRange, 3> const& indices);
};

} // namespace veldraw::app
