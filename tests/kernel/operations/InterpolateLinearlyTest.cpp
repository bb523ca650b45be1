#include "kernel/operations/InterpolateLinearly.h"

#include "kernel/operations/SetPlotType.h"
#include "tests/kernel/support/MeshData.h"
#include "tests/kernel/support/SampleLoader.h"
#include "tests/kernel/support/SessionFixture.h"
#include "tests/kernel/support/SpatialData.h"
#include "tests/support/SpecialNumbers.h"
#include "tests/support/Threads.h"

#include <random>

namespace veldraw::tests {

using namespace kernel;
using Shape = Connectivity::Shape;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

constexpr int pressure = 4;    // one-based numbers of variables
constexpr int temperature = 5; // at the cells of the sources

double linearPressure(Point const& place)
{
    return 3 - 0.7 * place[0] + 1.9 * place[1] + 0.3 * place[2];
}

/// A session in 3D over variables X, Y, Z, P and T, without a zone.
class InterpolateLinearlyTest : public SessionFixture
{
protected:
    InterpolateLinearlyTest()
    {
        dataSet = std::make_shared<DataSet>("Interpolation");
        for (char const* name : {"X", "Y", "Z", "P", "T"}) {
            dataSet->addVariable(std::make_shared<Variable>(name));
        }
        frame = sample::show(session, dataSet);
        session.setRemarkListener([this](std::string const& text) { remark = text; });
        recorder.take();
    }

    ~InterpolateLinearlyTest() override { session.setRemarkListener({}); }

    /// Adds a zone with P of the function at the points, and T as the number of each cell's slot.
    void addSource(std::shared_ptr<Zone> const& zone, std::function<double(Point const&)> const& function,
                   FieldDataType_e type = FieldDataType_Double)
    {
        sample::addNodal(*zone, function, type);
        std::vector<double> slots(static_cast<std::size_t>(zone->valueCount(ValueLocation_CellCentered)));
        std::iota(slots.begin(), slots.end(), 0);
        zone->fields.push_back(sample::field(slots, FieldDataType_Double, ValueLocation_CellCentered));
        dataSet->addZone(zone);
    }

    /// Adds a zone of points with P and T of this type, each -7.
    std::shared_ptr<Zone> addTarget(std::vector<Point> const& points, FieldDataType_e type = FieldDataType_Double)
    {
        sample::CellLists lists;
        lists.points = points;
        auto zone = std::make_shared<Zone>("target", ZoneType_Ordered, static_cast<std::int64_t>(points.size()), 1, 1);
        zone->fields = lists.zone(ZoneType_FEBrick)->fields;
        for (int variable = 0; variable < 2; ++variable) {
            zone->fields.push_back(sample::field(std::vector<double>(points.size(), -7), type));
        }
        dataSet->addZone(zone);
        return zone;
    }

    bool interpolate(NumberSet const& sources, int destination, NumberSet const& variables,
                     std::optional<double> constant = {})
    {
        LinearInterpMode_e const mode = constant ? LinearInterpMode_SetToConstant : LinearInterpMode_DontChange;
        return session.perform(
            InterpolateLinearly(frame->id, sources, destination, variables, constant.value_or(0), mode));
    }

    void expectRefusal(std::string const& reason, NumberSet const& sources, int destination)
    {
        recorder.take();
        expectRefused([&] { return interpolate(sources, destination, {pressure}); });
        EXPECT_EQ(session.lastError(), reason);
    }

    static std::vector<Point> scattered(std::size_t count, double low, double high, bool isFlat = false)
    {
        std::mt19937 random(12);
        std::uniform_real_distribution<double> distribution(low, high);
        std::vector<Point> points(count);
        for (Point& point : points) {
            point = {distribution(random), distribution(random), isFlat ? 0 : distribution(random)};
        }
        return points;
    }

    std::string remark;
};

bool isInCube(Point const& point, double edge)
{
    return std::all_of(point.begin(), point.end(), [edge](double number) { return number >= 0 && number <= edge; });
}

} // namespace

