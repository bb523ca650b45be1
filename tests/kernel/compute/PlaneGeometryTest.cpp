#include "kernel/compute/PlaneGeometry.h"

#include <cmath>
#include <gmock/gmock.h>
#include <random>

namespace veldraw::tests {

using namespace kernel;
using testing::DoubleNear;
using testing::ElementsAre;

namespace {

using Corners = std::array<PlanePlace, 3>;

/// Three random places against the clock's sense, in a plane whose unit is @p size.
Corners randomTriangle(std::mt19937& random, double size)
{
    std::uniform_real_distribution<double> distribution(-size, size);
    Corners corners{};
    for (PlanePlace& place : corners) {
        place = {distribution(random), distribution(random)};
    }
    bool const isForward = (corners[1][0] - corners[0][0]) / size * ((corners[2][1] - corners[0][1]) / size) >
                           (corners[1][1] - corners[0][1]) / size * ((corners[2][0] - corners[0][0]) / size);
    if (!isForward) {
        std::swap(corners[1], corners[2]);
    }
    return corners;
}

} // namespace

TEST(PlaneGeometry, SharesOfCornersAreThoseThatThePlaceWasMadeOf)
{
    std::mt19937 random(2);
    std::uniform_real_distribution<double> distribution(0.02, 1.0);
    for (double const size : {1.0, 1e-300, 1e-160, 1e-9, 1e150}) {
        for (int round = 0; round < 1000; ++round) {
            Corners const corners = randomTriangle(random, size);
            if (roundness(corners[0], corners[1], corners[2]) < 0.05) {
                continue;
            }
            std::array<double, 3> shares{distribution(random), distribution(random), distribution(random)};
            double const sum = shares[0] + shares[1] + shares[2];
            PlanePlace place{};
            for (std::size_t corner = 0; corner < 3; ++corner) {
                shares[corner] /= sum;
                place[0] += shares[corner] * corners[corner][0];
                place[1] += shares[corner] * corners[corner][1];
            }
            ASSERT_THAT(
                cornerShares(place, corners),
                ElementsAre(DoubleNear(shares[0], 1e-12), DoubleNear(shares[1], 1e-12), DoubleNear(shares[2], 1e-12)))
                << size;
        }
    }
}

TEST(PlaneGeometry, ACornerHasTheWholeShareAndAFlatTriangleGivesItToTheFirst)
{
    Corners const corners{{{0, 0}, {4, 0}, {0, 3}}};
    EXPECT_THAT(cornerShares({4, 0}, corners), ElementsAre(0, 1, 0));
    EXPECT_THAT(cornerShares({2, 0}, corners), ElementsAre(0.5, 0.5, 0));
    EXPECT_THAT(cornerShares({1, 1}, {{{0, 0}, {2, 2}, {3, 3}}}), ElementsAre(1, 0, 0));
    EXPECT_THAT(cornerShares({1, 1}, {{{1, 1}, {1, 1}, {1, 1}}}), ElementsAre(1, 0, 0));
}

TEST(PlaneGeometry, RoundnessIsTheInradiusByTheCircumradius)
{
    EXPECT_DOUBLE_EQ(roundness({0, 0}, {4, 0}, {0, 3}), 1.0 / 2.5);
    EXPECT_DOUBLE_EQ(roundness({0, 0}, {2, 0}, {1, std::sqrt(3.0)}), 0.5);
    EXPECT_EQ(roundness({0, 0}, {1, 1}, {3, 3}), 0.0);
    std::mt19937 random(3);
    for (double const size : {1.0, 1e-300, 1e-9, 1e150}) {
        for (int round = 0; round < 1000; ++round) {
            Corners const corners = randomTriangle(random, size);
            long double product = 4; // r / R = 4 sin(A / 2) sin(B / 2) sin(C / 2)
            for (std::size_t corner = 0; corner < 3; ++corner) {
                auto const angleTo = [&](PlanePlace const& other) {
                    return std::atan2((static_cast<long double>(other[1]) - corners[corner][1]) / size,
                                      (static_cast<long double>(other[0]) - corners[corner][0]) / size);
                };
                long double const angle = std::remainder(
                    angleTo(corners[(corner + 2) % 3]) - angleTo(corners[(corner + 1) % 3]), 2 * std::acos(-1.0L));
                product *= std::sin(angle / 2);
            }
            ASSERT_NEAR(roundness(corners[0], corners[1], corners[2]), static_cast<double>(product), 1e-9) << size;
        }
    }
}

TEST(PlaneGeometry, TheNearestPlaceOnALineIsAnEndOrBelowThePlace)
{
    EXPECT_EQ(nearestShare({1, 7}, {0, 0}, {4, 0}), 0.25);
    EXPECT_EQ(nearestShare({-1, 7}, {0, 0}, {4, 0}), 0.0);
    EXPECT_EQ(nearestShare({9, 7}, {0, 0}, {4, 0}), 1.0);
    EXPECT_EQ(distanceToLine({1, 7}, {0, 0}, {4, 0}), 7.0);
    EXPECT_EQ(distanceToLine({-3, 4}, {0, 0}, {4, 0}), 5.0);
    EXPECT_DOUBLE_EQ(distanceBetween({-3e200, 4e200}, {0, 0}), 5e200);
}

} // namespace veldraw::tests
