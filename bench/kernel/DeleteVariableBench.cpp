// Deleting a variable and taking that back; both are to take the same time whatever the number of points.
#include "kernel/frames/Session.h"

#include <benchmark/benchmark.h>

using namespace veldraw::kernel;

namespace {

constexpr int variableCount = 6;

/// One ordered zone of @p points points with six float variables, every value written.
std::shared_ptr<DataSet> largeDataSet(std::int64_t points)
{
    auto dataSet = std::make_shared<DataSet>("large");
    auto zone = std::make_shared<Zone>("zone", ZoneType_Ordered, points / 100, 10, 10);
    for (int variable = 0; variable < variableCount; ++variable) {
        dataSet->addVariable(std::make_shared<Variable>("variable " + std::to_string(variable)));
        std::shared_ptr<Buffer> const buffer = Buffer::allocate(FieldDataType_Float, points);
        auto* const values = static_cast<float*>(buffer->mutableData());
        for (std::int64_t index = 0; index < points; ++index) {
            values[index] = static_cast<float>(index % 1000);
        }
        zone->fields.emplace_back(std::make_shared<ShareGroup>(buffer), ValueLocation_Nodal);
    }
    dataSet->addZone(zone);
    return dataSet;
}

/// A session that shows a large data set.
struct Stage
{
    explicit Stage(std::int64_t points)
        : dataSet(largeDataSet(points))
    {
        auto frame = std::make_shared<Frame>("frame", Rectangle{});
        frame->dataSet = dataSet;
        session.openPage({frame});
    }

    Session session;
    std::shared_ptr<DataSet> dataSet;
};

void deleteVariable(benchmark::State& state)
{
    Stage stage(state.range(0));
    for (auto _ : state) {
        if (!stage.session.deleteVariables(*stage.dataSet, {4})) {
            state.SkipWithError("the variable was not deleted");
        }
        state.PauseTiming();
        stage.session.undo();
        state.ResumeTiming();
    }
}

void undoDeletion(benchmark::State& state)
{
    Stage stage(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        stage.session.deleteVariables(*stage.dataSet, {4});
        state.ResumeTiming();
        if (!stage.session.undo()) {
            state.SkipWithError("the deletion was not undone");
        }
    }
}

} // namespace

BENCHMARK(deleteVariable)->Arg(100000)->Arg(10000000)->Unit(benchmark::kMicrosecond);
BENCHMARK(undoDeletion)->Arg(100000)->Arg(10000000)->Unit(benchmark::kMicrosecond);
