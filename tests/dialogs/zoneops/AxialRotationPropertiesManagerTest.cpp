#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/dialogs/zoneops/AxialFixture.h"
#include "tests/dialogs/zoneops/MemoryRunsOut.h"
#include "tests/support/KernelSpy.h"

#include <cmath>
#include <exception>
#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using RotationManager = AxialRotationPropertiesManager;
using testing::ElementsAre;
using testing::IsEmpty;

/// What the kernel is to be given.
struct Inputs
{
    int xyz[3] = {-1, -1, -1};
    int uvw[3] = {-1, -1, -1};
    bool is3D = false;
    bool hasVector = false;
    double origin[3] = {-1.0, -1.0, -1.0};
    double axis[3] = {-1.0, -1.0, -1.0};
};

/// The logic alone, without a dialog, in a 3D plot.
class AxialRotationPropertiesManagerTest : public AxialRotationFixture
{
protected:
    static Inputs inputs(std::set<int> const& zones = {1}, bool isGrouped = false)
    {
        RotationManager const manager;
        manager.zoneListModel()->groupByTimeStrand()->setValue(isGrouped);
        manager.selectedZones()->setValue(zones);
        Inputs in;
        manager.getRotationInputs("Turning", in.xyz, in.uvw, in.is3D, in.hasVector, in.origin, in.axis);
        return in;
    }

    static std::string refusal(std::set<int> const& zones = {1}, bool isGrouped = false)
    {
        try {
            inputs(zones, isGrouped);
        } catch (std::exception const& refusal) {
            return refusal.what();
        }
        return "";
    }

    static std::vector<int> zonesToProcess(RotationManager const& manager)
    {
        return manager.getZonesToProcess().members();
    }
};

TEST_F(AxialRotationPropertiesManagerTest, StartsWithAFullCircleAboutZThroughTheOrigin)
{
    EXPECT_EQ(RotationManager::rotationAngleUnits()->value(), ThetaMode_Degrees);
    EXPECT_EQ(RotationManager::rotationAngle()->value(), 360.0);
    EXPECT_EQ(RotationManager::rotationAxis()->value(), RotationManager::zRotationAxis);
    ASSERT_EQ(RotationManager::rotationOrigin().size(), 3u);
    for (int dimension = 0; dimension < 3; ++dimension)
        EXPECT_EQ(RotationManager::rotationOrigin().at(dimension)->value(), 0.0) << dimension;
    ASSERT_EQ(RotationManager::angleUnitsListModel()->size(), 2);
    EXPECT_EQ(RotationManager::angleUnitsListModel()->getStr(0), "Degrees");
    EXPECT_EQ(RotationManager::angleUnitsListModel()->getStr(1), "Radians");
}

TEST_F(AxialRotationPropertiesManagerTest, NumbersTheAxesFromX)
{
    EXPECT_EQ(static_cast<int>(RotationManager::xRotationAxis), 0);
    EXPECT_EQ(static_cast<int>(RotationManager::yRotationAxis), 1);
    EXPECT_EQ(static_cast<int>(RotationManager::zRotationAxis), 2);
}

TEST_F(AxialRotationPropertiesManagerTest, SharesWhatTheUserSetsButNotTheSelection)
{
    RotationManager const first;
    RotationManager const second;
    first.rotationAngle()->setValue(90.0);
    EXPECT_EQ(second.displayedAngle()->value(), 90.0);
    first.selectedZones()->setValue({2});
    EXPECT_THAT(second.selectedZones()->value(), IsEmpty());
    EXPECT_NE(first.zoneListModel(), second.zoneListModel());
}

TEST_F(AxialRotationPropertiesManagerTest, ShowsTheAngleInItsUnitAndKeepsItInDegrees)
{
    RotationManager const manager;
    RotationManager::rotationAngleUnits()->setValue(ThetaMode_Radians);
    EXPECT_DOUBLE_EQ(manager.displayedAngle()->value(), 2.0 * std::acos(-1.0));
    manager.displayedAngle()->setValue(std::acos(-1.0) / 2.0);
    EXPECT_DOUBLE_EQ(RotationManager::rotationAngle()->value(), 90.0);
    RotationManager::rotationAngleUnits()->setValue(ThetaMode_Degrees);
    EXPECT_DOUBLE_EQ(manager.displayedAngle()->value(), 90.0);
}

