#pragma once

#include <array>
#include <cstdint>

namespace veldraw::kernel {

/// How the points of a list follow one another. It tells curves from scattered points where a file does not say which they are.
///
///     PointSequence points;
///     for (...)
///         points.add({x, y, z});
///     bool const isCloud = points.arePlaces();
class PointSequence
{
public:
    using Point = std::array<double, 3>;

    /// @param point 0 in what it has no coordinate for; coordinates that are not finite count for nothing
    void add(Point const& point);

    /// Whether the points are places in space, or in a plane and no curve over an axis. In space all three coordinates vary. A curve over
    /// an axis has a coordinate that never turns back and goes on in more than half of the steps.
    bool arePlaces() const;

    /// Whether all three coordinates vary.
    bool varyInSpace() const;

    /// Whether the points go along an axis, from 0 to 2, without turning back.
    bool runsOnAlong(std::size_t axis) const { return m_courses[axis].runsOn(); }

    /// Whether the points jump to and fro, so that lines between them would cover what they are to show. On a curve neighbours are close
    /// compared with the whole, or there are few and the way along them is short.
    bool jump() const;

private:
    // How the values of one coordinate follow one another.
    struct Course
    {
        std::int64_t up = 0;
        std::int64_t down = 0;
        std::int64_t steps = 0; // from one value to the next, the same one or another
        double last = 0.0;
        bool isStarted = false;

        void add(double value);
        bool varies() const { return up + down > 0; }
        bool runsOn() const;
    };

    std::array<Course, 3> m_courses;
    Point m_last{}; // that has a place
    bool m_isStarted = false;
    double m_way = 0.0;
    double m_longestStep = 0.0;
    Point m_low{};
    Point m_high{};
};

} // namespace veldraw::kernel
