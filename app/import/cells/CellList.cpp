#include "app/import/cells/CellList.h"

#include "app/files/ImportError.h"

#include <vtkCellType.h>
#include <vtkPolyData.h>
#include <vtkTypeInt64Array.h>
#include <vtkUnsignedCharArray.h>
#include <vtkUnstructuredGrid.h>

#include <algorithm>
#include <new>

namespace veldraw::app {

namespace {

void checkOffsets(CellList const& list, std::int64_t indexCount)
{
    for (std::int64_t cell = 0; cell < list.count; ++cell) {
        if (list.offsets[cell] < 0 || list.offsets[cell + 1] < list.offsets[cell])
            throw ImportError("its cells are damaged: the offsets of the cells fall");
    }
    if (list.offsets[list.count] > indexCount)
        throw ImportError("its cells are damaged: the list of their points is too short");
}

void checkIndices(CellList const& list, std::int64_t pointCount)
{
    for (std::int64_t n = list.offsets[0]; n < list.offsets[list.count]; ++n) {
        if (list.indices[n] < 0 || list.indices[n] >= pointCount) {
            throw ImportError("its cells are damaged: a cell names point " + std::to_string(list.indices[n]) + " of " +
                              std::to_string(pointCount) + " points");
        }
    }
}

CellList listOf(vtkCellArray& cells, std::int64_t pointCount)
{
    if (!cells.ConvertTo64BitStorage())
        throw std::bad_alloc();
    CellList list;
    list.count = cells.GetNumberOfCells();
    list.keepers.emplace_back(&cells);
    if (list.count == 0)
        return list;
    list.offsets = static_cast<std::int64_t const*>(cells.GetOffsetsArray64()->GetVoidPointer(0));
    list.indices = static_cast<std::int64_t const*>(cells.GetConnectivityArray64()->GetVoidPointer(0));
    checkOffsets(list, cells.GetConnectivityArray64()->GetNumberOfValues());
    checkIndices(list, pointCount);
    return list;
}

void checkFaces(CellList const& list, std::int64_t pointCount)
{
    auto const damaged = [] { throw ImportError("its polyhedra are damaged: the faces of a cell lead nowhere"); };
    auto const at = [&](std::int64_t position) {
        if (position < 0 || position >= list.faceStreamSize)
            damaged();
        return list.faceStream[position];
    };
    for (std::int64_t cell = 0; cell < list.count; ++cell) {
        if (list.types[static_cast<std::size_t>(cell)] != VTK_POLYHEDRON)
            continue;
        std::int64_t position = list.faceOffsets[cell];
        for (std::int64_t faces = at(position++); faces > 0; --faces) {
            std::int64_t const points = at(position++);
            if (points < 0 || points > list.faceStreamSize - position)
                damaged();
            for (std::int64_t n = 0; n < points; ++n) {
                std::int64_t const point = at(position++);
                if (point < 0 || point >= pointCount)
                    damaged();
            }
        }
    }
}

void addFaces(CellList& list, vtkUnstructuredGrid& grid, std::int64_t pointCount)
{
    bool polyhedra = false;
    for (unsigned char type : list.types)
        polyhedra = polyhedra || type == VTK_POLYHEDRON;
    if (!polyhedra)
        return;
    vtkIdTypeArray* const faces = grid.GetFaces();
    vtkIdTypeArray* const locations = grid.GetFaceLocations();
    if (!faces || !locations || locations->GetNumberOfValues() < list.count)
        throw ImportError("its polyhedra are damaged: they have no faces");
    list.faceStream = reinterpret_cast<std::int64_t const*>(faces->GetPointer(0));
    list.faceStreamSize = faces->GetNumberOfValues();
    list.faceOffsets = reinterpret_cast<std::int64_t const*>(locations->GetPointer(0));
    list.keepers.emplace_back(faces);
    list.keepers.emplace_back(locations);
    checkFaces(list, pointCount);
}

CellList listOf(vtkUnstructuredGrid& grid, std::int64_t pointCount)
{
    if (!grid.GetCells())
        return {};
    CellList list = listOf(*grid.GetCells(), pointCount);
    vtkUnsignedCharArray* const types = grid.GetCellTypesArray();
    if (list.count > 0 && (!types || types->GetNumberOfValues() != list.count))
        throw ImportError("its cells are damaged: there are not as many cell types as cells");
    if (list.count > 0)
        list.types.assign(types->GetPointer(0), types->GetPointer(0) + list.count);
    addFaces(list, grid, pointCount);
    return list;
}

// VTK tells the cells of a vtkPolyData apart by their list and their number of points alone.
CellList listOf(vtkCellArray& cells, std::int64_t pointCount, unsigned char usual, std::int64_t usualSize,
                unsigned char other)
{
    CellList list = listOf(cells, pointCount);
    for (std::int64_t cell = 0; cell < list.count; ++cell) {
        bool const quad = other == VTK_POLYGON && list.sizeOf(cell) == 4;
        list.types.push_back(quad                             ? static_cast<unsigned char>(VTK_QUAD)
                             : list.sizeOf(cell) == usualSize ? usual
                                                              : other);
    }
    return list;
}

} // namespace

std::int64_t CellList::faceStreamSizeOf(std::int64_t cell) const
{
    std::int64_t position = faceOffsets[cell];
    for (std::int64_t faces = faceStream[position++]; faces > 0; --faces)
        position += 1 + faceStream[position];
    return position - faceOffsets[cell];
}

std::vector<CellList> cellListsOf(vtkDataSet& grid, std::int64_t pointCount)
{
    std::vector<CellList> lists;
    if (auto* const unstructured = vtkUnstructuredGrid::SafeDownCast(&grid)) {
        lists.push_back(listOf(*unstructured, pointCount));
    } else if (auto* const surface = vtkPolyData::SafeDownCast(&grid)) {
        lists.push_back(listOf(*surface->GetVerts(), pointCount, VTK_VERTEX, 1, VTK_POLY_VERTEX));
        lists.push_back(listOf(*surface->GetLines(), pointCount, VTK_LINE, 2, VTK_POLY_LINE));
        lists.push_back(listOf(*surface->GetPolys(), pointCount, VTK_TRIANGLE, 3, VTK_POLYGON));
        lists.push_back(listOf(*surface->GetStrips(), pointCount, VTK_TRIANGLE_STRIP, 3, VTK_TRIANGLE_STRIP));
    }
    lists.erase(std::remove_if(lists.begin(), lists.end(), [](CellList const& list) { return list.count == 0; }),
                lists.end());
    return lists;
}

} // namespace veldraw::app