TEST_F(InterpolateLinearlyTest, GivesEachPointTheLinearFieldOfItsPlace)
{
    std::vector<Point> const points = scattered(4001, 0, 6);
    for (Shape const shape : {Shape::Tetrahedron, Shape::Pyramid, Shape::Prism, Shape::Brick, Shape::Polyhedron}) {
        addSource(sample::fillOf(shape, 6, 0.2, 4).zone(sample::zoneTypeOf(shape)), linearPressure);
    }
    addSource(sample::orderedFill(7, 7, 7, 0.2, 5), linearPressure);
    addTarget(points);
    for (int source = 1; source <= 6; ++source) {
        ASSERT_TRUE(interpolate({source}, 7, {pressure}));
        std::vector<double> const found = sample::values(*dataSet, 7, pressure);
        for (std::size_t point = 0; point < points.size(); ++point) {
            ASSERT_NEAR(found[point], linearPressure(points[point]), 1e-12) << "source " << source;
        }
    }
}

TEST_F(InterpolateLinearlyTest, GivesATrilinearFieldInBoxes)
{
    auto const trilinear = [](Point const& p) {
        return 1 + p[0] - 2 * p[1] + 3 * p[2] + 0.5 * p[0] * p[1] - p[1] * p[2] + 0.25 * p[0] * p[1] * p[2];
    };
    addSource(sample::orderedFill(6, 5, 7, 0, 0), trilinear);
    std::vector<Point> const points = scattered(4003, 0, 4);
    addTarget(points);
    ASSERT_TRUE(interpolate({1}, 2, {pressure}));
    std::vector<double> const found = sample::values(*dataSet, 2, pressure);
    for (std::size_t point = 0; point < points.size(); ++point) {
        EXPECT_NEAR(found[point], trilinear(points[point]), 1e-13 * 100);
    }
}

TEST_F(InterpolateLinearlyTest, GivesMeansOfValuesWhoseDifferenceIsNoNumber)
{
    double const huge = 1.7e308;
    addSource(sample::orderedFill(3, 3, 3, 0, 0), [huge](Point const& place) { return (1 - place[0]) * huge; });
    addTarget({{0.5, 1, 1}, {1.25, 0.5, 0.5}, {0, 2, 2}, {2, 0.1, 0.1}});
    ASSERT_TRUE(interpolate({1}, 2, {pressure}));
    std::vector<double> const found = sample::values(*dataSet, 2, pressure);
    EXPECT_DOUBLE_EQ(found[0], huge / 2);
    EXPECT_DOUBLE_EQ(found[1], -huge / 4);
    EXPECT_DOUBLE_EQ(found[2], huge);
    EXPECT_DOUBLE_EQ(found[3], -huge);
}

TEST_F(InterpolateLinearlyTest, KeepsEqualValuesToTheLastBit)
{
    addSource(sample::fillOf(Shape::Brick, 5, 0.25, 1).zone(ZoneType_FEBrick), [](Point const&) { return 0.1; });
    addTarget(scattered(3001, 0, 5));
    ASSERT_TRUE(interpolate({1}, 2, {pressure}));
    EXPECT_THAT(sample::values(*dataSet, 2, pressure), testing::Each(0.1));
}

TEST_F(InterpolateLinearlyTest, GivesTheValueOfTheCellWhereASourceHasValuesAtItsCells)
{
    addSource(sample::orderedFill(4, 5, 6, 0, 0), linearPressure);
    std::vector<Point> const points = scattered(3001, 0, 3);
    addTarget(points);
    ASSERT_TRUE(interpolate({1}, 2, {temperature}));
    std::vector<double> const found = sample::values(*dataSet, 2, temperature);
    for (std::size_t point = 0; point < points.size(); ++point) {
        EXPECT_EQ(found[point],
                  std::floor(points[point][0]) + 4 * std::floor(points[point][1]) + 20 * std::floor(points[point][2]));
    }
}

