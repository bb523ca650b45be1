#include "kernel/operations/Triangulate.h"

#include "tests/kernel/support/InterpolationFixture.h"
#include "tests/kernel/support/MeshData.h"
#include "tests/kernel/support/PlaneTriangles.h"
#include "tests/kernel/support/SampleLoader.h"
#include "tests/support/Threads.h"

#include <mutex>
#include <optional>
#include <set>

namespace veldraw::tests {

using namespace kernel;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

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

    /// Adds a line that P and Q are passive on, or have these numbers everywhere.
    int addLine(Places places, bool isClosed = true, std::optional<double> value = {})
    {
        if (isClosed) {
            places.push_back(places.front());
        }
        int const zone = add(places);
        for (int const variable : {P, Q}) {
            field(zone, variable) = Field();
            if (value) {
                setField(zone, variable, std::vector<double>(places.size(), *value));
            }
        }
        return zone;
    }

    /// The values of a variable in the last zone at some places; none where no point is.
    std::vector<double> valuesAt(Places const& places, int variable) const
    {
        PlaneTriangles const triangles = made();
        std::vector<double> const values = valuesOf(dataSet->zoneCount(), variable);
        std::vector<double> found;
        for (PlanePlace const& place : places) {
            auto const at = std::find(triangles.places.begin(), triangles.places.end(), place);
            if (at != triangles.places.end()) {
                found.push_back(values[static_cast<std::size_t>(at - triangles.places.begin())]);
            }
        }
        return found;
    }

    /// The triangles of the last zone, with the places of its points.
    PlaneTriangles made() const { return PlaneTriangles(*dataSet->zones().back()); }

    std::int64_t duplicates = -1;
};

Places const innerSquare{{0.25, 0.25}, {0.75, 0.25}, {0.75, 0.75}, {0.25, 0.75}};

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
    expectRefusal("The zone \"Z1\" has 2 points whose coordinates are not numbers up to 1e150.", {1});
}

TEST_F(TriangulateTest, RefusesCoordinatesWhoseSquaresAreNoNumbers)
{
    add({{0, 0}, {1e151, 0}, {1, 1}});
    expectRefusal("The zone \"Z1\" has 1 point whose coordinates are not numbers up to 1e150.", {1});
}

TEST_F(TriangulateTest, SaysHowManyBoundariesAreClosed)
{
    add({{0, 0}, {3, 0}, {3, 3}, {0, 3}, {1, 1}});
    int const open = add({{0.5, 0.5}, {2, 0.5}, {2, 2}, {0.5, 0.5000000001}});
    int const closed = add({{0.2, 0.2}, {2.5, 0.2}, {2.5, 2.5}, {0.2, 0.2}});
    remarks.clear();
    ASSERT_TRUE(session.perform(Triangulate(frame->id, {1}, {open}, false, 0.0)));
    ASSERT_TRUE(session.perform(Triangulate(frame->id, {1}, {open, closed}, false, 0.0)));
    ASSERT_TRUE(session.perform(Triangulate(frame->id, {1}, {closed}, false, 0.0)));
    EXPECT_THAT(remarks, ElementsAre(HasSubstr(" No boundary is closed, so that nothing was cut away."),
                                     HasSubstr(" 1 of 2 boundary lines are closed."), Not(HasSubstr("closed"))));
}