TEST_F(AxialRotationPropertiesManagerTest, SelectsThePickedZonesWhenItIsMade)
{
    pick({zonePick(3), {7, 0}, zonePick(1), zonePick(3)});
    EXPECT_THAT(RotationManager().selectedZones()->value(), ElementsAre(1, 3));
}

TEST_F(AxialRotationPropertiesManagerTest, SelectsNothingWhenNoZoneIsPicked)
{
    EXPECT_THAT(RotationManager().selectedZones()->value(), IsEmpty());
    pick({{7, 0}});
    EXPECT_THAT(RotationManager().selectedZones()->value(), IsEmpty());
}

TEST_F(AxialRotationPropertiesManagerTest, PassesOverAPickedZoneThatIsGone)
{
    sample.session().perform(kernel::DuplicateZones(sample.dataSet(), kernel::NumberSet{1}));
    pick({zonePick(2), zonePick(4)});
    sample.session().undo();
    EXPECT_THAT(RotationManager().selectedZones()->value(), ElementsAre(2));
}

TEST_F(AxialRotationPropertiesManagerTest, PassesOverAPickedZoneThatIsDisabled)
{
    pick({zonePick(2), zonePick(3)});
    sample.session().perform(kernel::EnableZone(sample.dataSet(), 3, false));
    EXPECT_THAT(RotationManager().selectedZones()->value(), ElementsAre(2));
}

TEST_F(AxialRotationPropertiesManagerTest, ReadsThePickListOnceFromItsFirstEntryOn)
{
    pick({{7, 0}, zonePick(2)});
    KernelSpy const spy;
    RotationManager const manager;
    std::vector<std::string> const calls = spy.calls();
    ASSERT_GE(calls.size(), 4u);
    EXPECT_THAT(std::vector<std::string>(calls.end() - 4, calls.end()),
                ElementsAre("VelUtilPickListGetCount()", "VelUtilPickListGetType(1)", "VelUtilPickListGetType(2)",
                            "VelUtilPickListGetZoneNumber(2)"));
}

TEST_F(AxialRotationPropertiesManagerTest, LeavesTheSelectionAloneWhenSomethingIsPickedLater)
{
    RotationManager const manager;
    manager.selectedZones()->setValue({2});
    pick({zonePick(3)});
    IdleDispatcher::flush();
    EXPECT_THAT(manager.selectedZones()->value(), ElementsAre(2));
}

TEST_F(AxialRotationPropertiesManagerTest, ProcessesTheSelectedZones)
{
    RotationManager const manager;
    EXPECT_THAT(zonesToProcess(manager), IsEmpty());
    manager.selectedZones()->setValue({3, 1});
    EXPECT_THAT(zonesToProcess(manager), ElementsAre(1, 3));
}

TEST_F(AxialRotationPropertiesManagerTest, ProcessesAllZonesOfTheSelectedStrands)
{
    makeStrand();
    RotationManager const manager;
    manager.zoneListModel()->groupByTimeStrand()->setValue(true);
    manager.selectedZones()->setValue({1});
    EXPECT_THAT(zonesToProcess(manager), ElementsAre(1, 3));
    manager.selectedZones()->setValue({2});
    EXPECT_THAT(zonesToProcess(manager), ElementsAre(2));
    KernelSpy const spy;
    manager.selectedZones()->setValue({2, 1});
    EXPECT_THAT(zonesToProcess(manager), ElementsAre(1, 2, 3));
    EXPECT_THAT(spy.callsOf("VelUtilFieldMapGetZones"),
                ElementsAre("VelUtilFieldMapGetZones(1, out)", "VelUtilFieldMapGetZones(2, out)"));
}

TEST_F(AxialRotationPropertiesManagerTest, LeavesTheDisabledZonesOfAStrandOut)
{
    makeStrand();
    RotationManager const manager;
    manager.zoneListModel()->groupByTimeStrand()->setValue(true);
    manager.selectedZones()->setValue({1});
    sample.session().perform(kernel::EnableZone(sample.dataSet(), 1, false));
    EXPECT_THAT(zonesToProcess(manager), ElementsAre(3));
    sample.session().perform(kernel::EnableZone(sample.dataSet(), 3, false));
    EXPECT_THAT(zonesToProcess(manager), IsEmpty());
}

