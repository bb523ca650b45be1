#pragma once

#include "kernel/data/Zone.h"

#include <array>
#include <cstdint>

namespace veldraw::app {

/// The cells of a finite-element zone, one by one, with the faces of those that have a volume.
class CellFaces
{
public:
    using Shape = kernel::Connectivity::Shape;

    static constexpr int noCorner = -1;

    /// Faces by positions in a cell's list of corners; the last of a triangle is noCorner. Seen from outside they run
    /// counterclockwise.
    struct Table
    {
        int count = 0;
        std::array<std::array<int, 4>, 6> faces{};
    };

    /// @param zone has cells and must outlive this
    explicit CellFaces(kernel::Zone const& zone);

    std::int64_t count() const { return m_cells.cellCount; }
    Shape shape(std::int64_t cell) const { return m_cells.shapes ? m_cells.shapes[cell] : m_shape; }

    std::int64_t const* corners(std::int64_t cell) const { return m_cells.indices + m_cells.offsets[cell]; }
    std::int64_t cornerCount(std::int64_t cell) const { return m_cells.offsets[cell + 1] - m_cells.offsets[cell]; }

    /// Faces of a cell of this shape; none of one without a volume, and of a polyhedron.
    static Table const& facesOf(Shape shape);

    /// Faces of a cell; none of one that has no volume, or not as many corners as its shape needs.
    Table const& faces(std::int64_t cell) const;

    /// Whether a cell of this shape is a line or a surface, drawn as it stands.
    static bool isFlat(Shape shape);

private:
    kernel::Connectivity const& m_cells;
    Shape m_shape; // of all cells, where they have none each
};

} // namespace veldraw::app
