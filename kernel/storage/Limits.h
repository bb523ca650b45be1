#pragma once

#include "kernel/storage/Buffer.h"
#include "kernel/storage/CountedValues.h"

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

/// Limits of those of the finite values first ... last - 1 of @p buffer that count.
Limits limitsOf(Buffer const& buffer, CountedValues const& counted, std::int64_t first, std::int64_t last);

} // namespace veldraw::kernel
