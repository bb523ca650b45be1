#include "kernel/operations/ProbeLine.h"

#include "kernel/operations/EnableZone.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/kernel/support/MeshData.h"
#include "tests/kernel/support/SampleLoader.h"
#include "tests/kernel/support/SessionFixture.h"
#include "tests/kernel/support/SpatialData.h"

#include <cmath>
#include <numeric>

namespace veldraw::tests {

using namespace kernel;
using Shape = Connectivity::Shape;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

constexpr int cellNumbers = 5; // number of the variable T, at the cells

double linearAlong(Point const& place)
{
    return 5 + 2.3 * place[0] - 1.1 * place[1] + 0.4 * place[2];
}

/// A session in 3D over variables X, Y, Z, P, T and Q, which is passive, without a zone.
class ProbeLineTest : public SessionFixture
{
protected:
    ProbeLineTest()
    {
        dataSet = std::make_shared<DataSet>("Probe");
        for (char const* name : {"X", "Y", "Z", "P", "T", "Q"}) {
            dataSet->addVariable(std::make_shared<Variable>(name));
        }
        frame = sample::show(session, dataSet);
        session.setRemarkListener([this](std::string const& text) { remark = text; });
        recorder.take();
    }

    ~ProbeLineTest() override { session.setRemarkListener({}); }

    /// Adds a zone with P of the linear function at the points, and T as the number of each cell's slot.
    void add(std::shared_ptr<Zone> const& zone)
    {
        sample::addNodal(*zone, linearAlong);
        std::vector<double> slots(static_cast<std::size_t>(zone->valueCount(ValueLocation_CellCentered)));
        std::iota(slots.begin(), slots.end(), 0);
        zone->fields.push_back(sample::field(slots, FieldDataType_Double, ValueLocation_CellCentered));
        zone->fields.emplace_back();
        dataSet->addZone(zone);
    }

    void addBlock() { add(sample::orderedFill(5, 5, 5, 0, 0)); } // 4 x 4 x 4 cubes of side 1

    bool probe(NumberSet const& zones, Point const& from, Point const& to, int points)
    {
        return session.perform(ProbeLine(frame->id, zones, from, to, points));
    }

    std::vector<double> valuesOfLine(int variable) { return sample::values(*dataSet, dataSet->zoneCount(), variable); }

    void expectRefusal(std::string const& reason, NumberSet const& zones, Point const& from, Point const& to,
                       int points = 9)
    {
        recorder.take();
        expectRefused([&] { return probe(zones, from, to, points); });
        EXPECT_EQ(session.lastError(), reason);
    }

    std::string remark;
};

} // namespace

TEST_F(ProbeLineTest, GivesALinearFieldItsExactValuesInCellsOfEveryShape)
{
    constexpr int points = 5003;
    Point const from{0.1, 0.2, 5.9};
    Point const to{5.8, 5.7, 0.3};
    for (Shape const shape : {Shape::Tetrahedron, Shape::Pyramid, Shape::Prism, Shape::Brick, Shape::Polyhedron}) {
        add(sample::fillOf(shape, 6, 0.2, 4).zone(sample::zoneTypeOf(shape)));
    }
    add(sample::orderedFill(7, 7, 7, 0.2, 5));
    for (int zone = 1; zone <= 6; ++zone) {
        ASSERT_TRUE(probe({zone}, from, to, points));
        std::vector<double> const found = valuesOfLine(4);
        std::vector<double> const distances = valuesOfLine(dataSet->variableCount());
        std::vector<double> const places[] = {valuesOfLine(1), valuesOfLine(2), valuesOfLine(3)};
        ASSERT_EQ(found.size(), static_cast<std::size_t>(points));
        for (int point = 0; point < points; ++point) {
            auto const at = static_cast<std::size_t>(point);
            double const share = point / (points - 1.0);
            Point const place{from[0] + share * (to[0] - from[0]), from[1] + share * (to[1] - from[1]),
                              from[2] + share * (to[2] - from[2])};
            for (std::size_t axis = 0; axis < 3; ++axis) {
                ASSERT_NEAR(places[axis][at], place[axis], 1e-14 * 6);
            }
            ASSERT_NEAR(found[at], linearAlong(place), 1e-12) << "zone " << zone;
            ASSERT_NEAR(distances[at], share * std::sqrt(5.7 * 5.7 + 5.5 * 5.5 + 5.6 * 5.6), 1e-12);
        }
        EXPECT_THAT(remark, HasSubstr("No point was outside the cells."));
    }
}

