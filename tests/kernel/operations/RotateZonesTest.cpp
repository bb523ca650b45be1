#include "kernel/operations/RotateZones.h"

#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/SetValue.h"
#include "platform/vdsdkbase/VelUtil.h"
#include "tests/kernel/support/SampleLoader.h"
#include "tests/kernel/support/SpatialFixture.h"
#include "tests/support/SpecialNumbers.h"

#include <climits>
#include <cmath>

namespace veldraw::tests {

using namespace kernel;
using sample::aboutX;
using sample::aboutZ;
using sample::inPlane;
using sample::inSpace;
using sample::noVector;
using sample::slanting;
using sample::values;
using testing::ElementsAre;

namespace {

class RotateZonesTest : public SpatialFixture
{
protected:
    /// A zone of one point whose coordinates are of @p type and whose vector is (1, 0, 0).
    int addPoint(double x, double y, double z, FieldDataType_e type = FieldDataType_Double)
    {
        auto zone = std::make_shared<Zone>("point", ZoneType_Ordered, 1, 1, 1);
        zone->fields = {sample::field({x}, type), sample::field({y}, type), sample::field({z}, type),
                        sample::field({1}),       sample::field({0}),       sample::field({0}),
                        sample::field({5})};
        return dataSet->addZone(zone);
    }

    std::vector<double> point(int zone) const
    {
        return {values(*dataSet, zone, 1)[0], values(*dataSet, zone, 2)[0], values(*dataSet, zone, 3)[0]};
    }

    std::vector<double> vector(int zone) const
    {
        return {values(*dataSet, zone, 4)[0], values(*dataSet, zone, 5)[0], values(*dataSet, zone, 6)[0]};
    }
};

} // namespace

TEST_F(RotateZonesTest, RotatesPointsAndVectorsRightHandedAboutTheAxis)
{
    int const zone = addPoint(3, 2, 7);
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {zone}, inSpace, {{1, 2, 9}, {0, 0, 1}}, 90)));
    EXPECT_THAT(point(zone), ElementsAre(1, 4, 7));
    EXPECT_THAT(vector(zone), ElementsAre(0, 1, 0));
    EXPECT_EQ(values(*dataSet, zone, 7)[0], 5);
}

TEST_F(RotateZonesTest, TellsTheZonesAndVariablesThatHaveOtherValues)
{
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {1}, inSpace, slanting, 10)));
    EXPECT_THAT(recorder.take(), ElementsAre("0 zones 1 variables 1 2 3 4 5 6"));
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {1}, noVector, aboutX, 10)));
    EXPECT_THAT(recorder.take(), ElementsAre("0 zones 1 variables 2 3"));
}

TEST_F(RotateZonesTest, IsOneStepThatIsTakenBackAndDoneAgain)
{
    std::string const before = withoutHistory();
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {1}, inSpace, slanting, 10)));
    EXPECT_EQ(session.history().undoName(), "Axial Rotation");
    std::string const event = "0 zones 1 variables 1 2 3 4 5 6";
    for (int round = 0; round < 3; ++round) {
        expectUndoAndRedo(before, {event}, {event});
    }
}

TEST_F(RotateZonesTest, CountsTheOldValuesInTheHistory)
{
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {1}, noVector, slanting, 10)));
    EXPECT_EQ(session.history().valueBytes(), 3 * 12 * 8);
}

TEST_F(RotateZonesTest, ChangesNothingByAFullCircle)
{
    std::string const before = stateDigest(session);
    for (double const degrees : {0.0, 360.0, -720.0, 360.0 * 1e12}) {
        EXPECT_TRUE(session.perform(RotateZones(*dataSet, {1}, inSpace, slanting, degrees)));
    }
    EXPECT_EQ(stateDigest(session), before);
    EXPECT_THAT(recorder.take(), testing::IsEmpty());
}

TEST_F(RotateZonesTest, LeavesWhatLiesAlongTheAxisShared)
{
    Field const z = field(1, 3);
    Field const scalar = field(1, 7);
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {1}, inSpace, aboutZ, 10)));
    EXPECT_EQ(field(1, 3).group(), z.group());
    EXPECT_EQ(field(1, 7).group(), scalar.group());
}

