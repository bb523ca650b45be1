#include "kernel/base/Progress.h"
#include "kernel/operations/AddFrame.h"
#include "kernel/operations/CutOperation.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/LineMapOperation.h"
#include "kernel/operations/RenameFrame.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/operations/SetPlotType.h"
#include "kernel/operations/SetSolutionTime.h"
#include "kernel/style/StyleTree.h"
#include "tests/kernel/support/SessionFixture.h"
#include "tests/kernel/support/Waiters.h"

#include <chrono>
#include <thread>

namespace veldraw::tests {

using namespace kernel;
using testing::ElementsAre;

namespace {

class OperationTest : public SessionFixture
{
protected:
    ~OperationTest() override { session.setWaiter(nullptr); }

    /// Lets @p action run while a computation waits for it to end.
    void whileBusy(std::function<void()> const& action)
    {
        std::promise<void> acted;
        std::shared_future<void> const end = acted.get_future();
        ActingWaiter waiter([&](Progress&) {
            action();
            acted.set_value();
        });
        session.setWaiter(&waiter);
        session.runOperation("Busy", [end](Progress&) { end.wait(); });
        session.setWaiter(nullptr);
    }
};

/// Counts its work up until it is interrupted, and says so when that never comes.
void untilInterrupted(Progress& progress)
{
    auto const giveUp = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (std::chrono::steady_clock::now() < giveUp) {
        progress.check();
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    throw std::runtime_error("nobody interrupted");
}

} // namespace

TEST_F(OperationTest, RunsHereWithoutAWaiter)
{
    std::thread::id thread;
    session.runOperation("Test", [&](Progress&) { thread = std::this_thread::get_id(); });
    EXPECT_EQ(thread, std::this_thread::get_id());
}

TEST_F(OperationTest, RunsOnAThreadOfItsOwnWhileTheWaiterWaits)
{
    ActingWaiter waiter;
    session.setWaiter(&waiter);
    std::thread::id thread = std::this_thread::get_id();
    session.runOperation("Test", [&](Progress&) { thread = std::this_thread::get_id(); });
    EXPECT_NE(thread, std::this_thread::get_id());
    EXPECT_THAT(waiter.names, ElementsAre("Test"));
}

TEST_F(OperationTest, TellsTheWaiterHowFarItHasCome)
{
    double fraction = -1;
    std::promise<void> half;
    std::promise<void> seen;
    ActingWaiter waiter([&](Progress& progress) {
        half.get_future().wait();
        fraction = progress.fraction();
        seen.set_value();
    });
    session.setWaiter(&waiter);
    session.runOperation("Test", [&](Progress& progress) {
        progress.setTotal(8);
        progress.advance(4);
        half.set_value();
        seen.get_future().wait();
    });
    EXPECT_EQ(fraction, 0.5);
}

TEST_F(OperationTest, RethrowsWhatItsWorkThrows)
{
    auto const failing = [](Progress&) { throw std::runtime_error("no luck"); };
    EXPECT_THROW(session.runOperation("Test", failing), std::runtime_error);
    ActingWaiter waiter;
    session.setWaiter(&waiter);
    EXPECT_THROW(session.runOperation("Test", failing), std::runtime_error);
    EXPECT_FALSE(session.isBusy());
}

TEST_F(OperationTest, EndsItsWorkBeforeItTellsThatTheWaiterHasFailed)
{
    ActingWaiter waiter([](Progress&) { throw std::runtime_error("no window"); });
    session.setWaiter(&waiter);
    bool hasEnded = false;
    auto const work = [&](Progress& progress) {
        try {
            untilInterrupted(progress);
        } catch (Interrupted const&) {
            hasEnded = true;
        }
    };
    EXPECT_THROW(session.runOperation("Test", work), std::runtime_error);
    EXPECT_TRUE(hasEnded);
    EXPECT_FALSE(session.isBusy());
}

TEST_F(OperationTest, IsInterruptedThroughTheSession)
{
    ActingWaiter waiter([this](Progress&) { session.setInterrupted(true); });
    session.setWaiter(&waiter);
    EXPECT_THROW(session.runOperation("Test", untilInterrupted), Interrupted);
    EXPECT_TRUE(session.isInterrupted());
    EXPECT_FALSE(session.isBusy());
}

TEST_F(OperationTest, IsInterruptedThroughItsProgress)
{
    ActingWaiter waiter([](Progress& progress) { progress.interrupt(); });
    session.setWaiter(&waiter);
    EXPECT_THROW(session.runOperation("Test", untilInterrupted), Interrupted);
}

TEST_F(OperationTest, TakesBackTheCancelOfAnEarlierOne)
{
    session.setInterrupted(true);
    bool wasInterrupted = true;
    session.runOperation("Test", [&](Progress& progress) { wasInterrupted = progress.isInterrupted(); });
    EXPECT_FALSE(wasInterrupted);
    EXPECT_FALSE(session.isInterrupted());
}

TEST_F(OperationTest, IsBusyWhileItComputesOnly)
{
    EXPECT_FALSE(session.isBusy());
    bool busy = false;
    whileBusy([&] { busy = session.isBusy(); });
    EXPECT_TRUE(busy);
    EXPECT_FALSE(session.isBusy());
}

TEST_F(OperationTest, LetsNoSecondOneStart)
{
    whileBusy([&] { EXPECT_THROW(session.runOperation("Second", [](Progress&) {}), std::logic_error); });
}

TEST_F(OperationTest, LetsNothingElseChangeMeanwhile)
{
    session.perform(RenameZone(*dataSet, 1, "renamed"));
    session.perform(RenameZone(*dataSet, 1, "renamed again"));
    session.undo();
    recorder.take();
    UniqueId const id = frame->id;
    auto const fresh = std::make_shared<Frame>("fresh", Rectangle{});
    whileBusy([&] {
        expectRefused([&] { return session.undo(); });
        expectRefused([&] { return session.redo(); });
        expectRefused([&] { return session.perform(DeleteVariables(*dataSet, {5})); });
        expectRefused([&] { return session.perform(DuplicateZones(*dataSet, {1})); });
        expectRefused([&] { return session.perform(RenameZone(*dataSet, 1, "a")); });
        expectRefused([&] { return session.perform(RenameVariable(*dataSet, 1, "a")); });
        expectRefused([&] { return session.perform(EnableZone(*dataSet, 1, false)); });
        expectRefused([&] { return session.perform(EnableVariable(*dataSet, 1, false)); });
        expectRefused([&] { return session.perform(SetTitle(*dataSet, "a")); });
        expectRefused([&] { return session.setLock(*dataSet, "a"), false; });
        expectRefused([&] { return session.createFrame("a", {}) != nullptr; });
        expectRefused([&] { return session.perform(AddFrame(fresh)); });
        expectRefused([&] { return session.perform(DeleteFrame(id)); });
        expectRefused([&] { return session.activateFrame(id); });
        expectRefused([&] { return session.perform(RenameFrame(id, "a")); });
        expectRefused([&] { return session.perform(MoveFrame(id, {1, 1, 1, 1})); });
        expectRefused([&] { return session.tileFrames(), false; });
        expectRefused([&] { return session.setFrameDataSet(id, sample::twoPlanes()); });
        expectRefused([&] { return session.perform(SetPlotType(id, PlotType_XYLine)); });
        expectRefused([&] { return session.perform(AssignVariable(id, 'U', 1)); });
        expectRefused([&] { return session.perform(SetPlotOption(id, &Frame::showMesh, true)); });
        expectRefused([&] { return session.perform(AddCut(id, {})); });
        expectRefused([&] { return session.perform(SetSolutionTime(id, 1.0)); });
        expectRefused([&] { return session.perform(CreateLineMap(id)); });
        expectRefused([&] { return session.perform(DeleteLineMaps(id, {1})); });
        expectRefused([&] { return session.perform(ChangeLineMaps(id, {1}, [](LineMap& map) { map.name = "a"; })); });
        expectRefused([&] { return session.perform(SetLinePlot(id, 1, 1, 2)); });
        expectRefused([&] { return session.openPage({fresh}); });
        expectRefused([&] { return session.removeAllPages(); });
        expectRefused([&] { return session.clear(); });
    });
    EXPECT_TRUE(session.perform(RenameZone(*dataSet, 1, "afterwards")));
}

TEST_F(OperationTest, LetsFramesBeWalkedMeanwhile)
{
    whileBusy([&] {
        EXPECT_TRUE(session.startFrameLoop());
        EXPECT_FALSE(session.nextFrameInLoop());
        session.endFrameLoop();
    });
}

TEST_F(OperationTest, CarriesStyleWritesOutWhenItHasEnded)
{
    StyleAddress const exponent{{"Interface", "Data", "InvDistExponent"}};
    whileBusy([&] {
        EXPECT_EQ(session.style().set(exponent, StyleNumber::ofReal(3.0)), SetValueReturnCode_Pending);
        EXPECT_EQ(session.style().get(exponent)->real, 2.0);
    });
    EXPECT_EQ(session.style().get(exponent)->real, 3.0);
}

} // namespace veldraw::tests
