// Cells with very many sides, corners or neighbours: how often a cancel is looked for, and how much memory is asked for.
// The neighbours themselves are compared with plain loops where variables are smoothed.
#include "kernel/mesh/CellNeighbors.h"

#include "tests/kernel/support/LookCounter.h"
#include "tests/kernel/support/MeshData.h"
#include "tests/kernel/support/SampleData.h"
#include "tests/support/MemoryLimit.h"
#include "tests/support/Threads.h"

#include <gmock/gmock.h>
#include <numeric>
#include <random>

namespace veldraw::tests {

using namespace kernel;
using Shape = Connectivity::Shape;

namespace {

using Corners = std::vector<std::int64_t>;

constexpr std::int64_t mostStepsBetweenLooks = 512;

/// A zone of cells with a value of a byte at each point or cell.
class Mesh
{
public:
    Mesh(sample::CellLists lists, std::int64_t points, bool isOfPoints, FieldDataType_e type = FieldDataType_Byte)
        : m_isOfPoints(isOfPoints)
    {
        lists.points.resize(static_cast<std::size_t>(points));
        m_zone = lists.zone(sample::zoneTypeOf(lists.shapes.front()));
        std::int64_t const count = isOfPoints ? points : m_zone->cellCount();
        m_values = std::make_unique<SmoothingValues>(Buffer::allocate(type, count), nullptr);
    }

    NeighborLists neighbors(Progress& progress) const
    {
        CellParts const cells(m_zone->type, *m_zone->connectivity);
        return m_isOfPoints ? neighborsOfPoints(cells, m_zone->pointCount(), *m_values, progress)
                            : neighborsOfCells(cells, m_zone->pointCount(), *m_values, progress);
    }

    std::int64_t looks() const
    {
        LookCounter counter;
        static_cast<void>(neighbors(counter));
        return counter.looks();
    }

    /// The least memory that is enough.
    double bytesAskedFor() const
    {
        return leastMemory([this] {
            try {
                Progress progress;
                static_cast<void>(neighbors(progress));
                return true;
            } catch (NotEnoughMemory const&) {
                return false;
            }
        });
    }

private:
    bool m_isOfPoints;
    std::shared_ptr<Zone> m_zone;
    std::unique_ptr<SmoothingValues> m_values;
};

/// One polygon with corners at all points.
sample::CellLists onePolygon(std::int64_t corners)
{
    Corners all(static_cast<std::size_t>(corners));
    std::iota(all.begin(), all.end(), 0);
    sample::CellLists lists;
    lists.add(Shape::Polygon, all);
    return lists;
}

/// Cells that all have point 0 and else random ones.
sample::CellLists hub(Shape shape, std::size_t corners, std::int64_t cells, std::int64_t points)
{
    std::mt19937 random(4);
    sample::CellLists lists;
    for (std::int64_t cell = 0; cell < cells; ++cell) {
        Corners of{0};
        while (of.size() < corners) {
            of.push_back(1 + static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(points - 1)));
        }
        lists.add(shape, of);
    }
    return lists;
}

/// Triangles that all have the edge between points 0 and 1.
sample::CellLists book(std::int64_t pages)
{
    sample::CellLists lists;
    for (std::int64_t page = 0; page < pages; ++page) {
        lists.add(Shape::Triangle, {0, 1, 2 + page});
    }
    return lists;
}

/// A polyhedron with a triangle between each three points that follow each other.
sample::CellLists polyhedronOf(std::int64_t faces)
{
    Corners corners;
    std::vector<Corners> of;
    for (std::int64_t face = 0; face < faces; ++face) {
        corners.push_back(face);
        of.push_back({face, face + 1, face + 2});
    }
    sample::CellLists lists;
    lists.addPolyhedron(corners, of);
    return lists;
}

} // namespace

TEST(CellNeighbors, ACancelIsLookedForWithinAPolygonOfManyCorners)
{
    constexpr std::int64_t corners = 300000;
    for (bool const isOfPoints : {true, false}) {
        std::int64_t const looks = Mesh(onePolygon(corners), corners, isOfPoints).looks();
        EXPECT_GE(looks, 4 * corners / mostStepsBetweenLooks) << "it is gone through some times";
        EXPECT_LE(looks, corners) << "but not once more for each of its sides";
    }
}

TEST(CellNeighbors, ACancelIsLookedForWithinAPolyhedronOfManyFaces)
{
    constexpr std::int64_t faces = 100000;
    for (bool const isOfPoints : {true, false}) {
        std::int64_t const looks = Mesh(polyhedronOf(faces), faces + 2, isOfPoints).looks();
        EXPECT_GE(looks, 4 * faces / mostStepsBetweenLooks);
        EXPECT_LE(looks, faces);
    }
}

