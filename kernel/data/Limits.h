#pragma once

#include "kernel/data/Buffer.h"

#include <array>
#include <limits>

namespace veldraw::kernel {

/// Smallest and largest of some values; the smallest is above the largest as long as there are none.
struct Limits
{
    double min = std::numeric_limits<double>::infinity();
    double max = -std::numeric_limits<double>::infinity();

    void add(double low, double high)
    {
        min = low < min ? low : min;
        max = high > max ? high : max;
    }
};

/// Limits of the finite values first ... last - 1 of @p buffer.
/// @param dims point dimensions of an ordered zone that has the values at its cells: slots without a cell are left out; else
///        zeros
Limits limitsOf(Buffer const& buffer, std::array<std::int64_t, 3> const& dims, std::int64_t first, std::int64_t last);

} // namespace veldraw::kernel
