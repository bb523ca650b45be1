#pragma once

#include <cstdint>

namespace veldraw::kernel {

/// Refuses what the machine cannot hold before a start is made with it: the system would promise the memory, and end the
/// process when it is used.
/// @throws std::bad_alloc when @p bytes are more than the machine has to give now
void requireMemory(double bytes);

} // namespace veldraw::kernel
