#pragma once

#include "CancellingWaiter.h"
#include "Times.h"
#include "kernel/session/Session.h"

#include <algorithm>
#include <benchmark/benchmark.h>

/// Measures how soon an operation ends after a cancel, which comes at points of time spread evenly over its whole course.
/// @param run whether the operation was done to its end; @param takeBack to be called after it was
template <typename Run, typename TakeBack>
void measureCancels(benchmark::State& state, veldraw::kernel::Session& session, Run const& run,
                    TakeBack const& takeBack)
{
    constexpr int points = 32;
    Times whole;
    whole.measure(run);
    takeBack();
    CancellingWaiter waiter;
    session.setWaiter(&waiter);
    CancellingWaiter::Seconds longest{};
    int number = 0;
    for (auto _ : state) {
        waiter.setDelay(CancellingWaiter::Seconds(whole.clock) * (number++ % points) / points);
        bool const isDone = run();
        CancellingWaiter::Seconds const rest = waiter.sinceCancel();
        state.SetIterationTime(rest.count());
        longest = std::max(longest, rest);
        if (isDone) {
            takeBack();
        }
    }
    session.setWaiter(nullptr);
    state.counters["longest_ms"] = 1e3 * longest.count();
    state.counters["whole_ms"] = 1e3 * whole.clock;
}