TEST_F(RotateZonesTest, WritesToNewStorageForTheGivenZonesOnly)
{
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {1, 1})));
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {1})));
    std::vector<double> const old = values(*dataSet, 1, 1);
    std::string const before = withoutHistory();
    recorder.take();
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {1, 3}, noVector, slanting, 10)));
    EXPECT_EQ(values(*dataSet, 2, 1), old);
    EXPECT_NE(values(*dataSet, 1, 1), old);
    EXPECT_EQ(field(1, 1).group(), field(3, 1).group()) << "computed once, and shared as before";
    EXPECT_EQ(field(1, 1).shareCount(), 2);
    EXPECT_EQ(field(2, 1).shareCount(), 1);
    EXPECT_EQ(field(2, 4).shareCount(), 3);
    EXPECT_EQ(session.history().valueBytes(), 0) << "the other zone holds the old values";
    std::string const event = "0 zones 1 3 variables 1 2 3";
    expectUndoAndRedo(before, {event}, {event});
    session.undo();
    EXPECT_EQ(field(1, 1).shareCount(), 3);
}

TEST_F(RotateZonesTest, RotatesAVectorAboutNoPointAlsoWhereItSharesItsStorageWithThePosition)
{
    int const zone = addPoint(3, 2, 7);
    for (int component = 1; component <= 3; ++component) {
        field(zone, 3 + component) = field(zone, component);
    }
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {zone}, inSpace, {{1, 2, 9}, {0, 0, 1}}, 90)));
    EXPECT_THAT(point(zone), ElementsAre(1, 4, 7));
    EXPECT_THAT(vector(zone), ElementsAre(-2, 3, 7));
    EXPECT_EQ(field(zone, 3).group(), field(zone, 6).group()) << "what is along the axis is shared as before";
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(field(zone, 1).group(), field(zone, 4).group());
    EXPECT_EQ(field(zone, 1).shareCount(), 2);
}

TEST_F(RotateZonesTest, RotatesComponentsThatShareOneStorage)
{
    int const zone = addPoint(3, 3, 0);
    field(zone, 2) = field(zone, 1);
    field(zone, 7) = field(zone, 1);
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {zone}, noVector, aboutZ, 90)));
    EXPECT_THAT(point(zone), ElementsAre(-3, 3, 0));
    EXPECT_EQ(values(*dataSet, zone, 7)[0], 3) << "not one of the coordinates";
    EXPECT_EQ(field(zone, 7).shareCount(), 1);
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(field(zone, 7).shareCount(), 3);
}

TEST_F(RotateZonesTest, KeepsStorageApartThatWasApart)
{
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {1})));
    ShareGroup const& shared = *field(2, 1).group();
    field(2, 1) = Field(shared.branch(shared.buffer()->clone()), ValueLocation_Nodal);
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {1, 2}, noVector, slanting, 10)));
    EXPECT_NE(field(1, 1).group(), field(2, 1).group());
    EXPECT_EQ(values(*dataSet, 1, 1), values(*dataSet, 2, 1));
}

TEST_F(RotateZonesTest, BringsSharedStorageBackAfterItsOtherUsersHaveGone)
{
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {1})));
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {2}, inSpace, slanting, 10)));
    std::string const before = withoutHistory();
    ASSERT_TRUE(session.perform(DeleteVariables(*dataSet, {1})));
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(withoutHistory(), before);
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(field(1, 1).shareCount(), 2);
    EXPECT_EQ(field(1, 1).group(), field(2, 1).group());
}

