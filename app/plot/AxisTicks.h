#pragma once

#include <string>
#include <vector>

namespace veldraw::app {

/// Round numbers within limits, for the ticks of an axis.
struct AxisTicks
{
    std::vector<double> values;
    std::vector<std::string> labels;

    /// @param count how many there should be, roughly; at least one comes when the limits differ
    static AxisTicks create(double min, double max, int count);
};

} // namespace veldraw::app