TEST_F(AxialRotationPropertiesManagerTest, TakesAStrandThatIsGoneForNoZones)
{
    RotationManager const manager;
    manager.zoneListModel()->groupByTimeStrand()->setValue(true);
    manager.selectedZones()->setValue({1, 99});
    EXPECT_THAT(zonesToProcess(manager), ElementsAre(1));
    manager.selectedZones()->setValue({99});
    EXPECT_THAT(zonesToProcess(manager), IsEmpty());
}

TEST_F(AxialRotationPropertiesManagerTest, GathersPositionVectorOriginAndAxis)
{
    RotationManager::rotationAxis()->setValue(RotationManager::yRotationAxis);
    RotationManager::rotationOrigin().at(0)->setValue(0.5);
    RotationManager::rotationOrigin().at(2)->setValue(-2.0);
    Inputs const in = inputs();
    EXPECT_THAT(in.xyz, ElementsAre(1, 2, 3));
    EXPECT_THAT(in.uvw, ElementsAre(4, 5, 6));
    EXPECT_TRUE(in.is3D);
    EXPECT_TRUE(in.hasVector);
    EXPECT_THAT(in.origin, ElementsAre(0.5, 0.0, -2.0));
    EXPECT_THAT(in.axis, ElementsAre(0.0, 1.0, 0.0));
    RotationManager::rotationAxis()->setValue(RotationManager::xRotationAxis);
    EXPECT_THAT(inputs().axis, ElementsAre(1.0, 0.0, 0.0));
    RotationManager::rotationAxis()->setValue(RotationManager::zRotationAxis);
    EXPECT_THAT(inputs().axis, ElementsAre(0.0, 0.0, 1.0));
}

TEST_F(AxialRotationPropertiesManagerTest, AsksForTheZonesBeforeTheKernel)
{
    KernelSpy const spy;
    EXPECT_EQ(refusal({}), "Turning requires selection of one or more zones.");
    EXPECT_EQ(spy.count("VelUtilAxisGetVarAssignments"), 0);
    EXPECT_EQ(refusal({}, true), "Turning requires selection of one or more strands.");
    EXPECT_EQ(refusal({99}, true), "Turning requires selection of one or more strands.");
    EXPECT_EQ(refusal({1}, true), "");
}

TEST_F(AxialRotationPropertiesManagerTest, WantsThreeDifferentCoordinates)
{
    std::string const notUnique = "Turning requires that the spatial variables are unique.";
    assign("XYZ", {1, 1, 3});
    EXPECT_EQ(refusal(), notUnique);
    assign("XYZ", {1, 2, 1});
    EXPECT_EQ(refusal(), notUnique);
    assign("XYZ", {1, 2, 2});
    EXPECT_EQ(refusal(), notUnique);
    assign("XYZ", {0, 0, 3});
    EXPECT_EQ(refusal(), notUnique);
    assign("XYZ", {1, 2, 3});
    EXPECT_EQ(refusal(), "");
}

TEST_F(AxialRotationPropertiesManagerTest, ComplainsOfTheCoordinatesBeforeTheVector)
{
    assign("XYZUVW", {1, 1, 3, 4, 4, 4});
    KernelSpy const spy;
    EXPECT_EQ(refusal(), "Turning requires that the spatial variables are unique.");
    EXPECT_EQ(spy.count("VelUtilVarGetNumByAssignment"), 0);
}

TEST_F(AxialRotationPropertiesManagerTest, WantsThreeDifferentComponentsOfTheVector)
{
    std::string const notUnique = "Turning requires that the vector variables are unique.";
    assign("UVW", {4, 4, 6});
    EXPECT_EQ(refusal(), notUnique);
    assign("UVW", {4, 5, 4});
    EXPECT_EQ(refusal(), notUnique);
    assign("UVW", {4, 5, 5});
    EXPECT_EQ(refusal(), notUnique);
    assign("UVW", {1, 1, 2}); // also shared with the position
    EXPECT_EQ(refusal(), notUnique);
}

TEST_F(AxialRotationPropertiesManagerTest, WantsAVectorApartFromThePosition)
{
    std::string const shared = "Turning requires that the vector and spatial variables are unique.";
    assign("UVW", {4, 5, 1});
    EXPECT_EQ(refusal(), shared);
    assign("UVW", {3, 5, 6});
    EXPECT_EQ(refusal(), shared);
    assign("UVW", {2, 1, 3}); // the position's variables in another order
    EXPECT_EQ(refusal(), shared);
    assign("UVW", {1, 2, 6}); // the position but for its last component
    EXPECT_EQ(refusal(), shared);
    assign("UVW", {2, 5, 0}); // W is missing, too
    EXPECT_EQ(refusal(), shared);
}

