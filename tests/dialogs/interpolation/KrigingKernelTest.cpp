#include "tests/dialogs/interpolation/InterpolationUnderSpy.h"
#include "tests/dialogs/interpolation/KrigingFixture.h"
#include "tests/dialogs/support/RecordedGuards.h"

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using KrigingKernelTest = InterpolationUnderSpy<KrigingFixture>;

TEST_F(KrigingKernelTest, PassesSelectionsAndSettingsInOneCall)
{
    clickRow(0);
    clickRow(2);
    clickRowOf(variables, 0);
    clickRowOf(variables, 1);
    choose(destination, 1);
    EXPECT_THAT(interpolationsOfClick(), ElementsAre("VelUtilKrig({1, 3}, 2, {3, 4}, 0.3, 0, 1, 2, 8)"));
    enter(range, "0.75");
    enter(zeroValue, "0.125");
    choose(drift, 1);
    choose(pointSelection, 0);
    enter(numberOfPoints, "12");
    EXPECT_THAT(interpolationsOfClick(), ElementsAre("VelUtilKrig({1, 3}, 2, {3, 4}, 0.75, 0.125, 0, 1, 12)"));
    choose(drift, 2);
    choose(pointSelection, 2);
    EXPECT_THAT(interpolationsOfClick(), ElementsAre("VelUtilKrig({1, 3}, 2, {3, 4}, 0.75, 0.125, 2, 0, 12)"));
}

TEST_F(KrigingKernelTest, AsksForNothingWhileTheButtonIsOff)
{
    clickRow(0);
    clickRowOf(variables, 0);
    IdleDispatcher::flush();
    EXPECT_THAT(interpolationsOfClick(), IsEmpty());
    expectTold({}, "the destination is the source");
}

TEST_F(KrigingKernelTest, ChecksNothingItselfAndCountsPointsIn64Bits)
{
    KrigingPropertiesManager manager;
    KrigingPropertiesManager::krigNumPoints()->setValue(4611686018427387903);
    spy.failNext(kernelFunction);
    manager.interpolate();
    EXPECT_THAT(spy.callsOf(kernelFunction), ElementsAre("VelUtilKrig({}, 1, {}, 0.3, 0, 1, 2, 4611686018427387903)"));
    expectTold({failed}, "nothing selected");
}

TEST_F(KrigingKernelTest, HoldsTheApplicationWhileItTellsTheOutcome)
{
    RecordedGuards const recorded;
    selectWingToBody();
    IdleDispatcher::flush();
    clickAction();
    EXPECT_EQ(recorded.guards(), (RecordedGuards::Guards{{1, 0}}));
    EXPECT_EQ(sdk::AppLock::depth(), 0);
}

TEST_F(KrigingKernelTest, HandsOutWhatItsBindingsShow)
{
    KrigingPropertiesManager const manager;
    EXPECT_TRUE(manager.sourceZones()->value().empty());
    EXPECT_TRUE(manager.variables()->value().empty());
    EXPECT_EQ(manager.destinationZone()->value(), 1);
    EXPECT_FALSE(manager.zoneModel()->isEditable());
    EXPECT_EQ(manager.zoneModel()->size(), 3);
    EXPECT_EQ(manager.variablesModel()->size(), 2);
    EXPECT_EQ(manager.driftModel()->indexOf(Drift_Linear), 0);
    EXPECT_EQ(manager.ptSelectionModel()->indexOf(PtSelection_NearestN), 0);
    EXPECT_TRUE(manager.numPointsRelevance()->isRelevant());
    KrigingPropertiesManager::krigPtSelection()->setValue(PtSelection_All);
    EXPECT_FALSE(manager.numPointsRelevance()->isRelevant());
}

TEST_F(KrigingKernelTest, SharesItsSettingsWithEveryOtherAndTheSelectionsWithNone)
{
    KrigingPropertiesManager const one;
    KrigingPropertiesManager const other;
    one.sourceZones()->setValue({2});
    EXPECT_TRUE(other.sourceZones()->value().empty());
    EXPECT_EQ(one.krigRange(), other.krigRange());
    EXPECT_EQ(one.krigNumPoints(), other.krigNumPoints());
}

TEST_F(KrigingKernelTest, HasARuleThatSignalsForEachOfThreePropertiesAndOutlivesItsManager)
{
    KrigingPropertiesManager::Rule rule;
    int signals = 0;
    {
        KrigingPropertiesManager const manager;
        rule = manager.interpolateButtonRelevance();
        rule->connectRelevanceChanged([&signals] { ++signals; });
        EXPECT_FALSE(rule->isRelevant());
        manager.sourceZones()->setValue({2});
        EXPECT_EQ(signals, 1);
        manager.variables()->setValue({3});
        EXPECT_EQ(signals, 2);
        EXPECT_TRUE(rule->isRelevant());
        manager.destinationZone()->setValue(2);
        EXPECT_EQ(signals, 3);
        EXPECT_FALSE(rule->isRelevant());
        manager.destinationZone()->setValue(3);
    }
    EXPECT_TRUE(rule->isRelevant());
}

} // namespace
} // namespace veldraw::tests
