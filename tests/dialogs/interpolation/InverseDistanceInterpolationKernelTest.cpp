#include "dialogs/interpolation/InverseDistanceInterpolationPropertiesGenerated.h"
#include "dialogs/interpolation/InverseDistanceInterpolationPropertiesManager.h"
#include "kernel/operations/EnableZone.h"
#include "tests/dialogs/interpolation/InterpolationUnderSpy.h"
#include "tests/dialogs/interpolation/InverseDistanceFixture.h"
#include "tests/dialogs/support/RecordedGuards.h"

#include <gmock/gmock.h>
#include <limits>

namespace veldraw::tests {
namespace {

using dialogs::data::InverseDistanceInterpolationPropertiesManager;
using sdk::ui::propertymanager::InverseDistanceInterpolationPropertiesGenerated;
using testing::ElementsAre;

using InverseDistanceInterpolationKernelTest = InterpolationUnderSpy<InverseDistanceFixture>;

TEST_F(InverseDistanceInterpolationKernelTest, PassesSelectionsAndSettingsInOneCall)
{
    clickRow(0);
    clickRow(2);
    clickRowOf(variables, 0);
    clickRowOf(variables, 1);
    choose(destination, 1);
    enter(minimumDistance, "0.25");
    enter(exponent, "3.5");
    choose(pointSelection, 0);
    enter(numberOfPoints, "4");
    EXPECT_THAT(interpolationsOfClick(),
                ElementsAre("VelUtilInverseDistInterpolation({1, 3}, 2, {3, 4}, 3.5, 0.25, 1, 4)"));
    choose(pointSelection, 2);
    EXPECT_THAT(interpolationsOfClick(),
                ElementsAre("VelUtilInverseDistInterpolation({1, 3}, 2, {3, 4}, 3.5, 0.25, 0, 4)"));
}

TEST_F(InverseDistanceInterpolationKernelTest, AsksTheKernelAlsoWithNothingSelected)
{
    EXPECT_THAT(interpolationsOfClick(), ElementsAre("VelUtilInverseDistInterpolation({}, 1, {}, 2, 0, 2, 8)"));
    expectTold({failed}, "nothing selected");
    clickRow(1);
    EXPECT_THAT(interpolationsOfClick(), ElementsAre("VelUtilInverseDistInterpolation({2}, 1, {}, 2, 0, 2, 8)"));
    expectTold({failed}, "no variable selected");
}

TEST_F(InverseDistanceInterpolationKernelTest, AsksTheKernelAlsoWhenTheDestinationIsASource)
{
    clickRow(0);
    clickRowOf(variables, 0);
    spy.failNext("VelUtilInverseDistInterpolation");
    clickAction();
    EXPECT_THAT(spy.callsOf("VelUtilInverseDistInterpolation"),
                ElementsAre("VelUtilInverseDistInterpolation({1}, 1, {3}, 2, 0, 2, 8)"));
}

TEST_F(InverseDistanceInterpolationKernelTest, HoldsTheApplicationWhileItTellsTheOutcome)
{
    RecordedGuards const recorded;
    clickAction();
    selectWingToBody();
    clickAction();
    EXPECT_EQ(recorded.guards(), (RecordedGuards::Guards{{1, 0}, {1, 0}}));
    EXPECT_EQ(sdk::AppLock::depth(), 0);
}

TEST_F(InverseDistanceInterpolationKernelTest, SaysUnknownErrorWhenTheKernelHasNoWordsForARefusedSetting)
{
    spy.failNext("VelUtilStyleGetLastErrorString");
    enter(exponent, "0");
    EXPECT_THAT(messages.take(), ElementsAre("error: Unknown error"));
    EXPECT_EQ(shown(exponent), "2");
    EXPECT_GE(spy.count("VelUtilStringDealloc"), 1);
}

TEST_F(InverseDistanceInterpolationKernelTest, HandsOutWhatItsBindingsShow)
{
    InverseDistanceInterpolationPropertiesGenerated generated(true, toolbox::StringList());
    InverseDistanceInterpolationPropertiesManager manager(generated);
    EXPECT_EQ(&manager.generated(), &generated);
    EXPECT_TRUE(manager.sourceZones()->value().empty());
    EXPECT_TRUE(manager.variables()->value().empty());
    EXPECT_EQ(manager.destinationZone()->value(), 1);
    EXPECT_FALSE(manager.zoneModel()->isEditable());
    EXPECT_EQ(manager.zoneModel()->size(), 3);
    EXPECT_EQ(manager.variablesModel()->size(), 2);
    EXPECT_EQ(manager.ptSelectionModel()->get(0), PtSelection_NearestN);
    EXPECT_EQ(manager.ptSelectionModel()->get(1), PtSelection_Octant);
    EXPECT_EQ(manager.ptSelectionModel()->get(2), PtSelection_All);
    EXPECT_TRUE(manager.numPointsRelevance()->isRelevant());
    generated.interpPtSelection()->setValue(PtSelection_All);
    EXPECT_FALSE(manager.numPointsRelevance()->isRelevant());
}

TEST_F(InverseDistanceInterpolationKernelTest, PassesTheSettingsThatWaitForASubmission)
{
    InverseDistanceInterpolationPropertiesGenerated generated(true, toolbox::StringList());
    InverseDistanceInterpolationPropertiesManager manager(generated);
    generated.invDistExponent()->setValue(5.0);
    generated.interpNPoints()->setValue(std::numeric_limits<int>::max());
    spy.failNext("VelUtilInverseDistInterpolation");
    manager.interpolate();
    EXPECT_THAT(spy.callsOf("VelUtilInverseDistInterpolation"),
                ElementsAre("VelUtilInverseDistInterpolation({}, 1, {}, 5, 0, 2, 2147483647)"));
}

TEST_F(InverseDistanceInterpolationKernelTest, TakesTheDestinationThatIsLeftWhenItsZoneIsDisabled)
{
    clickRow(2);
    clickRowOf(variables, 0);
    sample.session().perform(kernel::EnableZone(sample.dataSet(), 1, false));
    EXPECT_EQ(chosen(destination), "2: Body");
    EXPECT_THAT(interpolationsOfClick(), ElementsAre("VelUtilInverseDistInterpolation({3}, 2, {3}, 2, 0, 2, 8)"));
}

} // namespace
} // namespace veldraw::tests
