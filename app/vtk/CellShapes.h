#pragma once

#include "kernel/data/Connectivity.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

namespace veldraw::app {

/// VTK's cell type for a kernel shape; the corner orders agree.
unsigned char vtkCellTypeOf(kernel::Connectivity::Shape shape);

/// The one shape of the cells of a finite-element zone. Not for FEMixed and Ordered, which have none.
kernel::Connectivity::Shape shapeOf(ZoneType_e type);

/// Corners of a cell of @p shape; 0 for polygons and polyhedra, which have any number.
int cornerCount(kernel::Connectivity::Shape shape);

} // namespace veldraw::app
