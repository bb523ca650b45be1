#pragma once

#include "kernel/mesh/CellGeometry.h"
#include "kernel/mesh/PointBins.h"

#include <atomic>
#include <memory>

namespace veldraw::kernel {

/// Finds, for many places at once, the cell that contains each of them: the first zone's, then the lowest one.
///
/// The cells are gone through one by one, and each takes the places in its box that it contains. So nothing is kept for the
/// cells, and a cell is prepared once for all places in it; the order in which threads come to the cells does not matter,
/// since the lowest cell wins.
///
///     CellSearch search(points);
///     search.addZone(cells, progress); // one zone after the other
///     search.cellAt(position)
class CellSearch
{
public:
    struct Found
    {
        std::size_t zone; ///< zero-based, in the order in which zones were added
        std::int64_t slot;
    };

    /// @param points live as long as the search. @throws std::bad_alloc
    explicit CellSearch(PointBins const& points);

    /// Searches the cells of a zone that are not hidden for the places that no zone before has.
    /// @throws Interrupted, std::bad_alloc, std::runtime_error when there are 2^32 - 1 slots of cells altogether
    void addZone(ZoneCells const& cells, Progress& progress);

    /// The cell that contains the place at a position; nothing when none does.
    std::optional<Found> cellAt(std::size_t position) const;

    std::int64_t hiddenCount() const { return m_hiddenCount; } ///< cells that were hidden
    std::int64_t unplacedCount() const
    {
        return m_unplacedCount;
    } ///< cells with a corner whose coordinates are not finite

private:
    using Number = std::uint32_t;
    static constexpr Number none = std::numeric_limits<Number>::max();

    class Worker;

    void take(std::size_t position, Number number);

    PointBins const& m_points;
    ZeroedArray<std::atomic<Number>> m_found; // numbers of cells, through all zones, by position
    std::vector<std::int64_t> m_firstNumbers; // of the zones; at the end, of the next one
    std::atomic<std::int64_t> m_hiddenCount{0};
    std::atomic<std::int64_t> m_unplacedCount{0};
};

} // namespace veldraw::kernel
