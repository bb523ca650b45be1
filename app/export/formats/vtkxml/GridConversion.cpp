#include "app/export/formats/vtkxml/GridConversion.h"

#include "app/export/writing/ExportError.h"

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkFieldData.h>
#include <vtkIdTypeArray.h>
#include <vtkImageData.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>
#include <vtkStructuredGrid.h>
#include <vtkUnstructuredGrid.h>

#include <algorithm>
#include <cmath>
#include <numeric>

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

using Shape = kernel::Connectivity::Shape;

// Number of the leading cells of a finite-element zone that are lines.
std::int64_t lineCount(kernel::Zone const& zone)
{
    if (zone.type == ZoneType_FELineSeg)
        return zone.cellCount();
    if (!zone.connectivity || !zone.connectivity->shapes)
        return 0;
    Shape const* const shapes = zone.connectivity->shapes;
    return std::find_if(shapes, shapes + zone.connectivity->cellCount,
                        [](Shape shape) { return shape != Shape::LineSegment; }) -
           shapes;
}

bool areFacesFrom(kernel::Zone const& zone, std::int64_t first)
{
    if (zone.type == ZoneType_FETriangle || zone.type == ZoneType_FEQuad || zone.type == ZoneType_FEPolygon)
        return true;
    if (zone.type != ZoneType_FEMixed || !zone.connectivity || !zone.connectivity->shapes)
        return first == zone.cellCount();
    Shape const* const shapes = zone.connectivity->shapes;
    return std::all_of(shapes + first, shapes + zone.connectivity->cellCount, kernel::Connectivity::isFace);
}

bool isListOfPoints(kernel::Zone const& zone)
{
    bool const hasCells = std::any_of(zone.fields.begin(), zone.fields.end(), [](kernel::Field const& field) {
        return !field.isPassive() && field.location() == ValueLocation_CellCentered;
    });
    return zone.isOrdered() && zone.isScattered && zone.dimensionality() <= 1 && !hasCells;
}

// Some of the cells, in the numbering of their own.
vtkSmartPointer<vtkCellArray> cellsFrom(kernel::Connectivity const& cells, std::int64_t first, std::int64_t last)
{
    vtkNew<vtkIdTypeArray> offsets;
    vtkNew<vtkIdTypeArray> corners;
    std::int64_t const start = cells.offsets[first];
    offsets->SetNumberOfValues(last - first + 1);
    corners->SetNumberOfValues(cells.offsets[last] - start);
    std::transform(cells.offsets + first, cells.offsets + last + 1, offsets->GetPointer(0),
                   [start](std::int64_t offset) { return offset - start; });
    std::copy(cells.indices + start, cells.indices + cells.offsets[last], corners->GetPointer(0));
    vtkNew<vtkCellArray> result;
    result->SetData(offsets, corners);
    return result;
}

vtkSmartPointer<vtkCellArray> vertices(vtkIdType count)
{
    vtkNew<vtkIdTypeArray> offsets;
    vtkNew<vtkIdTypeArray> corners;
    offsets->SetNumberOfValues(count + 1);
    corners->SetNumberOfValues(count);
    std::iota(offsets->Begin(), offsets->End(), vtkIdType(0));
    std::iota(corners->Begin(), corners->End(), vtkIdType(0));
    vtkNew<vtkCellArray> result;
    result->SetData(offsets, corners);
    return result;
}

void setCells(vtkPolyData& surface, vtkDataSet& grid, kernel::Zone const& zone)
{
    auto* const elements = vtkUnstructuredGrid::SafeDownCast(&grid);
    std::int64_t const lines = lineCount(zone);
    if (!elements) {
        surface.SetVerts(vertices(grid.GetNumberOfPoints()));
    } else if (lines == 0) {
        surface.SetPolys(elements->GetCells());
    } else if (lines == zone.cellCount()) {
        surface.SetLines(elements->GetCells());
    } else {
        surface.SetLines(cellsFrom(*zone.connectivity, 0, lines));
        surface.SetPolys(cellsFrom(*zone.connectivity, lines, zone.cellCount()));
    }
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

bool fitsPolyData(kernel::Zone const& zone)
{
    if (zone.isOrdered())
        return isListOfPoints(zone);
    return zone.cellCount() > 0 && areFacesFrom(zone, lineCount(zone));
}

vtkSmartPointer<vtkDataSet> asPolyData(vtkDataSet& grid, kernel::Zone const& zone)
{
    if (!fitsPolyData(zone))
        throw ExportError(zone.isOrdered() ? "an ordered zone is no surface mesh; .vts takes it"
                                           : "its cells are not lines, faces, or lines before faces; .vtu takes it");
    vtkNew<vtkPolyData> surface;
    surface->SetPoints(vtkPointSet::SafeDownCast(&grid)->GetPoints());
    setCells(*surface, grid, zone);
    passData(grid, *surface);
    return surface;
}

} // namespace veldraw::app
