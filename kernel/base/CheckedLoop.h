#pragma once

#include "kernel/base/Parallel.h"
#include "kernel/base/Watch.h"

namespace veldraw::kernel {

constexpr std::int64_t grainOfCheckedLoop = 1024; // worth another thread

/// Runs @p body for each number in [0, count) on all cores, and looks for a cancel every now and then. For bodies that take some
/// ten nanoseconds, which is much less than a call of a function object.
/// @throws Interrupted
template <typename Body>
void forEachChecked(std::int64_t count, Progress const& progress, Body const& body)
{
    constexpr std::int64_t checkedAtOnce = 512;
    parallelFor(
        count,
        [&](std::int64_t first, std::int64_t last, std::int64_t) {
            for (std::int64_t number = first; number < last; ++number) {
                if (number % checkedAtOnce == 0) {
                    progress.check();
                }
                body(number);
            }
        },
        grainOfCheckedLoop);
}

/// The same for bodies of which some may take long: they get the number and a Watch that counts each as a step, and count what
/// they do beyond that themselves.
template <typename Body>
void forEachWatched(std::int64_t count, Progress const& progress, Body const& body)
{
    parallelFor(
        count,
        [&](std::int64_t first, std::int64_t last, std::int64_t) {
            progress.check();
            Watch watch(progress);
            for (std::int64_t number = first; number < last; ++number) {
                watch.count();
                body(number, watch);
            }
        },
        grainOfCheckedLoop);
}

} // namespace veldraw::kernel
