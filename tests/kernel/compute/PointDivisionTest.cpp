#include "kernel/compute/PointDivision.h"

#include "tests/kernel/support/LookCounter.h"
#include "tests/kernel/support/ScatteredPoints.h"

#include <gtest/gtest.h>

namespace veldraw::tests {

using namespace kernel;

namespace {

/// The order that takes the longest where the pivot is the median of the first, the middle and the last number
/// (D. R. Musser, 1997).
std::vector<double> badForFixedPivots(std::size_t count)
{
    std::size_t const half = count / 2;
    std::vector<double> numbers(count);
    for (std::size_t at = 0; at < half; ++at) {
        numbers[at] = static_cast<double>(at % 2 == 0 ? at + 1 : half + at + at % 2);
        numbers[half + at] = static_cast<double>(2 * (at + 1));
    }
    return numbers;
}

/// Two coordinates a point, the second one 0.
std::vector<double> onALine(std::vector<double> const& numbers)
{
    std::vector<double> places;
    for (double const number : numbers) {
        places.insert(places.end(), {number, 0.0});
    }
    return places;
}

} // namespace

TEST(PointDivisionTest, PutsSmallerCoordinatesInTheFirstHalf)
{
    ScatteredPoints const points = ScatteredPoints::random(3, 9001, 3);
    std::vector<double> places = points.places();
    std::vector<std::uint32_t> numbers = points.numbers();
    Progress progress;
    dividePoints(3, 8, places.data(), numbers, progress);
    double below = 0.0;
    double above = 1.0;
    std::size_t const middle = 8192; // the largest part that is full
    // The box is a cube but for chance, so that the longest side is found from the points.
    std::size_t longest = 0;
    double length = 0.0;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        double low = 1.0;
        double high = 0.0;
        for (std::size_t point = 0; point < points.count(); ++point) {
            low = std::min(low, points.at(point)[axis]);
            high = std::max(high, points.at(point)[axis]);
        }
        longest = high - low > length ? axis : longest;
        length = std::max(length, high - low);
    }
    for (std::size_t at = 0; at < numbers.size(); ++at) {
        double const coordinate = points.at(numbers[at])[longest];
        (at < middle ? below : above) = at < middle ? std::max(below, coordinate) : std::min(above, coordinate);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            ASSERT_EQ(places[3 * at + axis], points.at(numbers[at])[axis]);
        }
    }
    EXPECT_LE(below, above);
    std::sort(numbers.begin(), numbers.end());
    EXPECT_EQ(numbers, points.numbers());
}

TEST(PointDivisionTest, TakesNoLongerForOrdersThatAreBadForFixedPivots)
{
    for (std::vector<double> const& order : {badForFixedPivots(20000), ScatteredPoints::random(2, 10000, 1).places()}) {
        std::vector<double> places = onALine(order);
        std::vector<std::uint32_t> numbers(order.size());
        std::iota(numbers.begin(), numbers.end(), 0U);
        LookCounter progress;
        dividePoints(2, 8, places.data(), numbers, progress);
        EXPECT_LT(progress.looks(), 40000) << "some looks for each of 2500 leaves";
    }
}

TEST(PointDivisionTest, DividesEqualPoints)
{
    std::vector<double> places(2 * 5000, 1.5);
    std::vector<std::uint32_t> numbers(5000);
    std::iota(numbers.begin(), numbers.end(), 0U);
    LookCounter progress;
    dividePoints(2, 8, places.data(), numbers, progress);
    EXPECT_LT(progress.looks(), 10000);
    EXPECT_GT(progress.fraction(), 0.9);
    EXPECT_LE(progress.done(), progress.total());
}

} // namespace veldraw::tests
