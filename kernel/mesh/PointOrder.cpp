#include "kernel/mesh/PointOrder.h"

#include "kernel/base/CheckedLoop.h"

#include <algorithm>
#include <limits>

namespace veldraw::kernel {

namespace {

constexpr std::int64_t mostSamples = 65536;
constexpr std::int64_t nearPlaces = 32768; // of doubles, a part of a usual second-level cache
constexpr std::uint32_t unplaced = std::numeric_limits<std::uint32_t>::max();

/// Whether the corners of most cells are near each other, as far as a sample tells.
bool areNear(CellParts const& cells, Watch& watch)
{
    std::int64_t const samples = std::min(cells.cellCount(), mostSamples);
    std::int64_t wide = 0;
    for (std::int64_t sample = 0; sample < samples; ++sample) {
        auto const [begin, end] = cells.corners(sample * (cells.cellCount() / samples));
        if (begin != end) {
            watch.count(end - begin);
            auto const [low, high] = std::minmax_element(begin, end);
            wide += *high - *low > nearPlaces ? 1 : 0;
        }
    }
    return wide <= samples / 8;
}

} // namespace

PointOrder::PointOrder(CellParts const& cells, std::int64_t pointCount, RoomBeside const& room,
                       Progress const& progress)
{
    Watch watch(progress);
    if (pointCount <= nearPlaces || areNear(cells, watch)) {
        return;
    }
    m_places = room.array<std::uint32_t>(pointCount);
    forEachChecked(pointCount, progress,
                   [this](std::int64_t point) { m_places[static_cast<std::size_t>(point)] = unplaced; });
    std::uint32_t next = 0;
    auto const place = [&next](std::uint32_t& mine) {
        if (mine == unplaced) {
            mine = next++;
        }
    };
    for (std::int64_t cell = 0; cell < cells.cellCount(); ++cell) {
        auto const [begin, end] = cells.corners(cell);
        watch.count(end - begin + 1);
        std::for_each(begin, end, [&](std::int64_t corner) { place(m_places[static_cast<std::size_t>(corner)]); });
    }
    for (std::int64_t point = 0; point < pointCount; ++point) { // of no cell
        if (point % 65536 == 0) {
            progress.check();
        }
        place(m_places[static_cast<std::size_t>(point)]);
    }
}

ZeroedArray<std::uint32_t> PointOrder::points(RoomBeside const& room, Progress const& progress) const
{
    ZeroedArray<std::uint32_t> points;
    if (!isNatural()) {
        points = room.array<std::uint32_t>(static_cast<std::int64_t>(m_places.size()));
        forEachChecked(static_cast<std::int64_t>(m_places.size()), progress,
                       [&](std::int64_t point) { points[placeOf(point)] = static_cast<std::uint32_t>(point); });
    }
    return points;
}

} // namespace veldraw::kernel
