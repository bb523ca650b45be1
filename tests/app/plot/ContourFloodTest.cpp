#include "app/plot/ContourFlood.h"

#include "app/plot/ColourLegend.h"
#include "app/plot/ContourBands.h"
#include "app/plot/ContourRange.h"
#include "app/plot/PlotTheme.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"
#include "tests/support/WriteValue.h"

#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace veldraw::tests {

using app::ContourBands;
using app::ContourRange;
using kernel::Frame;
using kernel::ValueRange;
using ::testing::ElementsAre;

namespace {

constexpr int columns = 41;

// Variable 3 depends on the column alone, from left to right.
std::shared_ptr<kernel::DataSet> columnsOf(std::vector<double> const& values)
{
    auto const set = SampleData::sheet(columns, columns);
    kernel::ShareGroup& group = *set->field(1, 3)->group();
    for (std::int64_t n = 0; n < group.size(); ++n)
        writeValue(group, n, values[static_cast<std::size_t>(n % columns)]);
    return set;
}

// From 10^first to 10^last.
std::vector<double> powersBetween(double first, double last)
{
    std::vector<double> values;
    for (int n = 0; n < columns; ++n)
        values.push_back(std::pow(10.0, first + (last - first) * n / (columns - 1.0)));
    return values;
}

class LogarithmicFlood : public ::testing::Test
{
protected:
    explicit LogarithmicFlood(std::vector<double> const& values = powersBetween(-2.0, 4.0))
        : m_page({SampleData::frame("Sheet", columnsOf(values), PlotType_Cartesian2D)})
    {
    }

    bool set(bool Frame::*option, bool value)
    {
        return m_page.session().perform(kernel::SetPlotOption(m_page.frame().id, option, value));
    }
    QString remark()
    {
        m_page.picture();
        return m_page.view().remark(m_page.frame().id);
    }

    PlotTestPage m_page;
};

class FloodFromBelowZero : public LogarithmicFlood
{
protected:
    FloodFromBelowZero()
        : LogarithmicFlood(halfBelow())
    {
    }
    static std::vector<double> halfBelow()
    {
        std::vector<double> values = powersBetween(-2.0, 4.0);
        std::fill(values.begin(), values.begin() + columns / 2, -3.0);
        values[0] = 0.0;
        return values;
    }
};

class FloodBelowZero : public LogarithmicFlood
{
protected:
    FloodBelowZero()
        : LogarithmicFlood(below())
    {
    }
    static std::vector<double> below()
    {
        std::vector<double> values(columns, -2.0);
        values[3] = -9.0;
        return values;
    }
};

} // namespace

TEST_F(LogarithmicFlood, GivesPowersOfTenEqualSharesOfTheColours)
{
    QColor const middle = QColor::fromRgbF(0.129, 0.569, 0.549);
    int const linear = PlotTestPage::pixelsNear(m_page.plot(), middle, 12);
    ASSERT_TRUE(set(&Frame::contourLog, true));
    int const logarithmic = PlotTestPage::pixelsNear(m_page.plot(0, "contour-logarithmic"), middle, 12);
    EXPECT_GT(logarithmic, 3 * linear) << "10 stands in the middle of the sheet and of the colours";
    app::ColourLegend const& legend = m_page.field().legend();
    EXPECT_NEAR(legend.min(), -2.0, 1e-12);
    EXPECT_NEAR(legend.max(), 4.0, 1e-12);
    EXPECT_THAT(legend.ticks().labels, ElementsAre("0.01", "0.1", "1", "10", "100", "1000", "10000"));
    EXPECT_EQ(remark(), QString());
    ASSERT_TRUE(m_page.session().undo());
    EXPECT_EQ(PlotTestPage::pixelsNear(m_page.plot(), middle, 12), linear);
}

