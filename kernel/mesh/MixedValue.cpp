#include "kernel/mesh/MixedValue.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace veldraw::kernel {

namespace {

double mixed(QuickReader const& values, std::vector<WeightedPoint> const& weights, double scale)
{
    // By differences, so that equal values give just this value.
    double const first = scale * values.at(weights.front().point);
    double sum = 0;
    for (WeightedPoint const& corner : weights) {
        sum += corner.weight * (scale * values.at(corner.point) - first);
    }
    return first + sum;
}

} // namespace

double mixedValue(QuickReader const& values, std::vector<WeightedPoint> const& weights)
{
    double const value = mixed(values, weights, 1.0);
    if (std::isfinite(value)) {
        return value;
    }
    constexpr double small = 0x1p-64; // differences of values of extreme size overflow
    double const largest = std::numeric_limits<double>::max();
    double const smallValue = mixed(values, weights, small);
    return std::isfinite(smallValue) ? std::clamp(smallValue / small, -largest, largest) : smallValue;
}

} // namespace veldraw::kernel
