// How soon a long operation ends after a cancel, from the call that cancels it to the operation's return; it is cancelled at
// points of time spread evenly over its whole course. A tenth of a second is promised.
#include "CancellingWaiter.h"
#include "SpatialStage.h"
#include "kernel/compute/Rotation.h"
#include "kernel/operations/DuplicateZonesAxially.h"
#include "kernel/operations/MirrorZones.h"
#include "kernel/operations/RotateZones.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <functional>

using namespace veldraw::kernel;

namespace {

using Clock = CancellingWaiter::Clock;
using Seconds = CancellingWaiter::Seconds;

constexpr int cancels = 32;
RotationAxis const slantingAxis{{0.5, 0.25, 0.125}, {1, 2, 3}};

using Operation = std::function<bool()>;

Seconds wholeTime(Session& session, Operation const& operation)
{
    auto const start = Clock::now();
    operation();
    Seconds const time = Clock::now() - start;
    session.undo();
    session.history().clear();
    return time;
}

void cancel(benchmark::State& state, Session& session, Operation const& operation)
{
    wholeTime(session, operation); // into memory that may be slow to come
    Seconds const whole = wholeTime(session, operation);
    CancellingWaiter waiter;
    session.setWaiter(&waiter);
    Seconds longest{};
    int cancelled = 0;
    int number = 0;
    for (auto _ : state) {
        waiter.setDelay(whole * (number++ % cancels) / cancels);
        bool const isDone = operation();
        Seconds const rest = waiter.sinceCancel();
        state.SetIterationTime(rest.count());
        longest = std::max(longest, rest);
        cancelled += isDone ? 0 : 1;
        if (isDone) {
            session.undo();
            session.history().clear();
        }
    }
    session.setWaiter(nullptr);
    state.counters["longest_ms"] = 1e3 * longest.count();
    state.counters["whole_ms"] = 1e3 * whole.count();
    state.counters["cancelled"] = cancelled;
}

void cancelRotation(benchmark::State& state, FieldDataType_e type)
{
    SpatialStage stage(state.range(0), 1, type);
    cancel(state, stage.session, [&] {
        return stage.session.perform(RotateZones(*stage.dataSet, {1}, stage.variables, slantingAxis, 33.0));
    });
}

void cancelMirror(benchmark::State& state)
{
    SpatialStage stage(state.range(0));
    cancel(state, stage.session, [&] { return stage.session.perform(MirrorZones(stage.frame, {1}, 'Y')); });
}

/// Eleven copies of zones of as many points and as many zones as given.
void cancelAxialDuplication(benchmark::State& state)
{
    SpatialStage stage(state.range(0), static_cast<int>(state.range(1)));
    NumberSet const zones = stage.dataSet->enabledZones();
    AxialCopies const copies{30.0, 0.0, 11, true};
    cancel(state, stage.session, [&] {
        return stage.session.perform(
            DuplicateZonesAxially(*stage.dataSet, zones, stage.variables, slantingAxis, copies));
    });
}

void configure(benchmark::internal::Benchmark* measured)
{
    measured->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(cancels);
}

} // namespace

BENCHMARK_CAPTURE(cancelRotation, float, FieldDataType_Float)->Arg(50000000)->Apply(configure);
BENCHMARK_CAPTURE(cancelRotation, double, FieldDataType_Double)->Arg(30000000)->Apply(configure);
BENCHMARK_CAPTURE(cancelRotation, wholeNumbers, FieldDataType_Int16)->Arg(50000000)->Apply(configure);
BENCHMARK(cancelMirror)->Arg(50000000)->Apply(configure);
BENCHMARK(cancelAxialDuplication)->Args({5000000, 1})->Args({100, 2000})->Apply(configure);
