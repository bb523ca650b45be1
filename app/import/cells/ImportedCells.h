#pragma once

#include "kernel/data/Connectivity.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#include <vtkDataSet.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace veldraw::app {

/// The cells of an unstructured VTK grid in the kernel's form.
struct ImportedCells
{
    /// FE type, or Ordered when there are no cells but vertices: scattered points.
    ZoneType_e zoneType = ZoneType_Ordered;
    std::shared_ptr<kernel::Connectivity const> connectivity; ///< null for scattered points
    std::int64_t faceCount = 0;                               ///< of polygon and polyhedron zones

    bool cellsArePoints = false;       ///< scattered points: the n-th cell is the n-th point, so cell data are nodal
    bool sameCells = true;             ///< each cell is the grid's cell of the same number
    std::vector<std::int64_t> sources; ///< else: the grid's cell of each cell, zero-based

    std::vector<std::string> remarks; ///< what was left out or simplified
};

/// Takes over the cells of a vtkUnstructuredGrid or vtkPolyData, without a copy where every cell is of a kernel shape.
///
/// Pixels and voxels get the corner order of quads and bricks; polylines and triangle strips become segments and triangles;
/// cells of higher order keep their corners only; vertices among other cells, empty cells and polygons with fewer than three
/// points are left out. Cells of one shape make the zone type; faces with polygons among them a polygon zone; all else, pyramids
/// and prisms included, a mixed zone.
/// @param pointCount of the grid, which need not have its points
/// @param wanted FEMixed or FEPolygon to get such a zone where the cells allow it; Ordered for no wish
/// @throws ImportError damaged cells, or a cell type that has no counterpart
ImportedCells importCells(vtkDataSet& grid, std::int64_t pointCount, ZoneType_e wanted);

/// Whether cells of a VTK type have a fixed number of corners and are taken over as they are.
bool isPlainCell(unsigned char type);

/// The type of zone that importCells() makes of cells of these VTK types.
/// @param kinds each isPlainCell(), at least one
ZoneType_e zoneTypeOfCells(std::vector<unsigned char> const& kinds, ZoneType_e wanted);

} // namespace veldraw::app
