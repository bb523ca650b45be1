#include "kernel/compute/PointSequence.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace veldraw::tests {

using kernel::PointSequence;

namespace {

PointSequence sequenceOf(std::vector<PointSequence::Point> const& points)
{
    PointSequence sequence;
    for (PointSequence::Point const& point : points) {
        sequence.add(point);
    }
    return sequence;
}

// Strewn over a cube, in the order of X.
PointSequence sortedCloud()
{
    std::mt19937 random(20261122);
    std::uniform_real_distribution<double> share(0.0, 1.0);
    PointSequence cloud;
    for (int n = 0; n < 3000; ++n) {
        double const y = share(random);
        cloud.add({n / 3000.0, y, share(random)});
    }
    return cloud;
}

PointSequence circle(int count)
{
    PointSequence points;
    for (int n = 0; n <= count; ++n) {
        points.add({std::cos(6.2832 * n / count), std::sin(6.2832 * n / count), 0.0});
    }
    return points;
}

} // namespace

TEST(PointSequence, IsOfPlacesInSpaceWhateverItsOrder)
{
    EXPECT_TRUE(sortedCloud().arePlaces());
    EXPECT_TRUE(sortedCloud().jump());
    EXPECT_TRUE(sequenceOf({{0, 0, 0}, {1, 1, 1}, {2, 4, 8}}).arePlaces());
}

TEST(PointSequence, IsACurveOverAnAxisWhereTwoCoordinatesVaryAndOneRunsOn)
{
    EXPECT_FALSE(sequenceOf({{0, 5, 1}, {1, -5, 1}, {2, 5, 1}}).arePlaces());
    EXPECT_FALSE(sequenceOf({{5, 0, 3}, {5, 0, 2}, {5, 1, 1}, {5, 0, 0}}).arePlaces());
    EXPECT_TRUE(sequenceOf({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}, {0, 2, 0}, {1, 2, 0}}).arePlaces()) << "a grid";
    EXPECT_FALSE(sequenceOf({{0, 7, 7}, {2, 7, 7}, {1, 7, 7}}).arePlaces()) << "along one axis";
    EXPECT_FALSE(PointSequence().arePlaces());
}

TEST(PointSequence, TellsALineFromPointsThatJump)
{
    EXPECT_TRUE(circle(300).arePlaces()) << "no coordinate runs on";
    EXPECT_FALSE(circle(300).jump());
    EXPECT_FALSE(sequenceOf({{0, 0, 0}, {9, 9, 9}}).jump()) << "few points, a short way";
    EXPECT_FALSE(PointSequence().jump());
}

TEST(PointSequence, TellsTheSameInWhateverPlane)
{
    for (std::size_t axis = 0; axis < 3; ++axis) {
        PointSequence points;
        for (int n = 0; n <= 300; ++n) {
            PointSequence::Point point{};
            point[(axis + 1) % 3] = std::cos(6.2832 * n / 300);
            point[(axis + 2) % 3] = std::sin(6.2832 * n / 300);
            points.add(point);
        }
        EXPECT_FALSE(points.jump()) << "across axis " << axis;
        EXPECT_TRUE(points.arePlaces()) << "across axis " << axis;
    }
}

TEST(PointSequence, PassesOverWhatIsNoNumber)
{
    double const none = std::nan("");
    PointSequence const points = sequenceOf({{none, 0, 0}, {0, 1, 0}, {1, none, 0}, {2, 2, 0}, {none, none, none}});
    EXPECT_TRUE(points.runsOnAlong(0));
    EXPECT_TRUE(points.runsOnAlong(1));
    EXPECT_FALSE(points.runsOnAlong(2));
    EXPECT_FALSE(points.arePlaces());
    EXPECT_FALSE(points.jump());
}

} // namespace veldraw::tests
