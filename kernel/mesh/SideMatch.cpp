#include "kernel/mesh/SideMatch.h"

#include "kernel/base/CheckedLoop.h"
#include "kernel/compute/ListStarts.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace veldraw::kernel {

namespace {

/// Calls @p body with the cell, the number of the side, and its lowest point, for all sides.
template <typename Body>
void forEachSide(CellParts const& cells, Progress const& progress, Body const& body)
{
    forEachWatched(cells.cellCount(), progress, [&](std::int64_t cell, Watch& watch) {
        cells.forEachSide(cell, [&](std::int64_t number, std::int64_t const* points, std::int64_t count) {
            watch.count(count);
            body(cell, number, static_cast<std::size_t>(*std::min_element(points, points + count)));
        });
    });
}

} // namespace

/// Matches the sides of one list after the other.
class SideMatch::Matcher
{
public:
    Matcher(SideMatch const& sides, Progress const& progress, std::function<void(Match const&)> body)
        : m_cells(sides.m_cells)
        , m_room(sides.m_room)
        , m_watch(progress)
        , m_body(std::move(body))
    {
    }

    void match(Place const* begin, Place const* end)
    {
        m_points.clear();
        m_sides.clear();
        makeRoom(begin, end);
        std::for_each(begin, end, [this](Place const& place) {
            m_cells.withSide(place.cell, place.side,
                             [&](std::int64_t const* corners, std::int64_t count) { add(place.cell, corners, count); });
        });
        sortWatched(m_sides.begin(), m_sides.end(), m_watch, [this](Side const& left, Side const& right) {
            return comesBefore(left, right) || (!comesBefore(right, left) && left.cell < right.cell);
        });
        for (std::size_t at = 0; at < m_sides.size(); ++at) {
            m_watch.count();
            take(m_sides[at].cell);
            if (at + 1 == m_sides.size() || comesBefore(m_sides[at], m_sides[at + 1])) {
                if (!m_match.cells.empty()) {
                    m_match.points.assign(pointAt(m_sides[at].first), pointAt(m_sides[at].last));
                    m_body(m_match);
                }
                m_match.cells.clear();
            }
        }
    }

private:
    using Points = std::vector<std::uint32_t>;

    /// Where the points of a side are, each once and ascending.
    struct Side
    {
        std::uint32_t cell;
        std::size_t first;
        std::size_t last;
    };

    Points::iterator pointAt(std::size_t place) { return m_points.begin() + static_cast<std::ptrdiff_t>(place); }

    bool comesBefore(Side const& left, Side const& right)
    {
        m_watch.count(static_cast<std::int64_t>(right.last - right.first));
        return std::lexicographical_compare(pointAt(left.first), pointAt(left.last), pointAt(right.first),
                                            pointAt(right.last));
    }

    /// Makes sure that a list of very many sides has room; usual ones have a few.
    void makeRoom(Place const* begin, Place const* end)
    {
        constexpr std::int64_t many = 65536;
        if (end - begin < many) {
            return;
        }
        std::size_t points = 0;
        std::for_each(begin, end, [&](Place const& place) {
            m_watch.count();
            m_cells.withSide(place.cell, place.side, [&points](std::int64_t const*, std::int64_t count) {
                points += static_cast<std::size_t>(count);
            });
        });
        auto const sides = static_cast<std::size_t>(end - begin);
        m_room.require(static_cast<double>(points * sizeof(std::uint32_t) + sides * sizeof(Side)));
        m_points.reserve(points);
        m_sides.reserve(sides);
    }

    void add(std::uint32_t cell, std::int64_t const* corners, std::int64_t count)
    {
        std::size_t const first = m_points.size();
        m_watch.count(count);
        std::transform(corners, corners + count, std::back_inserter(m_points),
                       [](std::int64_t corner) { return static_cast<std::uint32_t>(corner); });
        sortWatched(pointAt(first), m_points.end(), m_watch);
        m_points.erase(std::unique(pointAt(first), m_points.end()), m_points.end());
        if (m_points.size() - first >= static_cast<std::size_t>(std::min<std::int64_t>(count, 3))) {
            m_sides.push_back({cell, first, m_points.size()});
        } else {
            m_points.resize(first); // a mere line, or a mere point
        }
    }

    /// Takes one more of the cells of a side, which come in ascending order; one that has it twice goes again.
    void take(std::uint32_t cell)
    {
        if (!m_match.cells.empty() && m_match.cells.back() == cell) {
            m_match.cells.pop_back();
        } else {
            m_match.cells.push_back(cell);
        }
    }

    CellParts const& m_cells;
    RoomBeside m_room;
    Watch m_watch;
    std::function<void(Match const&)> m_body;
    Points m_points;
    std::vector<Side> m_sides;
    Match m_match;
};

SideMatch::SideMatch(CellParts const& cells, std::int64_t pointCount, RoomBeside const& room, Progress const& progress)
    : m_cells(cells)
    , m_pointCount(pointCount)
    , m_room(room)
{
    ListStarts lists(pointCount, room);
    forEachSide(cells, progress, [&](std::int64_t, std::int64_t, std::size_t lowest) { lists.count(lowest); });
    m_places = room.array<Place>(lists.close(progress));
    forEachSide(cells, progress, [&](std::int64_t cell, std::int64_t side, std::size_t lowest) {
        if (side > std::numeric_limits<std::uint32_t>::max()) {
            throw std::runtime_error("A cell of the zone has too many sides to be smoothed.");
        }
        m_places[lists.next(lowest)] = {static_cast<std::uint32_t>(cell), static_cast<std::uint32_t>(side)};
    });
    m_starts = lists.take(progress);
}

void SideMatch::forEach(std::function<void(Match const&, std::int64_t)> const& body, Progress const& progress) const
{
    parallelFor(m_pointCount, [&](std::int64_t first, std::int64_t last, std::int64_t chunk) {
        Matcher matcher(*this, progress, [&body, chunk](Match const& match) { body(match, chunk); });
        for (std::int64_t point = first; point < last; ++point) {
            if (point % 512 == 0) {
                progress.check();
            }
            std::int64_t const* const start = m_starts.begin() + point;
            matcher.match(m_places.begin() + start[0], m_places.begin() + start[1]);
        }
    });
}

std::int64_t SideMatch::sidesOfChunk(std::int64_t chunk) const
{
    std::int64_t const size = parallelChunkSize(m_pointCount);
    std::int64_t const* const starts = m_starts.begin();
    return starts[std::min((chunk + 1) * size, m_pointCount)] - starts[chunk * size];
}

} // namespace veldraw::kernel
