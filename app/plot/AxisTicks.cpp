#include "app/plot/AxisTicks.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace veldraw::app {

namespace {

// The next of 1, 2 or 5 times a power of ten.
double roundStep(double step)
{
    double const power = std::pow(10.0, std::floor(std::log10(step)));
    double const share = step / power;
    return power * (share <= 1.0 ? 1.0 : share <= 2.0 ? 2.0 : share <= 5.0 ? 5.0 : 10.0);
}

std::string label(double value, double step, double largest)
{
    char text[64];
    if (largest >= 1e6 || largest < 1e-3) {
        int const digits = std::clamp(static_cast<int>(std::ceil(std::log10(largest / step) - 1e-9)), 0, 9);
        std::snprintf(text, sizeof text, "%.*g", digits + 1, value);
        return text;
    }
    int const decimals = std::clamp(static_cast<int>(-std::floor(std::log10(step) + 1e-9)), 0, 12);
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

} // namespace

AxisTicks AxisTicks::create(double min, double max, int count)
{
    AxisTicks ticks;
    double const width = max - min;
    if (!(width > 0.0) || !std::isfinite(width))
        return ticks;
    double const step = roundStep(width / std::max(count, 1));
    double const largest = std::max(std::abs(min), std::abs(max));
    if (largest / step > 1e12)
        return ticks;
    double const first = std::ceil(min / step - 1e-9);
    double const last = std::floor(max / step + 1e-9);
    for (double n = first; n <= last; n += 1.0) {
        double const value = n == 0.0 ? 0.0 : n * step;
        ticks.values.push_back(value);
        ticks.labels.push_back(label(value, step, largest));
    }
    return ticks;
}

} // namespace veldraw::app
