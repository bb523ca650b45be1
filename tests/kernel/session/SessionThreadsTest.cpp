#include "kernel/operations/SetPlotType.h"
#include "kernel/operations/SmoothVariable.h"
#include "kernel/operations/Triangulate.h"
#include "tests/kernel/support/MemorySweep.h"
#include "tests/support/ThreadFailure.h"
#include "tests/support/Threads.h"

#include <cmath>

namespace veldraw::tests {

using namespace kernel;

namespace {

/// What two operations make of a block with a lot of points, under a waiter.
std::vector<double> workOnBlock()
{
    constexpr std::int64_t side = 100;
    std::vector<double> x;
    std::vector<double> y;
    std::vector<double> p;
    for (int point = 0; point < side * side; ++point) {
        x.push_back(static_cast<double>(point % side) + 0.3 * std::sin(static_cast<double>(point)));
        y.push_back(static_cast<double>(point / side) + 0.3 * std::cos(point));
        p.push_back(std::sin(0.1 * point));
    }
    MemoryStage stage;
    PlainWaiter waiter;
    stage.session.setWaiter(&waiter);
    auto const zone = std::make_shared<Zone>("block", ZoneType_Ordered, side, side, 1);
    zone->fields = {sample::field(x), sample::field(y), Field(), sample::field(p), Field()};
    stage.dataSet->addZone(zone);
    bool const isDone =
        stage.session.perform(SetPlotType(stage.frame->id, PlotType_Cartesian2D)) &&
        stage.session.perform(SmoothVariable(stage.frame->id, 3, 4, 5, 0.5, BoundaryCondition_FirstOrder)) &&
        stage.session.perform(Triangulate(stage.frame->id, {3}, {}, false, 0.1));
    std::vector<double> found{isDone ? 1.0 : 0.0};
    std::shared_ptr<Buffer const> const values =
        stage.dataSet->zone(stage.dataSet->zoneCount())->fields[3].group()->buffer();
    for (std::int64_t at = 0; at < values->size(); ++at) {
        found.push_back(values->value(at));
    }
    return found;
}

/// In a process that never had another thread. @return whether the results are the right ones
bool worksAloneAsWithOthers()
{
    Threads const many(64);
    std::vector<double> alone;
    {
        ThreadFailure const none;
        alone = workOnBlock();
        if (none.refused() == 0) {
            return false;
        }
    }
    return alone.at(0) == 1.0 && alone.size() > 5000 && alone == workOnBlock();
}

} // namespace

TEST(WithoutThreads, OperationsAreCarriedOutByTheCallingThread)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(std::exit(worksAloneAsWithOthers() ? 0 : 1), testing::ExitedWithCode(0), "");
}

} // namespace veldraw::tests