TEST_F(TriangulateTest, ShowsHowFarItIsAllTheTime)
{
    /// Notes the tenth in which each look at it falls.
    struct Tenths : Progress
    {
        bool isInterrupted() const override
        {
            std::lock_guard const lock(mutex);
            seen.insert(static_cast<int>(10 * fraction()));
            return false;
        }

        mutable std::mutex mutex;
        mutable std::set<int> seen;
    };
    addPoints(ScatteredPoints::random(2, 50000, 3), wave, slope);
    Triangulate triangulate(frame->id, {1}, {}, false, 0.0);
    ASSERT_EQ(triangulate.find(session.pages()), "");
    triangulate.needs();
    Tenths progress;
    triangulate.compute(progress);
    for (int tenth = 1; tenth < 8; ++tenth) {
        EXPECT_EQ(progress.seen.count(tenth), 1U) << tenth;
    }
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

TEST_F(TriangulateTest, CutsAwayWhatIsOutsideABoundaryWithItsPoints)
{
    addRandom(3000);
    int const outline = addLine(innerSquare);
    ASSERT_TRUE(triangulate({1}, {outline}));
    PlaneTriangles const triangles = made();
    EXPECT_EQ(triangles.doubleArea(), 2 * 0.25);
    EXPECT_EQ(triangles.eulerCharacteristic(), 1) << "no other points";
    for (PlanePlace const& place : triangles.places) {
        for (double const number : place) {
            EXPECT_TRUE(number >= 0.25 && number <= 0.75);
        }
    }
}

TEST_F(TriangulateTest, JoinsZonesToABoundary)
{
    addRandom(500);
    NumberSet sides;
    for (std::size_t side = 0; side < 4; ++side) {
        sides.insert(addLine({innerSquare[side], innerSquare[(side + 1) % 4]}, false));
    }
    ASSERT_TRUE(triangulate({1}, sides));
    EXPECT_EQ(made().doubleArea(), 2 * 0.25);
}

TEST_F(TriangulateTest, GivesPointsOfABoundaryTheValuesOfItsZoneWhenTheyAreIncluded)
{
    addRandom(500);
    int const outline = addLine(innerSquare, true, 77);
    ASSERT_TRUE(triangulate({1}, {outline}, true));
    EXPECT_THAT(valuesAt(innerSquare, P), ElementsAre(77, 77, 77, 77));
    EXPECT_EQ(duplicates, 1) << "the end of the outline is its beginning";
    EXPECT_THAT(remarks, ElementsAre(Not(HasSubstr("interpolated"))));
    ASSERT_TRUE(triangulate({1}, {outline}, false));
    EXPECT_THAT(valuesAt(innerSquare, P), Each(testing::Lt(10)));
    EXPECT_EQ(duplicates, 0);
}

TEST_F(TriangulateTest, InterpolatesWhatPointsOfABoundaryDoNotHave)
{
    addRandom(2000);
    int const outline = addLine(innerSquare, true, 77);
    field(outline, Q) = Field();
    for (bool const isIncluded : {false, true}) {
        ASSERT_TRUE(triangulate({1}, {outline}, isIncluded));
        std::vector<double> const found = valuesAt(innerSquare, Q);
        ASSERT_EQ(found.size(), 4U);
        for (std::size_t corner = 0; corner < 4; ++corner) {
            EXPECT_NEAR(found[corner], slope(innerSquare[corner].data()), 1e-12);
        }
        EXPECT_THAT(remarks, ElementsAre(HasSubstr(" 4 points of boundaries with interpolated values.")));
    }
}

TEST_F(TriangulateTest, TakesTheNearestValueForABoundaryAroundTheSources)
{
    add({{0, 0}, {2, 0}, {2, 2}, {0, 2}});
    setField(1, P, {1, 3, 5, 7});
    int const outline = addLine({{-1, -1}, {3, -1}, {3, 1}, {3, 3}, {-1, 3}});
    ASSERT_TRUE(triangulate({1}, {outline}));
    EXPECT_THAT(valuesAt({{-1, -1}, {3, -1}, {3, 1}, {3, 3}, {-1, 3}}, P), ElementsAre(1, 3, 4, 5, 7));
    EXPECT_EQ(made().doubleArea(), 2 * 16);
}

TEST_F(TriangulateTest, KeepsTheValuesOfSourcePointsOnABoundary)
{
    add({{0, 0}, {4, 0}, {4, 4}, {0, 4}, {2, 0}, {2, 2}});
    setField(1, P, {1, 2, 3, 4, 5, 6});
    int const outline = addLine({{0, 0}, {4, 0}, {4, 4}}, true, 77);
    ASSERT_TRUE(triangulate({1}, {outline}, true));
    EXPECT_THAT(valuesOf(3, P), ElementsAre(1, 2, 3, 5, 6));
    EXPECT_EQ(duplicates, 4);
    EXPECT_THAT(remarks, ElementsAre(HasSubstr(" 1 point left out that no triangle uses.")));
}

TEST_F(TriangulateTest, InterpolatesAlongTheFirstBoundaryWhereTwoCross)
{
    add({{-9, -9}, {9, -9}, {0, 9}});
    int const first = addLine({{-4, 0}, {4, 0}}, false);
    int const second = addLine({{1, -3}, {1, 1}}, false, 50);
    setField(first, P, {10, 26});
    ASSERT_TRUE(triangulate({1}, {first, second}, true));
    EXPECT_THAT(valuesAt({{1, 0}}, P), ElementsAre(20));
    EXPECT_THAT(remarks, ElementsAre(HasSubstr(" 1 new point where boundaries cross, with interpolated values.")));
    EXPECT_EQ(valuesOf(dataSet->zoneCount(), P).size(), 8U);
}

TEST_F(TriangulateTest, RoundsWhatItInterpolatesForWholeNumbers)
{
    for (auto const& [type, expected] : {std::pair(FieldDataType_Int16, 3.0), std::pair(FieldDataType_Bit, 1.0)}) {
        int const sources = add({{0, 0}, {4, 0}, {4, 4}, {0, 4}});
        double const most = expected * 1.2;
        setField(sources, P, {0, most, most, 0}, type);
        int const line = addLine({{3, 1}, {1, 2}}, false);
        ASSERT_TRUE(triangulate({sources}, {line}));
        EXPECT_EQ(dataSet->field(dataSet->zoneCount(), P)->type(), type);
        double const full = valuesOf(sources, P)[1];
        EXPECT_THAT(valuesAt({{3, 1}, {1, 2}}, P), ElementsAre(std::round(0.75 * full), std::round(0.25 * full)));
    }
}

TEST_F(TriangulateTest, KeepsCoordinatesOfBoundariesWhereTheSourcesAreNarrower)
{
    add({{0, 0}, {1, 0}, {1, 1}, {0, 1}}, FieldDataType_Float);
    setField(1, 1, {0, 1, 1, 0}, FieldDataType_Int16);
    setField(1, 2, {0, 0, 1, 1}, FieldDataType_Float);
    int const line = addLine({{0.1, 0.2}, {0.3, 0.9}}, false);
    ASSERT_TRUE(triangulate({1}, {line}));
    EXPECT_EQ(made().places[4], (PlanePlace{0.1, 0.2}));
}

TEST_F(TriangulateTest, TakesTheKeepFactorFromTheRimInwards)
{
    addRandom(1000);
    ASSERT_TRUE(triangulate({1}, {}, false, 0.0));
    std::size_t const all = made().triangles.size();
    EXPECT_THAT(remarks, ElementsAre(Not(HasSubstr("keep factor"))));
    ASSERT_TRUE(triangulate({1}, {}, false, 0.25));
    std::size_t const kept = made().triangles.size();
    EXPECT_LT(kept, all);
    EXPECT_GT(kept, all - 200);
    EXPECT_THAT(remarks, ElementsAre(HasSubstr(" " + std::to_string(all - kept) +
                                               " triangles at the rim removed by the keep factor 0.25.")));
}

TEST_F(TriangulateTest, RefusesWhenNothingWouldBeLeft)
{
    add({{0, 0}, {10, 0}, {20, 0.001}});
    expectRefusal("A triangle keep factor of 0.25 leaves no triangle.", {1}, {}, false, 0.25);
    int const flat = addLine({{1, 1}, {5, 5}});
    expectRefusal("Nothing is within the boundary.", {1}, {flat});
}

TEST_F(TriangulateTest, RefusesBoundariesThatAreNoLines)
{
    addRandom(10);
    addRandom(6);
    dataSet->zone(2)->i = 3;
    dataSet->zone(2)->j = 2;
    expectRefusal("The boundary zone \"Z2\" is not an ordered zone of one dimension.", {1}, {2});
    int const line = addLine({{0, 0}, {0, std::nan("")}}, false);
    expectRefusal("The zone \"Z3\" has 1 point whose coordinates are not numbers up to 1e150.", {1}, {line});
    dataSet->zone(line)->enabled = false;
    expectRefusal("The zone \"Z3\" is disabled.", {1}, {line});
}

TEST_F(TriangulateTest, LeavesHiddenPointsOutAndCountsThem)
{
    add({{0, 0}, {1, 0}, {std::nan(""), 5}, {1, 1}, {0, 1}});
    Zone& zone = *dataSet->zone(1);
    std::vector<double> const marks{0, 0, Blanking::hiddenPoint, 0, 0};
    zone.blanking = std::make_shared<Blanking>(
        zone, Blanking::Marks{sample::field(marks, FieldDataType_Byte).group()->buffer(), nullptr});
    ASSERT_TRUE(triangulate({1}));
    EXPECT_EQ(made().places.size(), 4U);
    EXPECT_THAT(remarks, ElementsAre(HasSubstr(" 1 hidden point left out.")));
}

TEST_F(TriangulateTest, BringsValuesAtCellsToThePoints)
{
    add({{0, 0}, {1, 0}, {2, 0.5}});
    setField(1, P, {4, 7, 0}, FieldDataType_Int32, ValueLocation_CellCentered);
    ASSERT_TRUE(triangulate({1}));
    EXPECT_THAT(valuesOf(2, P), ElementsAre(4, 5.5, 7));
    EXPECT_EQ(dataSet->field(2, P)->location(), ValueLocation_Nodal);
    EXPECT_EQ(dataSet->field(2, P)->type(), FieldDataType_Double);
}

TEST_F(TriangulateTest, LoadsWhatItNeeds)
{
    addRandom(100);
    int const outline = addLine(innerSquare, true, 5);
    std::vector<double> const p = valuesOf(1, P);
    auto const source = std::make_shared<sample::Loader>(p);
    field(1, P) = sample::Loader::field(source);
    auto const unused = std::make_shared<sample::Loader>(std::vector<double>(5, 5.0));
    field(outline, P) = sample::Loader::field(unused);
    ASSERT_TRUE(triangulate({1}, {outline}));
    EXPECT_TRUE(field(1, P).isLoaded());
    EXPECT_FALSE(field(outline, P).isLoaded()) << "the boundary's values do not count";
    ASSERT_TRUE(triangulate({1}, {outline}, true));
    EXPECT_TRUE(field(outline, P).isLoaded());
    EXPECT_THAT(valuesAt(innerSquare, P), Each(5));
}

TEST_F(TriangulateTest, LoadsAllVariablesOfASource)
{
    addRandom(100);
    int const last = dataSet->variableCount();
    auto const source = std::make_shared<sample::Loader>(valuesOf(1, last));
    field(1, last) = sample::Loader::field(source);
    ASSERT_TRUE(triangulate({1}, {}));
    EXPECT_TRUE(field(1, last).isLoaded());
    EXPECT_EQ(valuesOf(2, last), valuesOf(1, last));
}

TEST_F(TriangulateTest, LoadsHowManyPointsABoundaryHasAndOfWhatKindItIs)
{
    addRandom(500);
    int const outline = addLine(innerSquare);
    ASSERT_TRUE(triangulate({1}, {outline}));
    PlaneTriangles const known = made();
    auto const ofSize = [&](std::int64_t i, std::int64_t j) {
        auto const later = std::make_shared<Zone>("later", ZoneType_Ordered, -1, -1, -1);
        later->dimensionsLoader = std::make_shared<sample::SizeLoader>(ZoneDimensions{i, j, 1, nullptr});
        later->fields = dataSet->zone(outline)->fields;
        return dataSet->addZone(later);
    };
    ASSERT_TRUE(triangulate({1}, {ofSize(5, 1)})) << session.lastError();
    EXPECT_EQ(made().sorted(), known.sorted());
    EXPECT_EQ(made().places, known.places);
    int const plane = ofSize(5, 2);
    EXPECT_FALSE(triangulate({1}, {plane}));
    EXPECT_EQ(session.lastError(), "The boundary zone \"later\" is not an ordered zone of one dimension.");
}

TEST_F(TriangulateTest, GivesTheSameForAnyNumberOfThreads)
{
    addRandom(20000);
    int const outline = addLine(innerSquare);
    std::vector<std::vector<double>> results;
    for (int const threads : {1, 2, 3, 7}) {
        Threads const some(threads);
        ASSERT_TRUE(triangulate({1}, {outline}, false, 0.25));
        results.push_back(valuesOf(dataSet->zoneCount(), P));
        for (PlaneTriangles::Triangle const& triangle : made().triangles) {
            results.back().insert(results.back().end(), triangle.corners.begin(), triangle.corners.end());
        }
        EXPECT_EQ(results.back(), results.front()) << threads;
    }
}

TEST_F(TriangulateTest, TriangulatesThePointsOfZonesOfAnyType)
{
    sample::CellLists const cells = sample::mixedFill(4, 0.2, 3);
    auto const zone = cells.zone(ZoneType_FEMixed);
    zone->name = "cells";
    dataSet->addZone(zone);
    add({{9, 9}});
    ASSERT_TRUE(triangulate({1, 2}));
    EXPECT_THAT(remarks, ElementsAre(HasSubstr(" from \"cells\", \"Z2\", in ")));
    PlaneTriangles const triangles = made();
    EXPECT_EQ(triangles.nonDelaunayCount(), 0);
    EXPECT_EQ(triangles.doubleArea(), doubleAreaOfHull(triangles.places));
    EXPECT_EQ(static_cast<std::int64_t>(triangles.places.size()) + duplicates, zone->pointCount() + 1);
}

} // namespace veldraw::tests
