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

    /// As many ticks as have labels that do not touch along @p length, at most about one in 60 pixels.
    /// @param roomOf length of a label along the axis; all lengths in logical pixels
    static AxisTicks along(double min, double max, double length,
                           std::function<double(std::string const&)> const& roomOf);

    /// The same for a logarithmic axis: powers of ten, with 2 and 5 times these where there is room, or round numbers within one power.
    /// @param min, max common logarithms, and so are the values of the ticks; their labels are the numbers
    static AxisTicks logarithmicAlong(double min, double max, double length,
                                      std::function<double(std::string const&)> const& roomOf);

    /// The borders of bands of equal width.
    /// @param isLog the limits are common logarithms, and so are the values of the ticks; their labels are the numbers
    static AxisTicks ofBands(double min, double max, int bands, bool isLog);
};

} // namespace veldraw::app
