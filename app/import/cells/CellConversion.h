#pragma once

#include "app/import/cells/CellList.h"
#include "kernel/data/Connectivity.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace veldraw::app {

/// True for a cell that the kernel has as it is: a kernel shape with the right number of points.
bool isKernelCell(unsigned char vtkType, std::int64_t pointCount);

/// Kernel shape of a cell for which isKernelCell() holds.
kernel::Connectivity::Shape kernelShapeOf(unsigned char vtkType);

/// Collects cells one by one, for grids whose cells cannot be taken over as they are.
class ConnectivityBuilder
{
public:
    using Shape = kernel::Connectivity::Shape;

    /// @param source number of the cell of the file that this one comes from, zero-based
    void add(Shape shape, std::int64_t const* points, std::int64_t count, std::int64_t source);

    /// @param faces a face stream: number of faces, then for each its number of points and its points
    void addPolyhedron(std::int64_t const* points, std::int64_t count, std::int64_t const* faces,
                       std::int64_t facesSize, std::int64_t source);

    /// Source cell of each cell.
    std::vector<std::int64_t> const& sources() const { return m_sources; }

    /// What was collected; the builder is of no use afterwards. Shapes are always there.
    std::shared_ptr<kernel::Connectivity> finish();

private:
    struct Arrays
    {
        std::vector<std::int64_t> offsets{0};
        std::vector<std::int64_t> indices;
        std::vector<Shape> shapes;
        std::vector<std::int64_t> faceOffsets;
        std::vector<std::int64_t> faceStream;
    };

    std::shared_ptr<Arrays> m_arrays = std::make_shared<Arrays>();
    std::vector<std::int64_t> m_sources;
};

/// Brings the cells of VTK grids into kernel shapes, cell by cell, and keeps count of what cannot stay as it is.
class CellConversion
{
public:
    /// Adds all cells of a list; cell numbers go on from list to list.
    /// @throws ImportError for a cell type without counterpart, or a cell with too few points
    void add(CellList const& list);

    ConnectivityBuilder& cells() { return m_cells; }

    /// Sentences for the user about cells that were left out or simplified.
    std::vector<std::string> remarks() const;

private:
    void addCell(CellList const& list, std::int64_t cell);
    bool addReordered(unsigned char type, std::int64_t const* points, std::int64_t size);
    bool addDecomposed(unsigned char type, std::int64_t const* points, std::int64_t size);
    bool addCorners(unsigned char type, std::int64_t const* points, std::int64_t size);

    ConnectivityBuilder m_cells;
    std::int64_t m_source = 0;
    std::int64_t m_vertices = 0;
    std::int64_t m_degenerate = 0;
    std::int64_t m_linearised = 0;
    std::int64_t m_decomposed = 0;
};

} // namespace veldraw::app
