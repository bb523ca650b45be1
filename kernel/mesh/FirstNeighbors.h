#pragma once

#include "kernel/base/Watch.h"

#include <cstdint>

namespace veldraw::kernel {

/// What is left of a list of neighbours in which each is once.
struct FirstNeighbors
{
    std::uint32_t* end;
    bool isAnyLonely; ///< came up once: in the list of a surface's corner an edge that one cell alone has
};

/// Drops neighbours that come up again. The others stand in the order in which they came up where there are few, else sorted.
/// @throws Interrupted, in whatever order they are then
FirstNeighbors keepFirsts(std::uint32_t* begin, std::uint32_t* end, Watch& watch);

} // namespace veldraw::kernel
