#include "kernel/style/StyleRange.h"

#include "kernel/base/Text.h"
#include "tests/support/SpecialNumbers.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace veldraw::tests {

using kernel::StyleNumber;
using kernel::StyleRange;

namespace {

constexpr long long maxWhole = std::numeric_limits<long long>::max();

} // namespace

TEST(StyleNumber, CutsTheFractionOffTowardsZero)
{
    EXPECT_EQ(StyleNumber::ofReal(2.9).whole, 2);
    EXPECT_EQ(StyleNumber::ofReal(-2.9).whole, -2);
}

TEST(StyleNumber, HoldsHugeNumbersAtTheEndsAndTakesNotANumberAsZero)
{
    EXPECT_EQ(StyleNumber::ofReal(1e300).whole, maxWhole);
    EXPECT_EQ(StyleNumber::ofReal(-infinity).whole, std::numeric_limits<long long>::min());
    EXPECT_EQ(StyleNumber::ofReal(std::nan("")).whole, 0);
}

TEST(StyleNumber, IsWholeWhenBothSidesTellTheSameNumber)
{
    EXPECT_TRUE(StyleNumber::ofWhole(maxWhole).isWhole());
    EXPECT_TRUE(StyleNumber::ofReal(3.0).isWhole());
    EXPECT_FALSE(StyleNumber::ofReal(2.5).isWhole());
    EXPECT_FALSE(StyleNumber::ofReal(std::nan("")).isWhole());
}

TEST(StyleNumber, WritesTheShortestTextThatReadsBack)
{
    EXPECT_EQ(kernel::textOf(0.1), "0.1");
    EXPECT_EQ(kernel::textOf(0.95), "0.95");
    EXPECT_EQ(kernel::textOf(1.23456789012345e-5), "1.23456789012345e-05");
}

TEST(StyleRange, OfWholeNumbersIncludesBothLimits)
{
    StyleRange const range = StyleRange::whole(1, 3);
    EXPECT_FALSE(range.contains(StyleNumber::ofWhole(0)));
    EXPECT_TRUE(range.contains(StyleNumber::ofWhole(1)));
    EXPECT_TRUE(range.contains(StyleNumber::ofWhole(3)));
    EXPECT_FALSE(range.contains(StyleNumber::ofWhole(4)));
}

TEST(StyleRange, OfWholeNumbersRefusesFractions)
{
    EXPECT_FALSE(StyleRange::whole(1, 3).contains(StyleNumber::ofReal(1.5)));
}

TEST(StyleRange, OfWholeNumbersIsExactBeyondWhatADoubleCanTell)
{
    StyleRange const range = StyleRange::whole(0, maxWhole - 1);
    EXPECT_TRUE(range.contains(StyleNumber::ofWhole(maxWhole - 1)));
    EXPECT_FALSE(range.contains(StyleNumber::ofWhole(maxWhole)));
    EXPECT_FALSE(range.areEqual(StyleNumber::ofWhole(maxWhole), StyleNumber::ofWhole(maxWhole - 1)));
}

TEST(StyleRange, CanExcludeItsLowerLimit)
{
    StyleRange const range = StyleRange::above(0.0, 10.0);
    EXPECT_FALSE(range.contains(StyleNumber::ofReal(0.0)));
    EXPECT_TRUE(range.contains(StyleNumber::ofReal(1e-300)));
    EXPECT_TRUE(range.contains(StyleNumber::ofReal(10.0)));
    EXPECT_FALSE(range.contains(StyleNumber::ofReal(std::nextafter(10.0, 11.0))));
}

TEST(StyleRange, WithoutUpperLimitStillRefusesWhatIsNotFinite)
{
    StyleRange const range = StyleRange::from(0.0, infinity);
    EXPECT_TRUE(range.contains(StyleNumber::ofReal(0.0)));
    EXPECT_TRUE(range.contains(StyleNumber::ofReal(1e300)));
    EXPECT_FALSE(range.contains(StyleNumber::ofReal(infinity)));
    EXPECT_FALSE(range.contains(StyleNumber::ofReal(std::nan(""))));
}

TEST(StyleRange, TellsInWordsWhatFits)
{
    EXPECT_EQ(StyleRange::whole(1, 3).text(), "a whole number from 1 to 3");
    EXPECT_EQ(StyleRange::above(0.0, 10.0).text(), "a number greater than 0 and less than or equal to 10");
    EXPECT_EQ(StyleRange::from(0.0, infinity).text(), "a number greater than or equal to 0");
}

} // namespace veldraw::tests