TEST_F(AxialRotationPropertiesManagerTest, WantsWWithZ)
{
    assign("W", {0});
    EXPECT_EQ(refusal(), "Turning requires that if Z is given then W must be also.");
}

TEST_F(AxialRotationPropertiesManagerTest, WantsZWithW)
{
    assign("Z", {0});
    EXPECT_EQ(refusal(), "Turning requires that if W is given then Z must be also.");
    assign("W", {0});
    EXPECT_EQ(refusal(), "");
}

TEST_F(AxialRotationPropertiesManagerTest, HasNoVectorWithoutUOrV)
{
    assign("UVW", {0, 5, 6});
    EXPECT_FALSE(inputs().hasVector);
    assign("UVW", {4, 0, 0});
    EXPECT_FALSE(inputs().hasVector);
    assign("UVW", {0, 0, 1}); // would not do as a vector
    EXPECT_EQ(refusal(), "");
}

TEST_F(AxialRotationPropertiesManagerTest, TakesThePositionAsItsOwnVectorForNoVector)
{
    assign("UVW", {1, 2, 3});
    Inputs const in = inputs();
    EXPECT_FALSE(in.hasVector);
    EXPECT_THAT(in.uvw, ElementsAre(1, 2, 3));
}

TEST_F(AxialRotationPropertiesManagerTest, TellsAnyExceptionInAMessageAndEndsNormally)
{
    RotationManager manager;
    manager.selectedZones()->setValue({1});
    EXPECT_THAT(toldWhenMemoryRunsOut([&manager] { manager.rotateZones(); }, messages),
                testing::IsSupersetOf({"error: std::bad_alloc", "error: Failed to perform axial rotation."}));
}

/// The same in a 2D plot.
class AxialRotationInThePlaneTest : public AxialRotationPropertiesManagerTest
{
protected:
    AxialRotationInThePlaneTest()
    {
        showAs(PlotType_Cartesian2D);
        assign("XY", {1, 2});
        assign("UV", {4, 5});
    }
};

TEST_F(AxialRotationInThePlaneTest, GathersTwoCoordinatesAndTwoComponents)
{
    Inputs const in = inputs();
    EXPECT_FALSE(in.is3D);
    EXPECT_TRUE(in.hasVector);
    EXPECT_THAT(in.xyz, ElementsAre(1, 2, 0));
    EXPECT_THAT(in.uvw, ElementsAre(4, 5, 0));
    EXPECT_THAT(in.axis, ElementsAre(0.0, 0.0, 1.0));
}

TEST_F(AxialRotationInThePlaneTest, DoesNotAskForW)
{
    KernelSpy const spy;
    for (int const w : {0, 1, 4, 6}) {
        assign("W", {w});
        EXPECT_EQ(refusal(), "") << w;
    }
    EXPECT_EQ(spy.count("VelUtilVarGetNumByAssignment"), 8);
}

TEST_F(AxialRotationInThePlaneTest, StillWantsDifferentVariables)
{
    for (int const variable : {2, 0}) {
        assign("XY", {variable, variable});
        EXPECT_EQ(refusal(), "Turning requires that the spatial variables are unique.") << variable;
    }
    assign("XY", {1, 2});
    assign("UV", {4, 4});
    EXPECT_EQ(refusal(), "Turning requires that the vector variables are unique.");
    assign("UV", {2, 1});
    EXPECT_EQ(refusal(), "Turning requires that the vector and spatial variables are unique.");
    assign("UV", {1, 2});
    EXPECT_FALSE(inputs().hasVector);
}

TEST_F(AxialRotationInThePlaneTest, RotatesAboutZWhateverWasChosenInSpace)
{
    RotationManager::rotationAxis()->setValue(RotationManager::xRotationAxis);
    RotationManager const manager;
    EXPECT_EQ(RotationManager::rotationAxis()->value(), RotationManager::zRotationAxis);
}

