#pragma once

#include "kernel/data/Zone.h"

#include <vtkDataSet.h>
#include <vtkSmartPointer.h>

namespace veldraw::app {

/// The vtkStructuredGrid @p grid as vtkImageData. @throws ExportError when its points form no uniform grid along the axes
vtkSmartPointer<vtkDataSet> asImageData(vtkDataSet& grid);

/// The vtkUnstructuredGrid @p grid of @p zone as vtkPolyData. @throws ExportError when it has volume cells, or lines and faces
vtkSmartPointer<vtkDataSet> asPolyData(vtkDataSet& grid, kernel::Zone const& zone);

} // namespace veldraw::app
