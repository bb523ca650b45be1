// Duplicating zones and taking that back; the number of points is to make no difference.
#include "LargeStage.h"
#include "kernel/operations/DuplicateZones.h"

#include <benchmark/benchmark.h>

using namespace veldraw::kernel;

namespace {

// Duplicates one zone of so many points, in a data set of so many zones.
void duplicateZone(benchmark::State& state)
{
    LargeStage stage(state.range(0), static_cast<int>(state.range(1)));
    for (auto _ : state) {
        if (!stage.session.perform(DuplicateZones(*stage.dataSet, {1}))) {
            state.SkipWithError("the zone was not duplicated");
        }
        state.PauseTiming();
        stage.session.undo();
        state.ResumeTiming();
    }
}

void undoDuplication(benchmark::State& state)
{
    LargeStage stage(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        stage.session.perform(DuplicateZones(*stage.dataSet, {1}));
        state.ResumeTiming();
        if (!stage.session.undo()) {
            state.SkipWithError("the duplication was not undone");
        }
    }
}

void redoDuplication(benchmark::State& state)
{
    LargeStage stage(state.range(0));
    stage.session.perform(DuplicateZones(*stage.dataSet, {1}));
    for (auto _ : state) {
        state.PauseTiming();
        stage.session.undo();
        state.ResumeTiming();
        if (!stage.session.redo()) {
            state.SkipWithError("the duplication was not done again");
        }
    }
}

} // namespace

BENCHMARK(duplicateZone)->Args({100000, 1})->Args({10000000, 1})->Args({100, 100000})->Unit(benchmark::kMicrosecond);
BENCHMARK(undoDuplication)->Arg(100000)->Arg(10000000)->Unit(benchmark::kMicrosecond);
BENCHMARK(redoDuplication)->Arg(100000)->Arg(10000000)->Unit(benchmark::kMicrosecond);
