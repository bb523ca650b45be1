#include "kernel/operations/SmoothVariable.h"

#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/LineMapOperation.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/kernel/support/MeshData.h"
#include "tests/kernel/support/SampleLoader.h"
#include "tests/kernel/support/SmoothingFixture.h"
#include "tests/support/Threads.h"

namespace veldraw::tests {

using namespace kernel;
using Shape = Connectivity::Shape;
using testing::ElementsAre;
using testing::HasSubstr;

class SmoothVariableTest : public SmoothingFixture
{
};

TEST_F(SmoothVariableTest, MovesEachInnerValueTowardsTheMeanOfItsNeighbors)
{
    addOrdered({5, 1, 1}, {0, 4, 0, 8, 0});
    ASSERT_TRUE(smooth(1, 1));
    EXPECT_THAT(valuesOf(1), ElementsAre(0, 2, 3, 4, 0));
}

TEST_F(SmoothVariableTest, GivesWhatPlainLoopsGiveInBlocksOfEverySizeAndCondition)
{
    for (Size const& size : {Size{4001, 1, 1},
                             {1, 4001, 1},
                             {1, 1, 77},
                             {67, 61, 1},
                             {67, 1, 61},
                             {1, 61, 67},
                             {17, 19, 13},
                             {2, 31, 31},
                             {3, 31, 31},
                             {31, 3, 31},
                             {31, 31, 4},
                             {4, 4, 4},
                             {3, 3, 3},
                             {5, 4, 3},
                             {200, 3, 9}}) {
        std::vector<double> const values = randomValues(size[0] * size[1] * size[2]);
        for (BoundaryCondition_e const condition : conditions) {
            for (int const passes : {1, 19}) {
                int const zone = addOrdered(size, values);
                SCOPED_TRACE(testing::PrintToString(size) + " condition " + std::to_string(condition) + " passes " +
                             std::to_string(passes));
                ASSERT_TRUE(smooth(zone, passes, 0.8, condition));
                reference::Numbers const wanted =
                    reference::smoothGrid(asReference(values), size, passes, 0.8L, condition);
                expectNear(valuesOf(zone), wanted, 1e-14);
                expectLastChange(reference::smoothGrid(asReference(values), size, passes - 1, 0.8L, condition), wanted);
            }
        }
    }
}

TEST_F(SmoothVariableTest, GivesWhatPlainLoopsGiveInABlockOfManyParts)
{
    for (Size const& size :
         {Size{40001, 1, 1}, {901, 61, 1}, {9, 6001, 1}, {83, 79, 11}, {5, 43, 301}, {301, 5, 41}, {1201, 41, 5}}) {
        std::vector<double> const values = randomValues(size[0] * size[1] * size[2]);
        for (BoundaryCondition_e const condition : conditions) {
            SCOPED_TRACE(testing::PrintToString(size) + " condition " + std::to_string(condition));
            int const zone = addOrdered(size, values);
            ASSERT_TRUE(smooth(zone, 6, 0.95, condition));
            reference::Numbers const wanted = reference::smoothGrid(asReference(values), size, 6, 0.95L, condition);
            expectNear(valuesOf(zone), wanted, 1e-14);
            expectLastChange(reference::smoothGrid(asReference(values), size, 5, 0.95L, condition), wanted);
        }
    }
}

TEST_F(SmoothVariableTest, TakesTheCellsOfABlockAsABlockOfTheirOwn)
{
    for (Size const& size : {Size{18, 20, 14}, {40, 31, 1}, {2, 20, 20}, {900, 1, 1}, {1, 30, 2}}) {
        Size cells = size;
        for (std::int64_t& count : cells) {
            count = std::max<std::int64_t>(count - 1, 1);
        }
        std::vector<double> const slots = randomValues(size[0] * size[1] * size[2]);
        auto const cellsOf = [&](std::vector<double> const& values) {
            std::vector<double> found;
            for (std::int64_t k = 0; k < cells[2]; ++k) {
                for (std::int64_t j = 0; j < cells[1]; ++j) {
                    for (std::int64_t i = 0; i < cells[0]; ++i) {
                        found.push_back(values[static_cast<std::size_t>(i + size[0] * (j + size[1] * k))]);
                    }
                }
            }
            return found;
        };
        for (BoundaryCondition_e const condition : conditions) {
            SCOPED_TRACE(testing::PrintToString(size) + " condition " + std::to_string(condition));
            int const zone = addOrdered(size, slots, FieldDataType_Double, ValueLocation_CellCentered);
            ASSERT_TRUE(smooth(zone, 6, 0.7, condition));
            expectNear(cellsOf(valuesOf(zone)),
                       reference::smoothGrid(asReference(cellsOf(slots)), cells, 6, 0.7L, condition), 1e-14);
        }
    }
}

TEST_F(SmoothVariableTest, SmoothsByEdgesInEveryKindOfCells)
{
    std::vector<std::shared_ptr<Zone>> zones;
    for (Shape const shape : {Shape::Tetrahedron, Shape::Pyramid, Shape::Prism, Shape::Brick, Shape::Polyhedron}) {
        auto cells = sample::fillOf(shape, 8, 0.2, 4);
        cells.shuffle(5);
        zones.push_back(cells.zone(sample::zoneTypeOf(shape)));
    }
    for (Shape const shape : {Shape::Triangle, Shape::Quad, Shape::Polygon}) {
        zones.push_back(sample::fillOf(shape, 45, 0.2, 4).zone(sample::zoneTypeOf(shape)));
    }
    zones.push_back(sample::mixedFill(8, 0.2, 4).zone(ZoneType_FEMixed));
    for (std::shared_ptr<Zone> const& zone : zones) {
        auto const copy = std::make_shared<Zone>(*zone);
        std::vector<double> const ofPoints = randomValues(zone->pointCount());
        std::vector<double> const ofCells = randomValues(zone->cellCount());
        SCOPED_TRACE("type " + std::to_string(zone->type));
        int const first = addCells(zone, ofPoints);
        ASSERT_TRUE(smooth(first, 11, 0.6));
        expectNear(valuesOf(first),
                   reference::smoothMesh(asReference(ofPoints), reference::meshOfPoints(*zone), 11, 0.6L), 1e-14);
        int const second = addCells(copy, ofCells, ValueLocation_CellCentered);
        ASSERT_TRUE(smooth(second, 11, 0.6));
        expectNear(valuesOf(second),
                   reference::smoothMesh(asReference(ofCells), reference::meshOfCells(*zone), 11, 0.6L), 1e-14);
    }
}

TEST_F(SmoothVariableTest, SmoothsManyCellsInPartsAndInWhateverOrderTheirPointsAre)
{
    auto const triangles = [](int width, int length, std::vector<std::int64_t> const& numbers) {
        sample::CellLists cells;
        for (int j = 0; j < length; ++j) {
            for (int i = 0; i < width; ++i) {
                auto const first = numbers.begin() + j * (width + 1) + i;
                cells.add(Shape::Triangle, {first[0], first[1], first[width + 2]});
                cells.add(Shape::Triangle, {first[0], first[width + 2], first[width + 1]});
            }
        }
        cells.points.resize(numbers.size());
        return cells.zone(ZoneType_FETriangle);
    };
    for (auto const& [width, length] : {std::pair(3, 9000), {185, 180}}) {
        std::vector<std::int64_t> numbers(static_cast<std::size_t>((width + 1) * (length + 1)));
        std::iota(numbers.begin(), numbers.end(), 0);
        std::vector<double> const values = randomValues(static_cast<std::int64_t>(numbers.size()));
        auto const zone = triangles(width, length, numbers);
        int const inOrder = addCells(zone, values);
        ASSERT_TRUE(smooth(inOrder, 11, 0.9));
        reference::Numbers const wanted =
            reference::smoothMesh(asReference(values), reference::meshOfPoints(*zone), 11, 0.9L);
        expectNear(valuesOf(inOrder), wanted, 1e-14);

        std::shuffle(numbers.begin(), numbers.end(), std::mt19937(9));
        std::vector<double> shuffled(values.size());
        std::vector<double> found(values.size());
        for (std::size_t at = 0; at < values.size(); ++at) {
            shuffled[static_cast<std::size_t>(numbers[at])] = values[at];
        }
        int const outOfOrder = addCells(triangles(width, length, numbers), shuffled);
        ASSERT_TRUE(smooth(outOfOrder, 11, 0.9));
        shuffled = valuesOf(outOfOrder);
        std::transform(numbers.begin(), numbers.end(), found.begin(),
                       [&](std::int64_t number) { return shuffled[static_cast<std::size_t>(number)]; });
        expectNear(found, wanted, 1e-14);
    }
}

TEST_F(SmoothVariableTest, SmoothsAlongLinesOfSegments)
{
    sample::CellLists lines; // a curve of 4000 points in random order, and a star of three curves
    std::vector<std::int64_t> order(4000);
    std::iota(order.begin(), order.end(), 0);
    std::shuffle(order.begin(), order.end(), std::mt19937(3));
    for (std::size_t at = 0; at + 1 < order.size(); ++at) {
        lines.add(Shape::LineSegment, {order[at], order[at + 1]});
    }
    for (std::int64_t arm = 0; arm < 3; ++arm) {
        lines.add(Shape::LineSegment, {4000, 4001 + 2 * arm});
        lines.add(Shape::LineSegment, {4001 + 2 * arm, 4002 + 2 * arm});
    }
    lines.points.resize(4007);
    auto const zone = lines.zone(ZoneType_FELineSeg);
    std::vector<double> const values = randomValues(4007);
    addCells(zone, values);
    ASSERT_TRUE(smooth(1, 5));
    reference::Mesh const mesh = reference::meshOfPoints(*zone);
    EXPECT_EQ(std::count(mesh.border.begin(), mesh.border.end(), true), 5) << "the ends of curves";
    expectNear(valuesOf(1), reference::smoothMesh(asReference(values), mesh, 5, 0.5L), 1e-14);
}

TEST_F(SmoothVariableTest, KeepsEqualValuesToTheLastBit)
{
    for (double const value : {0.1, 1e300, 1.7976931348623157e308, 4.9e-324}) {
        for (BoundaryCondition_e const condition : conditions) {
            int const zone = addOrdered({11, 12, 13}, std::vector<double>(11 * 12 * 13, value));
            ASSERT_TRUE(smooth(zone, 21, 0.95, condition));
            EXPECT_THAT(valuesOf(zone), testing::Each(value));
        }
        auto const cells = sample::fillOf(Shape::Tetrahedron, 5, 0.2, 1).zone(ZoneType_FETetra);
        int const zone = addCells(cells, std::vector<double>(static_cast<std::size_t>(cells->pointCount()), value));
        ASSERT_TRUE(smooth(zone, 21, 0.95));
        EXPECT_THAT(valuesOf(zone), testing::Each(value));
    }
    EXPECT_THAT(recorder.take(), testing::IsEmpty()) << "nothing has changed";
    EXPECT_FALSE(session.undo()) << "and there is no step";
}

TEST_F(SmoothVariableTest, KeepsALinearFieldUpToTheBorderBySecondOrder)
{
    Size const size{21, 23, 19};
    std::vector<double> values;
    for (std::int64_t at = 0; at < 21 * 23 * 19; ++at) {
        values.push_back(3.0 - 0.7 * static_cast<double>(at % 21) + 1.9 * static_cast<double>(at / 21 % 23) +
                         0.3 * static_cast<double>(at / 21 / 23));
    }
    for (BoundaryCondition_e const condition : {fixedBorder, secondOrder}) {
        int const zone = addOrdered(size, values);
        ASSERT_TRUE(smooth(zone, 40, 0.9, condition));
        expectNear(valuesOf(zone), asReference(values), 1e-12);
    }
}

TEST_F(SmoothVariableTest, FirstOrderLeavesNoSlopeAcrossTheBorder)
{
    Size const size{9, 8, 7};
    addOrdered(size, randomValues(9 * 8 * 7));
    ASSERT_TRUE(smooth(1, 3, 0.5, firstOrder));
    std::vector<double> const values = valuesOf(1);
    auto const at = [&values](std::int64_t i, std::int64_t j, std::int64_t k) {
        return values[static_cast<std::size_t>(i + 9 * (j + 8 * k))];
    };
    EXPECT_EQ(at(0, 3, 3), at(1, 3, 3));
    EXPECT_EQ(at(8, 7, 3), at(7, 6, 3)) << "an edge";
    EXPECT_EQ(at(0, 0, 6), at(1, 1, 5)) << "a corner";
}

TEST_F(SmoothVariableTest, DampsAWaveByItsFactorInEachPass)
{
    constexpr std::int64_t count = 129;
    constexpr double weight = 0.6;
    for (int const waves : {1, 5, 40, 127}) { // half waves, zero at both ends
        std::vector<double> values;
        double const angle = M_PI * waves / (count - 1);
        for (std::int64_t at = 0; at < count * count; ++at) {
            values.push_back(std::sin(angle * static_cast<double>(at % count)) *
                             std::sin(2 * M_PI / (count - 1) * static_cast<double>(at / count)));
        }
        int const zone = addOrdered({count, count, 1}, values);
        ASSERT_TRUE(smooth(zone, 30, weight));
        double const factor =
            1 - weight * (1 - (std::cos(angle) + std::cos(2 * M_PI / (count - 1))) / 2); // of one pass
        reference::Numbers wanted = asReference(values);
        for (long double& value : wanted) {
            value *= std::pow(factor, 30);
        }
        expectNear(valuesOf(zone), wanted, 1e-13);
    }
}

TEST_F(SmoothVariableTest, RoundsToTheTypeOnceAtTheEnd)
{
    struct Type
    {
        FieldDataType_e type;
        double low, high;
        int passes = 10;
    };
    Size const size{23, 17, 13};
    for (Type const& each : {Type{FieldDataType_Float, -1, 1, 65}, // fewer passes are made in single precision
                             {FieldDataType_Float, -1e38, 1e38},
                             {FieldDataType_Int32, -2e9, 2e9},
                             {FieldDataType_Int16, -32000, 32000},
                             {FieldDataType_Byte, 0, 255},
                             {FieldDataType_Bit, 0, 1.999}}) {
        std::vector<double> values = randomValues(23 * 17 * 13, each.low, each.high);
        std::transform(values.begin(), values.end(), values.begin(), [&each](double value) {
            return each.type == FieldDataType_Float ? static_cast<double>(static_cast<float>(value))
                                                    : std::floor(value);
        });
        int const zone = addOrdered(size, values, each.type);
        ASSERT_TRUE(smooth(zone, each.passes, 0.5));
        ASSERT_EQ(dataSet->field(zone, smoothed)->type(), each.type);
        reference::Numbers const wanted =
            reference::smoothGrid(asReference(values), size, each.passes, 0.5L, fixedBorder);
        std::vector<double> const found = valuesOf(zone);
        for (std::size_t at = 0; at < found.size(); ++at) {
            double const unit = each.type == FieldDataType_Float ? std::ldexp(1.0, std::ilogb(found[at]) - 23) : 1.0;
            ASSERT_NEAR(found[at], static_cast<double>(wanted[at]), 0.5000001 * unit)
                << "type " << each.type << " value " << at;
        }
    }
}

TEST_F(SmoothVariableTest, IsExactToSomeLastPlacesAfterTensOfPassesOverFloats)
{
    Size const size{41, 37, 19};
    std::vector<double> values = randomValues(41 * 37 * 19);
    std::transform(values.begin(), values.end(), values.begin(),
                   [](double value) { return static_cast<double>(static_cast<float>(value)); });
    double const lastPlace = 0x1p-23; // of the largest values
    for (int const passes : {1, 11, 64}) {
        for (BoundaryCondition_e const condition : conditions) {
            int const zone = addOrdered(size, values, FieldDataType_Float);
            ASSERT_TRUE(smooth(zone, passes, 0.6, condition));
            reference::Numbers const wanted = reference::smoothGrid(asReference(values), size, passes, 0.6L, condition);
            expectNear(valuesOf(zone), wanted, 8 * lastPlace);
        }
    }
}

TEST_F(SmoothVariableTest, CutsWhatSecondOrderExtrapolatesBeyondAType)
{
    addOrdered({6, 1, 1}, {0, 255, 0, 0, 0, 0}, FieldDataType_Byte);
    ASSERT_TRUE(smooth(1, 1, 0.5, secondOrder));
    EXPECT_THAT(valuesOf(1), ElementsAre(191, 128, 64, 0, 0, 0));
    addOrdered({6, 1, 1}, {0, 255, 10, 0, 0, 0}, FieldDataType_Byte);
    ASSERT_TRUE(smooth(2, 1, 0.1, secondOrder)); // 438.25 at one end, -0.5 at the other
    EXPECT_THAT(valuesOf(2), ElementsAre(255, 230, 22, 1, 0, 0));
    EXPECT_THAT(remark, HasSubstr("Beyond the limits of their type and cut to them: 2 values."));
}

TEST_F(SmoothVariableTest, LeavesHolesAsTheyAreAndOutOfTheMeans)
{
    Size const size{31, 29, 7};
    std::vector<double> values = randomValues(31 * 29 * 7);
    std::mt19937 random(5);
    for (std::size_t at = 0; at < values.size(); ++at) {
        unsigned const die = static_cast<unsigned>(random() % 12);
        values[at] = die == 0 ? notANumber : die == 1 ? infinity : die == 2 ? -infinity : values[at];
    }
    for (FieldDataType_e const type : {FieldDataType_Double, FieldDataType_Float}) {
        for (BoundaryCondition_e const condition : conditions) {
            int const zone = addOrdered(size, values, type);
            std::vector<double> const old = valuesOf(zone);
            ASSERT_TRUE(smooth(zone, 12, 0.6, condition));
            std::vector<double> const found = valuesOf(zone);
            expectNear(found, reference::smoothGrid(asReference(old), size, 12, 0.6L, condition),
                       type == FieldDataType_Double ? 1e-14 : 1e-6);
            for (std::size_t at = 0; at < old.size(); ++at) {
                if (!std::isfinite(old[at])) {
                    ASSERT_TRUE(found[at] == old[at] || (std::isnan(found[at]) && std::isnan(old[at])));
                }
            }
        }
    }
}

TEST_F(SmoothVariableTest, LeavesHolesOfCellsOutOfTheMeansToo)
{
    auto const zone = sample::fillOf(Shape::Tetrahedron, 9, 0.2, 4).zone(ZoneType_FETetra);
    std::vector<double> values = randomValues(zone->pointCount());
    for (std::size_t at = 0; at < values.size(); at += 9) {
        values[at] = notANumber;
    }
    addCells(zone, values);
    ASSERT_TRUE(smooth(1, 8, 0.6));
    expectNear(valuesOf(1), reference::smoothMesh(asReference(values), reference::meshOfPoints(*zone), 8, 0.6L), 1e-14);
    EXPECT_TRUE(std::isnan(valuesOf(1)[9]));
}

TEST_F(SmoothVariableTest, LeavesHiddenPointsAloneAndOutOfTheMeans)
{
    Size const size{20, 20, 10};
    std::vector<double> const values = randomValues(4000);
    std::vector<double> marks(4000);
    std::vector<double> without = values;
    for (std::size_t at = 0; at < 4000; at += 7) {
        marks[at] = Blanking::hiddenPoint;
        without[at] = notANumber;
    }
    addOrdered(size, values);
    Zone& zone = *dataSet->zone(1);
    zone.blanking = std::make_shared<Blanking>(
        zone, Blanking::Marks{sample::field(marks, FieldDataType_Byte).group()->buffer(), nullptr});
    ASSERT_TRUE(smooth(1, 6, 0.5, secondOrder));
    std::vector<double> const found = valuesOf(1);
    expectNear(found, reference::smoothGrid(asReference(without), size, 6, 0.5L, secondOrder), 1e-14);
    EXPECT_EQ(found[7], values[7]);
    EXPECT_THAT(remark, HasSubstr("572 left out"));
}

TEST_F(SmoothVariableTest, NeverLooksAtSlotsWithoutACell)
{
    std::vector<double> slots(6 * 5, infinity);
    for (std::size_t at = 0; at < slots.size(); ++at) {
        slots[at] = at % 6 < 5 && at / 6 < 4 ? static_cast<double>(at * at % 17) : notANumber;
    }
    addOrdered({6, 5, 1}, slots, FieldDataType_Double, ValueLocation_CellCentered);
    ASSERT_TRUE(smooth(1, 2));
    EXPECT_THAT(remark, testing::Not(HasSubstr("left out")));
    EXPECT_TRUE(std::isfinite(valuesOf(1)[0]));
}

TEST_F(SmoothVariableTest, HoldsTheBorderOfCellsWhateverTheCondition)
{
    auto const zone = sample::fillOf(Shape::Quad, 12, 0.2, 4).zone(ZoneType_FEQuad);
    std::vector<double> const values = randomValues(zone->pointCount());
    addCells(zone, values);
    ASSERT_TRUE(smooth(1, 3, 0.5, secondOrder));
    EXPECT_EQ(valuesOf(1)[5], values[5]);
    expectNear(valuesOf(1), reference::smoothMesh(asReference(values), reference::meshOfPoints(*zone), 3, 0.5L), 1e-14);
    EXPECT_THAT(remark, HasSubstr("the boundary Fixed"));
    EXPECT_THAT(remark, HasSubstr("48 held fixed at the border"));
    EXPECT_THAT(remark, HasSubstr("The border of a finite-element zone is always held fixed."));
}

TEST_F(SmoothVariableTest, IsOneStepThatCanBeTakenBack)
{
    addOrdered({30, 40, 5}, randomValues(6000), FieldDataType_Float);
    std::string const before = withoutHistory();
    ASSERT_TRUE(smooth(1, 5));
    EXPECT_THAT(recorder.take(), ElementsAre("0 zones 1 variables 4"));
    EXPECT_EQ(session.history().undoName(), "Smooth");
    expectUndoAndRedo(before, {"0 zones 1 variables 4"}, {"0 zones 1 variables 4"});
}

TEST_F(SmoothVariableTest, LeavesOtherZonesTheValuesThatTheyShared)
{
    addOrdered({9, 9, 1}, randomValues(81));
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {1})));
    std::vector<double> const values = valuesOf(1);
    std::string const before = withoutHistory();
    recorder.take();
    ASSERT_TRUE(smooth(2, 1));
    EXPECT_EQ(valuesOf(1), values);
    EXPECT_NE(valuesOf(2), values);
    EXPECT_EQ(dataSet->field(1, smoothed)->shareCount(), 1);
    expectUndoAndRedo(before, {"0 zones 2 variables 4"}, {"0 zones 2 variables 4"});
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(dataSet->field(1, smoothed)->shareCount(), 2);
}

