#include "app/plot/FiniteElementShape.h"

#include "app/vtk/ZoneToVtk.h"

#include <vtkCellData.h>
#include <vtkGeometryFilter.h>
#include <vtkIdTypeArray.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>
#include <vtkTypeInt64Array.h>

#include <algorithm>

namespace veldraw::app {

namespace {

using kernel::Connectivity;

bool inRange(std::int64_t const* values, std::int64_t count, std::int64_t end)
{
    return std::all_of(values, values + count, [end](std::int64_t value) { return value >= 0 && value < end; });
}

// Faces of polyhedra: each list must end within the stream and name points of the zone.
bool hasSoundFaces(Connectivity const& cells, std::int64_t pointCount)
{
    if (!cells.faceOffsets)
        return true;
    for (std::int64_t cell = 0; cell < cells.cellCount; ++cell) {
        std::int64_t at = cells.faceOffsets[cell];
        if (at < 0)
            continue;
        if (!cells.faceStream || at >= cells.faceStreamSize)
            return false;
        std::int64_t const faces = cells.faceStream[at++];
        for (std::int64_t face = 0; face < faces; ++face) {
            std::int64_t const points = at < cells.faceStreamSize ? cells.faceStream[at++] : -1;
            if (points < 0 || points > cells.faceStreamSize - at || !inRange(cells.faceStream + at, points, pointCount))
                return false;
            at += points;
        }
    }
    return true;
}

// A file may have brought any numbers; the drawing code of VTK trusts them.
bool isSound(Connectivity const& cells, std::int64_t pointCount)
{
    if (cells.cellCount <= 0 || !cells.offsets || !cells.indices)
        return false;
    if (cells.offsets[0] != 0 || cells.offsets[cells.cellCount] > cells.indexCount)
        return false;
    return std::is_sorted(cells.offsets, cells.offsets + cells.cellCount + 1) &&
           inRange(cells.indices, cells.indexCount, pointCount) && hasSoundFaces(cells, pointCount);
}

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

ZoneShape outerFaces(kernel::DataSet const& dataSet, int number)
{
    // Faces are found from the connectivity alone; coordinates are fetched later, for the outer points only.
    auto const grid = vtkDataSetOfZone(dataSet, number, {0, 0, 0}, {});
    if (!grid)
        return {};
    vtkNew<vtkGeometryFilter> filter;
    filter->SetInputData(grid);
    filter->PassThroughCellIdsOn();
    filter->PassThroughPointIdsOn();
    filter->MergingOff();
    filter->Update();
    vtkPolyData* const faces = filter->GetOutput();

    ZoneShape shape;
    shape.pointCount = faces->GetNumberOfPoints();
    shape.vertices = ownCells(faces->GetVerts());
    shape.lines = ownCells(faces->GetLines());
    shape.polygons = ownCells(faces->GetPolys());
    shape.points = idsOf(faces->GetPointData()->GetArray("vtkOriginalPointIds"), shape.pointCount);
    shape.cells = idsOf(faces->GetCellData()->GetArray("vtkOriginalCellIds"), shape.cellCount());
    return shape;
}

} // namespace

ZoneShape FiniteElementShape::create(kernel::DataSet const& dataSet, int number)
{
    auto const zone = dataSet.zone(number);
    if (!zone || !zone->connectivity || !isSound(*zone->connectivity, zone->pointCount()))
        return {};
    switch (zone->type) {
    case ZoneType_FELineSeg:
        return asItStands(zone->connectivity, zone->pointCount(), true);
    case ZoneType_FETriangle:
    case ZoneType_FEQuad:
    case ZoneType_FEPolygon:
        return asItStands(zone->connectivity, zone->pointCount(), false);
    default:
        return outerFaces(dataSet, number);
    }
}

} // namespace veldraw::app
