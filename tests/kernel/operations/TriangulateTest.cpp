#include "kernel/operations/Triangulate.h"

#include "tests/kernel/support/InterpolationFixture.h"
#include "tests/kernel/support/PlaneTriangles.h"

#include <random>

namespace veldraw::tests {

using namespace kernel;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

using Places = std::vector<PlanePlace>;

/// Points of a plane with P as a wave and Q as a linear function of the place.
class TriangulateTest : public InterpolationFixture
{
protected:
    TriangulateTest()
    {
        showPlane();
        session.history().clear();
        recorder.take();
        listenToRemarks();
    }

    ~TriangulateTest() override { session.setRemarkListener({}); }

    static ScatteredPoints pointsAt(Places const& places)
    {
        std::vector<double> numbers;
        for (PlanePlace const& place : places) {
            numbers.insert(numbers.end(), place.begin(), place.end());
        }
        return {2, numbers};
    }

    int add(Places const& places, FieldDataType_e type = FieldDataType_Double)
    {
        return addPoints(pointsAt(places), wave, slope, type);
    }

    int addRandom(std::size_t count, unsigned seed = 1)
    {
        return addPoints(ScatteredPoints::random(2, count, seed), wave, slope);
    }

    bool triangulate(NumberSet const& sources, NumberSet const& boundaries = {}, bool includeBoundary = false,
                     double keepFactor = 0.0)
    {
        remarks.clear();
        Triangulate operation(frame->id, sources, boundaries, includeBoundary, keepFactor);
        bool const isDone = session.perform(operation);
        duplicates = operation.duplicateCount();
        return isDone;
    }

    void expectRefusal(std::string const& reason, NumberSet const& sources, NumberSet const& boundaries = {},
                       bool includeBoundary = false, double keepFactor = 0.0)
    {
        expectRefused([&] { return triangulate(sources, boundaries, includeBoundary, keepFactor); });
        EXPECT_EQ(session.lastError(), reason);
        EXPECT_THAT(remarks, IsEmpty());
    }

    /// The triangles of the last zone, with the places of its points.
    PlaneTriangles made() const
    {
        PlaneTriangles result;
        int const number = dataSet->zoneCount();
        Connectivity const& cells = *dataSet->zone(number)->connectivity;
        std::vector<double> const x = valuesOf(number, 1);
        std::vector<double> const y = valuesOf(number, 2);
        for (std::size_t at = 0; at < x.size(); ++at) {
            result.places.push_back({x[at], y[at]});
        }
        for (std::int64_t cell = 0; cell < cells.cellCount; ++cell) {
            EXPECT_EQ(cells.offsets[cell], 3 * cell);
            PlaneTriangles::Triangle triangle{};
            std::copy_n(cells.indices + 3 * cell, 3, triangle.corners.begin());
            result.triangles.push_back(triangle);
        }
        return result;
    }

    std::int64_t duplicates = -1;
};

} // namespace

TEST_F(TriangulateTest, MakesTheDelaunayTriangulationOfScatteredPoints)
{
    addRandom(2500);
    ASSERT_TRUE(triangulate({1}));
    PlaneTriangles const triangles = made();
    EXPECT_EQ(triangles.places.size(), 2500U);
    EXPECT_TRUE(triangles.areAllForward());
    EXPECT_EQ(triangles.nonDelaunayCount(), 0);
    EXPECT_EQ(triangles.eulerCharacteristic(), 1);
    EXPECT_EQ(triangles.doubleArea(), doubleAreaOfHull(triangles.places));
}

TEST_F(TriangulateTest, CarriesAllVariablesOverInTheOrderOfTheSources)
{
    addRandom(2500, 1);
    addRandom(1500, 2);
    ASSERT_TRUE(triangulate({1, 2}));
    for (int const variable : {1, 2, P, Q}) {
        std::vector<double> expected = valuesOf(1, variable);
        std::vector<double> const second = valuesOf(2, variable);
        expected.insert(expected.end(), second.begin(), second.end());
        EXPECT_EQ(valuesOf(3, variable), expected) << variable;
    }
    EXPECT_TRUE(dataSet->field(3, 3)->isPassive());
}

TEST_F(TriangulateTest, AddsAnEnabledZoneOfTrianglesInOneStep)
{
    addRandom(100);
    std::string const before = withoutHistory();
    ASSERT_TRUE(triangulate({1}));
    EXPECT_THAT(recorder.take(), ElementsAre("4 zones 2"));
    Zone const& zone = *dataSet->zone(2);
    EXPECT_EQ(zone.name, "Triangulation");
    EXPECT_EQ(zone.type, ZoneType_FETriangle);
    EXPECT_TRUE(zone.enabled);
    for (int variable = 1; variable <= dataSet->variableCount(); ++variable) {
        EXPECT_EQ(dataSet->field(2, variable)->shareCount(), 1);
    }
    EXPECT_EQ(session.history().undoName(), "2D Triangulation");
    expectUndoAndRedo(before, {"5 zones 2"}, {"4 zones 2"});
}

