#pragma once

#include "app/import/zones/CoordinateLoader.h"

#include <vtkDataSet.h>

#include <memory>

namespace veldraw::app {

/// What computes one coordinate of the points of a vtkImageData or vtkRectilinearGrid; null where a rectilinear grid contradicts
/// itself.
/// @param axis 0 to 2
std::shared_ptr<CoordinateLoader> coordinateLoaderOf(vtkDataSet& grid, int axis);

} // namespace veldraw::app