TEST_F(SmoothVariableTest, GivesTheSameBitsOnAnyNumberOfThreads)
{
    auto lists = sample::fillOf(Shape::Polyhedron, 14, 0.25, 2);
    lists.shuffle(3);
    auto const cells = lists.zone(ZoneType_FEPolyhedron);
    std::vector<double> const ofBlock = randomValues(90 * 80 * 70);
    std::vector<double> const ofCells = randomValues(cells->pointCount());
    std::vector<std::vector<double>> found;
    for (int const threads : {1, 2, 16}) {
        Threads const some(threads);
        int const block = addOrdered({90, 80, 70}, ofBlock);
        ASSERT_TRUE(smooth(block, 11, 0.7, secondOrder));
        found.push_back(valuesOf(block));
        int const mesh = addCells(std::make_shared<Zone>(*cells), ofCells);
        ASSERT_TRUE(smooth(mesh, 11, 0.7));
        std::vector<double> const more = valuesOf(mesh);
        found.back().insert(found.back().end(), more.begin(), more.end());
    }
    EXPECT_EQ(found[1], found[0]);
    EXPECT_EQ(found[2], found[0]);
}

TEST_F(SmoothVariableTest, TellsWhatItHasDone)
{
    addOrdered({5, 1, 1}, {0, 4, notANumber, 8, 0});
    ASSERT_TRUE(smooth(1, 1));
    EXPECT_THAT(remark, testing::StartsWith(
                            "Smooth: \"P\" of \"block\", 1 pass with the coefficient 0.5 and the boundary Fixed, in "));
    EXPECT_THAT(remark,
                testing::EndsWith("2 values changed, 2 held fixed at the border, 1 left out, hidden or no finite "
                                  "number; the largest change of the last pass was 4."));
    addOrdered({4, 1, 1}, {0, 5, 0, 0}, FieldDataType_Int16);
    ASSERT_TRUE(smooth(2, 2, 0.25, firstOrder));
    EXPECT_THAT(remark, HasSubstr("2 passes with the coefficient 0.25 and the boundary First Order"));
    EXPECT_THAT(remark, testing::EndsWith("Results were rounded to whole numbers."));
    EXPECT_THAT(remark, testing::Not(HasSubstr("held")));
}

