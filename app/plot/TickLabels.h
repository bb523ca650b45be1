#pragma once

#include <string>
#include <vector>

namespace veldraw::app {

/// Numbers as they stand at the ticks of axes and legends.
class TickLabels
{
public:
    /// Labels of multiples of @p step, all in one style: with the decimals that tell neighbours apart, or where that is shorter as
    /// multiples of one power of ten, such as 0.5e7 and 1.0e7.
    static std::vector<std::string> of(std::vector<double> const& values, double step);

    /// Labels of numbers that are not round, all in one style: each by the fewest digits that read back as the same number, up to 17.
    static std::vector<std::string> exactly(std::vector<double> const& values);
};

} // namespace veldraw::app
