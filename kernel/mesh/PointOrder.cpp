#include "kernel/mesh/PointOrder.h"

#include <algorithm>
#include <limits>

namespace veldraw::kernel {

namespace {

constexpr std::int64_t mostSamples = 65536;
constexpr std::int64_t nearPlaces = 32768; // of doubles, a part of a usual second-level cache
constexpr std::uint32_t unplaced = std::numeric_limits<std::uint32_t>::max();

/// Whether the corners of most cells are near each other, as far as a sample tells.
bool areNear(CellParts const& cells)
{
    std::int64_t const samples = std::min(cells.cellCount(), mostSamples);
    std::int64_t wide = 0;
    for (std::int64_t sample = 0; sample < samples; ++sample) {
        auto const [begin, end] = cells.corners(sample * (cells.cellCount() / samples));
        if (begin != end) {
            auto const [low, high] = std::minmax_element(begin, end);
            wide += *high - *low > nearPlaces ? 1 : 0;
        }
    }
    return wide <= samples / 8;
}

} // namespace

PointOrder::PointOrder(CellParts const& cells, std::int64_t pointCount, Progress const& progress)
{
    if (pointCount <= nearPlaces || areNear(cells)) {
        return;
    }
    m_places = ZeroedArray<std::uint32_t>(static_cast<std::size_t>(pointCount));
    std::fill(m_places.begin(), m_places.end(), unplaced);
    std::uint32_t next = 0;
    auto const place = [&next](std::uint32_t& mine) {
        if (mine == unplaced) {
            mine = next++;
        }
    };
    for (std::int64_t cell = 0; cell < cells.cellCount(); ++cell) {
        if (cell % 512 == 0) {
            progress.check();
        }
        auto const [begin, end] = cells.corners(cell);
        std::for_each(begin, end, [&](std::int64_t corner) { place(m_places[static_cast<std::size_t>(corner)]); });
    }
    std::for_each(m_places.begin(), m_places.end(), place); // of no cell
}

ZeroedArray<std::uint32_t> PointOrder::points() const
{
    ZeroedArray<std::uint32_t> points;
    if (!isNatural()) {
        points = ZeroedArray<std::uint32_t>(m_places.size());
        for (std::size_t point = 0; point < m_places.size(); ++point) {
            points[m_places[point]] = static_cast<std::uint32_t>(point);
        }
    }
    return points;
}

} // namespace veldraw::kernel