TEST_F(AxialRotationPropertiesManagerTest, GoesToZAtIdleWhenThePlotBecomesFlat)
{
    RotationManager const manager;
    RotationManager::rotationAxis()->setValue(RotationManager::yRotationAxis);
    sample.session().perform(kernel::SetPlotType(sample.frame()->id, PlotType_Cartesian2D));
    EXPECT_EQ(RotationManager::rotationAxis()->value(), RotationManager::yRotationAxis);
    IdleDispatcher::flush();
    EXPECT_EQ(RotationManager::rotationAxis()->value(), RotationManager::zRotationAxis);
}

TEST_F(AxialRotationPropertiesManagerTest, GoesToZAtIdleWhenAFlatFrameIsActivated)
{
    auto const flat = sample.session().createFrame("Frame 002", kernel::Rectangle{0.0, 0.0, 2.0, 2.0});
    ASSERT_TRUE(sample.session().setFrameDataSet(flat->id, sample.frame()->dataSet));
    ASSERT_TRUE(sample.session().perform(kernel::SetPlotType(flat->id, PlotType_Cartesian2D)));
    ASSERT_TRUE(sample.session().activateFrame(sample.frame()->id));
    IdleDispatcher::flush();
    RotationManager const manager;
    RotationManager::rotationAxis()->setValue(RotationManager::yRotationAxis);
    ASSERT_TRUE(sample.session().activateFrame(flat->id));
    EXPECT_EQ(RotationManager::rotationAxis()->value(), RotationManager::yRotationAxis);
    IdleDispatcher::flush();
    EXPECT_EQ(RotationManager::rotationAxis()->value(), RotationManager::zRotationAxis);
}

TEST_F(AxialRotationPropertiesManagerTest, GoesToZAtIdleWhenUndoAndRedoMakeThePlotFlat)
{
    showAs(PlotType_Cartesian2D);
    showAs(PlotType_Cartesian3D);
    RotationManager const manager;
    RotationManager::rotationAxis()->setValue(RotationManager::yRotationAxis);
    ASSERT_TRUE(sample.session().undo());
    EXPECT_EQ(RotationManager::rotationAxis()->value(), RotationManager::yRotationAxis);
    IdleDispatcher::flush();
    EXPECT_EQ(RotationManager::rotationAxis()->value(), RotationManager::zRotationAxis);
    ASSERT_TRUE(sample.session().undo());
    IdleDispatcher::flush();
    RotationManager::rotationAxis()->setValue(RotationManager::xRotationAxis);
    ASSERT_TRUE(sample.session().redo());
    IdleDispatcher::flush();
    EXPECT_EQ(RotationManager::rotationAxis()->value(), RotationManager::zRotationAxis);
}

TEST_F(AxialRotationPropertiesManagerTest, LeavesTheAxisAloneInOtherPlots)
{
    RotationManager const manager;
    RotationManager::rotationAxis()->setValue(RotationManager::yRotationAxis);
    for (PlotType_e const plotType : {PlotType_XYLine, PlotType_PolarLine, PlotType_Sketch, PlotType_Cartesian3D}) {
        showAs(plotType);
        EXPECT_EQ(RotationManager::rotationAxis()->value(), RotationManager::yRotationAxis) << plotType;
    }
}

TEST_F(AxialRotationPropertiesManagerTest, KnowsWhetherThePlotHasThreeDimensions)
{
    RotationManager const manager;
    EXPECT_TRUE(manager.cartesian3DRelevance()->isRelevant());
    showAs(PlotType_Cartesian2D);
    EXPECT_FALSE(manager.cartesian3DRelevance()->isRelevant());
    showAs(PlotType_XYLine);
    EXPECT_FALSE(manager.cartesian3DRelevance()->isRelevant());
}

TEST_F(AxialRotationPropertiesManagerTest, ListensToNobodyAfterItsEnd)
{
    {
        RotationManager const manager;
    }
    RotationManager::rotationAxis()->setValue(RotationManager::yRotationAxis);
    showAs(PlotType_Cartesian2D);
    EXPECT_EQ(RotationManager::rotationAxis()->value(), RotationManager::yRotationAxis);
}

TEST_F(AxialRotationPropertiesManagerTest, CanBeMadeWithoutAFrame)
{
    sample.session().removeAllPages();
    RotationManager const manager;
    EXPECT_THAT(manager.selectedZones()->value(), IsEmpty());
    EXPECT_EQ(manager.zoneListModel()->size(), 0);
    EXPECT_FALSE(manager.cartesian3DRelevance()->isRelevant());
}

} // namespace
} // namespace veldraw::tests