TEST_F(RotateZonesTest, ReadsInterleavedStorage)
{
    auto const owner = std::make_shared<std::vector<float>>(std::vector<float>{1, 2, 3, 4, 5, 6});
    auto zone = std::make_shared<Zone>("interleaved", ZoneType_Ordered, 2, 1, 1);
    for (int component = 0; component < 3; ++component) {
        auto const part = Buffer::adopt(FieldDataType_Float, 2, owner->data() + component, 3, owner);
        zone->fields.emplace_back(std::make_shared<ShareGroup>(part), ValueLocation_Nodal);
    }
    dataSet->addZone(zone);
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {2}, noVector, aboutZ, 90)));
    EXPECT_THAT(values(*dataSet, 2, 1), ElementsAre(-2, -5));
    EXPECT_THAT(values(*dataSet, 2, 2), ElementsAre(1, 4));
    EXPECT_THAT(values(*dataSet, 2, 3), ElementsAre(3, 6));
    EXPECT_TRUE(field(2, 1).group()->buffer()->isContiguous());
    EXPECT_THAT(*owner, ElementsAre(1, 2, 3, 4, 5, 6));
}

TEST_F(RotateZonesTest, StoresWholeNumbersAsFloatingOnesThatHoldThem)
{
    struct Case
    {
        FieldDataType_e before;
        FieldDataType_e after;
    };
    for (Case const& types :
         {Case{FieldDataType_Float, FieldDataType_Float}, Case{FieldDataType_Double, FieldDataType_Double},
          Case{FieldDataType_Int32, FieldDataType_Double}, Case{FieldDataType_Int16, FieldDataType_Float},
          Case{FieldDataType_Byte, FieldDataType_Float}, Case{FieldDataType_Bit, FieldDataType_Float}}) {
        int const zone = addPoint(1, 0, 1, types.before);
        ASSERT_TRUE(session.perform(RotateZones(*dataSet, {zone}, inSpace, aboutZ, 45)));
        EXPECT_EQ(field(zone, 1).type(), types.after) << types.before;
        EXPECT_EQ(field(zone, 3).type(), types.before) << "was not rotated";
        EXPECT_NEAR(values(*dataSet, zone, 1)[0], std::sqrt(0.5), 1e-7);
        EXPECT_NEAR(values(*dataSet, zone, 2)[0], std::sqrt(0.5), 1e-7);
        ASSERT_TRUE(session.undo());
        EXPECT_EQ(field(zone, 1).type(), types.before);
    }
}

TEST_F(RotateZonesTest, KeepsThe32BitNumbersThatFloatDoesNotHold)
{
    int const zone = addPoint(INT_MAX, INT_MIN, 0, FieldDataType_Int32);
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {zone}, inSpace, aboutZ, 180)));
    EXPECT_THAT(point(zone), ElementsAre(-2147483647.0, 2147483648.0, 0));
}

TEST_F(RotateZonesTest, LeavesAPassiveCoordinatePassiveWhereItStaysZero)
{
    field(1, 3) = Field(FieldDataType_Float, ValueLocation_Nodal);
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {1}, inSpace, {{1, 1, 5}, {0, 0, 1}}, 30)));
    EXPECT_TRUE(field(1, 3).isPassive());
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {1}, inSpace, aboutX, 180)));
    EXPECT_TRUE(field(1, 3).isPassive());
}

TEST_F(RotateZonesTest, GivesAPassiveCoordinateValuesWhereTheZoneLeavesItsPlane)
{
    field(1, 3) = Field(FieldDataType_Float, ValueLocation_Nodal);
    std::vector<double> const y = values(*dataSet, 1, 2);
    std::string const before = withoutHistory();
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {1}, noVector, aboutX, 90)));
    ASSERT_FALSE(field(1, 3).isPassive());
    EXPECT_EQ(field(1, 3).type(), FieldDataType_Float);
    for (std::size_t at = 0; at < y.size(); ++at) {
        EXPECT_EQ(values(*dataSet, 1, 2)[at], 0);
        EXPECT_EQ(values(*dataSet, 1, 3)[at], static_cast<float>(y[at]));
    }
    recorder.take();
    std::string const event = "0 zones 1 variables 2 3";
    expectUndoAndRedo(before, {event}, {event});
}

