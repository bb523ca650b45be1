#include "kernel/operations/EnableZone.h"
#include "tests/dialogs/interpolation/InterpolationUnderSpy.h"
#include "tests/dialogs/interpolation/LinearInterpFixture.h"
#include "tests/dialogs/support/RecordedGuards.h"

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using LinearInterpKernelTest = InterpolationUnderSpy<LinearInterpFixture>;

TEST_F(LinearInterpKernelTest, PassesSelectionsAndSettingsInOneCall)
{
    clickRow(0);
    clickRow(2);
    clickRowOf(variables, 0);
    clickRowOf(variables, 1);
    choose(destination, 1);
    EXPECT_THAT(interpolationsOfClick(), ElementsAre("VelUtilLinearInterpolate({1, 3}, 2, {3, 4}, 0, 0)"));
    clickMark(constant);
    enter(constantValue, "-2.5");
    EXPECT_THAT(interpolationsOfClick(), ElementsAre("VelUtilLinearInterpolate({1, 3}, 2, {3, 4}, -2.5, 1)"));
}

TEST_F(LinearInterpKernelTest, LeavesItToTheKernelWhenTheDestinationIsOneOfSeveralSources)
{
    clickRow(1);
    clickRow(2);
    clickRowOf(variables, 0);
    choose(destination, 1);
    EXPECT_THAT(interpolationsOfClick(), ElementsAre("VelUtilLinearInterpolate({2, 3}, 2, {3}, 0, 0)"));
}

TEST_F(LinearInterpKernelTest, CallsNothingWhenItRefuses)
{
    EXPECT_THAT(callsOfAction(), ElementsAre("VelUtilDialogMessageBox(\"No source zones were specified.\", 0)"));
    clickRow(0);
    EXPECT_THAT(callsOfAction(), ElementsAre("VelUtilDialogMessageBox(\"No variables were specified.\", 0)"));
    clickRowOf(variables, 0);
    EXPECT_THAT(callsOfAction(),
                ElementsAre("VelUtilDialogMessageBox(\"Source zone is the same as destination zone.\", 0)"));
}

TEST_F(LinearInterpKernelTest, TellsSuccessItselfAsAnInformation)
{
    selectWingToBody();
    clickAction();
    EXPECT_THAT(spy.callsOf("VelUtilDialogMessageBox"),
                ElementsAre("VelUtilDialogMessageBox(\"Linear interpolation successful.\", 2)"));
    EXPECT_EQ(spy.count("VelUtilDialogErrMsg"), 0);
}

TEST_F(LinearInterpKernelTest, ShowsThatItIsBusyOnlyWhenItHasSomethingToDo)
{
    RecordedGuards const recorded;
    clickAction();
    selectWingToBody();
    clickAction();
    EXPECT_EQ(recorded.guards(), (RecordedGuards::Guards{{1, 0}, {1, 1}}));
    EXPECT_EQ(sdk::AppLock::depth(), 0);
}

TEST_F(LinearInterpKernelTest, SignalsNoChangeOfTheSourcesOnAnyPath)
{
    LinearInterpPropertiesManager manager;
    int signals = 0;
    auto const interpolate = [&](std::set<int> const& sources, std::set<int> const& vars) {
        manager.sourceZones()->setValue(sources);
        manager.variables()->setValue(vars);
        signals = 0;
        manager.interpolate();
        EXPECT_EQ(manager.sourceZones()->value(), sources);
        return signals;
    };
    manager.sourceZones()->connectValueChanged([&signals](std::set<int> const&) { ++signals; });
    EXPECT_EQ(interpolate({}, {}), 0);
    EXPECT_EQ(interpolate({2}, {}), 0);
    EXPECT_EQ(interpolate({1}, {3}), 0);
    spy.failNext(kernelFunction);
    EXPECT_EQ(interpolate({2}, {3}), 0);
    EXPECT_EQ(interpolate({2}, {3}), 0);
    EXPECT_EQ(messages.take().size(), 5u);
}

TEST_F(LinearInterpKernelTest, HandsOutWhatItsBindingsShow)
{
    LinearInterpPropertiesManager const manager;
    EXPECT_TRUE(manager.sourceZones()->value().empty());
    EXPECT_TRUE(manager.variables()->value().empty());
    EXPECT_EQ(manager.destinationZone()->value(), 1);
    EXPECT_EQ(manager.constantValueLabelText()->value(), "");
    EXPECT_FALSE(manager.sourceZonesModel()->isEditable());
    EXPECT_FALSE(manager.destinationZoneModel()->isEditable());
    EXPECT_NE(manager.sourceZonesModel(), manager.destinationZoneModel());
    EXPECT_EQ(manager.variablesModel()->size(), 2);
    EXPECT_FALSE(manager.constantRelevance()->isRelevant());
    LinearInterpPropertiesManager::linearInterpMode()->setValue(LinearInterpMode_SetToConstant);
    EXPECT_TRUE(manager.constantRelevance()->isRelevant());
}

TEST_F(LinearInterpKernelTest, AsksWhetherItIsAvailableInOrderAndNoFurtherThanNeeded)
{
    auto const asked = [this](char const* failing) {
        spy.reset();
        if (*failing)
            spy.failNext(failing);
        EXPECT_EQ(traits.relevance()->isRelevant(), *failing == '\0') << failing;
        return spy.calls();
    };
    EXPECT_THAT(asked("VelUtilDataSetIsAvailable"), ElementsAre("VelUtilDataSetIsAvailable()"));
    EXPECT_THAT(asked("VelUtilPageGetCount"), ElementsAre("VelUtilDataSetIsAvailable()", "VelUtilPageGetCount()"));
    EXPECT_THAT(asked("VelUtilFrameGetCount"),
                ElementsAre("VelUtilDataSetIsAvailable()", "VelUtilPageGetCount()", "VelUtilFrameGetCount()"));
    EXPECT_THAT(asked("VelUtilFrameGetPlotType"), ElementsAre("VelUtilDataSetIsAvailable()", "VelUtilPageGetCount()",
                                                              "VelUtilFrameGetCount()", "VelUtilFrameGetPlotType()"));
    asked("");
    EXPECT_EQ(sdk::AppLock::depth(), 0);
}

} // namespace
} // namespace veldraw::tests
