#include "kernel/compute/PointSequence.h"

#include <algorithm>
#include <cmath>

namespace veldraw::kernel {

namespace {

double distance(PointSequence::Point const& a, PointSequence::Point const& b)
{
    return std::sqrt((a[0] - b[0]) * (a[0] - b[0]) + (a[1] - b[1]) * (a[1] - b[1]) + (a[2] - b[2]) * (a[2] - b[2]));
}

} // namespace

void PointSequence::Course::add(double value)
{
    if (!std::isfinite(value)) {
        return;
    }
    if (isStarted) {
        up += value > last ? 1 : 0;
        down += value < last ? 1 : 0;
        ++steps;
    }
    last = value;
    isStarted = true;
}

bool PointSequence::Course::runsOn() const
{
    return std::min(up, down) == 0 && 2 * std::max(up, down) > steps;
}

void PointSequence::add(Point const& point)
{
    for (std::size_t axis = 0; axis < 3; ++axis) {
        m_courses[axis].add(point[axis]);
    }
    if (!std::all_of(point.begin(), point.end(), [](double value) { return std::isfinite(value); })) {
        return;
    }
    if (m_isStarted) {
        double const step = distance(m_last, point);
        m_way += step;
        m_longestStep = std::max(m_longestStep, step);
    } else {
        m_low = point;
        m_high = point;
    }
    for (std::size_t axis = 0; axis < 3; ++axis) {
        m_low[axis] = std::min(m_low[axis], point[axis]);
        m_high[axis] = std::max(m_high[axis], point[axis]);
    }
    m_last = point;
    m_isStarted = true;
}

bool PointSequence::varyInSpace() const
{
    return std::all_of(m_courses.begin(), m_courses.end(), [](Course const& c) { return c.varies(); });
}

bool PointSequence::arePlaces() const
{
    auto const varying = std::count_if(m_courses.begin(), m_courses.end(), [](Course const& c) { return c.varies(); });
    return varyInSpace() || (varying == 2 && std::none_of(m_courses.begin(), m_courses.end(),
                                                          [](Course const& c) { return c.runsOn(); }));
}

bool PointSequence::jump() const
{
    double const diagonal = distance(m_low, m_high);
    return m_longestStep > 0.2 * diagonal && m_way > 3.0 * diagonal;
}

} // namespace veldraw::kernel
