#include "kernel/compute/Rotation.h"

#include "tests/support/SpecialNumbers.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace veldraw::tests {

using namespace kernel;

namespace {

std::array<double, 3> rotated(Rotation const& rotation, std::array<double, 3> const& vector)
{
    std::array<double, 3> result{};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            result[row] += rotation.entry(row, column) * vector[column];
        }
    }
    return result;
}

} // namespace

TEST(SineAndCosine, AreExactAtRightAngles)
{
    long double const expected[4][2] = {{0, 1}, {1, 0}, {0, -1}, {-1, 0}};
    for (int quarter = -9; quarter <= 9; ++quarter) {
        SineAndCosine const result = sineAndCosine(90.0L * quarter);
        EXPECT_EQ(result.sine, expected[quarter & 3][0]) << quarter;
        EXPECT_EQ(result.cosine, expected[quarter & 3][1]) << quarter;
    }
}

TEST(SineAndCosine, AreThoseOfTheMathematicalLibrary)
{
    for (double degrees = -400; degrees <= 400; degrees += 7.25) {
        long double const radians = static_cast<long double>(degrees) * std::acos(-1.0L) / 180;
        SineAndCosine const result = sineAndCosine(degrees);
        EXPECT_NEAR(static_cast<double>(result.sine), static_cast<double>(std::sin(radians)), 1e-17) << degrees;
        EXPECT_NEAR(static_cast<double>(result.cosine), static_cast<double>(std::cos(radians)), 1e-17) << degrees;
    }
}

TEST(SineAndCosine, LoseNothingOverManyFullCircles)
{
    SineAndCosine const once = sineAndCosine(33.0L);
    SineAndCosine const often = sineAndCosine(33.0L + 360.0L * 1e15L);
    EXPECT_EQ(once.sine, often.sine);
    EXPECT_EQ(once.cosine, often.cosine);
    SineAndCosine const huge = sineAndCosine(1e300L);
    EXPECT_NEAR(static_cast<double>(huge.sine * huge.sine + huge.cosine * huge.cosine), 1.0, 1e-15);
}

TEST(AxisOfRotation, IsValidWithFiniteNumbersAndADirection)
{
    auto const isValid = [](std::array<double, 3> const& origin, std::array<double, 3> const& direction) {
        return RotationAxis{origin, direction}.isValid();
    };
    EXPECT_TRUE(isValid({1, 2, 3}, {0, 0, -1e-300}));
    EXPECT_FALSE(isValid({1, 2, 3}, {0, 0, 0}));
    EXPECT_FALSE(isValid({1, 2, 3}, {0, notANumber, 1}));
    EXPECT_FALSE(isValid({1, 2, 3}, {infinity, 0, 1}));
    EXPECT_FALSE(isValid({1, notANumber, 3}, {0, 0, 1}));
    EXPECT_FALSE(isValid({-infinity, 2, 3}, {0, 0, 1}));
}

TEST(Rotation, IsRightHanded)
{
    std::array<double, 3> const x{1, 0, 0};
    std::array<double, 3> const y{0, 1, 0};
    std::array<double, 3> const z{0, 0, 1};
    EXPECT_EQ(rotated(Rotation({{}, z}, 90), x), y);
    EXPECT_EQ(rotated(Rotation({{}, x}, 90), y), z);
    EXPECT_EQ(rotated(Rotation({{}, y}, 90), z), x);
    EXPECT_EQ(rotated(Rotation({{}, {0, 0, -1}}, -90), x), y);
}

TEST(Rotation, CyclesTheAxesAboutTheirMiddle)
{
    std::array<double, 3> const result = rotated(Rotation({{}, {2, 2, 2}}, 120), {1, 2, 3});
    EXPECT_NEAR(result[0], 3, 1e-15);
    EXPECT_NEAR(result[1], 1, 1e-15);
    EXPECT_NEAR(result[2], 2, 1e-15);
}

TEST(Rotation, DoesNotDependOnTheLengthOfTheDirection)
{
    Rotation const reference({{}, {1, 2, 3}}, 40);
    for (double const length : {1e-300, 1e-3, 7.0, 1e300}) {
        Rotation const rotation({{}, {length, 2 * length, 3 * length}}, 40);
        for (std::size_t at = 0; at < 9; ++at) {
            EXPECT_NEAR(rotation.entry(at / 3, at % 3), reference.entry(at / 3, at % 3), 1e-15) << length;
        }
    }
}

TEST(Rotation, KeepsLengthsAndAngles)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> distribution(-1, 1);
    for (int round = 0; round < 200; ++round) {
        Rotation const rotation({{}, {distribution(random), distribution(random), distribution(random)}},
                                360 * distribution(random));
        for (std::size_t a = 0; a < 3; ++a) {
            for (std::size_t b = 0; b < 3; ++b) {
                double product = 0;
                for (std::size_t row = 0; row < 3; ++row) {
                    product += rotation.entry(row, a) * rotation.entry(row, b);
                }
                EXPECT_NEAR(product, a == b ? 1 : 0, 4e-16) << round;
            }
        }
    }
}

TEST(Rotation, InvolvesOnlyTheComponentsThatItRotates)
{
    Rotation const aboutY({{}, {0, 5, 0}}, 30);
    EXPECT_TRUE(aboutY.involves(0));
    EXPECT_FALSE(aboutY.involves(1));
    EXPECT_TRUE(aboutY.involves(2));
    Rotation const slanting({{}, {1, 1, 0}}, 180);
    Rotation const full({{}, {1, 2, 3}}, -720);
    for (std::size_t component = 0; component < 3; ++component) {
        EXPECT_TRUE(slanting.involves(component));
        EXPECT_FALSE(full.involves(component));
    }
}

TEST(Rotation, MovesVectorsWithoutAnOrigin)
{
    Rotation const rotation({{1, 2, 3}, {0, 0, 1}}, 30);
    EXPECT_EQ(rotation.ofVectors().origin(), (std::array<double, 3>{}));
    EXPECT_EQ(rotation.ofVectors().entry(0, 1), rotation.entry(0, 1));
}

} // namespace veldraw::tests
