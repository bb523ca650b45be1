#pragma once

#include <cstdint>

namespace veldraw::kernel {

/// Points along one direction: from min to max (one-based, max 0 = the last one), each skip-th.
struct IndexRange
{
    std::int64_t min = 1;
    std::int64_t max = 0;
    std::int64_t skip = 1;
};

} // namespace veldraw::kernel
