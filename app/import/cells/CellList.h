#pragma once

#include <vtkCellArray.h>
#include <vtkDataSet.h>
#include <vtkIdTypeArray.h>
#include <vtkSmartPointer.h>

#include <cstdint>
#include <vector>

namespace veldraw::app {

/// Cells of a VTK grid as plain arrays, checked: no index of a CellList leads outside of its arrays or of the grid's points.
struct CellList
{
    std::int64_t count = 0;
    std::int64_t const* offsets = nullptr; ///< count + 1 entries, never falling
    std::int64_t const* indices = nullptr;
    std::vector<unsigned char> types; ///< VTK cell types, one a cell
    std::int64_t const* faceOffsets = nullptr;
    std::int64_t const* faceStream = nullptr;
    std::int64_t faceStreamSize = 0;
    std::vector<vtkSmartPointer<vtkObject>> keepers; ///< what owns the arrays

    std::int64_t sizeOf(std::int64_t cell) const { return offsets[cell + 1] - offsets[cell]; }
    std::int64_t const* pointsOf(std::int64_t cell) const { return indices + offsets[cell]; }

    /// Entries of the face stream that belong to a polyhedron.
    std::int64_t faceStreamSizeOf(std::int64_t cell) const;
};

/// The lists of @p grid, a vtkUnstructuredGrid (one list) or a vtkPolyData (vertices, lines, polygons, strips, in the order of
/// its cell data); empty lists are left out.
/// @param pointCount of the grid, which need not have its points
/// @throws ImportError when the cells contradict themselves or the points
std::vector<CellList> cellListsOf(vtkDataSet& grid, std::int64_t pointCount);

} // namespace veldraw::app
