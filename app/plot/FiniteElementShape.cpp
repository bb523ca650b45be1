#include "app/plot/FiniteElementShape.h"

#include "app/plot/OuterFaces.h"
#include "app/plot/SoundCells.h"
#include "app/plot/VisibleElements.h"
#include "app/vtk/ProgressObserver.h"
#include "app/vtk/ZoneToVtk.h"
#include "kernel/base/Parallel.h"
#include "kernel/data/DataSet.h"

#include <vtkCellData.h>
#include <vtkGeometryFilter.h>
#include <vtkIdTypeArray.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>
#include <vtkTypeInt64Array.h>

#include <algorithm>
#include <numeric>

namespace veldraw::app {

namespace {

using kernel::Connectivity;

constexpr char elementNumberName[] = "number";

vtkSmartPointer<vtkTypeInt64Array> adopt(std::int64_t const* values, std::int64_t count)
{
    auto array = vtkSmartPointer<vtkTypeInt64Array>::New();
    // VTK has no array over constant memory; nobody writes through this one.
    array->SetArray(reinterpret_cast<vtkTypeInt64*>(const_cast<std::int64_t*>(values)), count, 1);
    return array;
}

ZoneShape asItStands(std::shared_ptr<Connectivity const> const& cells, std::int64_t pointCount, bool lines)
{
    ZoneShape shape;
    shape.pointCount = pointCount;
    shape.connectivity = cells;
    auto array = vtkSmartPointer<vtkCellArray>::New();
    array->SetData(adopt(cells->offsets, cells->cellCount + 1),
                   adopt(cells->indices, cells->offsets[cells->cellCount]));
    (lines ? shape.lines : shape.polygons) = array;
    return shape;
}

std::vector<std::int64_t> idsOf(vtkDataArray* array, std::int64_t count)
{
    std::vector<std::int64_t> ids;
    if (!array)
        return ids;
    ids.reserve(static_cast<std::size_t>(count));
    for (vtkIdType n = 0; n < array->GetNumberOfTuples(); ++n)
        ids.push_back(static_cast<std::int64_t>(array->GetComponent(n, 0)));
    return ids;
}

vtkSmartPointer<vtkCellArray> ownCells(vtkCellArray* cells)
{
    return cells && cells->GetNumberOfCells() > 0 ? cells : nullptr;
}

void addNumbers(vtkDataSetAttributes& attributes, std::int64_t count)
{
    vtkNew<vtkIdTypeArray> numbers;
    numbers->SetName(elementNumberName);
    numbers->SetNumberOfValues(count);
    std::iota(numbers->Begin(), numbers->End(), vtkIdType(0));
    attributes.AddArray(numbers);
}

std::shared_ptr<kernel::Zone> withoutFields(kernel::Zone const& zone)
{
    auto copy = std::make_shared<kernel::Zone>(zone.name, zone.type, zone.i, zone.j, zone.k);
    copy->connectivity = zone.connectivity;
    return copy;
}

// Faces of polyhedra are found by VTK, from the connectivity alone; coordinates are fetched later, for the outer points only.
ZoneShape facesFoundByVtk(kernel::Zone const& zone, kernel::Progress const& progress)
{
    kernel::DataSet dataSet;
    dataSet.addZone(withoutFields(zone));
    auto const grid = vtkDataSetOfZone(dataSet, 1, {0, 0, 0}, {});
    vtkNew<vtkGeometryFilter> filter;
    vtkNew<ProgressObserver> observer;
    observer->watch(*filter, progress);
    // The filter's own arrays of original cells are missing if some cells have no volume.
    addNumbers(*grid->GetPointData(), zone.pointCount());
    addNumbers(*grid->GetCellData(), zone.cellCount());
    filter->SetInputData(grid);
    filter->MergingOff();
    filter->Update();
    progress.check();
    vtkPolyData* const faces = filter->GetOutput();

    ZoneShape shape;
    shape.pointCount = faces->GetNumberOfPoints();
    shape.vertices = ownCells(faces->GetVerts());
    shape.lines = ownCells(faces->GetLines());
    shape.polygons = ownCells(faces->GetPolys());
    shape.points = idsOf(faces->GetPointData()->GetArray(elementNumberName), shape.pointCount);
    shape.cells = idsOf(faces->GetCellData()->GetArray(elementNumberName), shape.cellCount());
    return shape;
}

// Outer faces of the visible cells, also where the neighbour is hidden.
ZoneShape withoutHidden(kernel::Zone const& zone, kernel::Progress const& progress)
{
    VisibleElements const visible = VisibleElements::of(zone, progress);
    ZoneShape shape = FiniteElementShape::create(*visible.zone, progress);
    std::vector<std::int64_t> cells(static_cast<std::size_t>(shape.cellCount()));
    kernel::parallelFor(shape.cellCount(), [&](std::int64_t first, std::int64_t last, std::int64_t) {
        for (std::int64_t n = first; n < last; ++n)
            cells[static_cast<std::size_t>(n)] = visible.cells[static_cast<std::size_t>(shape.cellOf(n))];
    });
    shape.cells = std::move(cells);
    return shape;
}

} // namespace

ZoneShape FiniteElementShape::create(kernel::Zone const& zone, kernel::Progress const& progress)
{
    if (!zone.connectivity || !areSound(*zone.connectivity, zone.pointCount()))
        return {};
    if (zone.hidden(ValueLocation_CellCentered))
        return withoutHidden(zone, progress);
    switch (zone.type) {
    case ZoneType_FELineSeg:
        return asItStands(zone.connectivity, zone.pointCount(), true);
    case ZoneType_FETriangle:
    case ZoneType_FEQuad:
    case ZoneType_FEPolygon:
        return asItStands(zone.connectivity, zone.pointCount(), false);
    default:
        return OuterFaces::canFind(zone) ? OuterFaces::create(zone, progress) : facesFoundByVtk(zone, progress);
    }
}

} // namespace veldraw::app
