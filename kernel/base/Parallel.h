#pragma once

#include <cstdint>
#include <functional>

namespace veldraw::kernel {

/// Runs @p body over [0, count) in contiguous chunks on all cores, and returns when all of them have ended. Within a body they
/// run on the thread that calls them.
///
/// Chunk borders depend on @p count and @p grain alone, so a result that is combined chunk by chunk, in order, does not
/// depend on the number of threads. Chunks begin at multiples of 64, so that no two of them write to the same byte of bits.
/// When chunks throw, the exception of the lowest one is rethrown on the calling thread.
/// @param body called with (first, last) of a chunk, last excluded, and the chunk's number
/// @param grain a multiple of 64: chunks begin at multiples of it
void parallelFor(std::int64_t count, std::function<void(std::int64_t, std::int64_t, std::int64_t)> const& body,
                 std::int64_t grain = 64);

/// Runs @p body for each number in [0, count) on all cores, and returns when all of them have ended. For few tasks that take
/// long. When bodies throw, the exception of the lowest number is rethrown on the calling thread.
void forEachInParallel(std::int64_t count, std::function<void(std::int64_t)> const& body);

/// Number of threads that the functions above divide work for: as many as there are processors for this process. Where the system gives
/// fewer, those do the work, with the same results.
std::int64_t threadCount();

/// Sets it, for tests and measurements.
void setThreadCount(std::int64_t count);

/// The grain for a body that does a little arithmetic on each of @p count values and writes the results to newly allocated
/// memory. A chunk is at least large enough to be worth a second thread. For many values it covers whole huge pages,
/// because two threads that touch the same new page would both clear one, and one of the two would be thrown away.
std::int64_t grainOfFreshMemory(std::int64_t count);

/// Number of chunks that parallelFor() makes of @p count with the smallest grain, and the size of every chunk but the last.
std::int64_t parallelChunkCount(std::int64_t count);
std::int64_t parallelChunkSize(std::int64_t count);

} // namespace veldraw::kernel
