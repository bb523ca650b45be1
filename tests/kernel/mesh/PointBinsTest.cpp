#include "kernel/mesh/PointBins.h"

#include "tests/kernel/support/MeshData.h"
#include "tests/support/SpecialNumbers.h"

#include <gtest/gtest.h>
#include <random>

namespace veldraw::tests {

using namespace kernel;

namespace {

class PointBinsTest : public testing::Test
{
protected:
    double number(double low, double high) { return std::uniform_real_distribution<double>(low, high)(random); }

    std::vector<Point> somePoints(std::size_t count)
    {
        std::vector<Point> points(count);
        for (Point& point : points) {
            point = {number(-1, 1), number(-1, 1), number(-1, 1)};
        }
        return points;
    }

    /// All points are there once, at their places; those in a box are among the positions for it, none of which comes twice.
    /// @return most positions for any of the boxes
    std::size_t expectAllPoints(std::vector<Point> const& points, std::vector<Box> const& boxes, int dimensions = 3)
    {
        Progress progress;
        PointBins const bins(sample::placesOf(points, dimensions), dimensions, progress);
        EXPECT_EQ(bins.size(), points.size());
        EXPECT_EQ(progress.done(), progress.total());
        std::vector<int> times(points.size());
        for (std::size_t position = 0; position < bins.size(); ++position) {
            auto const slot = static_cast<std::size_t>(bins.slot(position));
            ++times[slot];
            EXPECT_EQ(bins.point(position), points[slot]);
            EXPECT_TRUE(bins.box().contains(points[slot]));
        }
        EXPECT_EQ(std::count(times.begin(), times.end(), 1), static_cast<std::ptrdiff_t>(points.size()));
        expectTheSameByBins(bins, boxes);
        std::size_t most = 0;
        for (Box const& box : boxes) {
            std::vector<int> visits(bins.size());
            std::size_t visited = 0;
            bins.forPositions(box, [&](std::size_t first, std::size_t last) {
                visited += last - first;
                for (std::size_t position = first; position < last; ++position) {
                    ++visits[position];
                }
            });
            most = std::max(most, visited);
            for (std::size_t position = 0; position < bins.size(); ++position) {
                EXPECT_LE(visits[position], 1);
                EXPECT_TRUE(visits[position] == 1 || !box.contains(bins.point(position)));
            }
        }
        return most;
    }

    /// Positions for the bins of a box, found for all boxes at a time, are those for the box itself.
    static void expectTheSameByBins(PointBins const& bins, std::vector<Box> const& boxes)
    {
        std::vector<PointBins::BinRange> ranges(boxes.size());
        for (std::size_t axis = 0; axis < 3; ++axis) {
            std::vector<double> low;
            std::vector<double> high;
            for (Box const& box : boxes) {
                low.push_back(box.low[axis]);
                high.push_back(box.high[axis]);
            }
            std::vector<std::uint32_t> first(boxes.size());
            std::vector<std::uint32_t> last(boxes.size());
            bins.binsAlong(axis, low.data(), low.size(), first.data());
            bins.binsAlong(axis, high.data(), high.size(), last.data());
            for (std::size_t at = 0; at < boxes.size(); ++at) {
                ranges[at].first[axis] = first[at];
                ranges[at].last[axis] = last[at];
            }
        }
        using Positions = std::vector<std::pair<std::size_t, std::size_t>>;
        for (std::size_t at = 0; at < boxes.size(); ++at) {
            Positions ofBox;
            Positions ofBins;
            bins.forPositions(boxes[at], [&](std::size_t begin, std::size_t end) { ofBox.emplace_back(begin, end); });
            bins.forPositions(ranges[at], boxes[at],
                              [&](std::size_t begin, std::size_t end) { ofBins.emplace_back(begin, end); });
            ASSERT_EQ(ofBins, ofBox) << at;
        }
    }

    std::vector<Box> boxesAround(std::vector<Point> const& points, double size)
    {
        std::vector<Box> boxes;
        for (int round = 0; round < 100; ++round) {
            Point const& middle = points[random() % points.size()];
            Box box;
            for (std::size_t axis = 0; axis < 3; ++axis) {
                box.low[axis] = middle[axis] - number(0, size);
                box.high[axis] = middle[axis] + number(0, size);
            }
            boxes.push_back(box);
        }
        return boxes;
    }

