#pragma once

#include "kernel/base/Progress.h"
#include "kernel/data/Zone.h"

#include <array>
#include <cstdint>
#include <vector>

namespace veldraw::app {

class CutLevels;

/// The cells of a zone that a cut goes through, and the sides of the points that tell so.
///
/// A cell is crossed when it has corners on both sides and none of them is nowhere. Corners right on the surface count as before
/// it, so that a cut along cell borders takes the cells on one side of them alone. If no cell is crossed so, as where the cut is the
/// border of the zone at its low end, they count as behind.
class CrossedCells
{
public:
    /// @param zone with sound cells; hidden cells are not crossed
    /// @param levels that are prepared. @throws kernel::Interrupted, std::bad_alloc
    CrossedCells(kernel::Zone const& zone, CutLevels const& levels, kernel::Progress const& progress);

    /// Value slots, ascending.
    std::vector<std::int64_t> const& slots() const { return m_slots; }

    /// Whether a zero-based point lies before the surface.
    bool isBefore(std::int64_t point) const { return (m_sides[static_cast<std::size_t>(point)] & m_before) != 0; }

private:
    bool areCrossed(int sides) const;
    void find(kernel::Zone const& zone, kernel::Progress const& progress);
    void findOrdered(kernel::Zone const& zone, kernel::Progress const& progress);
    void findListed(kernel::Zone const& zone, kernel::Progress const& progress);

    std::vector<unsigned char> m_sides; // of each point
    int m_before;
    std::vector<std::int64_t> m_slots;
};

/// The dimensions above 1 of an ordered zone, in their order, filled up with 1: points and cells have the same numbers with these.
std::array<std::int64_t, 3> squeezedDimensions(kernel::Zone const& zone);

} // namespace veldraw::app
