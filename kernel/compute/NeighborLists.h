#pragma once

#include "kernel/base/ZeroedArray.h"

namespace veldraw::kernel {

/// The neighbours of each of some values, which have places in an order of their own where that brings neighbours together: those
/// of the value at place p are the ones at the places neighbors[starts[p]] ... neighbors[starts[p + 1] - 1].
struct NeighborLists
{
    ZeroedArray<std::uint32_t> order; ///< the value at each place; empty: they stand in their own order
    ZeroedArray<std::int64_t> starts; ///< one more than there are values
    ZeroedArray<std::uint32_t> neighbors;
    std::int64_t reach = 0; ///< no neighbour is more places away
    std::int64_t held =
        0; ///< values at the border, which have no neighbours here, or only themselves, so that they stay as they are

    std::int64_t count() const { return static_cast<std::int64_t>(starts.size()) - 1; }
};

} // namespace veldraw::kernel
