#pragma once

#include "kernel/data/Field.h"

#include <vtkPoints.h>
#include <vtkSmartPointer.h>

#include <array>

namespace veldraw::app {

/// Points whose coordinates are the values of three fields, without a copy where the memory allows it (see
/// vtkDataSetOfZone()).
/// @param axes  X, Y and Z; null, a cell-centred and a passive field stand for 0
/// @param count number of points
/// @throws std::bad_alloc
vtkSmartPointer<vtkPoints> pointsOfAxes(std::array<kernel::Field const*, 3> const& axes, std::int64_t count);

} // namespace veldraw::app
