// One value of a hundred million that is corrected, and taken back; and what it costs to branch a zone off.
#include "kernel/frames/Session.h"

#include <benchmark/benchmark.h>

using namespace veldraw::kernel;

namespace {

/// One zone with one float variable.
struct OneVariable
{
    explicit OneVariable(std::int64_t count)
    {
        auto const buffer = Buffer::allocate(FieldDataType_Float, count);
        auto* const values = static_cast<float*>(buffer->mutableData());
        for (std::int64_t index = 0; index < count; ++index) {
            values[index] = static_cast<float>(index % 1000);
        }
        auto zone = std::make_shared<Zone>("zone", ZoneType_Ordered, count, 1, 1);
        zone->fields = {Field(std::make_shared<ShareGroup>(buffer), ValueLocation_Nodal)};
        dataSet->addVariable(std::make_shared<Variable>("v"));
        dataSet->addZone(zone);
        auto frame = std::make_shared<Frame>("frame", Rectangle{});
        frame->dataSet = dataSet;
        session.openPage({frame});
        dataSet->zone(1)->range(1);
    }

    void const* memory() const { return dataSet->field(1, 1)->group()->buffer()->data(); }

    Session session;
    std::shared_ptr<DataSet> dataSet = std::make_shared<DataSet>("large");
};

void editValue(benchmark::State& state)
{
    OneVariable stage(state.range(0));
    void const* const memory = stage.memory();
    double value = 0.25;
    for (auto _ : state) {
        if (!stage.session.setValue(*stage.dataSet, 1, 1, state.range(0) - 7, value, true)) {
            state.SkipWithError("the value was not edited");
        }
        value += 0.25;
    }
    if (stage.memory() != memory) {
        state.SkipWithError("the array was copied");
    }
}

void undoEdit(benchmark::State& state)
{
    OneVariable stage(state.range(0));
    void const* const memory = stage.memory();
    for (auto _ : state) {
        state.PauseTiming();
        stage.session.setValue(*stage.dataSet, 1, 1, 12345, -5.0, true); // the new minimum
        state.ResumeTiming();
        bool const isUndone = stage.session.undo();
        benchmark::DoNotOptimize(stage.dataSet->zone(1)->range(1)); // known, not computed again
        if (!isUndone) {
            state.SkipWithError("the edit was not undone");
        }
    }
    if (stage.memory() != memory) {
        state.SkipWithError("the array was copied");
    }
}

void editBranch(benchmark::State& state)
{
    OneVariable stage(state.range(0));
    stage.session.duplicateZones(*stage.dataSet, {1});
    for (auto _ : state) {
        if (!stage.session.setValue(*stage.dataSet, 2, 1, 12345, -5.0, true)) {
            state.SkipWithError("the value was not edited");
        }
        state.PauseTiming();
        stage.session.undo();
        state.ResumeTiming();
    }
}

} // namespace

BENCHMARK(editValue)->Arg(100000000)->Unit(benchmark::kMicrosecond);
BENCHMARK(undoEdit)->Arg(100000000)->Unit(benchmark::kMicrosecond);
BENCHMARK(editBranch)->Arg(100000000)->Unit(benchmark::kMillisecond)->UseRealTime();