TEST_F(InterpolateLinearlyTest, PutsValuesOfCellsAtTheMeansOfTheirCorners)
{
    addSource(sample::fillOf(Shape::Tetrahedron, 4, 0.2, 1).zone(ZoneType_FETetra), linearPressure);
    auto const ordered = sample::orderedFill(4, 3, 5, 0, 0);
    auto const bricks = sample::fillOf(Shape::Brick, 3, 0, 0).zone(ZoneType_FEBrick);
    for (auto const& zone : {ordered, bricks}) {
        std::vector<double> const old(static_cast<std::size_t>(zone->valueCount(ValueLocation_CellCentered)), -7);
        zone->fields.push_back(sample::field(old, FieldDataType_Double, ValueLocation_CellCentered));
        dataSet->addZone(zone);
    }
    ASSERT_TRUE(interpolate({1}, 2, {pressure}));
    ASSERT_TRUE(interpolate({1}, 3, {pressure}));
    std::vector<double> const found = sample::values(*dataSet, 2, pressure);
    for (int slot = 0; slot < 60; ++slot) {
        int const place[3] = {slot % 4, slot / 4 % 3, slot / 12};
        bool const isCell = place[0] < 3 && place[1] < 2 && place[2] < 4;
        double const expected = linearPressure({place[0] + 0.5, place[1] + 0.5, place[2] + 0.5});
        EXPECT_NEAR(found[static_cast<std::size_t>(slot)], isCell ? expected : -7, 1e-12) << slot;
    }
    EXPECT_NEAR(sample::values(*dataSet, 3, pressure).back(), linearPressure({2.5, 2.5, 2.5}), 1e-12);
}

TEST_F(InterpolateLinearlyTest, LeavesPointsOutsideOrGivesThemTheConstant)
{
    addSource(sample::fillOf(Shape::Prism, 4, 0.2, 1).zone(ZoneType_FEMixed), linearPressure);
    std::vector<Point> const points = scattered(2003, -2, 6);
    auto const outside =
        points.size() -
        static_cast<std::size_t>(std::count_if(points.begin(), points.end(), [](auto& p) { return isInCube(p, 4); }));
    for (std::optional<double> const constant : {std::optional<double>(), std::optional<double>(12.5)}) {
        addTarget(points);
        int const target = dataSet->zoneCount();
        ASSERT_TRUE(interpolate({1}, target, {pressure}, constant));
        std::vector<double> const found = sample::values(*dataSet, target, pressure);
        for (std::size_t point = 0; point < points.size(); ++point) {
            bool const isInside = isInCube(points[point], 4);
            EXPECT_NEAR(found[point], isInside ? linearPressure(points[point]) : constant.value_or(-7), 1e-12);
        }
        EXPECT_THAT(remark,
                    HasSubstr("Outside the source cells: " + std::to_string(outside) + " points. What is outside " +
                              (constant ? "got the constant 12.5." : "kept what it had.")));
        EXPECT_EQ(sample::values(*dataSet, target, temperature), std::vector<double>(points.size(), -7));
    }
}

TEST_F(InterpolateLinearlyTest, FillsAPassiveVariableWithZerosOutside)
{
    addSource(sample::fillOf(Shape::Brick, 2, 0, 0).zone(ZoneType_FEBrick), linearPressure);
    addTarget({{1, 1, 1}, {9, 9, 9}})->fields[pressure - 1] = Field();
    ASSERT_TRUE(interpolate({1}, 2, {pressure}));
    EXPECT_THAT(sample::values(*dataSet, 2, pressure), ElementsAre(testing::DoubleNear(4.5, 1e-12), 0));
}

