#include "app/export/GridConversion.h"

#include "app/export/ExportError.h"

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkFieldData.h>
#include <vtkImageData.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>
#include <vtkStructuredGrid.h>
#include <vtkUnstructuredGrid.h>

#include <algorithm>
#include <cmath>

namespace veldraw::app {

namespace {

void passData(vtkDataSet& from, vtkDataSet& to)
{
    to.GetPointData()->ShallowCopy(from.GetPointData());
    to.GetCellData()->ShallowCopy(from.GetCellData());
    to.GetFieldData()->ShallowCopy(from.GetFieldData());
}

bool samePoints(vtkDataSet& left, vtkDataSet& right)
{
    double a[3];
    double b[3];
    for (vtkIdType n = 0; n < left.GetNumberOfPoints(); ++n) {
        left.GetPoint(n, a);
        right.GetPoint(n, b);
        if (!std::equal(a, a + 3, b))
            return false;
    }
    return true;
}

bool isSurface(kernel::Zone const& zone)
{
    using Shape = kernel::Connectivity::Shape;
    if (zone.type == ZoneType_FETriangle || zone.type == ZoneType_FEQuad || zone.type == ZoneType_FEPolygon)
        return true;
    if (zone.type != ZoneType_FEMixed || !zone.connectivity || !zone.connectivity->shapes)
        return false;
    Shape const* const shapes = zone.connectivity->shapes;
    return std::all_of(shapes, shapes + zone.connectivity->cellCount, [](Shape shape) {
        return shape == Shape::Triangle || shape == Shape::Quad || shape == Shape::Polygon;
    });
}

} // namespace

vtkSmartPointer<vtkDataSet> asImageData(vtkDataSet& grid)
{
    auto* const structured = vtkStructuredGrid::SafeDownCast(&grid);
    if (!structured)
        throw ExportError("a finite-element zone is no uniform grid; .vtu takes it");
    vtkNew<vtkImageData> image;
    int dimensions[3];
    structured->GetDimensions(dimensions);
    image->SetDimensions(dimensions);
    double origin[3] = {0.0, 0.0, 0.0};
    double spacing[3] = {1.0, 1.0, 1.0};
    if (grid.GetNumberOfPoints() > 0)
        grid.GetPoint(0, origin);
    vtkIdType stride = 1;
    for (int axis = 0; axis < 3; ++axis) {
        if (dimensions[axis] > 1)
            spacing[axis] = grid.GetPoint(stride)[axis] - origin[axis];
        stride *= dimensions[axis];
    }
    image->SetOrigin(origin);
    image->SetSpacing(spacing);
    if (!samePoints(grid, *image))
        throw ExportError("its points form no uniform grid; .vts takes it");
    passData(grid, *image);
    return image;
}

vtkSmartPointer<vtkDataSet> asPolyData(vtkDataSet& grid, kernel::Zone const& zone)
{
    auto* const unstructured = vtkUnstructuredGrid::SafeDownCast(&grid);
    bool const lines = zone.type == ZoneType_FELineSeg;
    if (!unstructured || (!lines && !isSurface(zone)))
        throw ExportError(zone.isOrdered() ? "an ordered zone is no surface mesh; .vts takes it"
                                           : "its cells are not all lines or all faces; .vtu takes it");
    vtkNew<vtkPolyData> surface;
    surface->SetPoints(unstructured->GetPoints());
    if (lines)
        surface->SetLines(unstructured->GetCells());
    else
        surface->SetPolys(unstructured->GetCells());
    passData(grid, *surface);
    return surface;
}

} // namespace veldraw::app
