#include "operations/Parameter.h"

#include <gtest/gtest.h>

namespace veldraw::tests {

using namespace operations;

TEST(Parameter, IsRequiredUnlessItStartsWithAValue)
{
    EXPECT_TRUE(parameter("a", ParameterKind::Real, "").isRequired);
    EXPECT_FALSE(parameter("a", ParameterKind::Real, "").startingWith("1").isRequired);
    EXPECT_FALSE(parameter("a", ParameterKind::Real, "").startingWith("").isRequired);
}

TEST(Parameter, TellsItsLimits)
{
    EXPECT_EQ("", parameter("a", ParameterKind::Real, "").limitsText());
    EXPECT_EQ("at least 1, at most 9", parameter("a", ParameterKind::Whole, "").within(1, 9).limitsText());
    EXPECT_EQ("above 0", parameter("a", ParameterKind::Real, "").above(0).limitsText());
    EXPECT_EQ(
        "at most 0.5",
        parameter("a", ParameterKind::Real, "").within(-std::numeric_limits<double>::infinity(), 0.5).limitsText());
}

TEST(Parameter, TellsTheWordsOfAChoice)
{
    EXPECT_EQ("a", choice("w", {"a"}, "").kindText());
    EXPECT_EQ("a or b", choice("w", {"a", "b"}, "").kindText());
    EXPECT_EQ("a, b or c", choice("w", {"a", "b", "c"}, "").kindText());
}

} // namespace veldraw::tests
