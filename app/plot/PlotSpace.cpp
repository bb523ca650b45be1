#include "app/plot/PlotSpace.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace veldraw::app {

PlotSpace::PlotSpace(std::array<double, 3> const& min, std::array<double, 3> const& max, bool stretched)
    : m_min(min)
    , m_max(max)
{
    double longest = 0.0;
    std::array<double, 3> halves{};
    for (std::size_t n = 0; n < 3; ++n) {
        m_centre[n] = 0.5 * min[n] + 0.5 * max[n];
        halves[n] = 0.5 * max[n] - 0.5 * min[n]; // halves first: the whole may be beyond the largest number
        longest = std::max(longest, halves[n]);
    }
    for (std::size_t n = 0; n < 3; ++n) {
        double const half = stretched && halves[n] > 0.0 ? halves[n] : longest;
        m_unit[n] = half > 0.0 ? 2.0 * half : 1.0;
        if (!std::isfinite(m_unit[n]))
            m_unit[n] = std::numeric_limits<double>::max();
    }
}

bool PlotSpace::isStretched() const
{
    constexpr double unseen = 1.001;
    auto const [shortest, longest] = std::minmax_element(m_unit.begin(), m_unit.end());
    return *longest > unseen * *shortest;
}

double PlotSpace::toScene(int axis, double value) const
{
    return (value - m_centre[index(axis)]) / m_unit[index(axis)];
}

double PlotSpace::toValue(int axis, double position) const
{
    return m_centre[index(axis)] + position * m_unit[index(axis)];
}

double PlotSpace::sceneHalf(int axis) const
{
    return toScene(axis, m_max[index(axis)]);
}

} // namespace veldraw::app