TEST_F(SmoothVariableTest, CountsAHoleAtTheBorderAsLeftOutAndNotAsHeld)
{
    addOrdered({5, 1, 1}, {notANumber, 4, 1, 8, 0});
    ASSERT_TRUE(smooth(1, 1));
    EXPECT_THAT(remark, HasSubstr(" 1 held fixed at the border, 1 left out, "));
}

TEST_F(SmoothVariableTest, CountsAHoleInAHeldRowAsLeftOut)
{
    std::vector<double> values(25, 1.0);
    values[2] = notANumber; // in the middle of the first row
    addOrdered({5, 5, 1}, values);
    ASSERT_TRUE(smooth(1, 1));
    EXPECT_THAT(remark, HasSubstr(" 15 held fixed at the border, 1 left out, "));
}

TEST_F(SmoothVariableTest, LoadsWhatItNeeds)
{
    auto const whole = sample::fillOf(Shape::Brick, 4, 0, 0).zone(ZoneType_FEBrick);
    std::vector<double> const values = randomValues(whole->pointCount());
    auto const zone = std::make_shared<Zone>("later", ZoneType_FEBrick, -1, -1, -1);
    zone->dimensionsLoader =
        std::make_shared<sample::SizeLoader>(ZoneDimensions{whole->i, whole->j, whole->k, whole->connectivity});
    zone->fields.resize(3);
    zone->fields.push_back(sample::Loader::field(std::make_shared<sample::Loader>(values)));
    dataSet->addZone(zone);
    ASSERT_TRUE(smooth(1, 3)) << session.lastError();
    expectNear(valuesOf(1), reference::smoothMesh(asReference(values), reference::meshOfPoints(*whole), 3, 0.5L), 1e-6);
}

