#pragma once

#include "kernel/frames/ContourColours.h"

#include <vtkLookupTable.h>
#include <vtkSmartPointer.h>

namespace veldraw::app {

/// The colours of a contour flood. Those of a new frame go from dark blue-violet over teal to yellow, lightness rising evenly, so that
/// equal steps in value look equal and a print in grey still reads.
class ColourMap
{
public:
    /// Colours over @p min to @p max; what is no number is a neutral grey, what is beyond has the colour of its end.
    /// @param bands number of colours, 0 for so many that they look smooth
    static vtkSmartPointer<vtkLookupTable> create(double min, double max, int bands = 0,
                                                  kernel::ColourMapKind kind = kernel::ColourMapKind::Viridis);
};

} // namespace veldraw::app
