#include "kernel/session/FetchAhead.h"

#include "kernel/operations/LoadVariables.h"
#include "kernel/operations/SetPlotType.h"
#include "kernel/operations/SetSolutionTime.h"
#include "tests/kernel/support/SampleLoader.h"
#include "tests/kernel/support/SessionFixture.h"
#include "tests/kernel/support/SpatialData.h"

#include <atomic>
#include <chrono>
#include <thread>

namespace veldraw::tests {

using namespace kernel;
using sample::Loader;

namespace {

/// Three moments; the loaders of X count how many of them run at the same time.
class MomentsAhead : public SessionFixture
{
protected:
    MomentsAhead()
    {
        auto transient = std::make_shared<DataSet>("transient");
        for (char const* const name : {"X", "Y", "P"}) {
            transient->addVariable(std::make_shared<Variable>(name));
        }
        for (int step = 0; step < 3; ++step) {
            auto zone = std::make_shared<Zone>("step", ZoneType_Ordered, 3, 2, 1);
            zone->strand = 1;
            zone->solutionTime = step;
            for (int variable = 0; variable < 3; ++variable) {
                loaders.push_back(std::make_shared<Loader>(std::vector<double>(6, 10.0 * step + variable)));
                loaders.back()->before = [this](Progress& progress) { run(progress); };
                zone->fields.push_back(Loader::field(loaders.back()));
            }
            transient->addZone(zone);
        }
        EXPECT_TRUE(session.setFrameDataSet(frame->id, transient));
        EXPECT_TRUE(session.perform(SetPlotType(frame->id, PlotType_Cartesian2D)));
        dataSet = transient;
        recorder.take();
    }

    ~MomentsAhead() override { session.endFetchAhead(); }

    void run(Progress& progress)
    {
        // Before anybody sees that it runs, and alters the delay.
        auto const end = std::chrono::steady_clock::now() + std::chrono::milliseconds(delay);
        ++started;
        most = std::max(most.load(), ++running);
        while (std::chrono::steady_clock::now() < end && !progress.isInterrupted()) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        --running;
        if (progress.isInterrupted()) {
            ++interrupted;
        }
        progress.check();
    }

    bool go(double time) { return session.perform(SetSolutionTime(frame->id, time)); }
    int loads(int zone) const
    {
        int sum = 0;
        for (int variable = 0; variable < 3; ++variable) {
            sum += loaders[static_cast<std::size_t>(3 * (zone - 1) + variable)]->loads;
        }
        return sum;
    }

    std::vector<std::shared_ptr<Loader>> loaders;
    std::atomic<int> started{0};
    std::atomic<int> running{0};
    std::atomic<int> most{0};
    std::atomic<int> interrupted{0};
    std::atomic<int> delay{5};
};

} // namespace

TEST_F(MomentsAhead, AreBroughtBeforeTheyAreWantedAndOnce)
{
    session.fetchAhead(frame->id, 1.0);
    for (int wait = 0; wait < 500 && (started < 3 || running > 0); ++wait) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    EXPECT_EQ(started, 3);
    EXPECT_FALSE(dataSet->field(2, 1)->isLoaded()) << "the data set stays as it is";
    EXPECT_TRUE(recorder.take().empty());
    ASSERT_TRUE(go(1.0));
    EXPECT_EQ(loads(2), 3) << "what was fetched is taken";
    EXPECT_EQ(sample::values(*dataSet, 2, 3), std::vector<double>(6, 12.0));
    EXPECT_EQ(loads(1) + loads(3), 0);
}

TEST_F(MomentsAhead, AreWaitedForByWhoNeedsThem)
{
    delay = 60;
    session.fetchAhead(frame->id, 1.0);
    ASSERT_TRUE(go(1.0));
    EXPECT_EQ(loads(2), 3);
    EXPECT_EQ(interrupted, 0);
    EXPECT_EQ(most, 1);
}

TEST_F(MomentsAhead, AreGivenUpForOthers)
{
    delay = 20000;
    session.fetchAhead(frame->id, 1.0);
    while (running == 0) {
        std::this_thread::yield();
    }
    for (auto const& loader : loaders) {
        EXPECT_EQ(loader->loads, 0);
    }
    delay = 0;
    ASSERT_TRUE(session.perform(LoadVariables(*dataSet, {3}, {1})));
    EXPECT_EQ(interrupted, 1);
    EXPECT_EQ(most, 1) << "a loader never runs beside another";
    EXPECT_TRUE(go(1.0));
    EXPECT_EQ(sample::values(*dataSet, 2, 3), std::vector<double>(6, 12.0));
}

TEST_F(MomentsAhead, FailWithoutAWordUntilTheyAreWanted)
{
    loaders[3]->before = [](Progress&) { throw std::runtime_error("the file is gone"); };
    session.fetchAhead(frame->id, 1.0);
    expectRefused([&] { return go(1.0); });
    EXPECT_NE(session.lastError().find("the file is gone"), std::string::npos);
    loaders[3]->before = {};
    EXPECT_TRUE(go(1.0));
}

TEST_F(MomentsAhead, AreNothingWhereNothingIsMissing)
{
    ASSERT_TRUE(go(1.0));
    session.fetchAhead(frame->id, 1.0);
    session.fetchAhead(noFrame, 1.0);
    EXPECT_EQ(loads(2), 3);
    loaders[8]->mapped = loaders[7]->mapped = loaders[6]->mapped = true;
    session.fetchAhead(frame->id, 2.0);
    EXPECT_EQ(loads(3), 0) << "mapped values are not gone through";
    EXPECT_TRUE(go(2.0));
}

TEST_F(MomentsAhead, EndWithTheSession)
{
    delay = 20000;
    auto other = std::make_unique<Session>();
    auto const shown = std::make_shared<Frame>("other", Rectangle{});
    shown->dataSet = dataSet;
    shown->plotType = PlotType_Cartesian2D;
    shown->axes2D = frame->axes2D;
    other->openPage({shown});
    other->fetchAhead(shown->id, 1.0);
    while (running == 0) {
        std::this_thread::yield();
    }
    other.reset();
    EXPECT_EQ(running, 0);
    EXPECT_EQ(interrupted, 1);
}

} // namespace veldraw::tests
