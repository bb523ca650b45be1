#include "app/plot/ContourBands.h"

#include "app/plot/ColourLegend.h"
#include "app/plot/ColourMap.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"
#include "tests/support/WriteValue.h"

#include <vtkLookupTable.h>

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace veldraw::tests {

using app::ContourBands;
using testing::ElementsAre;

namespace {

QColor bandColour(int band, int bands)
{
    double rgba[4];
    app::ColourMap::create(0.0, 1.0, bands)->GetTableValue(band, rgba);
    return QColor::fromRgbF(rgba[0], rgba[1], rgba[2]);
}

void expectBands(double min, double max, ContourBands const& wanted)
{
    ContourBands const bands = ContourBands::over(min, max);
    EXPECT_DOUBLE_EQ(bands.min, wanted.min) << min << ' ' << max;
    EXPECT_DOUBLE_EQ(bands.max, wanted.max) << min << ' ' << max;
    EXPECT_EQ(bands.count, wanted.count) << min << ' ' << max;
}

} // namespace

TEST(Bands, ReachOverTheLimitsToTheNextRoundNumbers)
{
    expectBands(0.0, 10.0, {0.0, 10.0, 10});
    expectBands(0.3, 9.7, {0.0, 10.0, 10});
    expectBands(-5.0, 15.0, {-6.0, 16.0, 11});
    expectBands(1.01e5, 1.02e5, {1.01e5, 1.02e5, 10});
    expectBands(3.0, 3.0, {3.0, 3.0, 0});
}

TEST(Bands, HoldAllValuesAndNoneIsOutsideOfThem)
{
    std::mt19937 random(5);
    std::uniform_real_distribution<double> exponent(-300.0, 300.0);
    std::uniform_real_distribution<double> share(-1.0, 1.0);
    for (int n = 0; n < 5000; ++n) {
        double const size = std::pow(10.0, exponent(random));
        double const a = share(random) * size;
        double const b = share(random) * size;
        double const min = std::min(a, b);
        double const max = std::max(a, b);
        ContourBands const bands = ContourBands::over(min, max);
        double const width = (bands.max - bands.min) / bands.count;
        EXPECT_LE(bands.min, min + 2e-6 * width) << min << ' ' << max;
        EXPECT_GE(bands.max, max - 2e-6 * width) << min << ' ' << max;
        EXPECT_GT(bands.min, min - width) << "no band is empty: " << min << ' ' << max;
        EXPECT_LT(bands.max, max + width) << "no band is empty: " << min << ' ' << max;
        EXPECT_GE(bands.count, 4) << min << ' ' << max;
        EXPECT_LE(bands.count, 12) << min << ' ' << max;
        double const factor = width / std::pow(10.0, std::floor(std::log10(width * (1.0 + 1e-9))));
        EXPECT_LT(std::min({std::abs(factor - 1.0), std::abs(factor - 2.0), std::abs(factor - 5.0)}), 1e-6) << width;
    }
}

TEST(Bands, StandLimitsThatAreFarApartOrNext)
{
    double const most = std::numeric_limits<double>::max();
    ContourBands const far = ContourBands::over(-most, most);
    EXPECT_TRUE(std::isfinite(far.min) && std::isfinite(far.max));
    EXPECT_GT(far.count, 1);
    expectBands(1.0, std::nextafter(1.0, 2.0), {1.0, std::nextafter(1.0, 2.0), 1});
}

// p of this sheet goes from -5 to 15, evenly from left to right.
TEST(Bands, ShowEachStepInOneColourAndItsBordersInTheLegend)
{
    PlotTestPage page({SampleData::frame("Sheet", SampleData::sheet(41, 21), PlotType_Cartesian2D)});
    ASSERT_TRUE(page.session().perform(kernel::SetPlotOption(page.frame().id, &kernel::Frame::contourInBands, true)));
    QImage const plot = page.plot(0, "contour-bands");
    app::ColourLegend const& legend = page.field().legend();
    EXPECT_DOUBLE_EQ(legend.min(), -6.0);
    EXPECT_DOUBLE_EQ(legend.max(), 16.0);
    EXPECT_THAT(legend.ticks().labels, ElementsAre("-6", "-4", "-2", "0", "2", "4", "6", "8", "10", "12", "14", "16"));
    int const width = static_cast<int>(124 * plot.devicePixelRatio());
    QImage const field = plot.copy(0, 0, plot.width() - width, plot.height());
    QImage const key = plot.copy(plot.width() - width, 0, width, plot.height());
    int inBands = 0;
    for (int band = 0; band < 11; ++band) {
        int const pixels = PlotTestPage::pixelsNear(field, bandColour(band, 11), 3);
        inBands += pixels;
        EXPECT_GT(pixels, 1000) << band;
        EXPECT_GT(PlotTestPage::pixelsNear(key, bandColour(band, 11), 3), 300) << band;
    }
    int const middle = PlotTestPage::pixelsNear(field, bandColour(5, 11), 3);
    EXPECT_NEAR(PlotTestPage::pixelsNear(field, bandColour(0, 11), 3), 0.5 * middle, 0.1 * middle) << "from -5 on";
    EXPECT_GT(inBands, 0.97 * PlotTestPage::colouredPixels(field)) << "no colour between those of the bands";

    ASSERT_TRUE(page.session().undo());
    EXPECT_LT(PlotTestPage::pixelsNear(page.plot(), bandColour(5, 11), 3), middle / 2) << "smooth again";
    EXPECT_DOUBLE_EQ(legend.min(), -5.0);
}

TEST(Bands, AreNoneWhereAllValuesAreOne)
{
    auto const set = SampleData::sheet(9, 9);
    kernel::ShareGroup& values = *set->field(1, 3)->group();
    for (std::int64_t n = 0; n < values.size(); ++n)
        writeValue(values, n, 7.0);
    auto const frame = SampleData::frame("Sheet", set, PlotType_Cartesian2D);
    frame->contourInBands = true;
    PlotTestPage page({frame});
    page.picture();
    EXPECT_THAT(page.field().legend().ticks().labels, ElementsAre("7"));
}

} // namespace veldraw::tests
