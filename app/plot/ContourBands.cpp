#include "app/plot/ContourBands.h"

#include "app/plot/AxisTicks.h"

#include <cmath>

namespace veldraw::app {

ContourBands ContourBands::over(double min, double max)
{
    constexpr int wanted = 10;
    AxisTicks const inside = AxisTicks::create(min, max, wanted);
    if (inside.values.size() < 2)
        return {min, max, 0};
    double const step = inside.values[1] - inside.values[0];
    double const first = inside.values.front();
    double const last = inside.values.back();
    // A limit that is a round number up to rounding is one; without this, a band would be added that nothing is in.
    double const noise = 1e-6 * step;
    bool const isBelow = min < first - noise && std::isfinite(first - step);
    bool const isAbove = max > last + noise && std::isfinite(last + step);
    int const count = static_cast<int>(inside.values.size()) - 1 + (isBelow ? 1 : 0) + (isAbove ? 1 : 0);
    return {isBelow ? first - step : first, isAbove ? last + step : last, count};
}

} // namespace veldraw::app
