#pragma once

#include "platform/vdsdkbase/VelUtilTypes.h"

#include <cstdint>

namespace veldraw::kernel {

/// How values are smoothed.
///
/// A pass moves each inner value by @c weight times the difference between the mean of its neighbours and itself, all from the values
/// before the pass. What it does to the values at the border is said where borders are.
struct SmoothingRule
{
    std::int64_t passes; ///< at least 1
    double weight;       ///< above 0 and below 1
};

/// What a smoothing has done.
struct SmoothingOutcome
{
    std::int64_t held = 0;      ///< values at the border that were kept as they were
    double largestChange = 0.0; ///< of a value in the last pass, before it was rounded to its type
};

} // namespace veldraw::kernel
