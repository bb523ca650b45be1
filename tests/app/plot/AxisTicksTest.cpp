#include "app/plot/AxisTicks.h"

#include "app/plot/TickLabels.h"

#include <cmath>
#include <gmock/gmock.h>
#include <limits>
#include <random>
#include <set>

namespace veldraw::tests {

using app::AxisTicks;
using app::TickLabels;
using testing::ElementsAre;

namespace {

std::vector<std::string> labels(double min, double max, int count = 5)
{
    return AxisTicks::create(min, max, count).labels;
}

double widthOf(std::string const& label)
{
    return 18.0 + 8.0 * static_cast<double>(label.size());
}

std::vector<std::string> logarithmic(double min, double max, double length)
{
    return AxisTicks::logarithmicAlong(min, max, length, widthOf).labels;
}

} // namespace

TEST(AxisTicks, HaveRoundStepsAndTheDecimalsThatTheyNeed)
{
    EXPECT_THAT(labels(0.0, 1.0), ElementsAre("0.0", "0.2", "0.4", "0.6", "0.8", "1.0"));
    EXPECT_THAT(labels(-5.0, 15.0, 4), ElementsAre("-5", "0", "5", "10", "15"));
    EXPECT_THAT(labels(0.137, 9.86), ElementsAre("2", "4", "6", "8"));
    EXPECT_THAT(labels(101320.0, 101331.0), ElementsAre("101320", "101325", "101330"));
    EXPECT_THAT(labels(-0.13, 1.04), ElementsAre("0.0", "0.5", "1.0"));
    EXPECT_THAT(labels(0.0, 0.0011), ElementsAre("0.0000", "0.0005", "0.0010"));
}

TEST(AxisTicks, TellCloseNumbersApart)
{
    EXPECT_THAT(labels(1e6 - 1e-3, 1e6 + 1e-3, 4),
                ElementsAre("999999.9990", "999999.9995", "1000000.0000", "1000000.0005", "1000000.0010"));
    EXPECT_THAT(labels(1.0, std::nextafter(1.0, 2.0)), ElementsAre("1", "1.0000000000000002"));
}

TEST(AxisTicks, KeepToOneStyle)
{
    EXPECT_THAT(labels(0.0, 2.5e7), ElementsAre("0", "0.5e7", "1.0e7", "1.5e7", "2.0e7", "2.5e7"));
    EXPECT_THAT(labels(-4e-9, 2e-9, 3), ElementsAre("-4e-9", "-2e-9", "0", "2e-9"));
    EXPECT_THAT(labels(0.0, 1e5, 2), ElementsAre("0", "50000", "100000"));
    EXPECT_THAT(labels(0.0, 4e6, 2), ElementsAre("0", "2e6", "4e6"));
    EXPECT_THAT(labels(1e6, 1e6 + 400, 2), ElementsAre("1000000", "1000200", "1000400"));
    EXPECT_THAT(labels(1e-6, 1e6), ElementsAre("0", "0.2e6", "0.4e6", "0.6e6", "0.8e6", "1.0e6"));
}

TEST(AxisTicks, StandAsFarAsNumbersGo)
{
    double const most = std::numeric_limits<double>::max();
    EXPECT_THAT(labels(-most, most, 4), ElementsAre("-1e308", "0", "1e308"));
    EXPECT_THAT(labels(0.0, 4e-300, 2), ElementsAre("0", "2e-300", "4e-300"));
    EXPECT_FALSE(labels(0.0, 1e-310).empty());
    EXPECT_TRUE(labels(0.0, std::numeric_limits<double>::infinity()).empty());
    EXPECT_TRUE(labels(std::nan(""), 1.0).empty());
    EXPECT_TRUE(labels(2.0, 1.0).empty());
}

TEST(AxisTicks, ShowOneNumberForLimitsThatAreTheSame)
{
    EXPECT_THAT(labels(0.1, 0.1), ElementsAre("0.1"));
    EXPECT_THAT(labels(static_cast<double>(0.1F), static_cast<double>(0.1F)), ElementsAre("0.1"));
    EXPECT_THAT(labels(1000000.0005, 1000000.0005), ElementsAre("1000000.0005"));
    EXPECT_THAT(labels(0.0, 0.0), ElementsAre("0"));
    EXPECT_THAT(labels(-2.5e30, -2.5e30), ElementsAre("-2.5e30"));
    EXPECT_THAT(labels(1e-20, 1e-20), ElementsAre("1e-20"));
}

// The neighbours of 0 were -2e-15 and the like where steps are added up.
TEST(AxisTicks, AreTheNumbersThatTheyShowWhateverTheLimits)
{
    std::mt19937_64 random(20261122);
    std::uniform_real_distribution<double> exponent(-12.0, 12.0);
    std::uniform_real_distribution<double> share(-1.0, 1.0);
    for (int n = 0; n < 5000; ++n) {
        double const width = std::pow(10.0, exponent(random));
        double const min = share(random) * width * std::pow(10.0, std::abs(exponent(random)) / 3.0);
        double const max = min + width;
        AxisTicks const ticks = AxisTicks::create(min, max, 1 + n % 9);
        ASSERT_FALSE(ticks.values.empty()) << min << " to " << max;
        ASSERT_EQ(ticks.values.size(), ticks.labels.size());
        std::set<std::string> const different(ticks.labels.begin(), ticks.labels.end());
        ASSERT_EQ(different.size(), ticks.labels.size()) << min << " to " << max;
        for (std::size_t at = 0; at < ticks.values.size(); ++at) {
            double const read = std::stod(ticks.labels[at]);
            ASSERT_NEAR(read, ticks.values[at], 1e-15 * std::max(std::abs(min), std::abs(max))) << ticks.labels[at];
            ASSERT_GE(ticks.values[at], min - 1e-8 * width - 1e-15 * std::abs(min));
            ASSERT_LE(ticks.values[at], max + 1e-8 * width);
            ASSERT_NE(ticks.labels[at].substr(0, 3), "-0.0") << min << " to " << max;
        }
    }
}

TEST(AxisTicks, StandClearOfOneAnother)
{
    auto const roomOf = [](std::string const& label) { return 8.0 * static_cast<double>(label.size()) + 10.0; };
    for (double const length : {40.0, 90.0, 200.0, 500.0, 1500.0}) {
        AxisTicks const ticks = AxisTicks::along(1e6 - 1e-3, 1e6 + 1e-3, length, roomOf);
        ASSERT_GE(ticks.values.size(), 1U);
        for (std::size_t n = 1; n < ticks.values.size(); ++n)
            EXPECT_GE((ticks.values[n] - ticks.values[n - 1]) / 2e-3 * length, roomOf(ticks.labels[n]) - 1e-3)
                << length;
    }
    EXPECT_GT(AxisTicks::along(0.0, 1.0, 1500.0, roomOf).values.size(), 9U);
}

TEST(TickLabels, ShowANumberForItselfByItsFewestDigits)
{
    auto const alone = [](double value) { return TickLabels::exactly({value}).front(); };
    EXPECT_EQ(alone(1e6), "1e6");
    EXPECT_EQ(alone(1e10), "1e10");
    EXPECT_EQ(alone(123456.0), "123456");
    EXPECT_EQ(alone(-1e-7), "-1e-7");
    EXPECT_EQ(alone(1.0 / 3.0), "0.3333333333333333");
    EXPECT_EQ(alone(-0.0), "0");
    EXPECT_EQ(alone(std::numeric_limits<double>::max()), "1.7976931348623157e308");
}

TEST(TickLabels, ShowNumbersThatAreHardlyApartInOneStyle)
{
    double const million = 1e6;
    EXPECT_THAT(TickLabels::exactly({std::nextafter(million, 0.0), million}),
                ElementsAre("999999.9999999999", "1000000"));
    EXPECT_THAT(TickLabels::exactly({1e20, std::nextafter(1e20, 2e20)}), ElementsAre("1e20", "1.0000000000000002e20"));
    EXPECT_THAT(TickLabels::exactly({-0.0, 5e-324}), ElementsAre("0", "5e-324"));
    EXPECT_THAT(labels(std::nextafter(1e-5, 0.0), 1e-5), ElementsAre("9.999999999999999e-6", "1e-5"));
}

TEST(LogarithmicTicks, ArePowersOfTenWithSomethingBetweenWhereThereIsRoom)
{
    EXPECT_THAT(logarithmic(0.0, 2.0, 600), ElementsAre("1", "2", "5", "10", "20", "50", "100"));
    EXPECT_THAT(logarithmic(-1.2, 4.1, 400), ElementsAre("0.1", "1", "10", "100", "1000", "10000"));
    EXPECT_THAT(logarithmic(-12.0, 0.0, 250), ElementsAre("1e-12", "1e-9", "1e-6", "1e-3", "1e0"));
    EXPECT_THAT(logarithmic(-307.0, 308.0, 200), ElementsAre("1e-200", "1e0", "1e200"));
}

TEST(LogarithmicTicks, AreRoundNumbersWithinAPowerOfTen)
{
    EXPECT_THAT(logarithmic(std::log10(2.0), std::log10(6.0), 400), ElementsAre("2", "3", "4", "5", "6"));
    EXPECT_THAT(logarithmic(std::log10(99.0), std::log10(101.0), 300),
                ElementsAre("99.0", "99.5", "100.0", "100.5", "101.0"));
}

TEST(LogarithmicTicks, StandWhereTheirNumbersAre)
{
    for (double const min : {-300.0, -3.3, 0.0, 2.2}) {
        for (double const width : {0.01, 0.4, 1.0, 3.0, 90.0}) {
            AxisTicks const ticks = AxisTicks::logarithmicAlong(min, min + width, 500, widthOf);
            ASSERT_GE(ticks.values.size(), 2U) << min << ' ' << width;
            ASSERT_LE(ticks.values.size(), 13U) << min << ' ' << width;
            for (std::size_t n = 0; n < ticks.values.size(); ++n) {
                EXPECT_NEAR(ticks.values[n], static_cast<double>(std::log10(std::stold(ticks.labels[n]))), 1e-12);
                EXPECT_GE(ticks.values[n], min - 1e-6);
                EXPECT_LE(ticks.values[n], min + width + 1e-6);
            }
        }
    }
}

TEST(LogarithmicTicks, AreNoneWithoutLimits)
{
    EXPECT_TRUE(logarithmic(std::nan(""), 1.0, 300).empty());
    EXPECT_TRUE(logarithmic(1.0, 0.0, 300).empty());
}

} // namespace veldraw::tests
