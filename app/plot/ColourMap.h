#pragma once

#include <vtkLookupTable.h>
#include <vtkSmartPointer.h>

namespace veldraw::app {

/// The colours of a contour flood: dark blue-violet over teal to yellow, lightness rising evenly, so that equal steps
/// in value look equal and a print in grey still reads.
class ColourMap
{
public:
    /// 256 colours over @p min to @p max; what is no number is a neutral grey.
    static vtkSmartPointer<vtkLookupTable> create(double min, double max);
};

} // namespace veldraw::app