TEST_F(ProbeLineTest, ReachesBothEndsExactly)
{
    addBlock();
    Point const from{0.1, 1.0 / 3.0, 0.7};
    Point const to{3.3, 2.0 / 3.0, 3.9};
    ASSERT_TRUE(probe({1}, from, to, 7));
    for (std::size_t axis = 0; axis < 3; ++axis) {
        std::vector<double> const places = valuesOfLine(static_cast<int>(axis) + 1);
        EXPECT_EQ(places.front(), from[axis]);
        EXPECT_EQ(places.back(), to[axis]);
    }
}

TEST_F(ProbeLineTest, TakesWhatIsAtTheCellsAsItIs)
{
    addBlock();
    ASSERT_TRUE(probe({1}, {0.5, 0.5, 0.5}, {3.5, 0.5, 0.5}, 4)); // middles of four cubes
    EXPECT_THAT(valuesOfLine(cellNumbers), ElementsAre(0, 1, 2, 3));
    EXPECT_THAT(valuesOfLine(dataSet->variableCount()), ElementsAre(0, 1, 2, 3));
}

TEST_F(ProbeLineTest, LeavesAGapOutsideOfTheCells)
{
    addBlock();
    ASSERT_TRUE(probe({1}, {-1, 1, 1}, {5, 1, 1}, 7));
    std::vector<double> const found = valuesOfLine(4);
    EXPECT_TRUE(std::isnan(found.front()));
    EXPECT_TRUE(std::isnan(found.back()));
    for (std::size_t point = 1; point < 6; ++point) {
        EXPECT_NEAR(found[point], linearAlong({static_cast<double>(point) - 1, 1, 1}), 1e-12);
    }
    EXPECT_THAT(remark, HasSubstr("Outside the cells: 2 points, without values."));
    EXPECT_DOUBLE_EQ(dataSet->zone(2)->range(4).min, linearAlong({0, 1, 1})) << "gaps count in no range";
}

TEST_F(ProbeLineTest, LeavesPassiveVariablesPassiveAndHasAGapWhereOneZoneHasNone)
{
    addBlock();
    addBlock();
    std::vector<double> beside; // the first one
    for (std::int64_t point = 0; point < 125; ++point) {
        beside.push_back(4.0 + static_cast<double>(point % 5));
    }
    dataSet->zone(2)->fields[0] = sample::field(beside);
    dataSet->zone(2)->fields[3] = Field();
    ASSERT_TRUE(probe({1, 2}, {1.5, 1.5, 1.5}, {6.5, 1.5, 1.5}, 6));
    std::vector<double> const found = valuesOfLine(4);
    EXPECT_NEAR(found[0], linearAlong({1.5, 1.5, 1.5}), 1e-12);
    EXPECT_TRUE(std::isnan(found[4]));
    EXPECT_EQ(valuesOfLine(cellNumbers)[5], 2 + 5 + 25) << "the cell (3, 2, 2) of the second zone";
    EXPECT_TRUE(dataSet->field(3, 6)->isPassive());
}

TEST_F(ProbeLineTest, GoesThroughSurfacesInAPlane)
{
    add(sample::fillOf(Shape::Triangle, 5, 0.2, 3).zone(ZoneType_FETriangle));
    ASSERT_TRUE(session.perform(SetPlotType(frame->id, PlotType_Cartesian2D)));
    ASSERT_TRUE(probe({1}, {0.2, 0.3, 77}, {4.7, 4.1, -5}, 1001));
    std::vector<double> const found = valuesOfLine(4);
    for (std::size_t point = 0; point < found.size(); ++point) {
        double const share = static_cast<double>(point) / 1000.0;
        ASSERT_NEAR(found[point], linearAlong({0.2 + share * 4.5, 0.3 + share * 3.8, 0}), 1e-12);
    }
    EXPECT_NEAR(valuesOfLine(dataSet->variableCount()).back(), std::hypot(4.5, 3.8), 1e-14);
}