TEST_F(RotateZonesTest, CarriesZonesOnALineAroundAnAxisBesideIt)
{
    auto line = std::make_shared<Zone>("line", ZoneType_Ordered, 3, 1, 1);
    line->fields.resize(7);
    line->fields[0] = sample::field({1, 2, 3});
    dataSet->addZone(line);
    field(1, 2) = Field();
    field(1, 3) = Field();
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {1, 2}, noVector, {{0, 1, 0}, {1, 0, 0}}, 180)));
    EXPECT_EQ(values(*dataSet, 1, 2), std::vector<double>(12, 2.0));
    EXPECT_EQ(values(*dataSet, 2, 2), std::vector<double>(3, 2.0));
    EXPECT_EQ(field(2, 2).group()->size(), 3) << "not that of the other zone";
    EXPECT_TRUE(field(1, 3).isPassive());
    EXPECT_EQ(values(*dataSet, 2, 1)[2], 3);
}

TEST_F(RotateZonesTest, MakesNoStorageSharedThatWasNot)
{
    for (int zone : {2, 3}) {
        addPoint(1, 2, 3);
        field(zone, 1) = Field(FieldDataType_Double, ValueLocation_Nodal);
        field(zone, 2) = Field(FieldDataType_Double, ValueLocation_Nodal);
    }
    field(3, 3) = field(2, 3);
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {2, 3}, noVector, {{1, 0, 0}, {0, 0, 1}}, 90)));
    for (int const variable : {1, 2}) {
        EXPECT_EQ(field(2, variable).shareCount(), 1) << variable;
        EXPECT_EQ(field(3, variable).shareCount(), 1) << variable;
    }
    EXPECT_THAT(point(2), ElementsAre(1, -1, 3));
    EXPECT_THAT(point(3), ElementsAre(1, -1, 3));
    ASSERT_TRUE(session.perform(SetValue(*dataSet, 2, 1, 0, 50, false)));
    EXPECT_THAT(point(3), ElementsAre(1, -1, 3)) << "an edit of the other zone";
}

TEST_F(RotateZonesTest, SharesOnlyTheComponentsThatWereShared)
{
    for (int zone : {2, 3}) {
        addPoint(1, 2, 3);
        field(zone, 3) = Field(FieldDataType_Double, ValueLocation_Nodal);
    }
    field(3, 1) = field(2, 1);
    field(3, 2) = field(2, 2);
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {2, 3}, noVector, aboutX, 90)));
    EXPECT_EQ(field(2, 1).shareCount(), 2) << "is not rotated";
    EXPECT_EQ(field(2, 2).group(), field(3, 2).group());
    EXPECT_EQ(field(2, 2).shareCount(), 2);
    EXPECT_NE(field(2, 3).group(), field(3, 3).group()) << "was passive";
    EXPECT_THAT(point(2), ElementsAre(1, 0, 2));
    EXPECT_THAT(point(3), ElementsAre(1, 0, 2));
    ASSERT_TRUE(session.undo());
    EXPECT_TRUE(field(3, 3).isPassive());
    EXPECT_EQ(field(2, 2).shareCount(), 2);
}

TEST_F(RotateZonesTest, KeepsTheTypesOfPassiveCoordinatesThatGetValues)
{
    field(1, 3) = Field(FieldDataType_Float, ValueLocation_Nodal);
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {1})));
    field(2, 3) = Field(FieldDataType_Double, ValueLocation_Nodal);
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {1, 2}, noVector, aboutX, 90)));
    EXPECT_EQ(field(1, 3).type(), FieldDataType_Float);
    EXPECT_EQ(field(2, 3).type(), FieldDataType_Double);
}

TEST_F(RotateZonesTest, LeavesAZoneWithoutCoordinatesOrWithoutAVectorAlone)
{
    for (int variable = 1; variable <= 6; ++variable) {
        field(1, variable) = Field();
    }
    std::string const before = stateDigest(session);
    EXPECT_TRUE(session.perform(RotateZones(*dataSet, {1}, inSpace, slanting, 30)));
    EXPECT_EQ(stateDigest(session), before);
    int const zone = addPoint(1, 2, 3);
    recorder.take();
    EXPECT_TRUE(session.perform(RotateZones(*dataSet, {1, zone}, inSpace, aboutX, 30)));
    EXPECT_THAT(recorder.take(), ElementsAre("0 zones 2 variables 2 3 5 6"));
    EXPECT_TRUE(field(1, 1).isPassive());
    EXPECT_FALSE(field(zone, 2).isPassive());
}

