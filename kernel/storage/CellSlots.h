#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace veldraw::kernel {

// The cells of an ordered zone. Fields of points and of cells have equally many slots, so that a cell has the slot of its first
// corner, and the last slot along each dimension has no cell.

/// Cells along a dimension with so many points; a dimension of one point counts as one cell.
inline std::int64_t cellsAlong(std::int64_t points)
{
    return points > 1 ? points - 1 : points;
}

/// Whether a slot of a cell-centred field has a cell.
/// @param slot zero-based, below the product of the dimensions; @param i, j, k points along each dimension
inline bool hasCell(std::int64_t slot, std::int64_t i, std::int64_t j, std::int64_t k)
{
    std::int64_t const row = slot / i;
    std::int64_t const layer = row / j;
    return slot - row * i < cellsAlong(i) && row - layer * j < cellsAlong(j) && layer < cellsAlong(k);
}

/// The corners of cells: two, four or eight points, the neighbours along I before those along J and K.
class CellCorners
{
public:
    /// @param i, j, k points along each dimension
    CellCorners(std::int64_t i, std::int64_t j, std::int64_t k)
    {
        add(i, 1);
        add(j, i);
        add(k, i * j);
    }

    std::size_t count() const { return m_count; } ///< 1 where the zone has one point

    /// The number of a corner's point. @param slot of the cell
    std::int64_t point(std::int64_t slot, std::size_t corner) const { return slot + m_steps[corner]; }

private:
    void add(std::int64_t points, std::int64_t step)
    {
        for (std::size_t at = 0, known = points > 1 ? m_count : 0; at < known; ++at) {
            m_steps[m_count++] = m_steps[at] + step;
        }
    }

    std::array<std::int64_t, 8> m_steps{};
    std::size_t m_count = 1;
};

/// Calls @p body (slot, points of the corners, their number) for each cell, in the order of the slots.
template <typename Body>
void forOrderedCells(std::int64_t i, std::int64_t j, std::int64_t k, Body const& body)
{
    CellCorners const corners(i, j, k);
    std::array<std::int64_t, 8> points{};
    for (std::int64_t layer = 0; layer < cellsAlong(k); ++layer) {
        for (std::int64_t row = 0; row < cellsAlong(j); ++row) {
            std::int64_t const first = i * (row + j * layer);
            for (std::int64_t slot = first; slot < first + cellsAlong(i); ++slot) {
                for (std::size_t corner = 0; corner < corners.count(); ++corner) {
                    points[corner] = corners.point(slot, corner);
                }
                body(slot, points.data(), corners.count());
            }
        }
    }
}

} // namespace veldraw::kernel
