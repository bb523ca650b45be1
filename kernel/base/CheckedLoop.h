#pragma once

#include "kernel/base/Parallel.h"
#include "kernel/base/Progress.h"

namespace veldraw::kernel {

/// Runs @p body for each number in [0, count) on all cores, and looks for a cancel every now and then. For bodies that take some
/// ten nanoseconds, which is much less than a call of a function object.
/// @throws Interrupted
template <typename Body>
void forEachChecked(std::int64_t count, Progress const& progress, Body const& body)
{
    constexpr std::int64_t checkedAtOnce = 512;
    constexpr std::int64_t grain = 1024; // worth another thread
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
        grain);
}

} // namespace veldraw::kernel