TEST_F(RotateZonesTest, RotatesVectorsAtTheMiddleOfCells)
{
    auto zone = std::make_shared<Zone>("cells", ZoneType_Ordered, 3, 1, 1);
    zone->fields = {sample::field({0, 1, 2}),
                    sample::field({0, 0, 0}),
                    sample::field({0, 0, 0}),
                    sample::field({1, 2, 99}, FieldDataType_Double, ValueLocation_CellCentered),
                    sample::field({0, 0, 99}, FieldDataType_Double, ValueLocation_CellCentered),
                    Field(FieldDataType_Double, ValueLocation_CellCentered)};
    dataSet->addZone(zone);
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {2}, inSpace, aboutZ, 90)));
    EXPECT_EQ(field(2, 5).location(), ValueLocation_CellCentered);
    EXPECT_EQ(values(*dataSet, 2, 5)[0], 1);
    EXPECT_EQ(values(*dataSet, 2, 5)[1], 2);
    EXPECT_EQ(values(*dataSet, 2, 2)[2], 2);
}

TEST_F(RotateZonesTest, LoadsTheVectorThatItRotates)
{
    int const zone = addPoint(3, 2, 7);
    auto const loader = std::make_shared<sample::Loader>(std::vector<double>{1});
    field(zone, 4) = sample::Loader::field(loader);
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {zone}, inSpace, aboutZ, 90)));
    EXPECT_THAT(vector(zone), ElementsAre(0, 1, 0));
    ASSERT_TRUE(session.undo());
    EXPECT_THAT(vector(zone), ElementsAre(1, 0, 0));
    EXPECT_EQ(loader->loads, 1);
}

TEST_F(RotateZonesTest, RefusesAVectorWhoseComponentsAreAtDifferentPlaces)
{
    field(1, 5) = sample::field(std::vector<double>(12, 1.0), FieldDataType_Float, ValueLocation_CellCentered);
    expectRefused([&] { return session.perform(RotateZones(*dataSet, {1}, inSpace, slanting, 30)); });
    EXPECT_EQ(session.lastError(), "The components of a vector must have their values at the same places.");
    EXPECT_TRUE(session.perform(RotateZones(*dataSet, {1}, noVector, slanting, 30)));
    recorder.take();
    field(1, 1) = sample::field({1, 2});
    expectRefused([&] { return session.perform(RotateZones(*dataSet, {1}, noVector, slanting, 30)); });
}

TEST_F(RotateZonesTest, NamesTheAxisThatHasNoVariable)
{
    expectRefused([&] {
        return session.perform(RotateZones(*dataSet, {1}, {{1, 2, 0}, {}, true, false}, aboutZ, 30));
    });
    EXPECT_EQ(session.lastError(), "The Z axis has no variable.");
    expectRefused([&] {
        return session.perform(RotateZones(*dataSet, {1}, {{1, 0, 3}, {}, true, false}, aboutZ, 30));
    });
    EXPECT_EQ(session.lastError(), "The Y axis has no variable.");
    expectRefused([&] {
        return session.perform(RotateZones(*dataSet, {1}, {{0, 0, 0}, {}, false, false}, aboutZ, 30));
    });
    EXPECT_EQ(session.lastError(), "The X axis has no variable.");
}

TEST_F(RotateZonesTest, RefusesAVectorThatIsThePositionButForOneComponent)
{
    for (auto const& vector : {std::array<int, 3>{1, 2, 6}, {1, 5, 3}, {4, 2, 3}}) {
        expectRefused([&] {
            return session.perform(RotateZones(*dataSet, {1}, {{1, 2, 3}, vector, true, true}, aboutZ, 30));
        });
        EXPECT_EQ(session.lastError(), "The spatial and vector variables must be unique.");
    }
}

