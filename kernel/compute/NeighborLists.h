#pragma once

#include "kernel/base/ZeroedArray.h"

namespace veldraw::kernel {

/// The neighbors of each of some values: those of value v are neighbors[starts[v]] ... neighbors[starts[v + 1] - 1], ascending.
struct NeighborLists
{
    ZeroedArray<std::int64_t> starts; ///< one more than there are values
    ZeroedArray<std::uint32_t> neighbors;
    std::int64_t held = 0; ///< values at the border, which have no neighbors here so that they stay as they are

    std::int64_t count() const { return static_cast<std::int64_t>(starts.size()) - 1; }
};

} // namespace veldraw::kernel
