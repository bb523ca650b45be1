#include "kernel/compute/PolarForm.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace veldraw::tests {

using kernel::toPolar;

namespace {

using Complex = std::complex<double>;

struct Polar
{
    std::vector<double> magnitudes;
    std::vector<double> degrees;
};

Polar polar(std::vector<Complex> const& numbers)
{
    Polar result{std::vector<double>(numbers.size()), std::vector<double>(numbers.size())};
    toPolar(numbers.data(), numbers.size(), result.magnitudes.data(), result.degrees.data());
    return result;
}

} // namespace

TEST(PolarFormTest, GivesMagnitudeAndAngleAllAround)
{
    std::mt19937 random(3);
    std::uniform_real_distribution<double> angles(-M_PI, M_PI);
    std::uniform_real_distribution<double> exponents(-100.0, 100.0);
    std::vector<Complex> numbers;
    for (int count = 0; count < 5003; ++count) {
        numbers.push_back(std::polar(std::exp2(exponents(random)), angles(random)));
    }
    Polar const result = polar(numbers);
    for (std::size_t at = 0; at < numbers.size(); ++at) {
        std::complex<long double> const number(numbers[at]);
        long double const degrees = std::arg(number) * 180.0L / (4.0L * std::atan(1.0L));
        EXPECT_NEAR(result.degrees[at], static_cast<double>(degrees), 1e-14 * std::abs(static_cast<double>(degrees)));
        EXPECT_NEAR(result.magnitudes[at] / static_cast<double>(std::abs(number)), 1.0, 1e-15);
    }
}

TEST(PolarFormTest, GivesRoundAnglesExactly)
{
    std::vector<Complex> const numbers{{2, 0},     {3, 3},   {0, 4},  {-5, 5}, {-6, 0.0},
                                       {-6, -0.0}, {-1, -1}, {0, -2}, {1, -1}};
    EXPECT_EQ(polar(numbers).degrees, (std::vector<double>{0, 45, 90, 135, 180, 180, -135, -90, -45}));
}

TEST(PolarFormTest, StaysAboveMinus180JustBelowTheNegativeNumbers)
{
    std::vector<Complex> const numbers{{-1, -1e-20}, {-1e30, -1e-30}, {-5, -5e-324}};
    EXPECT_EQ(polar(numbers).degrees, (std::vector<double>{180, 180, 180}));
    EXPECT_GT(polar({{-1, -1e-13}}).degrees[0], -180.0);
    EXPECT_LT(polar({{-1, -1e-13}}).degrees[0], -179.0);
}

TEST(PolarFormTest, GivesTheNumberZeroAnAngleOfZero)
{
    Polar const result = polar({{0.0, 0.0}});
    EXPECT_EQ(result.degrees, std::vector<double>{0.0});
    EXPECT_EQ(result.magnitudes, std::vector<double>{0.0});
}

} // namespace veldraw::tests