TEST_F(InterpolateLinearlyTest, AsksTheLowestZoneFirst)
{
    addSource(sample::fillOf(Shape::Brick, 2, 0, 0).zone(ZoneType_FEBrick), [](Point const&) { return 1; });
    addTarget({{1, 1, 1}, {2, 2, 2}, {3, 3, 3}, {5, 5, 5}});
    addSource(sample::fillOf(Shape::Prism, 4, 0, 0).zone(ZoneType_FEMixed), [](Point const&) { return 2; });
    ASSERT_TRUE(interpolate({3, 1}, 2, {pressure}));
    EXPECT_THAT(sample::values(*dataSet, 2, pressure), ElementsAre(1, 1, 2, -7));
}

TEST_F(InterpolateLinearlyTest, ReadsADestinationThatIsASourceAsItWas)
{
    addSource(sample::orderedFill(3, 3, 3, 0, 0), linearPressure);
    addSource(sample::orderedFill(5, 5, 5, 0, 0), [](Point const&) { return 9; });
    ASSERT_TRUE(interpolate({1, 2}, 2, {pressure}));
    std::vector<double> const found = sample::values(*dataSet, 2, pressure);
    for (int point = 0; point < 125; ++point) {
        Point const place{point % 5 * 1.0, point / 5 % 5 * 1.0, point / 25 * 1.0};
        EXPECT_NEAR(found[static_cast<std::size_t>(point)], isInCube(place, 2) ? linearPressure(place) : 9, 1e-12);
    }
}

TEST_F(InterpolateLinearlyTest, WorksInThePlaneOfA2DPlot)
{
    session.perform(SetPlotType(frame->id, PlotType_Cartesian2D));
    session.perform(AssignVariable(frame->id, 'X', 1));
    session.perform(AssignVariable(frame->id, 'Y', 2));
    auto lists = sample::fillOf(Shape::Triangle, 5, 0.2, 3);
    for (Point& point : lists.points) {
        point[2] = 100 * point[0]; // does not count
    }
    addSource(lists.zone(ZoneType_FETriangle), [](Point const& p) { return 2 * p[0] - p[1]; });
    std::vector<Point> const points = scattered(3001, 0, 5, true);
    addTarget(points);
    addSource(sample::fillOf(Shape::Brick, 2, 0, 0).zone(ZoneType_FEBrick), linearPressure);
    ASSERT_TRUE(interpolate({1}, 2, {pressure}));
    std::vector<double> const found = sample::values(*dataSet, 2, pressure);
    for (std::size_t point = 0; point < points.size(); ++point) {
        EXPECT_NEAR(found[point], 2 * points[point][0] - points[point][1], 1e-12);
    }
    expectRefusal("The source zone \"cells\" has cells with a volume, which have no place in a 2D plot.", {1, 3}, 2);
}

TEST_F(InterpolateLinearlyTest, RefusesSourcesWithoutCellsThatHavePlacesInside)
{
    addTarget({{0, 0, 0}});
    addTarget({{0, 0, 0}, {1, 0, 0}});
    dataSet->zone(2)->name = "line";
    expectRefusal("The source zone \"line\" has no cells with an area or a volume.", {2}, 1);
}

TEST_F(InterpolateLinearlyTest, IsOneStepThatIsTakenBackAndDoneAgain)
{
    addSource(sample::fillOf(Shape::Brick, 2, 0, 0).zone(ZoneType_FEBrick), linearPressure);
    addTarget({{1, 1, 1}, {9, 9, 9}});
    std::string const before = withoutHistory();
    ASSERT_TRUE(interpolate({1}, 2, {pressure, temperature}));
    EXPECT_THAT(recorder.take(), ElementsAre("0 zones 2 variables 4 5"));
    EXPECT_EQ(session.history().undoName(), "Linear Interpolation");
    for (int round = 0; round < 2; ++round) {
        expectUndoAndRedo(before, {"0 zones 2 variables 4 5"}, {"0 zones 2 variables 4 5"});
    }
}

