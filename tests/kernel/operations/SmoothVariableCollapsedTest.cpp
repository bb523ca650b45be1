// Cells some of whose corners are the same, as files have them.
#include "tests/kernel/support/MeshData.h"
#include "tests/kernel/support/SmoothingFixture.h"

namespace veldraw::tests {

using namespace kernel;
using Shape = Connectivity::Shape;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Pointwise;

namespace {

using Corners = std::vector<std::int64_t>;

constexpr Shape solids[] = {Shape::Tetrahedron, Shape::Pyramid, Shape::Prism, Shape::Brick};

/// The corners of a cell of the lists.
Corners cornersOf(sample::CellLists const& lists, std::size_t cell)
{
    return {lists.indices.begin() + lists.offsets[cell], lists.indices.begin() + lists.offsets[cell + 1]};
}

/// Cells that are collapsed onto a side of this one, which has three or four corners.
std::vector<Corners> collapsedOnto(Shape shape, Corners const& c)
{
    switch (shape) {
    case Shape::Triangle:
        return {{c[0], c[1], c[1]}, {c[1], c[1], c[2]}, {c[2], c[0], c[2]}, {c[0], c[0], c[0]}};
    case Shape::Quad:
        return {{c[0], c[1], c[1], c[0]}, {c[1], c[2], c[1], c[2]}, {c[2], c[3], c[2], c[2]},
                {c[3], c[0], c[1], c[0]}, {c[0], c[0], c[0], c[0]}, {c[0], c[0], c[3], c[3]}};
    case Shape::Polygon:
        return {{c[0], c[1]}, {c[1], c[2], c[1], c[0], c[1]}, {c[0]}};
    case Shape::Tetrahedron:
        return {{c[0], c[1], c[2], c[2]}, {c[0], c[3], c[1], c[0]}, {c[1], c[2], c[2], c[1]}};
    case Shape::Pyramid: // its sides: a square and triangles
        return {{c[0], c[1], c[4], c[4], c[4]}, {c[1], c[2], c[2], c[1], c[4]}};
    case Shape::Prism:
        return {{c[0], c[1], c[2], c[0], c[1], c[2]}, {c[0], c[1], c[1], c[3], c[4], c[4]}};
    default:
        return {{c[0], c[1], c[2], c[3], c[0], c[1], c[2], c[3]}, {c[0], c[1], c[1], c[0], c[4], c[5], c[5], c[4]}};
    }
}

/// The zone, and collapsed cells behind its own: for each of these some.
std::shared_ptr<Zone> withCollapsed(Shape shape, sample::CellLists lists)
{
    std::size_t const count = lists.shapes.size();
    for (std::size_t cell = 0; cell < count; ++cell) {
        for (Corners const& corners : collapsedOnto(shape, cornersOf(lists, cell))) {
            lists.add(shape, corners);
        }
    }
    return lists.zone(sample::zoneTypeOf(shape));
}

class SmoothVariableCollapsedTest : public SmoothingFixture
{
protected:
    int addPoints(std::shared_ptr<Zone> const& zone) { return addCells(zone, randomValues(zone->pointCount())); }