TEST(CellNeighbors, ACancelIsLookedForWhereAPointHasManyEdgesOrSides)
{
    constexpr std::int64_t cells = 50000;
    constexpr std::int64_t sorting = 15 * cells / mostStepsBetweenLooks; // comparisons that cannot be less
    EXPECT_GE(Mesh(hub(Shape::Triangle, 3, cells, 1000), 1000, true).looks(), 2 * sorting);
    EXPECT_GE(Mesh(hub(Shape::Triangle, 3, cells, 1000), 1000, false).looks(), 2 * sorting);
    EXPECT_GE(Mesh(hub(Shape::Tetrahedron, 4, cells, 1000), 1000, true).looks(), 3 * sorting);
}

TEST(CellNeighbors, ACancelIsLookedForWhereManyCellsHaveASide)
{
    constexpr std::int64_t pages = 3000;
    EXPECT_GE(Mesh(book(pages), pages + 2, false).looks(), 2 * pages * pages / mostStepsBetweenLooks);
}

TEST(CellNeighbors, ACancelEndsTheWorkAtWhicheverLookItIsSeen)
{
    std::vector<Mesh> meshes;
    meshes.emplace_back(onePolygon(2000), 2000, true);
    meshes.emplace_back(hub(Shape::Triangle, 3, 1500, 50), 50, true);
    meshes.emplace_back(hub(Shape::Tetrahedron, 4, 500, 50), 50, false);
    meshes.emplace_back(book(60), 62, false);
    Threads const one(1); // one look after the other
    for (Mesh const& mesh : meshes) {
        std::int64_t const looks = mesh.looks();
        for (std::int64_t look = 1; look <= looks; look += 1 + looks / 200) {
            LookCounter cancelled(look);
            EXPECT_THROW(mesh.neighbors(cancelled), Interrupted) << look;
        }
    }
}

TEST(CellNeighbors, MemoryIsAskedForBeforeListsAreMade)
{
    constexpr std::int64_t corners = 20000;
    constexpr double perPoint = 8 + 2 * 4; // where a list starts and two neighbours, when the result is made
    for (bool const isOfPoints : {true, false}) {
        Mesh const mesh(onePolygon(corners), corners, isOfPoints);
        double const asked = mesh.bytesAskedFor();
        EXPECT_GE(asked, 8.0 * corners) << "its sides are matched or its edges counted";
        EXPECT_LE(asked, 4 * perPoint * corners);
    }
}

TEST(CellNeighbors, ManyNeighborsAreRefusedWhereThereIsNoMemoryForThem)
{
    constexpr std::int64_t pages = 700;
    Mesh const mesh(book(pages), pages + 2, false);
    double const asked = mesh.bytesAskedFor();
    EXPECT_GE(asked, 4.0 * pages * (pages - 1));
    EXPECT_LE(asked, 5.0 * pages * pages) << "each is written down once";
    Progress progress;
    EXPECT_EQ(mesh.neighbors(progress).held, pages) << "all have edges of their own";
}

TEST(CellNeighbors, ListsEndWithTheLastNeighbor)
{
    Progress progress;
    for (bool const isOfPoints : {true, false}) {
        for (Mesh const& mesh :
             {Mesh(hub(Shape::Tetrahedron, 4, 500, 50), 50, isOfPoints), Mesh(book(60), 62, isOfPoints)}) {
            NeighborLists const lists = mesh.neighbors(progress);
            std::size_t const last = static_cast<std::size_t>(lists.count());
            EXPECT_EQ(static_cast<std::int64_t>(lists.neighbors.size()), lists.starts[last]);
        }
    }
}

TEST(CellNeighbors, SidesAtAPointAreRefusedWhereThereIsNoMemoryForThem)
{
    constexpr std::int64_t cells = 25000;
    Mesh const mesh(hub(Shape::Tetrahedron, 4, cells, 1000), 1000, true);
    EXPECT_GE(mesh.bytesAskedFor(), 3.0 * cells * (24 + 4 * 4)) << "their places and their points";
}

TEST(CellNeighbors, MemoryOfTheResultIsKeptFree)
{
    auto const lists = sample::fillOf(Shape::Quad, 40, 0, 1);
    auto const points = static_cast<std::int64_t>(lists.points.size());
    auto const asked = [&](FieldDataType_e type) { return Mesh(lists, points, true, type).bytesAskedFor(); };
    double const ofBytes = asked(FieldDataType_Byte);
    EXPECT_EQ(asked(FieldDataType_Double) - ofBytes, 7 * points);
    EXPECT_EQ(asked(FieldDataType_Bit) - ofBytes, (points + 7) / 8);
}

} // namespace veldraw::tests
