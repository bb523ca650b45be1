#include "app/plot/ContourBands.h"

#include "app/plot/AxisTicks.h"

#include <algorithm>
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

ContourBands ContourBands::ofPowers(double min, double max)
{
    if (!(min < max))
        return {min, max, 0};
    constexpr double most = 12.0;
    constexpr double noise = 1e-9; // of logarithms of powers of ten
    for (int const step : {1, 2, 5, 10, 20, 50, 100}) {
        double const first = std::floor(min / step + noise) * step;
        double const last = std::ceil(max / step - noise) * step;
        double const count = std::max(1.0, (last - first) / step);
        if (count <= most)
            return {first, first + count * step, static_cast<int>(count)};
    }
    return {min, max, 0};
}

} // namespace veldraw::app