TEST_F(RotateZonesTest, LeavesPointsThatAreNotFiniteAsTheyAre)
{
    auto zone = std::make_shared<Zone>("strange", ZoneType_Ordered, 4, 1, 1);
    zone->fields = {sample::field({1, notANumber, infinity, 2}), sample::field({0, 5, 6, -infinity}),
                    sample::field({7, notANumber, 8, 9})};
    dataSet->addZone(zone);
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {2}, noVector, aboutZ, 90)));
    std::vector<double> const x = values(*dataSet, 2, 1);
    EXPECT_EQ(x[0], 0);
    EXPECT_TRUE(std::isnan(x[1]));
    EXPECT_EQ(x[2], infinity);
    EXPECT_EQ(x[3], 2);
    EXPECT_THAT(values(*dataSet, 2, 2), ElementsAre(1, 5, 6, -infinity));
}

TEST_F(RotateZonesTest, LeavesPointsAsTheyAreWhicheverCoordinateIsNotFinite)
{
    for (int strange = 1; strange <= 3; ++strange) {
        int const zone = addPoint(1, 2, 3);
        field(zone, strange) = sample::field({-infinity});
        std::vector<double> const before = point(zone);
        ASSERT_TRUE(session.perform(RotateZones(*dataSet, {zone}, noVector, slanting, 90)));
        EXPECT_EQ(point(zone), before) << strange;
    }
}

TEST_F(RotateZonesTest, RotatesInThePlaneAboutZOnly)
{
    int const zone = addPoint(1, 0, 4);
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {zone}, inPlane, {{0, 0, 3}, {0, 0, -2}}, 90)));
    EXPECT_THAT(point(zone), ElementsAre(0, -1, 4));
    EXPECT_THAT(vector(zone), ElementsAre(0, -1, 0));
    recorder.take();
    expectRefused([&] { return session.perform(RotateZones(*dataSet, {1}, inPlane, aboutX, 30)); });
    SpatialVariables unusedNumbers = inPlane;
    unusedNumbers.coordinates[2] = 99;
    unusedNumbers.vector[2] = -1;
    EXPECT_TRUE(session.perform(RotateZones(*dataSet, {1}, unusedNumbers, aboutZ, 30)));
}

TEST_F(RotateZonesTest, TakesZonesWithoutPoints)
{
    auto zone = std::make_shared<Zone>("empty", ZoneType_Ordered, 0, 0, 0);
    zone->fields = {sample::field({}), sample::field({}), Field(), sample::field({}), sample::field({}), Field()};
    dataSet->addZone(zone);
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {2}, inSpace, slanting, 30)));
    EXPECT_EQ(field(2, 1).group()->buffer()->size(), 0);
    EXPECT_TRUE(session.undo());
}

TEST_F(RotateZonesTest, RefusesWhatDoesNotFit)
{
    auto const refused = [&](NumberSet const& zones, SpatialVariables const& variables, RotationAxis const& axis,
                             double degrees) {
        expectRefused([&] { return session.perform(RotateZones(*dataSet, zones, variables, axis, degrees)); });
    };
    refused({}, inSpace, aboutZ, 30);
    refused({0}, inSpace, aboutZ, 30);
    refused({1, 2}, inSpace, aboutZ, 30);
    refused({1}, {{1, 2, 8}, {}, true, false}, aboutZ, 30);
    refused({1}, {{0, 2, 3}, {}, true, false}, aboutZ, 30);
    refused({1}, {{1, 2, 2}, {}, true, false}, aboutZ, 30);
    refused({1}, {{1, 2, 3}, {4, 4, 5}, true, true}, aboutZ, 30);
    refused({1}, {{1, 2, 3}, {3, 4, 5}, true, true}, aboutZ, 30);
    refused({1}, {{1, 2, 3}, {4, 5, 0}, true, true}, aboutZ, 30);
    refused({1}, inSpace, {{}, {0, 0, 0}}, 30);
    refused({1}, inSpace, {{}, {0, notANumber, 1}}, 30);
    refused({1}, inSpace, {{0, infinity, 0}, {0, 0, 1}}, 30);
    refused({1}, inSpace, aboutZ, notANumber);
    refused({1}, inSpace, aboutZ, -infinity);
    session.setLock(*dataSet, "somebody");
    recorder.take();
    refused({1}, inSpace, aboutZ, 30);
    expectRefused([&] { return session.perform(RotateZones(*sample::everyKindOfCells(1), {1}, inSpace, aboutZ, 30)); });
}

