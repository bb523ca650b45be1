#include "platform/vdsdkcommon/StateChangeEventObservable.h"
#include "tests/dialogs/smoothing/SmoothFixture.h"
#include "tests/dialogs/support/ActionUnderSpy.h"
#include "tests/dialogs/support/RecordedGuards.h"
#include "tests/support/FakeStateChange.h"
#include "tests/support/StyleSession.h"

#include <QApplication>

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;

std::string const failed = "error: Error while computing smooth.";
std::string const done = "information: Smoothing was successful.";

class SmoothKernelTest : public ActionUnderSpy<SmoothFixture>
{
protected:
    /// What the kernel is asked for by a click on the button, when it refuses.
    std::vector<std::string> refusedCallsOfClick()
    {
        spy.reset();
        spy.failNext("VelUtilSmooth");
        clickAction();
        return spy.callsOf("VelUtilSmooth");
    }
};

TEST_F(SmoothKernelTest, PassesItsSettingsAsTheyStandInOneCall)
{
    EXPECT_THAT(refusedCallsOfClick(), ElementsAre("VelUtilSmooth(1, 3, 1, 0.5, 0)"));
    choose(zone, 3);
    choose(variable, 1);
    enter(passes, "2147483647");
    enter(coefficient, "0.25");
    choose(boundary, 2);
    EXPECT_THAT(refusedCallsOfClick(), ElementsAre("VelUtilSmooth(4, 4, 2147483647, 0.25, 2)"));
    choose(boundary, 1);
    EXPECT_THAT(refusedCallsOfClick(), ElementsAre("VelUtilSmooth(4, 4, 2147483647, 0.25, 1)"));
    choose(zone, 1);
    EXPECT_THAT(refusedCallsOfClick(), ElementsAre("VelUtilSmooth(2, 4, 2147483647, 0.25, 0)"));
}

TEST_F(SmoothKernelTest, ChecksNothingItself)
{
    SmoothPropertiesManager manager;
    SmoothPropertiesManager::selectedZone()->setValue(99);
    SmoothPropertiesManager::selectedVariable()->setValue(-1);
    spy.reset();
    manager.smooth();
    EXPECT_THAT(spy.callsOf("VelUtilSmooth"), ElementsAre("VelUtilSmooth(99, -1, 1, 0.5, 0)"));
    EXPECT_EQ(spy.calls().front(), "VelUtilSmooth(99, -1, 1, 0.5, 0)");
    expectTold({failed}, "no such zone");
}

TEST_F(SmoothKernelTest, TellsAFailureOnceAndKeepsTheSettingsForAnotherTry)
{
    selectBump();
    enter(passes, "2");
    spy.failNext("VelUtilSmooth");
    clickAction();
    expectTold({failed}, "refused");
    EXPECT_EQ(spy.count("VelUtilSmooth"), 1) << "nothing tries again by itself";
    EXPECT_EQ(values(line, 3), bump);
    EXPECT_EQ(chosen(zone), "4: Line");
    EXPECT_EQ(chosen(variable), "3: P");
    EXPECT_EQ(shown(passes), "2");
    clickAction();
    expectTold({done}, "another try");
    EXPECT_NE(values(line, 3), bump);
}

TEST_F(SmoothKernelTest, TellsTheOutcomeByTheReporter)
{
    selectBump();
    std::vector<std::string> const calls = callsOfAction();
    EXPECT_EQ(calls.front(), "VelUtilSmooth(4, 3, 1, 0.5, 0)");
    EXPECT_EQ(calls.back(), "VelUtilDialogMessageBox(\"Smoothing was successful.\", 2)");
    spy.failNext("VelUtilSmooth");
    EXPECT_EQ(spy.count("VelUtilDialogErrMsg"), 0);
    clickAction();
    EXPECT_THAT(spy.callsOf("VelUtilDialogErrMsg"),
                ElementsAre("VelUtilDialogErrMsg(\"Error while computing smooth.\")"));
}

TEST_F(SmoothKernelTest, ShowsThatItIsBusyAndHoldsTheApplicationWhileTheKernelWorks)
{
    selectBump();
    std::vector<std::pair<int, int>> seen;
    auto const look = [&seen](auto const&) {
        QCursor const* const cursor = QApplication::overrideCursor();
        seen.emplace_back(sdk::AppLock::depth(), cursor ? cursor->shape() : -1);
    };
    {
        boost::signals2::scoped_connection const listening =
            sdk::integration::StateChangeEventObservable::getInstance().connectStateChanged(look);
        clickAction();
    }
    ASSERT_FALSE(seen.empty());
    for (auto const& each : seen)
        EXPECT_EQ(each, (std::pair<int, int>{1, Qt::WaitCursor}));
    EXPECT_FALSE(QApplication::overrideCursor());
}

