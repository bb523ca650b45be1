#pragma once

#include <functional>
#include <string>
#include <vector>

namespace veldraw::app {

/// Round numbers within limits, for the ticks of an axis or a legend.
struct AxisTicks
{
    std::vector<double> values;
    std::vector<std::string> labels; ///< as many

    /// @param count how many there should be, roughly; at least one comes when the limits differ. Limits so close that there is no
    ///        round number between them are the ticks themselves; limits that are the same are one tick
    static AxisTicks create(double min, double max, int count);

    /// As many as stand clear of one another along @p length, about one in 60 pixels at most.
    /// @param roomOf what a label takes along the axis; all in logical pixels
    static AxisTicks along(double min, double max, double length,
                           std::function<double(std::string const&)> const& roomOf);
};

} // namespace veldraw::app
