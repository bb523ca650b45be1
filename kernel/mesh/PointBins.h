#pragma once

#include "kernel/base/Progress.h"
#include "kernel/base/ZeroedArray.h"
#include "kernel/compute/Box.h"
#include "kernel/data/ValuePlaces.h"

#include <vector>

namespace veldraw::kernel {

/// The places of values, sorted into bins so that those in a box are found quickly.
///
/// The box of all places is cut into a grid of bins; a bin with many places has a grid of its own, and so on, so that it does
/// not matter how unevenly they are spread. Places that are not finite are left out.
///
/// Memory: the coordinates as doubles, 4 bytes a place for its slot, and 4 for the bins, or 8 where bins have grids.
class PointBins
{
public:
    /// @param places with less than 2^32 - 1 slots
    /// @throws Interrupted, std::bad_alloc
    PointBins(ValuePlaces const& places, int dimensions, Progress& progress);

    /// Number of finite places. In the order of the bins they have the positions from 0 on.
    std::size_t size() const { return m_slots.size(); }

    /// The slot of the value at a position.
    std::int64_t slot(std::size_t position) const { return m_slots[position]; }

    Point point(std::size_t position) const
    {
        double const* const numbers = m_coordinates.begin() + position * m_dimensions;
        return {numbers[0], numbers[1], m_dimensions == 3 ? numbers[2] : 0.0};
    }

    /// Number of coordinates of a place: 2 or 3.
    std::size_t dimensions() const { return m_dimensions; }

    /// Slots of the places that were left out.
    std::vector<std::int64_t> const& leftOut() const { return m_leftOut; }

    Box const& box() const { return m_box; }

    /// Numbers of bins along the axes, the last one included.
    struct BinRange
    {
        std::array<std::uint32_t, 3> first{};
        std::array<std::uint32_t, 3> last{};
    };

    /// Calls @p body with ranges of positions, first and last, last excluded, in which all places in @p box are.
    template <typename Body>
    void forPositions(Box const& box, Body const& body) const
    {
        if (!m_grids.empty() && box.meets(m_box)) {
            forPositions(m_grids.front(), rangeOf(m_grids.front(), box), box, body);
        }
    }

    /// The same for a box whose bins are known. @param range as from binsAlong()
    template <typename Body>
    void forPositions(BinRange const& range, Box const& box, Body const& body) const
    {
        if (!m_grids.empty() && box.meets(m_box)) {
            forPositions(m_grids.front(), range, box, body);
        }
    }

    /// Writes the numbers of the bins along an axis in which @p count finite coordinates are, or which are the nearest to them.
    void binsAlong(std::size_t axis, double const* coordinates, std::size_t count, std::uint32_t* bins) const;

private:
    using Position = std::uint32_t;

    struct Grid
    {
        Box box;
        Point binsPerLength{};
        std::array<std::uint32_t, 3> bins{1, 1, 1};
        std::size_t firstBin = 0;  ///< in m_starts; there is one entry more than there are bins
        std::size_t firstGrid = 0; ///< in m_gridOfBin, if a bin has a grid of its own
        bool hasGrids = false;     ///< whether one has

        std::uint32_t bin(std::size_t axis, double coordinate) const
        {
            double const from = (coordinate - box.low[axis]) * binsPerLength[axis];
            double const last = static_cast<double>(bins[axis] - 1);
            return from > 0 ? static_cast<std::uint32_t>(from < last ? from : last) : 0;
        }

        std::size_t bin(Point const& point) const
        {
            return bin(0, point[0]) +
                   std::size_t{bins[0]} * (bin(1, point[1]) + std::size_t{bins[1]} * bin(2, point[2]));
        }

        std::size_t binCount() const { return std::size_t{bins[0]} * bins[1] * bins[2]; }
    };

    static BinRange rangeOf(Grid const& grid, Box const& box);
    template <typename Body>
    void forPositions(Grid const& grid, BinRange const& range, Box const& box, Body const& body) const;
    template <typename Body>
    void forRow(std::size_t first, std::size_t last, std::size_t toGrid, Box const& box, Body const& body) const;

    class Builder;

    std::size_t m_dimensions;
    ZeroedArray<double> m_coordinates;      // 2 or 3 of each position
    ZeroedArray<std::uint32_t> m_slots;     // by position
    std::vector<Position> m_starts;         // first position of each bin
    std::vector<std::uint32_t> m_gridOfBin; // 0: the bin has none
    std::vector<Grid> m_grids;              // the first one has all places
    Box m_box;
    std::vector<std::int64_t> m_leftOut;
};

inline PointBins::BinRange PointBins::rangeOf(Grid const& grid, Box const& box)
{
    BinRange range;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        range.first[axis] = grid.bin(axis, box.low[axis]);
        range.last[axis] = grid.bin(axis, box.high[axis]);
    }
    return range;
}

template <typename Body>
void PointBins::forPositions(Grid const& grid, BinRange const& range, Box const& box, Body const& body) const
{
    auto const& [first, last] = range;
    for (std::uint32_t k = first[2]; k <= last[2]; ++k) {
        for (std::uint32_t j = first[1]; j <= last[1]; ++j) {
            std::size_t const row = grid.firstBin + std::size_t{grid.bins[0]} * (j + std::size_t{grid.bins[1]} * k);
            if (grid.hasGrids) {
                forRow(row + first[0], row + last[0] + 1, grid.firstGrid - grid.firstBin, box, body);
            } else if (m_starts[row + first[0]] < m_starts[row + last[0] + 1]) {
                body(std::size_t{m_starts[row + first[0]]}, std::size_t{m_starts[row + last[0] + 1]});
            }
        }
    }
}

/// The bins of a row some of which may have a grid. @param toGrid distance from the entry of a bin to that of its grid
template <typename Body>
void PointBins::forRow(std::size_t first, std::size_t last, std::size_t toGrid, Box const& box, Body const& body) const
{
    for (std::size_t bin = first; bin < last; ++bin) {
        if (m_starts[bin] == m_starts[bin + 1]) {
            continue;
        }
        std::uint32_t const grid = m_gridOfBin[bin + toGrid];
        if (grid == 0) {
            body(std::size_t{m_starts[bin]}, std::size_t{m_starts[bin + 1]});
        } else if (m_grids[grid].box.meets(box)) {
            forPositions(m_grids[grid], rangeOf(m_grids[grid], box), box, body);
        }
    }
}

} // namespace veldraw::kernel
