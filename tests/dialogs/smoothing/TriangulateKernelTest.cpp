#include "tests/dialogs/smoothing/TriangulateFixture.h"
#include "tests/dialogs/support/ActionUnderSpy.h"
#include "tests/dialogs/support/RecordedGuards.h"

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string const refusal = "error: Error performing triangulation.";

class TriangulateKernelTest : public ActionUnderSpy<BoundedTriangulateFixture>
{
protected:
    /// What the kernel is asked for by a click on the button, when it refuses.
    std::vector<std::string> refusedCallsOfClick()
    {
        IdleDispatcher::flush();
        spy.reset();
        spy.failNext(kernelFunction);
        clickAction();
        return spy.callsOf(kernelFunction);
    }

    std::vector<std::string> refusedCallsOf(TriangulatePropertiesManager& manager)
    {
        spy.reset();
        spy.failNext(kernelFunction);
        manager.triangulate();
        return spy.callsOf(kernelFunction);
    }
};

TEST_F(TriangulateKernelTest, PassesSelectionsAndSettingsInOneCall)
{
    clickRow(0);
    clickRow(2, Qt::ControlModifier);
    EXPECT_THAT(refusedCallsOfClick(), ElementsAre("VelUtilTriangulate({1, 3}, false, {}, false, out, 0.25)"));
    clickMark(useBoundary);
    clickRowOf(boundaries, 0);
    EXPECT_THAT(refusedCallsOfClick(), ElementsAre("VelUtilTriangulate({1, 3}, true, {4}, false, out, 0.25)"));
    clickMark(includePoints);
    enterKeepFactor("0.125");
    EXPECT_THAT(refusedCallsOfClick(), ElementsAre("VelUtilTriangulate({1, 3}, true, {4}, true, out, 0.125)"));
}

TEST_F(TriangulateKernelTest, PassesNoBoundaryThatIsSelectedButNotToBeUsed)
{
    clickRow(0);
    clickMark(useBoundary);
    clickMark(includePoints);
    clickRowOf(boundaries, 0);
    clickMark(useBoundary);
    EXPECT_THAT(refusedCallsOfClick(), ElementsAre("VelUtilTriangulate({1}, false, {}, true, out, 0.25)"));
    EXPECT_THAT(rowsOf(boundaries), ElementsAre("*4: Rim")) << "the selection stays";
}

TEST_F(TriangulateKernelTest, PassesNoBoundaryWhenThereIsNoneToChooseAnyMore)
{
    TriangulatePropertiesManager manager;
    TriangulatePropertiesManager::useBoundaryZones()->setValue(true);
    manager.sourceZones()->setValue({1});
    manager.boundaryZones()->setValue({4});
    EXPECT_THAT(refusedCallsOf(manager), ElementsAre("VelUtilTriangulate({1}, true, {4}, false, out, 0.25)"));
    enableZone(4, false);
    EXPECT_THAT(refusedCallsOf(manager), ElementsAre("VelUtilTriangulate({1}, false, {}, false, out, 0.25)"));
    EXPECT_EQ(manager.boundaryZones()->value(), std::set<int>{4}) << "nobody has shown this selection in a list";
}

TEST_F(TriangulateKernelTest, ChecksNothingItself)
{
    TriangulatePropertiesManager manager;
    EXPECT_THAT(refusedCallsOf(manager), ElementsAre("VelUtilTriangulate({}, false, {}, false, out, 0.25)"));
    TriangulatePropertiesManager::useBoundaryZones()->setValue(true);
    EXPECT_THAT(refusedCallsOf(manager), ElementsAre("VelUtilTriangulate({}, true, {}, false, out, 0.25)"));
    EXPECT_THAT(messages.take(), ElementsAre(refusal, refusal));
}

TEST_F(TriangulateKernelTest, AsksForNothingWhileTheButtonIsOff)
{
    IdleDispatcher::flush();
    EXPECT_THAT(callsOfAction(), IsEmpty());
    expectTold({}, "nothing selected");
}

TEST_F(TriangulateKernelTest, TellsAFailureOnceAndKeepsTheSelectionsForAnotherTry)
{
    clickRow(0);
    IdleDispatcher::flush();
    spy.failNext(kernelFunction);
    clickAction();
    expectTold({refusal}, "refused");
    EXPECT_EQ(spy.count(kernelFunction), 1) << "nothing tries again by itself";
    EXPECT_EQ(sample.dataSet().zoneCount(), 4);
    EXPECT_EQ(rows().front(), "*1: Wing");
    clickAction();
    expectTold({}, "another try");
    EXPECT_EQ(sample.dataSet().zoneCount(), 5);
}

TEST_F(TriangulateKernelTest, HoldsTheApplicationWhileItTellsAFailure)
{
    RecordedGuards const recorded;
    clickRow(0);
    refusedCallsOfClick();
    EXPECT_EQ(recorded.guards(), (RecordedGuards::Guards{{1, 0}}));
    EXPECT_EQ(sdk::AppLock::depth(), 0);
}

TEST_F(TriangulateKernelTest, HandsOutWhatItsBindingsShow)
{
    TriangulatePropertiesManager const manager;
    EXPECT_TRUE(manager.sourceZones()->value().empty());
    EXPECT_TRUE(manager.boundaryZones()->value().empty());
    EXPECT_FALSE(manager.sourceZonesModel()->isEditable());
    EXPECT_FALSE(manager.boundaryZonesModel()->isEditable());
    EXPECT_EQ(manager.sourceZonesModel()->size(), 4);
    EXPECT_EQ(manager.boundaryZonesModel()->size(), 1);
    EXPECT_TRUE(manager.boundaryChoicesRelevance()->isRelevant());
    EXPECT_FALSE(manager.boundaryListRelevance()->isRelevant());
    TriangulatePropertiesManager::useBoundaryZones()->setValue(true);
    EXPECT_TRUE(manager.boundaryListRelevance()->isRelevant());
}

TEST_F(TriangulateKernelTest, SharesItsSettingsWithEveryOtherAndTheSelectionsWithNone)
{
    TriangulatePropertiesManager const one;
    TriangulatePropertiesManager const other;
    one.sourceZones()->setValue({2});
    one.boundaryZones()->setValue({4});
    EXPECT_TRUE(other.sourceZones()->value().empty());
    EXPECT_TRUE(other.boundaryZones()->value().empty());
    EXPECT_EQ(one.triangleKeepFactor(), other.triangleKeepFactor());
}

TEST_F(TriangulateKernelTest, StaysWholeAndReleasesItsGuardsWhenTheKernelFails)
{
    clickRow(0);
    IdleDispatcher::flush();
    EXPECT_EQ(callsOfAction().front(), "VelUtilTriangulate({1}, false, {}, false, out, 0.25)");
    for (void (KernelSpy::*const fail)(int) : {&KernelSpy::failCall, &KernelSpy::failFrom}) {
        sample.session().undo();
        IdleDispatcher::flush();
        messages.take();
        spy.reset();
        (spy.*fail)(1);
        clickAction();
        spy.reset();
        EXPECT_EQ(sample.dataSet().zoneCount(), 4);
        expectTold(fail == &KernelSpy::failCall ? std::vector{refusal} : std::vector<std::string>(), "it fails");
        clickAction();
        EXPECT_EQ(sample.dataSet().zoneCount(), 5);
    }
}

} // namespace
} // namespace veldraw::tests
