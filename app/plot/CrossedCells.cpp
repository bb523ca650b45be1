#include "app/plot/CrossedCells.h"

#include "app/plot/CutLevels.h"
#include "app/plot/GatherInOrder.h"

#include <algorithm>

namespace veldraw::app {

namespace {

// Sides of the points in the four rows that border a row of cells, or the two of a sheet, at one place along them.
struct Rows
{
    unsigned char const* rows[4];

    int at(std::int64_t place) const { return rows[0][place] | rows[1][place] | rows[2][place] | rows[3][place]; }
};

} // namespace

std::array<std::int64_t, 3> squeezedDimensions(kernel::Zone const& zone)
{
    std::array<std::int64_t, 3> squeezed{1, 1, 1};
    std::size_t next = 0;
    for (std::int64_t const count : {zone.i, zone.j, zone.k})
        if (count > 1)
            squeezed[next++] = count;
    return squeezed;
}

CrossedCells::CrossedCells(kernel::Zone const& zone, CutLevels const& levels, kernel::Progress const& progress)
    : m_sides(static_cast<std::size_t>(zone.pointCount()))
    , m_before(CutLevels::before | CutLevels::onSurface)
{
    std::atomic<bool> touches{false};
    kernel::parallelFor(
        zone.pointCount(),
        [&](std::int64_t first, std::int64_t last, std::int64_t) {
            progress.check();
            unsigned char* const sides = m_sides.data() + first;
            levels.tellSides(first, last - first, sides);
            if (std::find(sides, sides + (last - first), CutLevels::onSurface) != sides + (last - first))
                touches = true;
        },
        65536);
    find(zone, progress);
    if (m_slots.empty() && touches) {
        m_before = CutLevels::before;
        find(zone, progress);
    }
}

bool CrossedCells::areCrossed(int sides) const
{
    constexpr int anywhere = CutLevels::before | CutLevels::behind | CutLevels::onSurface;
    return (sides & m_before) != 0 && (sides & anywhere & ~m_before) != 0 && (sides & CutLevels::nowhere) == 0;
}

void CrossedCells::find(kernel::Zone const& zone, kernel::Progress const& progress)
{
    if (zone.isOrdered())
        findOrdered(zone, progress);
    else
        findListed(zone, progress);
}

void CrossedCells::findOrdered(kernel::Zone const& zone, kernel::Progress const& progress)
{
    auto const [a, b, c] = squeezedDimensions(zone);
    m_slots.clear();
    if (b < 2)
        return; // a curve has no cells that a surface could be cut of
    std::int64_t const length = a;
    std::int64_t const rows = b;
    std::int64_t const layer = c > 1 ? length * rows : 0;
    auto const find = [&](std::int64_t first, std::int64_t last, auto const& take) {
        for (std::int64_t row = first; row < last; ++row) {
            std::int64_t const start = (row / (rows - 1) * rows + row % (rows - 1)) * length;
            unsigned char const* const sides = m_sides.data() + start;
            Rows const around{{sides, sides + length, sides + layer, sides + layer + length}};
            int all = 0;
            for (std::int64_t n = 0; n < length; ++n)
                all |= around.at(n);
            if (!areCrossed(all & ~CutLevels::nowhere))
                continue;
            int before = around.at(0);
            for (std::int64_t n = 1; n < length; ++n) {
                int const next = around.at(n);
                if (areCrossed(before | next) && !zone.isHidden(ValueLocation_CellCentered, start + n - 1))
                    take(start + n - 1);
                before = next;
            }
        }
    };
    m_slots = gatherInOrder((rows - 1) * std::max<std::int64_t>(c - 1, 1), find, progress);
}

void CrossedCells::findListed(kernel::Zone const& zone, kernel::Progress const& progress)
{
    kernel::Connectivity const& cells = *zone.connectivity;
    auto const find = [&](std::int64_t first, std::int64_t last, auto const& take) {
        for (std::int64_t cell = first; cell < last; ++cell) {
            int sides = 0;
            for (std::int64_t n = cells.offsets[cell]; n < cells.offsets[cell + 1]; ++n)
                sides |= m_sides[static_cast<std::size_t>(cells.indices[n])];
            if (areCrossed(sides) && !zone.isHidden(ValueLocation_CellCentered, cell))
                take(cell);
        }
    };
    m_slots = gatherInOrder(cells.cellCount, find, progress);
}

} // namespace veldraw::app
