#include "kernel/operations/MirrorZones.h"

#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/SetPlotType.h"
#include "platform/vdsdkbase/VelUtil.h"
#include "tests/kernel/operations/CellMeasure.h"
#include "tests/kernel/support/SpatialFixture.h"

#include <cmath>
#include <cstring>
#include <limits>

namespace veldraw::tests {

using namespace kernel;
using sample::values;
using testing::ElementsAre;

namespace {

class MirrorZonesTest : public SpatialFixture
{
protected:
    bool mirror(NumberSet const& zones, char coordinate)
    {
        return session.perform(MirrorZones(frame->id, zones, coordinate));
    }

    /// The variables of which a zone has storage of its own.
    NumberSet ownVariables(int zone, int source) const
    {
        NumberSet own;
        for (int variable = 1; variable <= dataSet->variableCount(); ++variable) {
            if (dataSet->field(zone, variable)->group() != dataSet->field(source, variable)->group()) {
                own.insert(variable);
            }
        }
        return own;
    }
};

std::vector<double> negated(std::vector<double> numbers)
{
    for (double& number : numbers) {
        number = -number;
    }
    return numbers;
}

/// A field of 32 or 64 bits as it lies in memory.
std::string bytesOf(Field const& field)
{
    auto const buffer = field.group()->buffer();
    return {static_cast<char const*>(buffer->data()), static_cast<std::size_t>(buffer->bytes())};
}

} // namespace

TEST_F(MirrorZonesTest, NegatesOneCoordinateAndTheComponentAlongIt)
{
    char const letters[] = {'X', 'Y', 'Z'};
    for (int axis = 0; axis < 3; ++axis) {
        ASSERT_TRUE(mirror({1}, letters[axis]));
        int const copy = dataSet->zoneCount();
        EXPECT_EQ(ownVariables(copy, 1), (NumberSet{1 + axis, 4 + axis}));
        EXPECT_EQ(values(*dataSet, copy, 1 + axis), negated(values(*dataSet, 1, 1 + axis)));
        EXPECT_EQ(values(*dataSet, copy, 4 + axis), negated(values(*dataSet, 1, 4 + axis)));
    }
}

TEST_F(MirrorZonesTest, NegatesTheCoordinateAloneWithoutAVector)
{
    session.perform(AssignVariable(frame->id, 'V', 0));
    ASSERT_TRUE(mirror({1}, 'Y'));
    EXPECT_EQ(ownVariables(2, 1), NumberSet{2});
}

TEST_F(MirrorZonesTest, NegatesAVectorThatIsThePositionOnce)
{
    for (int component = 0; component < 3; ++component) {
        session.perform(AssignVariable(frame->id, static_cast<char>('U' + component), 1 + component));
    }
    ASSERT_TRUE(mirror({1}, 'Y'));
    EXPECT_EQ(ownVariables(2, 1), NumberSet{2});
}

TEST_F(MirrorZonesTest, FollowsTheAxesOfThePlotType)
{
    session.perform(SetPlotType(frame->id, PlotType_Cartesian2D));
    session.perform(AssignVariable(frame->id, 'Y', 7));
    ASSERT_TRUE(mirror({1}, 'Y'));
    EXPECT_EQ(ownVariables(2, 1), (NumberSet{5, 7}));
    recorder.take();
    expectRefused([&] { return mirror({1}, 'Z'); });
    session.perform(SetPlotType(frame->id, PlotType_XYLine));
    ASSERT_TRUE(mirror({1}, 'X'));
    EXPECT_EQ(ownVariables(3, 1), (NumberSet{1, 4}));
}

TEST_F(MirrorZonesTest, AppendsCopiesThatAreLikeTheirSources)
{
    auto const cells = sample::everyKindOfCells(3);
    frame = sample::show(session, cells);
    dataSet = cells;
    Zone& source = *cells->zone(4);
    source.strand = 3;
    source.solutionTime = 1.5;
    source.enabled = false;
    source.auxiliaryData.set("Part", "hull", true);
    recorder.take();
    ASSERT_TRUE(mirror({2, 4}, 'Z'));
    EXPECT_THAT(recorder.take(), ElementsAre("4 zones 13 14"));
    Zone const& copy = *cells->zone(14);
    EXPECT_EQ(copy.name, source.name);
    EXPECT_NE(copy.id, source.id);
    EXPECT_EQ(copy.connectivity, source.connectivity);
    EXPECT_EQ(copy.strand, 3);
    EXPECT_EQ(copy.solutionTime, 1.5);
    EXPECT_TRUE(copy.enabled);
    EXPECT_EQ(copy.auxiliaryData.item(1).value, "hull");
}

TEST_F(MirrorZonesTest, IsOneStepThatIsTakenBackAndDoneAgain)
{
    std::string const before = withoutHistory();
    ASSERT_TRUE(mirror({1}, 'X'));
    EXPECT_EQ(session.history().undoName(), "Create Mirror Zone");
    EXPECT_EQ(session.history().valueBytes(), 0);
    for (int round = 0; round < 3; ++round) {
        expectUndoAndRedo(before, {"5 zones 2"}, {"4 zones 2"});
    }
    session.undo();
    EXPECT_EQ(field(1, 7).shareCount(), 1);
}

TEST_F(MirrorZonesTest, SharesAmongTheCopiesWhatTheSourcesShare)
{
    session.perform(DuplicateZones(*dataSet, {1}));
    ASSERT_TRUE(mirror({1, 2}, 'X'));
    EXPECT_EQ(field(3, 1).group(), field(4, 1).group());
    EXPECT_EQ(field(3, 1).shareCount(), 2);
    EXPECT_EQ(field(3, 2).shareCount(), 4);
}

TEST_F(MirrorZonesTest, LeavesAVariableAloneThatSharesItsStorageWithTheCoordinate)
{
    field(1, 7) = field(1, 1);
    std::vector<double> const x = values(*dataSet, 1, 1);
    ASSERT_TRUE(mirror({1}, 'X'));
    EXPECT_EQ(values(*dataSet, 2, 1), negated(x));
    EXPECT_EQ(values(*dataSet, 2, 7), x);
    EXPECT_EQ(field(2, 7).shareCount(), 3);
}

TEST_F(MirrorZonesTest, KeepsComponentsAtTheMiddleOfCells)
{
    auto zone = std::make_shared<Zone>("cells", ZoneType_Ordered, 3, 1, 1);
    zone->fields.resize(7);
    zone->fields[0] = sample::field({0, 1, 2});
    zone->fields[3] = sample::field({1, 2, 99}, FieldDataType_Double, ValueLocation_CellCentered);
    dataSet->addZone(zone);
    ASSERT_TRUE(mirror({2}, 'X'));
    EXPECT_EQ(field(3, 1).location(), ValueLocation_Nodal);
    EXPECT_EQ(field(3, 4).location(), ValueLocation_CellCentered);
    EXPECT_EQ(values(*dataSet, 3, 4)[1], -2);
}

TEST_F(MirrorZonesTest, TwiceGivesTheSameBits)
{
    float const quiet = std::numeric_limits<float>::quiet_NaN();
    float signalling = quiet;
    std::uint32_t const bits = 0x7fa12345U;
    std::memcpy(&signalling, &bits, sizeof bits);
    auto const odd = std::make_shared<std::vector<float>>(std::vector<float>{
        0.0F, -0.0F, quiet, -quiet, signalling, std::numeric_limits<float>::infinity(), 1e-45F, 3.25F});
    for (std::int64_t const stride : {1, 2}) {
        auto const size = static_cast<std::int64_t>(odd->size()) / stride;
        auto const part = Buffer::adopt(FieldDataType_Float, size, odd->data(), stride, odd);
        dataSet->zones().resize(1);
        *dataSet->zone(1) = Zone("odd", ZoneType_Ordered, size, 1, 1);
        dataSet->zone(1)->fields = {Field(std::make_shared<ShareGroup>(part), ValueLocation_Nodal),
                                    Field(),
                                    Field(),
                                    Field(),
                                    Field(),
                                    Field(),
                                    Field()};
        ASSERT_TRUE(mirror({1}, 'X'));
        ASSERT_TRUE(mirror({2}, 'X'));
        EXPECT_EQ(bytesOf(field(3, 1)), bytesOf(Field(std::make_shared<ShareGroup>(part->clone()), {})));
        EXPECT_NE(bytesOf(field(2, 1)), bytesOf(field(3, 1)));
        EXPECT_TRUE(std::signbit(values(*dataSet, 2, 1)[0]));
    }
}

TEST_F(MirrorZonesTest, TwiceGivesTheSameNumbersForEveryType)
{
    struct Case
    {
        FieldDataType_e type;
        double lowest;
    };
    for (Case const& each :
         {Case{FieldDataType_Int32, -2147483648.0}, Case{FieldDataType_Int16, -32768.0},
          Case{FieldDataType_Byte, 255.0}, Case{FieldDataType_Bit, 1.0}, Case{FieldDataType_Double, 1e300}}) {
        auto zone = std::make_shared<Zone>("numbers", ZoneType_Ordered, 3, 1, 1);
        zone->fields = {sample::field({0, 1, each.lowest}, each.type)};
        int const number = dataSet->addZone(zone);
        ASSERT_TRUE(mirror({number}, 'X'));
        EXPECT_THAT(values(*dataSet, number + 1, 1), ElementsAre(0, -1, -each.lowest)) << each.type;
        ASSERT_TRUE(mirror({number + 1}, 'X'));
        EXPECT_THAT(values(*dataSet, number + 2, 1), ElementsAre(0, 1, each.lowest)) << each.type;
    }
}

TEST_F(MirrorZonesTest, KeepsPassiveFieldsPassive)
{
    field(1, 1) = Field(FieldDataType_Double, ValueLocation_Nodal);
    field(1, 4) = Field(FieldDataType_Double, ValueLocation_CellCentered);
    ASSERT_TRUE(mirror({1}, 'X'));
    EXPECT_TRUE(field(2, 1).isPassive());
    EXPECT_TRUE(field(2, 4).isPassive());
    EXPECT_EQ(field(2, 4).location(), ValueLocation_CellCentered);
    EXPECT_EQ(field(2, 2).group(), field(1, 2).group());
}

TEST_F(MirrorZonesTest, TurnsCellsInsideOutAndKeepsTheirMeasure)
{
    auto const cells = sample::everyKindOfCells(11);
    frame = sample::show(session, cells);
    dataSet = cells;
    int const count = cells->zoneCount();
    for (int zone = 1; zone <= count; ++zone) {
        ASSERT_TRUE(mirror({zone}, "XYZ"[zone % 3]));
        std::vector<double> const before = cellMeasures(*cells, zone);
        std::vector<double> const after = cellMeasures(*cells, count + zone);
        ASSERT_EQ(before.size(), after.size());
        bool const isSolid = cells->zone(zone)->dimensionality() == 3 && cells->zone(zone)->type != ZoneType_FEMixed;
        for (std::size_t cell = 0; cell < before.size(); ++cell) {
            double const expected = isSolid ? -before[cell] : std::copysign(before[cell], after[cell]);
            EXPECT_NEAR(after[cell], expected, 1e-14) << "zone " << zone << " cell " << cell;
        }
    }
}

TEST_F(MirrorZonesTest, RefusesWhatDoesNotFit)
{
    expectRefused([&] { return mirror({}, 'X'); });
    expectRefused([&] { return mirror({0}, 'X'); });
    expectRefused([&] { return mirror({2}, 'X'); });
    for (char const letter : {'x', 'U', 'W', '\0', '['}) {
        expectRefused([&] { return mirror({1}, letter); });
    }
    expectRefused([&] { return session.perform(MirrorZones(noFrame, {1}, 'X')); });
    session.perform(AssignVariable(frame->id, 'U', 2));
    recorder.take();
    expectRefused([&] { return mirror({1}, 'X'); });
    EXPECT_EQ(session.lastError(), "The spatial and vector variables must be unique.");
    session.setLock(*dataSet, "somebody");
    recorder.take();
    expectRefused([&] { return mirror({1}, 'Z'); });
    frame->dataSet = nullptr;
    expectRefused([&] { return mirror({1}, 'Z'); });
}

TEST(CreateMirrorZones, MirrorsInTheActiveFrame)
{
    Session& session = Session::instance();
    auto const dataSet = sample::emptySpace();
    sample::addOrdered(*dataSet, 2, 2, 2);
    sample::show(session, dataSet);
    Set_s zones{{1}};
    EXPECT_TRUE(VelUtilCreateMirrorZones(&zones, 'Z'));
    EXPECT_EQ(values(*dataSet, 2, 3), negated(values(*dataSet, 1, 3)));
    EXPECT_FALSE(VelUtilCreateMirrorZones(&zones, 'Q'));
    EXPECT_FALSE(VelUtilCreateMirrorZones(nullptr, 'X'));
    EXPECT_EQ(session.lastError(), "An argument is missing.");
    session.clear();
    EXPECT_FALSE(VelUtilCreateMirrorZones(&zones, 'X'));
    EXPECT_EQ(dataSet->zoneCount(), 2);
}

} // namespace veldraw::tests
