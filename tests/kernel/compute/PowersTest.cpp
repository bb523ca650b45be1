#include "kernel/compute/Powers.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace veldraw::tests {

using namespace kernel;

TEST(PowersTest, AgreeWithThoseOfExtendedPrecision)
{
    std::mt19937_64 generator(11);
    std::uniform_real_distribution<double> number;
    for (double const exponent : {0.01, 0.25, 0.5, 0.75, 1.0, 1.25, 1.5, 1.7, 1.75, 2.0, 3.3, 5.0, 8.0, 8.25, 31.9}) {
        std::vector<double> numbers(4099);
        for (double& fraction : numbers) {
            fraction = std::pow(number(generator), number(generator) < 0.3 ? 30.0 : 1.0);
        }
        numbers[0] = 1.0;
        numbers[1] = std::sqrt(0.5);
        numbers[2] = 1.0 - 1e-16;
        std::vector<double> results = numbers;
        raiseFractions(results.data(), results.size(), exponent);
        for (std::size_t at = 0; at < numbers.size(); ++at) {
            long double const wanted =
                std::pow(static_cast<long double>(numbers[at]), static_cast<long double>(exponent));
            EXPECT_NEAR(results[at], static_cast<double>(wanted), static_cast<double>(wanted) * 1e-12 + 1e-299)
                << numbers[at] << " ^ " << exponent;
        }
    }
}

TEST(PowersTest, OfNothingAreNothing)
{
    std::vector<double> numbers{0.0, 1.0, 0.0};
    for (double const exponent : {0.3, 1.0, 2.0, 3.5, 9.9}) {
        std::vector<double> results = numbers;
        raiseFractions(results.data(), results.size(), exponent);
        EXPECT_EQ(results, numbers);
    }
}

} // namespace veldraw::tests