    int addCellValues(std::shared_ptr<Zone> const& zone)
    {
        return addCells(zone, randomValues(zone->cellCount()), ValueLocation_CellCentered);
    }
};

} // namespace

TEST_F(SmoothVariableCollapsedTest, CollapsedCellsHideNoBorder)
{
    std::vector<Shape> shapes(std::begin(solids), std::end(solids));
    shapes.insert(shapes.end(), {Shape::Triangle, Shape::Quad, Shape::Polygon});
    for (Shape const shape : shapes) {
        SCOPED_TRACE(static_cast<int>(shape));
        auto const lists = sample::fillOf(shape, Connectivity::isFace(shape) ? 20 : 6, 0.2, 3);
        ZoneType_e const type = sample::zoneTypeOf(shape);
        int const plain = addPoints(lists.zone(type));
        int const collapsed = addPoints(withCollapsed(shape, lists));
        ASSERT_TRUE(smooth(plain, 5));
        std::string const held = remark.substr(remark.find("changed, "), remark.find(" held") - remark.find("changed"));
        ASSERT_TRUE(smooth(collapsed, 5));
        EXPECT_THAT(remark, HasSubstr(held));
        // Their neighbours may come up in another order, so that sums are rounded otherwise.
        EXPECT_THAT(valuesOf(collapsed), Pointwise(DoubleNear(1e-14), valuesOf(plain)));

        int const ofCells = addCellValues(lists.zone(type));
        int const ofMore = addCellValues(withCollapsed(shape, lists));
        std::vector<double> const before = valuesOf(ofMore);
        ASSERT_TRUE(smooth(ofCells, 5));
        ASSERT_TRUE(smooth(ofMore, 5));
        std::vector<double> const after = valuesOf(ofMore);
        auto const own = static_cast<std::ptrdiff_t>(lists.shapes.size());
        EXPECT_EQ(std::vector<double>(after.begin(), after.begin() + own), valuesOf(ofCells));
        EXPECT_EQ(std::vector<double>(after.begin() + own, after.end()),
                  std::vector<double>(before.begin() + own, before.end()))
            << "a collapsed cell has nothing beside it";
    }
}

TEST_F(SmoothVariableCollapsedTest, ASegmentWithOneEndHidesNoEndOfALine)
{
    sample::CellLists line;
    line.points.resize(5);
    for (Corners const& ends : {Corners{0, 0}, {0, 1}, {1, 2}, {2, 2}, {2, 3}, {3, 4}, {4, 4}}) {
        line.add(Shape::LineSegment, ends);
    }
    addCells(line.zone(ZoneType_FELineSeg), {8, 0, 4, 0, 16});
    ASSERT_TRUE(smooth(1, 1));
    EXPECT_THAT(valuesOf(1), ElementsAre(8, 3, 2, 5, 16));
}

TEST_F(SmoothVariableCollapsedTest, AQuadWithTwoEqualCornersIsATriangle)
{
    auto const triangles = sample::fillOf(Shape::Triangle, 15, 0.2, 3);
    sample::CellLists quads;
    quads.points = triangles.points;
    for (std::size_t cell = 0; cell < triangles.shapes.size(); ++cell) {
        Corners corners = cornersOf(triangles, cell);
        corners.insert(corners.begin() + static_cast<std::ptrdiff_t>(cell % 3), corners[cell % 3]);
        quads.add(Shape::Quad, corners);
    }
    addPoints(triangles.zone(ZoneType_FETriangle));
    addPoints(quads.zone(ZoneType_FEQuad));
    ASSERT_TRUE(smooth(1, 5));
    ASSERT_TRUE(smooth(2, 5));
    EXPECT_EQ(valuesOf(2), valuesOf(1));
}

TEST_F(SmoothVariableCollapsedTest, ALineThatClosesUponItselfHasNoEnd)
{
    sample::CellLists line;
    line.points.resize(3);
    line.add(Shape::LineSegment, {0, 1, 2, 0});
    addCells(line.zone(ZoneType_FELineSeg), {8, 0, 4});
    ASSERT_TRUE(smooth(1, 1));
    EXPECT_THAT(valuesOf(1), ElementsAre(5, 3, 4));
    EXPECT_THAT(remark, testing::Not(HasSubstr("held")));
}

// Few points, so that sides have any number of cells, cells any number of equal corners, and some are there twice.
TEST_F(SmoothVariableCollapsedTest, GivesWhatPlainLoopsGiveForCellsOfRandomCorners)
{
    std::mt19937 random(11);
    auto const below = [&random](std::int64_t limit) {
        return static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(limit));
    };
    std::pair<Shape, std::size_t> const shapes[] = {
        {Shape::LineSegment, 2}, {Shape::Triangle, 3},    {Shape::Quad, 4},
        {Shape::Polygon, 9},     {Shape::Tetrahedron, 4}, {Shape::Pyramid, 5},
        {Shape::Prism, 6},       {Shape::Brick, 8},       {Shape::Polyhedron, 6}};
    for (int round = 0; round < 120; ++round) {
        bool const isMixed = round % 10 == 9;
        auto const& [only, most] = shapes[static_cast<std::size_t>(round % 10) % std::size(shapes)];
        std::int64_t const points = 4 + below(round < 60 ? 12 : 60);
        sample::CellLists lists;
        lists.points.resize(static_cast<std::size_t>(points));
        for (std::int64_t left = 3 + below(80); left > 0; --left) {
            auto const& [shape, corners] = isMixed ? shapes[static_cast<std::size_t>(below(9))] : std::pair(only, most);
            Corners cell(shape == Shape::Polygon ? 1 + static_cast<std::size_t>(below(9)) : corners);
            std::generate(cell.begin(), cell.end(), [&] { return below(points); });
            if (shape == Shape::Polyhedron) {
                lists.addPolyhedron(cell, {{cell[0], cell[1], cell[2]},
                                           {cell[3], cell[4], cell[5], cell[0]},
                                           {cell[0], cell[1], cell[2], cell[3], cell[4]},
                                           {cell[2], cell[1], cell[0]}});
            } else {
                lists.add(shape, cell);
            }
        }
        auto const zone = lists.zone(isMixed ? ZoneType_FEMixed : sample::zoneTypeOf(only));
        SCOPED_TRACE(round);
        for (bool const isOfPoints : {true, false}) {
            auto const copy = std::make_shared<Zone>(*zone);
            int const number = isOfPoints ? addPoints(copy) : addCellValues(copy);
            std::vector<double> const values = valuesOf(number);
            reference::Mesh const mesh = isOfPoints ? reference::meshOfPoints(*zone) : reference::meshOfCells(*zone);
            ASSERT_TRUE(smooth(number, 3, 0.7)) << session.lastError();
            expectNear(valuesOf(number), reference::smoothMesh(asReference(values), mesh, 3, 0.7L), 1e-14);
        }
    }
}

} // namespace veldraw::tests
