#pragma once

#include "kernel/data/Zone.h"

#include <vtkDataSet.h>
#include <vtkSmartPointer.h>

namespace veldraw::app {

/// The vtkStructuredGrid @p grid as vtkImageData. @throws ExportError when its points form no uniform grid along the axes
vtkSmartPointer<vtkDataSet> asImageData(vtkDataSet& grid);

/// Whether a zone can be a vtkPolyData: its cells are lines, faces, or first the ones and then the others; or it is a list of
/// scattered points.
bool fitsPolyData(kernel::Zone const& zone);

/// The grid @p grid of @p zone as vtkPolyData. @throws ExportError when it does not fit
vtkSmartPointer<vtkDataSet> asPolyData(vtkDataSet& grid, kernel::Zone const& zone);

} // namespace veldraw::app