TEST_F(InterpolateLinearlyTest, CountsAPointAsOutsideWhereASourceValueIsNotFinite)
{
    addSource(sample::orderedFill(3, 3, 3, 0, 0), linearPressure);
    Zone& source = *dataSet->zone(1);
    auto const damaged = [&](int variable, std::size_t slot, double value) {
        std::vector<double> numbers = sample::values(*dataSet, 1, variable);
        numbers[slot] = value;
        ValueLocation_e const location = source.fields[static_cast<std::size_t>(variable - 1)].location();
        source.fields[static_cast<std::size_t>(variable - 1)] = sample::field(numbers, FieldDataType_Double, location);
    };
    damaged(pressure, 0, notANumber);
    damaged(pressure, 26, infinity);
    damaged(temperature, 1, -infinity);
    addTarget({{0.5, 0.5, 0.5}, {1, 1, 1}, {1.5, 0.5, 0.5}, {1.9, 1.9, 1.9}});
    ASSERT_TRUE(interpolate({1}, 2, {pressure, temperature}, 100));
    EXPECT_THAT(sample::values(*dataSet, 2, pressure),
                ElementsAre(100, 100, testing::DoubleNear(linearPressure({1.5, 0.5, 0.5}), 1e-12), 100));
    EXPECT_THAT(sample::values(*dataSet, 2, temperature), ElementsAre(0, 0, 100, 13));
    EXPECT_THAT(remark, HasSubstr("No point was outside the source cells. 4 values treated as outside, where a source "
                                  "value is not finite. What is outside got the constant 100."));
}

TEST_F(InterpolateLinearlyTest, CountsAPointThatIsNowhereAsOutside)
{
    addSource(sample::orderedFill(3, 3, 3, 0, 0), linearPressure);
    addTarget({{1, 1, 1}, {notANumber, 1, 1}, {1, infinity, 1}, {7, 7, 7}});
    ASSERT_TRUE(interpolate({1}, 2, {pressure}, 100));
    EXPECT_THAT(sample::values(*dataSet, 2, pressure), ElementsAre(testing::DoubleNear(4.5, 1e-12), 100, 100, 100));
    EXPECT_THAT(remark, HasSubstr("Outside the source cells: 3 points. 2 points of these without finite coordinates. "
                                  "What is outside got the constant 100."));
}

TEST_F(InterpolateLinearlyTest, TellsOfCellsThatWereLeftOut)
{
    auto lists = sample::fillOf(Shape::Brick, 3, 0, 0);
    lists.points[0][0] = notANumber;
    auto const zone = lists.zone(ZoneType_FEBrick);
    Blanking::Marks marks;
    std::vector<double> cells(27);
    cells[26] = cells[25] = Blanking::hiddenCell;
    marks.ofCells = sample::field(cells, FieldDataType_Byte).group()->buffer();
    zone->blanking = std::make_shared<Blanking>(*zone, marks);
    addSource(zone, linearPressure);
    addTarget({{0.5, 0.5, 0.5}, {1.5, 1.5, 1.5}, {2.5, 2.5, 2.5}});
    ASSERT_TRUE(interpolate({1}, 2, {pressure, temperature}));
    EXPECT_THAT(sample::values(*dataSet, 2, temperature), ElementsAre(-7, 13, -7));
    EXPECT_THAT(remark,
                testing::MatchesRegex(
                    "Linear Interpolation: \"[^\"]*\", \"[^\"]*\" from \"[^\"]*\" to \"target\" with 3 points, in .*"));
    EXPECT_THAT(remark,
                HasSubstr("Outside the source cells: 2 points. What is outside kept what it had. 2 hidden source "
                          "cells left out. 1 source cell without finite coordinates left out."));
}