TEST_F(SmoothVariableTest, SmoothsACoordinateThatALinePlotShowsAsTheFunction)
{
    addOrdered({7, 1, 1}, randomValues(7));
    dataSet->zone(1)->fields[1] = sample::field(randomValues(7), FieldDataType_Double);
    expectRefusal("The variable \"Y\" is on an axis.", [&] { return smooth(1, 1, 0.5, fixedBorder, 2); });
    session.perform(SetPlotType(frame->id, PlotType_XYLine));
    session.perform(SetLinePlot(frame->id, 1, 1, 2)); // Y over X
    EXPECT_TRUE(smooth(1, 1, 0.5, fixedBorder, 2)) << session.lastError();
    expectRefusal("No line map shows the variable \"P\" as the function.", [&] { return smooth(1, 1); });
}

TEST_F(SmoothVariableTest, IsRefusedWithAReason)
{
    addOrdered({7, 5, 1}, randomValues(35));
    dataSet->zone(1)->fields[0] = sample::field(randomValues(35));
    auto const refused = [this](std::string const& reason, int zone, int variable, int passes, double weight) {
        expectRefusal(reason, [&] { return smooth(zone, passes, weight, fixedBorder, variable); });
    };
    refused("There is no such zone.", 0, smoothed, 1, 0.5);
    refused("There is no such zone.", 2, smoothed, 1, 0.5);
    refused("There is no such variable.", 1, 0, 1, 0.5);
    refused("There is no such variable.", 1, 5, 1, 0.5);
    refused("The number of passes must be at least 1.", 1, smoothed, 0, 0.5);
    for (double const weight : {0.0, -0.1, 1e-39, 0.950001, notANumber, infinity}) {
        refused("The coefficient must be greater than 0 and at most 0.95.", 1, smoothed, 1, weight);
    }
    EXPECT_TRUE(smooth(1, 1, 0.95));
    EXPECT_TRUE(smooth(1, 1, SmoothVariable::leastWeight));
    refused("The variable \"X\" is on an axis.", 1, 1, 1, 0.5);
    session.perform(SetPlotType(frame->id, PlotType_Cartesian2D));
    refused("The variable \"Z\" is passive in the zone \"block\": it has no values there.", 1, 3, 1, 0.5);
    session.perform(SetPlotType(frame->id, PlotType_Sketch));
    refused("Only a 2D, 3D or line plot shows what is smoothed.", 1, smoothed, 1, 0.5);
    session.perform(SetPlotType(frame->id, PlotType_Cartesian3D));
    session.perform(EnableVariable(*dataSet, smoothed, false));
    refused("The variable \"P\" is disabled.", 1, smoothed, 1, 0.5);
    session.perform(EnableVariable(*dataSet, smoothed, true));
    session.perform(EnableZone(*dataSet, 1, false));
    refused("The zone \"block\" is disabled.", 1, smoothed, 1, 0.5);
}

TEST_F(SmoothVariableTest, IsRefusedWithoutDataAndWhileTheDataSetIsLocked)
{
    addOrdered({7, 5, 1}, randomValues(35));
    expectRefusal("There is no data set.",
                  [&] { return session.perform(SmoothVariable(noFrame, 1, smoothed, 1, 0.5, fixedBorder)); });
    dataSet->setLockHolder("somebody");
    expectRefused([&] { return smooth(1, 1); });
    EXPECT_EQ(session.lastError(), "The data set is locked.");
}

} // namespace veldraw::tests
