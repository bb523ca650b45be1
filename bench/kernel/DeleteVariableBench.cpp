// Deleting a variable and taking that back; both are to take the same time whatever the number of points.
#include "LargeStage.h"
#include "kernel/operations/DeleteVariables.h"

#include <benchmark/benchmark.h>

using namespace veldraw::kernel;

namespace {

void deleteVariable(benchmark::State& state)
{
    LargeStage stage(state.range(0));
    for (auto _ : state) {
        if (!stage.session.perform(DeleteVariables(*stage.dataSet, {4}))) {
            state.SkipWithError("the variable was not deleted");
        }
        state.PauseTiming();
        stage.session.undo();
        state.ResumeTiming();
    }
}

void undoDeletion(benchmark::State& state)
{
    LargeStage stage(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        stage.session.perform(DeleteVariables(*stage.dataSet, {4}));
        state.ResumeTiming();
        if (!stage.session.undo()) {
            state.SkipWithError("the deletion was not undone");
        }
    }
}

} // namespace

BENCHMARK(deleteVariable)->Arg(100000)->Arg(10000000)->Unit(benchmark::kMicrosecond);
BENCHMARK(undoDeletion)->Arg(100000)->Arg(10000000)->Unit(benchmark::kMicrosecond);