namespace {

class DataRotate : public testing::Test
{
protected:
    DataRotate()
    {
        sample::addOrdered(*dataSet, 2, 2, 2);
        sample::show(session, dataSet);
    }
    ~DataRotate() override { session.clear(); }

    bool rotate(Set_s* set) { return rotate(dataSet->id(), set, xyz, origin, axis); }

    bool rotate(long long id, Set_s* set, int const* coordinates, double const* point, double const* direction)
    {
        return VelUtilDataRotate(id, set, coordinates, true, &uvw[0], &uvw[1], &uvw[2], true, 90.0, point, direction);
    }

    Session& session = Session::instance();
    std::shared_ptr<DataSet> dataSet = sample::emptySpace();
    Set_s zones{{1}};
    int const xyz[3] = {1, 2, 3};
    int const uvw[3] = {4, 5, 6};
    double const origin[3] = {0, 0, 0};
    double const axis[3] = {0, 0, 2};
};

} // namespace

TEST_F(DataRotate, RotatesTheZonesOfTheDataSet)
{
    std::vector<double> const x = values(*dataSet, 1, 1);
    std::vector<double> const u = values(*dataSet, 1, 4);
    ASSERT_TRUE(rotate(&zones));
    EXPECT_EQ(values(*dataSet, 1, 2), x);
    EXPECT_EQ(values(*dataSet, 1, 5), u);
    EXPECT_EQ(session.history().undoName(), "Axial Rotation");
}

TEST_F(DataRotate, IgnoresTheVectorThatItIsNotToRotate)
{
    std::vector<double> const u = values(*dataSet, 1, 4);
    ASSERT_TRUE(
        VelUtilDataRotate(dataSet->id(), &zones, xyz, true, nullptr, nullptr, nullptr, false, 90, origin, axis));
    EXPECT_EQ(values(*dataSet, 1, 4), u);
    int const plane[3] = {1, 2, 0};
    ASSERT_TRUE(
        VelUtilDataRotate(dataSet->id(), &zones, plane, false, &uvw[0], &uvw[1], nullptr, true, 90, origin, axis));
    EXPECT_EQ(values(*dataSet, 1, 5), u);
}

TEST_F(DataRotate, RefusesMissingArgumentsAndOtherDataSets)
{
    std::string const before = stateDigest(session);
    EXPECT_FALSE(rotate(nullptr));
    EXPECT_FALSE(rotate(dataSet->id(), &zones, nullptr, origin, axis));
    EXPECT_FALSE(rotate(dataSet->id(), &zones, xyz, nullptr, axis));
    EXPECT_FALSE(rotate(dataSet->id(), &zones, xyz, origin, nullptr));
    EXPECT_EQ(session.lastError(), "An argument is missing.");
    EXPECT_FALSE(VelUtilDataRotate(dataSet->id(), &zones, xyz, true, &uvw[0], &uvw[1], nullptr, true, 9, origin, axis));
    EXPECT_FALSE(VelUtilDataRotate(dataSet->id(), &zones, xyz, true, &uvw[0], nullptr, &uvw[2], true, 9, origin, axis));
    EXPECT_FALSE(VelUtilDataRotate(dataSet->id(), &zones, xyz, true, nullptr, &uvw[1], &uvw[2], true, 9, origin, axis));
    EXPECT_FALSE(rotate(dataSet->id() + 1000, &zones, xyz, origin, axis));
    EXPECT_EQ(session.lastError(), "There is no such data set.");
    EXPECT_EQ(stateDigest(session), before);
}

} // namespace veldraw::tests