TEST_F(SmoothKernelTest, HoldsTheApplicationButNotTheCursorWhileItTellsTheOutcome)
{
    selectBump();
    RecordedGuards const recorded;
    clickAction();
    spy.failNext("VelUtilSmooth");
    clickAction();
    EXPECT_EQ(recorded.guards(), (RecordedGuards::Guards{{1, 0}, {1, 0}}));
    EXPECT_EQ(sdk::AppLock::depth(), 0);
}

TEST_F(SmoothKernelTest, IsAvailableWhenTheKernelSaysSoAndAsksNothingElse)
{
    for (bool const isOk : {true, false}) {
        spy.reset();
        if (!isOk)
            spy.failNext("VelUtilQueryOkToSmooth");
        EXPECT_EQ(traits.relevance()->isRelevant(), isOk);
        EXPECT_THAT(spy.calls(), ElementsAre("VelUtilQueryOkToSmooth()"));
    }
}

TEST_F(SmoothKernelTest, AsksWhetherTheZoneIsOrderedInOrderAndNoFurtherThanNeeded)
{
    SmoothPropertiesManager const manager;
    auto const asked = [&](char const* failing) {
        spy.reset();
        spy.failNext(failing);
        EXPECT_FALSE(manager.boundaryRelevance()->isRelevant()) << failing;
        return spy.calls();
    };
    EXPECT_THAT(asked("VelUtilDataSetIsAvailable"), ElementsAre("VelUtilDataSetIsAvailable()"));
    EXPECT_THAT(asked("VelUtilZoneIsEnabled"), ElementsAre("VelUtilDataSetIsAvailable()", "VelUtilZoneIsEnabled(1)"));
    EXPECT_THAT(asked("VelUtilZoneIsOrdered"),
                ElementsAre("VelUtilDataSetIsAvailable()", "VelUtilZoneIsEnabled(1)", "VelUtilZoneIsOrdered(1)"));
}

TEST_F(SmoothKernelTest, KeepsTheBoundaryOfAnOrderedZoneWhenAskingForItsOrderFails)
{
    selectBump();
    choose(boundary, 2);
    int const ordered = SmoothPropertiesManager::selectedZone()->value();
    SmoothPropertiesManager::selectedZone()->setValue(ordered + 1);
    SmoothPropertiesManager::boundaryCondition()->setValue(BoundaryCondition_SecondOrder);
    spy.reset();
    spy.failNext("VelUtilZoneIsOrdered");
    SmoothPropertiesManager::selectedZone()->setValue(ordered);
    EXPECT_EQ(SmoothPropertiesManager::boundaryCondition()->value(), BoundaryCondition_SecondOrder);
    spy.failNext("VelUtilZoneIsOrdered");
    FakeStateChange(StateChange_ValuesAltered).send();
    EXPECT_EQ(SmoothPropertiesManager::boundaryCondition()->value(), BoundaryCondition_SecondOrder);
}

TEST_F(SmoothKernelTest, ChangesNoSettingOfTheKernel)
{
    selectBump();
    enter(passes, "3");
    enter(coefficient, "0.25");
    choose(boundary, 1);
    clickAction();
    auto const styleNumber = [](char const* name) { return StyleSession::number({"Interface", "Data", name}); };
    EXPECT_EQ(styleNumber("NumSmoothPasses"), 1.0);
    EXPECT_EQ(styleNumber("SmoothWeight"), 0.5);
    EXPECT_EQ(styleNumber("SmoothBndryCond"), 0.0);
}

TEST_F(SmoothKernelTest, StaysWholeAndReleasesItsGuardsWhicheverKernelCallFails)
{
    selectBump();
    std::vector<std::string> const calls = callsOfAction();
    for (auto const fail : {&KernelSpy::failCall, &KernelSpy::failFrom})
        for (std::size_t failing = 0; failing < calls.size(); ++failing) {
            std::string const when = calls[failing] + " fails";
            sample.session().undo();
            selectBump();
            ASSERT_EQ(values(line, 3), bump) << when;
            messages.take();
            spy.reset();
            (spy.*fail)(static_cast<int>(failing) + 1);
            clickAction();
            spy.reset();
            EXPECT_EQ(values(line, 3), failing == 0 ? bump : smoothBump) << when;
            bool const isTold = fail == &KernelSpy::failCall && failing + 1 < calls.size();
            expectTold(isTold ? std::vector{failing == 0 ? failed : done} : std::vector<std::string>(), when);
            if (failing == 0)
                clickAction();
            EXPECT_EQ(values(line, 3), smoothBump) << when << ", then nothing";
        }
}

} // namespace
} // namespace veldraw::tests
