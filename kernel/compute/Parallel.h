#pragma once

#include <cstdint>
#include <functional>

namespace veldraw::kernel {

/// Runs @p body over [0, count) in contiguous chunks on all cores. Chunk borders depend on @p count alone, so a result
/// that is put together chunk by chunk in order does not depend on the number of threads. Chunks begin at multiples of
/// 64, so that no two of them write to one byte of bits. An exception of one chunk is rethrown on the calling thread
/// after all chunks have ended.
/// @param body called with (first, last) of a chunk, last excluded, and the chunk's number
void parallelFor(std::int64_t count, std::function<void(std::int64_t, std::int64_t, std::int64_t)> const& body);

/// Number of chunks that parallelFor() makes of @p count.
std::int64_t parallelChunkCount(std::int64_t count);

} // namespace veldraw::kernel
