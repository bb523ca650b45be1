#include "kernel/base/Parallel.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <omp.h>
#include <vector>

namespace veldraw::kernel {

namespace {

constexpr std::int64_t smallestChunk = 64; // also keeps neighbouring chunks from sharing a byte of bits
constexpr std::int64_t mostChunks = 256;
constexpr std::int64_t floatsOfHugePage = std::int64_t{1} << 19; // as many doubles fill two
constexpr std::int64_t manyPages = 8;
constexpr std::int64_t valuesForAThread = 8192; // some microseconds

/// @p count is above 0.
std::int64_t chunkSize(std::int64_t count, std::int64_t grain)
{
    std::int64_t const even = (count + mostChunks - 1) / mostChunks;
    return (even + grain - 1) / grain * grain;
}

std::int64_t chunksOf(std::int64_t count, std::int64_t size)
{
    return (count + size - 1) / size;
}

} // namespace

std::int64_t threadCount()
{
    return omp_get_max_threads();
}

std::int64_t parallelChunkCount(std::int64_t count)
{
    return count <= 0 ? 0 : chunksOf(count, chunkSize(count, smallestChunk));
}

std::int64_t parallelChunkSize(std::int64_t count)
{
    return count <= 0 ? smallestChunk : chunkSize(count, smallestChunk);
}

std::int64_t grainOfFreshMemory(std::int64_t count)
{
    return count >= manyPages * floatsOfHugePage ? floatsOfHugePage : valuesForAThread;
}

void parallelFor(std::int64_t count, std::function<void(std::int64_t, std::int64_t, std::int64_t)> const& body,
                 std::int64_t grain)
{
    if (count <= 0) {
        return;
    }
    std::int64_t const size = chunkSize(count, grain);
    std::int64_t const chunks = chunksOf(count, size);
    forEachInParallel(chunks, [&](std::int64_t chunk) {
        std::int64_t const first = chunk * size;
        body(first, std::min(first + size, count), chunk);
    });
}

void forEachInParallel(std::int64_t count, std::function<void(std::int64_t)> const& body)
{
    if (count == 1) {
        body(0); // no other thread is to be started, which may take longer than a little work
        return;
    }
    std::vector<std::exception_ptr> failures(static_cast<std::size_t>(count));
    std::atomic<std::int64_t> lowestFailure{count};
#pragma omp parallel for schedule(dynamic)
    for (std::int64_t task = 0; task < count; ++task) {
        if (task > lowestFailure) {
            continue; // those before it may fail as well, and the lowest one counts
        }
        try {
            body(task);
        } catch (...) {
            failures[static_cast<std::size_t>(task)] = std::current_exception();
            std::int64_t lowest = lowestFailure;
            while (task < lowest && !lowestFailure.compare_exchange_weak(lowest, task)) {
            }
        }
    }
    // The exception of the lowest task, so that it is the same one every time.
    auto const failure = std::find_if(failures.begin(), failures.end(), [](auto const& f) { return f != nullptr; });
    if (failure != failures.end()) {
        std::rethrow_exception(*failure);
    }
}

} // namespace veldraw::kernel
