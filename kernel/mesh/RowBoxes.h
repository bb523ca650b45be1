#pragma once

#include "kernel/mesh/ZoneCells.h"

namespace veldraw::kernel {

/// The boxes of the cells of an ordered zone, for those who go through the cells row by row: the corners of some tens of cells
/// of a row are read at a time, each once.
class RowBoxes
{
public:
    /// @param cells of an ordered zone; live as long as this does
    explicit RowBoxes(ZoneCells const& cells)
        : m_cells(cells)
    {
    }

    static constexpr std::int64_t cellsAtATime = 64;

    /// Whether a cell is among those that were read last.
    bool has(std::int64_t slot) const { return slot >= m_first && slot < m_first + m_count; }

    /// Reads cells from one on. @return false when the slot has none
    bool read(std::int64_t slot);

    /// Widens all boxes that were read, on each side of the first @p axes, by @p factor times the sum of their sides.
    void widen(std::size_t axes, double factor);

    /// The place of a cell that was read among those, and their number.
    std::size_t place(std::int64_t slot) const { return static_cast<std::size_t>(slot - m_first); }
    std::size_t count() const { return static_cast<std::size_t>(m_count); }

    /// The lowest and the highest coordinates of all cells that were read.
    double const* low(std::size_t axis) const { return m_low[axis].data(); }
    double const* high(std::size_t axis) const { return m_high[axis].data(); }

    /// The corners of a cell that was read, in the order of ZoneCells.
    void corners(std::int64_t slot, Point* corners) const
    {
        std::size_t const at = place(slot);
        for (std::size_t row = 0; row < m_rowCount; ++row) {
            bool const isBackward = row % 2 != 0; // around the cell
            for (std::size_t axis = 0; axis < 3; ++axis) {
                Numbers const& numbers = m_rows[axis][row];
                corners[2 * row][axis] = numbers[isBackward ? at + 1 : at];
                corners[2 * row + 1][axis] = numbers[isBackward ? at : at + 1];
            }
        }
    }

    /// The box of a cell that was read; nothing when a coordinate of a corner is not finite.
    std::optional<Box> box(std::int64_t slot) const
    {
        std::size_t const at = place(slot);
        if (std::isnan(m_check[at])) {
            return std::nullopt;
        }
        Box box;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            box.low[axis] = m_low[axis][at];
            box.high[axis] = m_high[axis][at];
        }
        return box;
    }

private:
    /// Numbers of each of some points that follow each other in a row, then of the cells between each and the next one.
    using Numbers = std::array<double, cellsAtATime + 1>;

    ZoneCells const& m_cells;
    std::int64_t m_first = 0; // slot of the first cell that has been read
    std::int64_t m_count = 0;
    std::size_t m_rowCount = 0; // of points that the cells are between
    std::array<std::array<Numbers, 4>, 3> m_rows;
    std::array<Numbers, 3> m_low;
    std::array<Numbers, 3> m_high;
    Numbers m_check; // no number where a coordinate is not finite
};

} // namespace veldraw::kernel
