#include "app/import/cells/ImportedCells.h"

#include "app/import/cells/CellConversion.h"
#include "app/import/cells/CellList.h"
#include "app/import/cells/FaceCount.h"

#include <vtkCellType.h>

#include <algorithm>

namespace veldraw::app {

namespace {

using Shape = kernel::Connectivity::Shape;

bool isVertex(unsigned char type)
{
    return type == VTK_VERTEX || type == VTK_POLY_VERTEX || type == VTK_EMPTY_CELL;
}

bool onlyVertices(std::vector<CellList> const& lists)
{
    return std::all_of(lists.begin(), lists.end(), [](CellList const& list) {
        return std::all_of(list.types.begin(), list.types.end(), isVertex);
    });
}

bool nthCellIsNthPoint(std::vector<CellList> const& lists, std::int64_t pointCount)
{
    if (lists.size() != 1 || lists.front().count != pointCount)
        return false;
    CellList const& list = lists.front();
    for (std::int64_t cell = 0; cell < list.count; ++cell) {
        if (list.sizeOf(cell) != 1 || *list.pointsOf(cell) != cell)
            return false;
    }
    return true;
}

bool canBeTakenOver(CellList const& list)
{
    for (std::int64_t cell = 0; cell < list.count; ++cell) {
        if (!isKernelCell(list.types[static_cast<std::size_t>(cell)], list.sizeOf(cell)))
            return false;
    }
    return list.offsets[0] == 0;
}

// The list's own arrays; what owns them is kept together with the shapes.
std::shared_ptr<kernel::Connectivity> takenOver(CellList const& list)
{
    struct Owner
    {
        std::vector<vtkSmartPointer<vtkObject>> keepers;
        std::vector<Shape> shapes;
    };
    auto const owner = std::make_shared<Owner>();
    owner->keepers = list.keepers;
    owner->shapes.reserve(list.types.size());
    for (unsigned char type : list.types)
        owner->shapes.push_back(kernelShapeOf(type));
    auto cells = std::make_shared<kernel::Connectivity>();
    cells->cellCount = list.count;
    cells->indexCount = list.offsets[list.count];
    cells->offsets = list.offsets;
    cells->indices = list.indices;
    cells->shapes = owner->shapes.data();
    cells->faceOffsets = list.faceOffsets;
    cells->faceStream = list.faceStream;
    cells->faceStreamSize = list.faceStreamSize;
    cells->owner = owner;
    return cells;
}

ZoneType_e zoneTypeOf(kernel::Connectivity const& cells, ZoneType_e wanted)
{
    Shape const* const last = cells.shapes + cells.cellCount;
    Shape const first = *cells.shapes;
    bool const faces = std::all_of(cells.shapes, last, kernel::Connectivity::isFace);
    bool const polygons = std::find(cells.shapes, last, Shape::Polygon) != last;
    bool const same = std::all_of(cells.shapes, last, [first](Shape shape) { return shape == first; });
    if (wanted == ZoneType_FEMixed)
        return wanted;
    if (faces && (polygons || wanted == ZoneType_FEPolygon))
        return ZoneType_FEPolygon;
    if (same) {
        for (auto type : {ZoneType_FETriangle, ZoneType_FEQuad, ZoneType_FETetra, ZoneType_FEBrick, ZoneType_FELineSeg,
                          ZoneType_FEPolyhedron}) {
            if (kernel::Connectivity::shapeOf(type) == first)
                return type;
        }
    }
    return ZoneType_FEMixed;
}

void finish(ImportedCells& result, std::shared_ptr<kernel::Connectivity> cells, ZoneType_e wanted)
{
    result.zoneType = zoneTypeOf(*cells, wanted);
    if (result.zoneType != ZoneType_FEMixed)
        cells->shapes = nullptr;
    if (result.zoneType == ZoneType_FEPolygon)
        result.faceCount = countPolygonFaces(*cells);
    if (result.zoneType == ZoneType_FEPolyhedron)
        result.faceCount = countPolyhedronFaces(*cells);
    result.connectivity = std::move(cells);
}

} // namespace

ImportedCells importCells(vtkDataSet& grid, std::int64_t pointCount, ZoneType_e wanted)
{
    ImportedCells result;
    std::vector<CellList> const lists = cellListsOf(grid, pointCount);
    if (onlyVertices(lists)) {
        result.cellsArePoints = nthCellIsNthPoint(lists, pointCount);
        return result;
    }
    if (lists.size() == 1 && canBeTakenOver(lists.front())) {
        finish(result, takenOver(lists.front()), wanted);
        return result;
    }
    CellConversion conversion;
    for (CellList const& list : lists)
        conversion.add(list);
    result.remarks = conversion.remarks();
    result.sources = conversion.cells().sources();
    result.sameCells = false;
    auto cells = conversion.cells().finish();
    if (cells->cellCount > 0)
        finish(result, std::move(cells), wanted);
    return result;
}

bool isPlainCell(unsigned char type)
{
    return type == VTK_LINE || type == VTK_TRIANGLE || type == VTK_QUAD || type == VTK_TETRA ||
           type == VTK_HEXAHEDRON || type == VTK_WEDGE || type == VTK_PYRAMID;
}

ZoneType_e zoneTypeOfCells(std::vector<unsigned char> const& kinds, ZoneType_e wanted)
{
    std::vector<Shape> shapes;
    for (unsigned char const kind : kinds)
        shapes.push_back(kernelShapeOf(kind));
    kernel::Connectivity oneOfEach;
    oneOfEach.cellCount = static_cast<std::int64_t>(shapes.size());
    oneOfEach.shapes = shapes.data();
    return zoneTypeOf(oneOfEach, wanted);
}

} // namespace veldraw::app
