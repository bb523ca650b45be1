#include "app/plot/ContourFlood.h"

#include "app/plot/ColourLegend.h"
#include "app/plot/ColourMap.h"
#include "app/plot/ContourBands.h"
#include "app/plot/ContourRange.h"
#include "app/plot/PlotTheme.h"
#include "kernel/operations/SetContourColours.h"
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
    bool colour(kernel::ContourColours const& colours)
    {
        return m_page.session().perform(kernel::SetContourColours(m_page.frame().id, colours));
    }
    bool fix(double min, double max) { return colour({true, min, max, 0, kernel::ColourMapKind::Viridis}); }
    QString remark()
    {
        m_page.picture();
        return m_page.view().remark(m_page.frame().id);
    }

    PlotTestPage m_page;
};

class ColumnsFromZeroToOne : public LogarithmicFlood
{
protected:
    ColumnsFromZeroToOne()
        : LogarithmicFlood(evenly())
    {
    }
    static std::vector<double> evenly()
    {
        std::vector<double> values;
        for (int n = 0; n < columns; ++n)
            values.push_back(n / (columns - 1.0));
        return values;
    }
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

TEST_F(LogarithmicFlood, GoesOverALimitedRangeThatWasTyped)
{
    ASSERT_TRUE(fix(1.0, 100.0));
    ASSERT_TRUE(set(&Frame::contourLog, true));
    app::ColourLegend const& legend = m_page.field().legend();
    m_page.plot(0, "contour-logarithmic-fixed");
    EXPECT_EQ(legend.min(), 0.0);
    EXPECT_EQ(legend.max(), 2.0);
    EXPECT_EQ(remark(), QStringLiteral("Values beyond the typed range have the colours of its ends"));
    ASSERT_TRUE(fix(0.0, 100.0));
    EXPECT_EQ(remark(), QStringLiteral("Values beyond the typed range have the colours of its ends; "
                                       "Colours not logarithmic, as the typed range is not above 0"));
    EXPECT_EQ(legend.min(), 0.0);
    EXPECT_EQ(legend.max(), 100.0);
}

TEST_F(LogarithmicFlood, HasAsManyLevelsAsAreWanted)
{
    ASSERT_TRUE(set(&Frame::contourLog, true));
    ASSERT_TRUE(set(&Frame::contourInBands, true));
    ASSERT_TRUE(colour({false, 0.0, 1.0, 4, kernel::ColourMapKind::Viridis}));
    m_page.plot();
    EXPECT_THAT(m_page.field().legend().ticks().labels, ElementsAre("0.01", "0.3162", "10", "316.2", "10000"));
}

TEST_F(ColumnsFromZeroToOne, HaveTheColourOfTheirShareOfTheTypedRange)
{
    ASSERT_TRUE(fix(0.5, 1.5));
    QImage const plot = m_page.plot(0, "contour-fixed");
    EXPECT_EQ(m_page.field().legend().min(), 0.5);
    EXPECT_EQ(m_page.field().legend().max(), 1.5);
    double rgb[3];
    app::ColourMap::create(0.0, 1.0)->GetColor(0.5, rgb);
    int const middle = PlotTestPage::pixelsNear(plot, QColor::fromRgbF(rgb[0], rgb[1], rgb[2]), 6);
    EXPECT_GT(middle, 500) << "at the right end";
    app::ColourMap::create(0.0, 1.0)->GetColor(0.0, rgb);
    EXPECT_GT(PlotTestPage::pixelsNear(plot, QColor::fromRgbF(rgb[0], rgb[1], rgb[2]), 6), 20000) << "the left half";
    app::ColourMap::create(0.0, 1.0)->GetColor(0.8, rgb);
    EXPECT_LT(PlotTestPage::pixelsNear(plot, QColor::fromRgbF(rgb[0], rgb[1], rgb[2]), 3), 300) << "the legend alone";
    EXPECT_EQ(remark(), QStringLiteral("Values beyond the typed range have the colours of its ends"));
    ASSERT_TRUE(fix(0.0, 1.0));
    EXPECT_EQ(remark(), QString());
    ASSERT_TRUE(m_page.session().perform(kernel::SetPlotOption(m_page.frame().id, &Frame::contourWithoutEnds, true)));
    EXPECT_EQ(remark(), QString()) << "a range that is typed leaves out nothing else";
    EXPECT_EQ(m_page.field().legend().min(), 0.0);
}

TEST_F(ColumnsFromZeroToOne, HaveBandsBetweenTypedLimits)
{
    ASSERT_TRUE(set(&Frame::contourInBands, true));
    auto const labels = [this] {
        m_page.plot();
        return m_page.field().legend().ticks().labels;
    };
    ASSERT_TRUE(colour({true, 0.0, 1.0, 4, kernel::ColourMapKind::Viridis}));
    EXPECT_THAT(labels(), ElementsAre("0.00", "0.25", "0.50", "0.75", "1.00"));
    ASSERT_TRUE(colour({true, 0.0, 1.0, 7, kernel::ColourMapKind::Viridis}));
    EXPECT_THAT(labels(), ElementsAre("0.000", "0.143", "0.286", "0.429", "0.571", "0.714", "0.857", "1.000"));
    ASSERT_TRUE(colour({true, 0.1, 0.9, 0, kernel::ColourMapKind::Viridis}));
    EXPECT_THAT(labels(), ElementsAre("0.1", "0.2", "0.3", "0.4", "0.5", "0.6", "0.7", "0.8", "0.9"));
    ASSERT_TRUE(colour({true, 0.05, 0.95, 0, kernel::ColourMapKind::Viridis}));
    EXPECT_THAT(labels(),
                ElementsAre("0.05", "0.14", "0.23", "0.32", "0.41", "0.50", "0.59", "0.68", "0.77", "0.86", "0.95"));
    ASSERT_TRUE(colour({true, 0.0, 1.0, 1, kernel::ColourMapKind::Viridis}));
    EXPECT_THAT(labels(), ElementsAre("0", "1"));
}

TEST_F(ColumnsFromZeroToOne, HaveTheColoursOfTheMapThatIsChosen)
{
    for (int number = 0; number < kernel::colourMapCount; ++number) {
        auto const map = static_cast<kernel::ColourMapKind>(number);
        ASSERT_TRUE(colour({false, 0.0, 1.0, 0, map}));
        QImage const plot = m_page.plot(0, "contour-map-" + std::to_string(number));
        for (double const share : {0.0, 0.25, 0.5, 1.0}) {
            double rgb[3];
            app::ColourMap::create(0.0, 1.0, 0, map)->GetColor(share, rgb);
            QColor const wanted = QColor::fromRgbF(rgb[0], rgb[1], rgb[2]);
            EXPECT_GT(PlotTestPage::pixelsNear(plot, wanted, 8), 500) << number << ' ' << share;
        }
    }
}

TEST(ColourMaps, BeginAndEndWithTheirColours)
{
    auto const end = [](int map, double share) {
        double rgb[3];
        app::ColourMap::create(0.0, 1.0, 0, static_cast<kernel::ColourMapKind>(map))->GetColor(share, rgb);
        return QColor::fromRgbF(rgb[0], rgb[1], rgb[2]).name().toStdString();
    };
    EXPECT_EQ(end(0, 0.0), "#440154");
    EXPECT_EQ(end(0, 1.0), "#fde725");
    EXPECT_EQ(end(1, 0.0), "#000004");
    EXPECT_EQ(end(1, 1.0), "#fcffa4");
    EXPECT_EQ(end(2, 0.0), "#3b4cc0");
    EXPECT_EQ(end(2, 1.0), "#b40426");
    EXPECT_EQ(end(3, 0.0), "#0000ff");
    EXPECT_EQ(end(3, 1.0), "#ff0000");
    EXPECT_EQ(end(4, 0.0), "#1a1a1a");
    EXPECT_EQ(end(4, 1.0), "#f2f2f2");
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
    auto const frame = SampleData::frame("Sheet", set, PlotType_Cartesian2D);
    ValueRange const whole = ContourRange::positive(*frame, {1}, 3, false);
    EXPECT_EQ(whole.min, above.front());
    EXPECT_EQ(whole.max, above.back());
    ValueRange const inner = ContourRange::positive(*frame, {1}, 3, true);
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
