#include "kernel/base/Text.h"

#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>

namespace veldraw::tests {

using namespace kernel;

TEST(Text, IsOrderedWithoutRegardToTheCaseOfLatinLetters)
{
    EXPECT_EQ(compareIgnoringCase("", ""), 0);
    EXPECT_EQ(compareIgnoringCase("Time", "tIME"), 0);
    EXPECT_LT(compareIgnoringCase("a", "B"), 0);
    EXPECT_GT(compareIgnoringCase("C", "b"), 0);
    EXPECT_NE(compareIgnoringCase("\u00c4", "\u00e4"), 0);
}

TEST(Text, ComesBeforeALongerOneThatBeginsLikeIt)
{
    EXPECT_LT(compareIgnoringCase("", "a"), 0);
    EXPECT_LT(compareIgnoringCase("time", "Times"), 0);
    EXPECT_GT(compareIgnoringCase("Times", "time"), 0);
}

TEST(Text, KeepsAllButLatinLettersWhenItIsLowered)
{
    EXPECT_EQ(lowered("AZ az 09 @[`{ \u00c4"), "az az 09 @[`{ \u00c4");
}

TEST(Text, OfANumberIsTheShortestThatReadsBackAsIt)
{
    EXPECT_EQ(textOf(0.1), "0.1");
    EXPECT_EQ(textOf(0.1F), "0.1");
    EXPECT_EQ(textOf(-2.0), "-2");
    std::mt19937 random(3);
    std::uniform_real_distribution<double> digits(-10, 10);
    std::uniform_int_distribution<int> exponent(-300, 300);
    for (int count = 0; count < 5000; ++count) {
        double const number = digits(random) * std::pow(10.0, exponent(random));
        ASSERT_EQ(std::strtod(textOf(number).c_str(), nullptr), number);
        auto const rounded = static_cast<float>(digits(random));
        ASSERT_EQ(std::strtof(textOf(rounded).c_str(), nullptr), rounded);
    }
}

} // namespace veldraw::tests
