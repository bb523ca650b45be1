#pragma once

#include "kernel/base/Parallel.h"
#include "kernel/base/Progress.h"

#include <cstdint>
#include <vector>

namespace veldraw::app {

/// Gathers numbers on all cores, in the same order whatever the number of threads. Each part is gone through twice, once to count, so
/// that nothing but the result takes memory.
/// @param find called with (first, last, take) of a part of [0, @p count); it calls take(number) for what is to be gathered, the same
///        each time
/// @throws kernel::Interrupted
template <typename Find>
std::vector<std::int64_t> gatherInOrder(std::int64_t count, Find const& find, kernel::Progress const& progress)
{
    std::vector<std::int64_t> starts(static_cast<std::size_t>(kernel::parallelChunkCount(count)) + 1, 0);
    kernel::parallelFor(count, [&](std::int64_t first, std::int64_t last, std::int64_t part) {
        progress.check();
        std::int64_t found = 0;
        find(first, last, [&found](std::int64_t) { ++found; });
        starts[static_cast<std::size_t>(part) + 1] = found;
    });
    for (std::size_t part = 1; part < starts.size(); ++part)
        starts[part] += starts[part - 1];
    std::vector<std::int64_t> numbers(static_cast<std::size_t>(starts.back()));
    kernel::parallelFor(count, [&](std::int64_t first, std::int64_t last, std::int64_t part) {
        progress.check();
        std::int64_t* target = numbers.data() + starts[static_cast<std::size_t>(part)];
        find(first, last, [&target](std::int64_t number) { *target++ = number; });
    });
    return numbers;
}

} // namespace veldraw::app