    std::mt19937 random{3};
};

} // namespace

TEST_F(PointBinsTest, HasAllPointsOfABoxAndFewMore)
{
    std::vector<Point> const points = somePoints(20011);
    EXPECT_LT(expectAllPoints(points, boxesAround(points, 0.05)), 100);
    EXPECT_EQ(expectAllPoints(points, {Box{{-2, -2, -2}, {2, 2, 2}}}), points.size());
    EXPECT_EQ(expectAllPoints(points, {Box{{2, 2, 2}, {3, 3, 3}}, Box()}), 0);
}

TEST_F(PointBinsTest, DoesNotMindHowUnevenlyPointsAreSpread)
{
    std::vector<Point> points = somePoints(30011);
    for (std::size_t at = 0; at < points.size();
         ++at) { // crowds within crowds, near one corner, and one point far away
        double const size = std::pow(10.0, -static_cast<double>(at % 12));
        points[at] = {points[at][0] * size, points[at][1] * size, points[at][2] * size};
    }
    points.push_back({1e9, 1e9, 1e9});
    for (double const size : {1e-1, 1e-3, 1e-5, 1e-7, 1e-9, 1e-11}) {
        std::vector<Box> const boxes{{{size, size, size}, {2 * size, 2 * size, 2 * size}}};
        EXPECT_LT(expectAllPoints(points, boxes), 5000);
    }
}

TEST_F(PointBinsTest, SortsPointsOnALineAndInAPlane)
{
    std::vector<Point> points = somePoints(10007);
    for (Point& point : points) {
        point[1] = 0.5;
    }
    EXPECT_LT(expectAllPoints(points, boxesAround(points, 0.02)), 100);
    for (Point& point : points) {
        point[0] = -3;
    }
    EXPECT_LT(expectAllPoints(points, boxesAround(points, 0.001)), 100);
    for (Point& point : points) {
        point = {point[2], point[2], 0};
    }
    EXPECT_LT(expectAllPoints(points, boxesAround(points, 0.001), 2), 200);
}

TEST_F(PointBinsTest, SortsPointsOfAPlateHoweverThinItIs)
{
    for (double const thickness : {1e-2, 1e-4, 1e-8}) {
        std::vector<Point> points = somePoints(10007);
        for (Point& point : points) {
            point[1] *= thickness;
        }
        EXPECT_LT(expectAllPoints(points, boxesAround(points, 0.02)), 150) << thickness;
        Progress progress;
        PointBins const bins(sample::placesOf(points, 3), 3, progress);
        double count = 1;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            std::uint32_t last = 0;
            bins.binsAlong(axis, &bins.box().high[axis], 1, &last);
            count *= last + 1.0;
        }
        EXPECT_LT(count, 2.0 * static_cast<double>(points.size())) << thickness;
        EXPECT_GT(count, 0.5 * static_cast<double>(points.size())) << thickness;
    }
}

TEST_F(PointBinsTest, TakesAnyNumberOfPointsAtOnePlace)
{
    std::vector<Point> points(5003, Point{1, 2, 3});
    EXPECT_EQ(expectAllPoints(points, {Box{{1, 2, 3}, {1, 2, 3}}}), points.size());
    points.push_back({2, 2, 3});
    points.push_back({1e300, -1e300, 1e308});
    points.push_back({-1e300, -1e300, -1e308});
    EXPECT_LE(expectAllPoints(points, {Box{{2, 2, 3}, {2, 2, 3}}}), points.size());
    expectAllPoints({{1, 2, 3}}, {Box{{1, 2, 3}, {1, 2, 3}}});
    EXPECT_EQ(expectAllPoints({}, {Box{{1, 2, 3}, {1, 2, 3}}}), 0);
}

TEST_F(PointBinsTest, LeavesOutPointsThatAreNowhere)
{
    std::vector<Point> points = somePoints(3001);
    points[1000][2] = infinity;
    points[2000][0] = -infinity;
    points[7][1] = notANumber;
    Progress progress;
    PointBins const bins(sample::placesOf(points), 3, progress);
    EXPECT_EQ(bins.size(), 2998);
    EXPECT_EQ(bins.leftOut(), (std::vector<std::int64_t>{7, 1000, 2000}));
}

TEST_F(PointBinsTest, EndsWhenItIsInterrupted)
{
    Progress progress;
    progress.interrupt();
    EXPECT_THROW(PointBins(sample::placesOf(somePoints(100)), 3, progress), Interrupted);
}

} // namespace veldraw::tests
