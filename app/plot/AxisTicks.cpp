#include "app/plot/AxisTicks.h"

#include "app/plot/TickLabels.h"

#include <algorithm>
#include <cmath>

namespace veldraw::app {

namespace {

// A step of 1, 2 or 5 times a power of ten.
struct RoundStep
{
    double factor = 1.0;
    int exponent = 0;

    // A quotient is the nearest double to the decimal number; a multiple of 0.1 would add its rounding error.
    double times(double n) const
    {
        double const power = std::pow(10.0, std::abs(exponent));
        if (!std::isfinite(power))
            return n * factor * std::pow(10.0, exponent);
        return exponent < 0 ? n * factor / power : n * factor * power;
    }
};

// The next one that is not smaller.
RoundStep roundStep(double step)
{
    int const exponent = static_cast<int>(std::floor(std::log10(step)));
    double const share = step / RoundStep{1.0, exponent}.times(1.0);
    constexpr double noise = 1.0 + 1e-6; // of limits that are close together
    if (share <= 1.0 * noise)
        return {1.0, exponent};
    if (share <= 2.0 * noise)
        return {2.0, exponent};
    if (share <= 5.0 * noise)
        return {5.0, exponent};
    return {1.0, exponent + 1};
}

} // namespace

AxisTicks AxisTicks::create(double min, double max, int count)
{
    if (!std::isfinite(min) || !std::isfinite(max) || max < min)
        return {};
    if (min == max)
        return {{min}, TickLabels::exactly({min})};
    // Computed by halves, since the full difference may overflow.
    double const step = (0.5 * max - 0.5 * min) / std::max(count, 1) * 2.0;
    double const largest = std::max(std::abs(min), std::abs(max));
    if (!(step > 0.0) || largest / step > 1e14)
        return {{min, max}, TickLabels::exactly({min, max})};
    RoundStep const round = roundStep(step);
    double const width = round.times(1.0);
    AxisTicks ticks;
    double const noise = 1e-9 + 1e-15 * largest / width;
    double const last = std::floor(max / width + noise);
    for (double n = std::ceil(min / width - noise); n <= last; n += 1.0)
        ticks.values.push_back(n == 0.0 ? 0.0 : round.times(n));
    if (ticks.values.empty())
        return create(min, max, count + 1); // the step was wider than the limits are apart
    ticks.labels = TickLabels::of(ticks.values, width);
    return ticks;
}

AxisTicks AxisTicks::along(double min, double max, double length,
                           std::function<double(std::string const&)> const& roomOf)
{
    constexpr double usual = 60.0;
    AxisTicks ticks;
    for (int count = std::max(1, static_cast<int>(length / usual)); count >= 1; --count) {
        ticks = create(min, max, count);
        double room = 0.0;
        for (std::string const& label : ticks.labels)
            room = std::max(room, roomOf(label));
        if (ticks.values.size() < 2)
            break;
        double const share = (0.5 * ticks.values[1] - 0.5 * ticks.values[0]) / (0.5 * max - 0.5 * min);
        if (share * length >= room)
            break;
    }
    return ticks;
}

} // namespace veldraw::app
