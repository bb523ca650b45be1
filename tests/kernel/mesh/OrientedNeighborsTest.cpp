// The same lists must come out for surfaces that are oriented alike and for the others, which are listed in another way.
#include "kernel/mesh/OrientedNeighbors.h"

#include "kernel/mesh/CellNeighbors.h"
#include "tests/kernel/support/MeshData.h"
#include "tests/kernel/support/SampleData.h"

#include <gtest/gtest.h>
#include <map>
#include <numeric>
#include <random>
#include <set>

namespace veldraw::tests {

using namespace kernel;
using Shape = Connectivity::Shape;

namespace {

using Corners = std::vector<std::int64_t>;
using Cells = std::vector<Corners>;

/// The neighbours of each point, none at the border.
struct Neighborhood
{
    std::vector<std::set<std::int64_t>> lists;
    std::int64_t held = 0;
};

/// Triangles and quads of a square grid, some of them missing, so that the border goes through it and touches itself.
Cells gridWithGaps(std::int64_t edge, unsigned seed)
{
    std::mt19937 random(seed);
    Cells cells;
    for (std::int64_t j = 0; j + 1 < edge; ++j) {
        for (std::int64_t i = 0; i + 1 < edge; ++i) {
            std::int64_t const at = i + edge * j;
            switch (random() % 12) {
            case 0:
                break;
            case 1:
            case 2:
                cells.push_back({at, at + 1, at + edge + 1, at + edge});
                break;
            default:
                cells.push_back({at, at + 1, at + edge + 1});
                cells.push_back({at, at + edge + 1, at + edge});
            }
        }
    }
    return cells;
}

std::shared_ptr<Zone> zoneOf(Cells const& cells, std::int64_t points)
{
    sample::CellLists lists;
    lists.points.resize(static_cast<std::size_t>(points));
    for (Corners const& cell : cells) {
        lists.add(Shape::Polygon, cell);
    }
    return lists.zone(sample::zoneTypeOf(Shape::Polygon));
}

Neighborhood neighborhoodOf(Cells const& cells, std::int64_t points)
{
    auto const zone = zoneOf(cells, points);
    SmoothingValues const values(Buffer::allocate(FieldDataType_Byte, points), nullptr);
    Progress progress;
    NeighborLists const found = neighborsOfPoints(CellParts(zone->type, *zone->connectivity), points, values, progress);
    Neighborhood result{std::vector<std::set<std::int64_t>>(static_cast<std::size_t>(points)), found.held};
    auto const pointAt = [&](std::size_t place) {
        return found.order.isEmpty() ? static_cast<std::int64_t>(place) : std::int64_t{found.order[place]};
    };
    for (std::size_t place = 0; place < result.lists.size(); ++place) {
        for (std::int64_t at = found.starts[place]; at < found.starts[place + 1]; ++at) {
            std::uint32_t const neighbor = found.neighbors[static_cast<std::size_t>(at)];
            EXPECT_LE(std::abs(static_cast<std::int64_t>(place) - std::int64_t{neighbor}), found.reach);
            if (neighbor != place) {
                bool const isNew =
                    result.lists[static_cast<std::size_t>(pointAt(place))].insert(pointAt(neighbor)).second;
                EXPECT_TRUE(isNew) << "each once";
            }
        }
    }
    return result;
}

/// By a plain loop over the edges, of which those of one cell are the border.
Neighborhood expectedOf(Cells const& cells, std::int64_t points)
{
    std::map<std::pair<std::int64_t, std::int64_t>, int> times;
    for (Corners const& cell : cells) {
        for (std::size_t at = 0; at < cell.size(); ++at) {
            ++times[std::minmax({cell[at], cell[(at + 1) % cell.size()]})];
        }
    }
    Neighborhood result{std::vector<std::set<std::int64_t>>(static_cast<std::size_t>(points))};
    std::set<std::int64_t> border;
    for (auto const& [edge, count] : times) {
        auto const [one, other] = edge;
        result.lists[static_cast<std::size_t>(one)].insert(other);
        result.lists[static_cast<std::size_t>(other)].insert(one);
        if (count == 1) {
            border.insert({one, other});
        }
    }
    for (std::int64_t const point : border) {
        result.lists[static_cast<std::size_t>(point)].clear();
    }
    result.held = static_cast<std::int64_t>(border.size());
    return result;
}

void expectTheSameAsAPlainLoop(Cells const& cells, std::int64_t points)
{
    Neighborhood const found = neighborhoodOf(cells, points);
    Neighborhood const expected = expectedOf(cells, points);
    EXPECT_EQ(found.held, expected.held);
    EXPECT_TRUE(found.lists == expected.lists);
}

/// Whether no two surfaces go along an edge in the same direction, nor a point has very many edges.
bool areTurnedAlike(Cells const& cells, std::int64_t points)
{
    auto const zone = zoneOf(cells, points);
    CellParts const parts(zone->type, *zone->connectivity);
    RoomBeside const room(0);
    Progress progress;
    PointOrder const order(parts, points, room, progress);
    ZeroedArray<ListSpan> spans = room.array<ListSpan>(1);
    spans[0] = {0, static_cast<std::uint32_t>(points - 1)};
    return orientedNeighbors(parts, points, order, spans, parts.cellCount(), room, progress).has_value();
}

} // namespace

TEST(OrientedNeighbors, AreThoseOfAPlainLoopWithGapsInTheSurface)
{
    constexpr std::int64_t edge = 90;
    for (unsigned seed = 1; seed <= 3; ++seed) {
        Cells const cells = gridWithGaps(edge, seed);
        EXPECT_TRUE(areTurnedAlike(cells, edge * edge));
        expectTheSameAsAPlainLoop(cells, edge * edge);
    }
}

TEST(OrientedNeighbors, AreThoseOfAPlainLoopWhateverTheOrderOfPointsAndCells)
{
    constexpr std::int64_t edge = 90;
    std::mt19937 random(7);
    Corners numbers(edge * edge);
    std::iota(numbers.begin(), numbers.end(), 0);
    std::shuffle(numbers.begin(), numbers.end(), random);
    Cells cells = gridWithGaps(edge, 4);
    std::shuffle(cells.begin(), cells.end(), random);
    for (Corners& cell : cells) {
        for (std::int64_t& corner : cell) {
            corner = numbers[static_cast<std::size_t>(corner)];
        }
    }
    EXPECT_TRUE(areTurnedAlike(cells, edge * edge));
    expectTheSameAsAPlainLoop(cells, edge * edge);
}

TEST(OrientedNeighbors, DoNotHoldForSurfacesOfWhichOneIsTurnedRound)
{
    constexpr std::int64_t edge = 90;
    for (std::size_t const step : {3U, 5000U}) {
        Cells cells = gridWithGaps(edge, 5);
        for (std::size_t at = step; at < cells.size(); at += step) {
            std::reverse(cells[at].begin(), cells[at].end());
        }
        EXPECT_FALSE(areTurnedAlike(cells, edge * edge));
        expectTheSameAsAPlainLoop(cells, edge * edge);
    }
}

TEST(OrientedNeighbors, DoNotHoldForAnEdgeOfThreeSurfaces)
{
    Cells const cells{{0, 1, 2}, {1, 0, 3}, {0, 1, 4}};
    EXPECT_FALSE(areTurnedAlike(cells, 5));
    expectTheSameAsAPlainLoop(cells, 5);
}

TEST(OrientedNeighbors, HaveNoBorderOnAClosedSurface)
{
    Cells const cells{{0, 1, 2}, {0, 2, 3}, {0, 3, 1}, {1, 3, 2}};
    EXPECT_TRUE(areTurnedAlike(cells, 4));
    EXPECT_EQ(neighborhoodOf(cells, 4).held, 0);
    expectTheSameAsAPlainLoop(cells, 4);
}

TEST(OrientedNeighbors, AreLeftToTheSlowerWayWhereAPointHasVeryManyEdges)
{
    constexpr std::int64_t spokes = 5000;
    Cells cells;
    for (std::int64_t spoke = 0; spoke < spokes; ++spoke) {
        cells.push_back({0, 1 + spoke, 1 + (spoke + 1) % spokes});
    }
    EXPECT_FALSE(areTurnedAlike(cells, spokes + 1));
    expectTheSameAsAPlainLoop(cells, spokes + 1);
}

} // namespace veldraw::tests