TEST_F(InterpolateLinearlyTest, RoundsToTheTypeOfTheDestination)
{
    addSource(sample::orderedFill(3, 3, 3, 0, 0), [](Point const& p) { return 0.2 + 1000 * p[0]; });
    for (FieldDataType_e const type :
         {FieldDataType_Float, FieldDataType_Int32, FieldDataType_Int16, FieldDataType_Byte, FieldDataType_Bit}) {
        addTarget({{0, 0, 0}, {0.0004, 1, 1}, {1, 1, 1}, {2, 2, 2}, {9, 9, 9}}, type);
        int const target = dataSet->zoneCount();
        ASSERT_TRUE(interpolate({1}, target, {pressure}, 1.7));
        std::vector<double> expected{0, 1, 1000, 2000, 2};
        if (type == FieldDataType_Float) {
            expected = {0.2F, 0.6F, 1000.2F, 2000.2F, 1.7F};
        }
        double const most = type == FieldDataType_Byte ? 255 : type == FieldDataType_Bit ? 1 : 1e6;
        std::vector<double> const found = sample::values(*dataSet, target, pressure);
        for (std::size_t point = 0; point < expected.size(); ++point) {
            EXPECT_NEAR(found[point], std::min(expected[point], most), 1e-4) << "type " << int(type);
        }
    }
}

TEST_F(InterpolateLinearlyTest, GivesTheSameBitsWithAnyNumberOfThreads)
{
    auto lists = sample::fillOf(Shape::Polyhedron, 9, 0.25, 2);
    lists.shuffle(3);
    addSource(lists.zone(ZoneType_FEPolyhedron), [](Point const& p) { return std::sin(p[0]) + p[1] * p[2]; });
    std::vector<std::vector<double>> found;
    for (int const threads : {1, 2, 16}) {
        Threads const some(threads);
        addTarget(scattered(10007, -1, 10));
        ASSERT_TRUE(interpolate({1}, dataSet->zoneCount(), {pressure, temperature}, -1));
        found.push_back(sample::values(*dataSet, dataSet->zoneCount(), pressure));
        std::vector<double> const more = sample::values(*dataSet, dataSet->zoneCount(), temperature);
        found.back().insert(found.back().end(), more.begin(), more.end());
    }
    EXPECT_EQ(found[1], found[0]);
    EXPECT_EQ(found[2], found[0]);
}

TEST_F(InterpolateLinearlyTest, LoadsWhatItNeeds)
{
    auto const whole = sample::fillOf(Shape::Brick, 2, 0, 0).zone(ZoneType_FEBrick);
    sample::addNodal(*whole, linearPressure);
    auto const zone = std::make_shared<Zone>("later", ZoneType_FEBrick, -1, -1, -1);
    zone->dimensionsLoader =
        std::make_shared<sample::SizeLoader>(ZoneDimensions{whole->i, whole->j, whole->k, whole->connectivity});
    for (Field const& field : whole->fields) {
        std::vector<double> numbers;
        for (std::int64_t at = 0; at < whole->i; ++at) {
            numbers.push_back(field.group()->buffer()->value(at));
        }
        zone->fields.push_back(sample::Loader::field(std::make_shared<sample::Loader>(numbers)));
    }
    dataSet->addZone(zone);
    addTarget({{1, 1, 1}, {0.5, 0.25, 1.75}});
    ASSERT_TRUE(interpolate({1}, 2, {pressure}));
    EXPECT_NEAR(sample::values(*dataSet, 2, pressure)[1], linearPressure({0.5, 0.25, 1.75}), 1e-6);
}

TEST_F(InterpolateLinearlyTest, RefusesAZoneWithoutAreasAlsoWhenItsDimensionsComeLater)
{
    auto const line = std::make_shared<Zone>("line", ZoneType_Ordered, -1, -1, -1);
    line->dimensionsLoader = std::make_shared<sample::SizeLoader>(ZoneDimensions{2, 1, 1, {}});
    for (int variable = 0; variable < 4; ++variable) {
        line->fields.push_back(sample::Loader::field(std::make_shared<sample::Loader>(std::vector<double>{0, 1})));
    }
    dataSet->addZone(line);
    addTarget({{1, 1, 1}});
    EXPECT_FALSE(interpolate({1}, 2, {pressure}));
    EXPECT_THAT(session.lastError(), HasSubstr("The source zone \"line\" has no cells with an area or a volume."));
}

} // namespace veldraw::tests
