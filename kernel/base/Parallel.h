#pragma once

#include <cstdint>
#include <functional>

namespace veldraw::kernel {

/// Runs @p body over [0, count) in contiguous chunks on all cores. Chunk borders depend on @p count alone, so a result
/// that is put together chunk by chunk in order does not depend on the number of threads. Chunks begin at multiples of
/// 64, so that no two of them write to one byte of bits. An exception of one chunk is rethrown on the calling thread
/// after all chunks have ended.
/// @param body called with (first, last) of a chunk, last excluded, and the chunk's number
/// @param grain a multiple of 64: chunks begin at multiples of it
void parallelFor(std::int64_t count, std::function<void(std::int64_t, std::int64_t, std::int64_t)> const& body,
                 std::int64_t grain = 64);

/// The grain for a body that does a little arithmetic on each of @p count values and stores them in fresh memory: no less
/// than is worth a second thread, and that of huge pages where there are many. Threads that come to one fresh page side by
/// side would each clear a page, and all of them but one for nothing.
std::int64_t grainOfFreshMemory(std::int64_t count);

/// Number of chunks that parallelFor() makes of @p count, and the size of each but the last; with the smallest grain.
std::int64_t parallelChunkCount(std::int64_t count);
std::int64_t parallelChunkSize(std::int64_t count);

} // namespace veldraw::kernel