TEST_F(TriangulateTest, CountsTheCellsInTheMemoryOfAStepThatIsTakenBack)
{
    addRandom(1000);
    ASSERT_TRUE(triangulate({1}));
    std::int64_t const cells = dataSet->zone(2)->cellCount();
    ASSERT_TRUE(session.undo());
    EXPECT_GE(session.history().valueBytes(), 4 * 1000 * 8 + 4 * cells * 8);
}

TEST_F(TriangulateTest, KeepsTheFirstOfPointsAtTheSamePlaceAndCountsTheOthers)
{
    add({{0, 0}, {1, 0}, {0, 0}, {1, 1}, {0, 1}});
    add({{1, 1}, {0.0, -0.0}, {0.5, 2}});
    setField(1, P, {10, 11, 12, 13, 14});
    setField(2, P, {20, 21, 22});
    ASSERT_TRUE(triangulate({1, 2}));
    EXPECT_EQ(duplicates, 3);
    EXPECT_THAT(valuesOf(3, P), ElementsAre(10, 11, 13, 14, 22));
    EXPECT_THAT(remarks, ElementsAre(HasSubstr(" 3 points left out where another one is at the same place.")));
}

TEST_F(TriangulateTest, KeepsTheTypeThatAllSourcesHaveAndWidensOthers)
{
    Places const square{{0, 0}, {1, 0}, {1, 1}, {0, 1}};
    Places const above{{0, 2}, {1, 2}};
    using Types = std::array<FieldDataType_e, 3>;
    for (auto const& [first, second, expected] :
         {Types{FieldDataType_Float, FieldDataType_Float, FieldDataType_Float},
          Types{FieldDataType_Int16, FieldDataType_Int16, FieldDataType_Int16},
          Types{FieldDataType_Bit, FieldDataType_Bit, FieldDataType_Bit},
          Types{FieldDataType_Byte, FieldDataType_Bit, FieldDataType_Byte},
          Types{FieldDataType_Int32, FieldDataType_Int16, FieldDataType_Int32},
          Types{FieldDataType_Int16, FieldDataType_Float, FieldDataType_Float},
          Types{FieldDataType_Float, FieldDataType_Int32, FieldDataType_Double},
          Types{FieldDataType_Double, FieldDataType_Float, FieldDataType_Double}}) {
        int const one = add(square);
        int const other = add(above);
        setField(one, P, {1, 0, 1, 1}, first);
        setField(other, P, {0, 1}, second);
        ASSERT_TRUE(triangulate({one, other}));
        int const result = dataSet->zoneCount();
        EXPECT_EQ(dataSet->field(result, P)->type(), expected);
        EXPECT_THAT(valuesOf(result, P), ElementsAre(1, 0, 1, 1, 0, 1));
    }
}

TEST_F(TriangulateTest, ReadsAVariableThatIsPassiveInOneSourceAsZeroThere)
{
    add({{0, 0}, {1, 0}, {1, 1}});
    add({{0, 1}});
    field(1, P) = Field(FieldDataType_Double);
    setField(2, P, {7}, FieldDataType_Int16);
    ASSERT_TRUE(triangulate({1, 2}));
    EXPECT_THAT(valuesOf(3, P), ElementsAre(0, 0, 0, 7));
    EXPECT_EQ(dataSet->field(3, P)->type(), FieldDataType_Int16);
}

TEST_F(TriangulateTest, RefusesWhatMakesNoTriangles)
{
    add({{0, 0}, {1, 1}});
    add({{2, 2}, {3, 3}, {3, 3}});
    add({{0.1, 0.1}, {0.2, 0.2}, {0.3, 0.3}});
    expectRefusal("The source zones have fewer than three different points.", {1});
    expectRefusal("The source zones have fewer than three different points.", {2});
    expectRefusal("The source points are all on one line.", {1, 2, 3});
}

TEST_F(TriangulateTest, RefusesCoordinatesThatAreNotFinite)
{
    add({{0, 0}, {1, 0}, {std::nan(""), 1}, {1, 1}, {0, INFINITY}});
    expectRefusal("The zone \"Z1\" has 2 points without finite coordinates.", {1});
}

TEST_F(TriangulateTest, RefusesZonesAndSettingsThatDoNotFit)
{
    addRandom(10);
    addRandom(10);
    expectRefusal("No source zones were given.", {});
    expectRefusal("There is no such zone.", {1, 3});
    expectRefusal("There is no such zone.", {1}, {3});
    for (double const factor : {-0.01, 0.51, std::nan("")}) {
        expectRefusal("The triangle keep factor has to be between 0 and 0.5.", {1}, {}, false, factor);
    }
    dataSet->zone(2)->enabled = false;
    expectRefusal("The zone \"Z2\" is disabled.", {1, 2});
    setField(1, 2, std::vector<double>(10), FieldDataType_Double, ValueLocation_CellCentered);
    expectRefusal("The coordinate \"Y\" of zone \"Z1\" has its values at the cells.", {1});
}

TEST_F(TriangulateTest, RefusesAFrameThatShowsNoPlane)
{
    addRandom(10);
    frame->axes2D[1] = 0;
    expectRefusal("The Y axis has no variable.", {1});
    session.perform(SetPlotType(frame->id, PlotType_Cartesian3D));
    recorder.take();
    expectRefusal("Only a 2D plot tells where points are in a plane.", {1});
}

} // namespace veldraw::tests
