#pragma once

namespace veldraw::kernel {

/// Bytes that can be had now without driving others out; infinite when the system does not tell.
double availableMemory();

/// Refuses what the machine cannot hold before a start is made with it: the system would promise the memory, and end the
/// process when it is used.
/// @param available what there was before any of @p bytes was taken
/// @throws std::bad_alloc when @p bytes are more
void requireMemory(double bytes, double available = availableMemory());

} // namespace veldraw::kernel
