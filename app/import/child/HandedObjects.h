#pragma once

#include "app/import/child/ReadingChild.h"

#include <vtkDataObject.h>
#include <vtkSmartPointer.h>

namespace veldraw::app {

/// The data that a file gave as VTK's, over the shared memory, without a copy of values.
/// @return null where there are none
/// @throws ImportError where something is neither a grid nor blocks
vtkSmartPointer<vtkDataObject> objectOf(ReadResult const& result);

} // namespace veldraw::app