TEST_F(ProbeLineTest, IsOneStepThatIsUndoneAndDoneAgain)
{
    addBlock();
    std::string const before = withoutHistory();
    ASSERT_TRUE(probe({1}, {1, 1, 1}, {3, 3, 3}, 5));
    EXPECT_EQ(dataSet->variable(7)->name, ProbeLine::distanceName);
    EXPECT_EQ(dataSet->zone(2)->name, "Line");
    EXPECT_TRUE(dataSet->field(1, 7)->isPassive());
    EXPECT_EQ(session.history().undoName(), "Probe Line");
    Events const done = recorder.take();
    ASSERT_EQ(done.size(), 2U);
    EXPECT_THAT(done[0], HasSubstr("7")) << "the variable";
    EXPECT_THAT(done[1], HasSubstr("2")) << "the zone";
    std::string const after = withoutHistory();
    EXPECT_TRUE(session.undo());
    EXPECT_EQ(withoutHistory(), before);
    EXPECT_EQ(recorder.take().size(), 3U);
    EXPECT_TRUE(session.redo());
    EXPECT_EQ(withoutHistory(), after);
}

TEST_F(ProbeLineTest, UsesTheVariableForTheDistanceAgain)
{
    addBlock();
    ASSERT_TRUE(probe({1}, {1, 1, 1}, {3, 1, 1}, 3));
    ASSERT_TRUE(probe({1}, {1, 1, 1}, {1, 3, 1}, 3));
    EXPECT_EQ(dataSet->variableCount(), 7);
    EXPECT_EQ(dataSet->zone(3)->name, "Line (2)");
    EXPECT_THAT(valuesOfLine(7), ElementsAre(0, 1, 2));
}

TEST_F(ProbeLineTest, LoadsTheValuesThatItNeeds)
{
    addBlock();
    std::vector<double> later(125);
    std::iota(later.begin(), later.end(), 0);
    auto const loader = std::make_shared<sample::Loader>(later);
    dataSet->zone(1)->fields[5] = sample::Loader::field(loader);
    ASSERT_TRUE(probe({1}, {1, 1, 1}, {3, 1, 1}, 3)); // along points 31, 32, 33
    EXPECT_EQ(loader->loads, 1);
    EXPECT_THAT(valuesOfLine(6), ElementsAre(31, 32, 33));
}

TEST_F(ProbeLineTest, RefusesWhatIsNoLine)
{
    addBlock();
    double const none = std::numeric_limits<double>::quiet_NaN();
    expectRefusal("The ends of the line are at the same place.", {1}, {1, 2, 3}, {1, 2, 3});
    expectRefusal("The ends of the line are no finite numbers.", {1}, {1, none, 3}, {1, 2, 3});
    expectRefusal("A line has 2 to 10000000 points.", {1}, {1, 2, 3}, {3, 2, 1}, 1);
    expectRefusal("A line has 2 to 10000000 points.", {1}, {1, 2, 3}, {3, 2, 1}, ProbeLine::mostPoints + 1);
    expectRefusal("There is no such zone.", {2}, {1, 2, 3}, {3, 2, 1});
}

TEST_F(ProbeLineTest, RefusesZonesAndPlotsWithoutPlaces)
{
    addBlock();
    sample::addOrdered(*dataSet, 4, 1, 1);
    expectRefusal("The source zone \"" + dataSet->zone(2)->name + "\" has no cells with an area or a volume.", {2},
                  {1, 2, 3}, {3, 2, 1});
    ASSERT_TRUE(session.perform(SetPlotType(frame->id, PlotType_Cartesian2D)));
    expectRefusal("The source zone \"" + dataSet->zone(1)->name +
                      "\" has cells with a volume, which have no place in a 2D plot.",
                  {1}, {1, 2, 3}, {3, 2, 1});
    ASSERT_TRUE(session.perform(SetPlotType(frame->id, PlotType_XYLine)));
    expectRefusal("Only a 2D or 3D plot tells where the points are.", {1}, {1, 2, 3}, {3, 2, 1});
}

TEST_F(ProbeLineTest, KnowsTheZonesThatAPlotCanBeProbedIn)
{
    addBlock();
    sample::addOrdered(*dataSet, 4, 1, 1);
    add(sample::fillOf(Shape::Triangle, 2, 0, 3).zone(ZoneType_FETriangle));
    EXPECT_EQ(ProbeLine::zonesFor(*frame), (NumberSet{1, 3}));
    ASSERT_TRUE(session.perform(SetPlotType(frame->id, PlotType_Cartesian2D)));
    EXPECT_EQ(ProbeLine::zonesFor(*frame), NumberSet{3});
    ASSERT_TRUE(session.perform(EnableZone(*dataSet, 3, false)));
    EXPECT_EQ(ProbeLine::zonesFor(*frame), NumberSet{});
}

} // namespace veldraw::tests