TEST_F(LogarithmicFlood, HasBandsOfOnePowerOfTen)
{
    ASSERT_TRUE(set(&Frame::contourLog, true));
    ASSERT_TRUE(set(&Frame::contourInBands, true));
    QImage const plot = m_page.plot(0, "contour-logarithmic-bands");
    app::ColourLegend const& legend = m_page.field().legend();
    EXPECT_THAT(legend.ticks().values, ElementsAre(-2.0, -1.0, 0.0, 1.0, 2.0, 3.0, 4.0));
    EXPECT_THAT(legend.ticks().labels, ElementsAre("0.01", "0.1", "1", "10", "100", "1000", "10000"));
    int const ends = PlotTestPage::pixelsNear(plot, QColor::fromRgbF(0.267, 0.005, 0.329), 6);
    EXPECT_NEAR(PlotTestPage::pixelsNear(plot, QColor::fromRgbF(0.993, 0.906, 0.144), 6), ends, 0.15 * ends);
}

TEST_F(FloodFromBelowZero, HasNoColourForThese)
{
    QColor const none = app::PlotTheme::noValue();
    EXPECT_LT(PlotTestPage::pixelsNear(m_page.plot(), none, 3), 500);
    ASSERT_TRUE(set(&Frame::contourLog, true));
    EXPECT_GT(PlotTestPage::pixelsNear(m_page.plot(0, "contour-logarithmic-gap"), none, 3), 5000);
    EXPECT_EQ(remark(), QStringLiteral("No colour for values of 0 and below"));
    EXPECT_NEAR(m_page.field().legend().min(), 1.0, 1e-12) << "the lowest value above 0";
    EXPECT_NEAR(m_page.field().legend().max(), 4.0, 1e-12);
}

TEST_F(FloodBelowZero, SaysWhyItIsNotLogarithmic)
{
    ASSERT_TRUE(set(&Frame::contourLog, true));
    EXPECT_EQ(remark(), QStringLiteral("Colours not logarithmic, as no two different values above 0 are known"));
    EXPECT_EQ(m_page.field().legend().min(), -9.0);
    EXPECT_EQ(m_page.field().legend().max(), -2.0);
}

TEST(RangeAboveZero, HasTheLowestAndHighestOfThousandsOfValuesAboveZero)
{
    std::mt19937 random(5);
    std::normal_distribution<double> normal(0.0, 3.0);
    auto const set = SampleData::sheet(80, 80);
    kernel::ShareGroup& group = *set->field(1, 3)->group();
    std::vector<double> above;
    for (std::int64_t n = 0; n < group.size(); ++n) {
        double const value = std::floor(normal(random) * 1024.0) / 1024.0; // has no rounding error in single precision
        writeValue(group, n, value);
        if (value > 0.0)
            above.push_back(value);
    }
    std::sort(above.begin(), above.end());
    ASSERT_GT(above.size(), 2500U);
    ValueRange const whole = ContourRange::positive(*set, {1}, 3, false);
    EXPECT_EQ(whole.min, above.front());
    EXPECT_EQ(whole.max, above.back());
    ValueRange const inner = ContourRange::positive(*set, {1}, 3, true);
    EXPECT_EQ(inner.min, above[above.size() / 100]);
    EXPECT_EQ(inner.max, above[above.size() - 1 - above.size() / 100]);
}

TEST(BandsOfPowers, ReachToTheNextPowersAndAreTwelveAtMost)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> logarithm(-320.0, 308.0);
    for (int n = 0; n < 5000; ++n) {
        double const a = logarithm(random);
        double const b = n % 2 == 0 ? logarithm(random) : a + 0.01 * (n % 700);
        ContourBands const bands = ContourBands::ofPowers(std::min(a, b), std::max(a, b));
        double const width = bands.count > 0 ? (bands.max - bands.min) / bands.count : 1.0;
        EXPECT_LE(bands.count, 12);
        EXPECT_EQ(width, std::round(width)) << a << ' ' << b;
        EXPECT_LE(bands.min, std::min(a, b) + 1e-6) << a << ' ' << b;
        EXPECT_GE(bands.max, std::max(a, b) - 1e-6) << a << ' ' << b;
        EXPECT_GT(bands.min, std::min(a, b) - width) << a << ' ' << b;
        EXPECT_LT(bands.max, std::max(a, b) + width) << a << ' ' << b;
    }
    ContourBands const exact = ContourBands::ofPowers(-2.0, 4.0);
    EXPECT_EQ(exact.count, 6);
    EXPECT_EQ(exact.min, -2.0);
}

} // namespace veldraw::tests
