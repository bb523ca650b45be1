#include "kernel/operations/ReportText.h"

#include <chrono>
#include <gtest/gtest.h>

namespace veldraw::tests {

using namespace kernel;

TEST(ReportText, SaysNumbersWithTwoDigits)
{
    EXPECT_EQ(twoDigits(0), "0");
    EXPECT_EQ(twoDigits(0.0123456), "0.012");
    EXPECT_EQ(twoDigits(1.26), "1.3");
    EXPECT_EQ(twoDigits(12.6), "13");
    EXPECT_EQ(twoDigits(-1.23456789e-300), "-1.2e-300");
}

TEST(ReportText, KnowsTheSecondsSinceAMoment)
{
    auto const earlier = std::chrono::steady_clock::now() - std::chrono::minutes(60);
    EXPECT_GE(secondsSince(earlier), 3600.0);
    EXPECT_LT(secondsSince(std::chrono::steady_clock::now()), 1.0);
}

TEST(ReportText, CountsWithTheNounThatFitsTheNumber)
{
    EXPECT_EQ(counted(0, "point"), "0 points");
    EXPECT_EQ(counted(1, "point"), "1 point");
    EXPECT_EQ(counted(2, "point"), "2 points");
    EXPECT_EQ(counted(1, "vertex", "vertices"), "1 vertex");
    EXPECT_EQ(counted(5000000000, "vertex", "vertices"), "5000000000 vertices");
}

TEST(ReportText, ListsEightNamesAndCountsTheOthers)
{
    EXPECT_EQ(listed({}), "");
    EXPECT_EQ(listed({"a"}), "\"a\"");
    EXPECT_EQ(listed({"a", "b"}), "\"a\", \"b\"");
    std::string const eight = R"("a", "b", "c", "d", "e", "f", "g", "h")";
    EXPECT_EQ(listed({"a", "b", "c", "d", "e", "f", "g", "h"}), eight);
    EXPECT_EQ(listed({"a", "b", "c", "d", "e", "f", "g", "h", "i"}), eight + " and 1 more");
    EXPECT_EQ(listed({"a", "b", "c", "d", "e", "f", "g", "h", "i", "j"}), eight + " and 2 more");
}

} // namespace veldraw::tests
