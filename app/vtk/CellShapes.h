#pragma once

#include "kernel/data/Connectivity.h"

namespace veldraw::app {

/// VTK's cell type for a kernel shape; the corner orders agree.
unsigned char vtkCellTypeOf(kernel::Connectivity::Shape shape);

} // namespace veldraw::app
