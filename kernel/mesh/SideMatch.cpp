#include "kernel/mesh/SideMatch.h"

#include "kernel/base/CheckedLoop.h"
#include "kernel/compute/ListStarts.h"

#include <algorithm>
#include <limits>

namespace veldraw::kernel {

namespace {

/// Calls @p body with the cell, the number of the side, and its points, for all sides.
template <typename Body>
void forEachSide(CellParts const& cells, Progress const& progress, Body const& body)
{
    forEachChecked(cells.cellCount(), progress, [&](std::int64_t cell) {
        std::uint32_t number = 0;
        cells.forEachSide(cell, [&](std::int64_t const* points, std::int64_t count) {
            if (count > 0) {
                body(cell, number, points, count);
            }
            ++number;
        });
    });
}

std::size_t lowest(std::int64_t const* points, std::int64_t count)
{
    return static_cast<std::size_t>(*std::min_element(points, points + count));
}

} // namespace

/// Matches the sides of one list after the other.
class SideMatch::Matcher
{
public:
    Matcher(CellParts const& cells, std::function<void(Match const&)> body)
        : m_cells(cells)
        , m_body(std::move(body))
    {
    }

    void match(Place const* begin, Place const* end)
    {
        m_points.clear();
        m_sides.clear();
        std::for_each(begin, end, [this](Place const& place) { read(place); });
        std::sort(m_sides.begin(), m_sides.end(), [this](Side const& left, Side const& right) {
            return comesBefore(left, right) || (!comesBefore(right, left) && left.cell < right.cell);
        });
        for (std::size_t at = 0; at < m_sides.size(); ++at) {
            m_match.cells.push_back(m_sides[at].cell);
            if (at + 1 == m_sides.size() || comesBefore(m_sides[at], m_sides[at + 1])) {
                m_match.points.assign(pointAt(m_sides[at].first), pointAt(m_sides[at].last));
                m_body(m_match);
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
        return std::lexicographical_compare(pointAt(left.first), pointAt(left.last), pointAt(right.first),
                                            pointAt(right.last));
    }

    void read(Place const& place)
    {
        std::uint32_t number = 0;
        m_cells.forEachSide(place.cell, [&](std::int64_t const* corners, std::int64_t count) {
            if (number++ == place.side) {
                add(place.cell, corners, count);
            }
        });
    }

    void add(std::uint32_t cell, std::int64_t const* corners, std::int64_t count)
    {
        std::size_t const first = m_points.size();
        std::transform(corners, corners + count, std::back_inserter(m_points),
                       [](std::int64_t corner) { return static_cast<std::uint32_t>(corner); });
        std::sort(pointAt(first), m_points.end());
        m_points.erase(std::unique(pointAt(first), m_points.end()), m_points.end());
        if (m_points.size() - first >= static_cast<std::size_t>(std::min<std::int64_t>(count, 3))) {
            m_sides.push_back({cell, first, m_points.size()});
        } else {
            m_points.resize(first); // a mere line, or a mere point
        }
    }

    CellParts const& m_cells;
    std::function<void(Match const&)> m_body;
    Points m_points;
    std::vector<Side> m_sides;
    Match m_match;
};

SideMatch::SideMatch(CellParts const& cells, std::int64_t pointCount, Progress const& progress)
    : m_cells(cells)
    , m_pointCount(pointCount)
{
    ListStarts lists(pointCount);
    forEachSide(cells, progress, [&](std::int64_t, std::uint32_t, std::int64_t const* points, std::int64_t count) {
        lists.count(lowest(points, count));
    });
    m_places = ZeroedArray<Place>(static_cast<std::size_t>(lists.close(progress)));
    forEachSide(cells, progress,
                [&](std::int64_t cell, std::uint32_t side, std::int64_t const* points, std::int64_t count) {
                    m_places[lists.next(lowest(points, count))] = {static_cast<std::uint32_t>(cell), side};
                });
    m_starts = lists.take(progress);
}

void SideMatch::forEach(std::function<void(Match const&, std::int64_t)> const& body, Progress const& progress) const
{
    parallelFor(m_pointCount, [&](std::int64_t first, std::int64_t last, std::int64_t chunk) {
        Matcher matcher(m_cells, [&body, chunk](Match const& match) { body(match, chunk); });
        for (std::int64_t point = first; point < last; ++point) {
            if (point % 512 == 0) {
                progress.check();
            }
            std::int64_t const* const start = m_starts.begin() + point;
            matcher.match(m_places.begin() + start[0], m_places.begin() + start[1]);
        }
    });
}

} // namespace veldraw::kernel
