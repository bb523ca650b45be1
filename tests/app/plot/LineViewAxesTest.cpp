// The axes of a line plot: the second vertical one, typed ranges and titles.
#include "app/plot/PlotTheme.h"
#include "kernel/operations/SetLineAxis.h"
#include "kernel/operations/SetLineMaps.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"
#include "tests/support/WriteValue.h"

#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>
#include <vtkAxis.h>
#include <vtkStringArray.h>

#include <cmath>
#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

using kernel::LineAxisKind;

/// A curve from 0 to 10 and one from 1000 to 2000, over 0 to 10.
class LineAxes : public testing::Test
{
protected:
    LineAxes()
    {
        auto const set = SampleData::waves(11);
        for (std::int64_t n = 0; n < 11; ++n) {
            auto const number = static_cast<double>(n);
            writeValue(*set->field(1, 1)->group(), n, number);
            writeValue(*set->field(1, 2)->group(), n, number);
            writeValue(*set->field(1, 3)->group(), n, 2000.0 - 100.0 * number);
        }
        m_page = std::make_unique<PlotTestPage>(std::vector{SampleData::waveFrame(set)});
    }

    PlotTestPage& page() { return *m_page; }

    void assign(int map, bool isSecond)
    {
        kernel::LineMapSettings settings;
        settings.isOnSecondAxis = isSecond;
        ASSERT_TRUE(page().session().perform(kernel::SetLineMaps(page().frame().id, {map}, settings)));
        page().picture();
    }

    void set(LineAxisKind kind, kernel::LineAxis const& axis)
    {
        ASSERT_TRUE(page().session().perform(kernel::SetLineAxis(page().frame().id, kind, axis)));
        page().picture();
    }

    vtkAxis& axis(int side) { return *page().lines().chart().GetAxis(side); }

    std::array<double, 2> range(int side) { return {axis(side).GetMinimum(), axis(side).GetMaximum()}; }

    /// Where a value of an axis is drawn, in pixels of the plot from its top.
    int height(int side, double value, QImage const& plot)
    {
        app::LineView& lines = page().lines();
        int const* const low = lines.chart().GetPoint1();
        int const* const high = lines.chart().GetPoint2();
        double const share = (value - range(side)[0]) / (range(side)[1] - range(side)[0]);
        return plot.height() - static_cast<int>(low[1] + share * (high[1] - low[1]));
    }

private:
    std::unique_ptr<PlotTestPage> m_page;
};

} // namespace

TEST_F(LineAxes, ACurveAtTheRightSideHasARangeOfItsOwn)
{
    page().picture("axes-one");
    EXPECT_GT(range(vtkAxis::LEFT)[1], 2000.0);
    EXPECT_FALSE(axis(vtkAxis::RIGHT).GetVisible());
    assign(2, true);
    QImage const plot = page().plot(0, "axes-two");
    EXPECT_TRUE(axis(vtkAxis::RIGHT).GetVisible());
    EXPECT_NEAR(range(vtkAxis::LEFT)[0], -0.6, 1e-9);
    EXPECT_NEAR(range(vtkAxis::LEFT)[1], 10.6, 1e-9);
    EXPECT_NEAR(range(vtkAxis::RIGHT)[0], 940.0, 1e-6);
    EXPECT_NEAR(range(vtkAxis::RIGHT)[1], 2060.0, 1e-6);
    EXPECT_EQ(axis(vtkAxis::LEFT).GetTitle(), "sine");
    EXPECT_EQ(axis(vtkAxis::RIGHT).GetTitle(), "cosine");
    // At the left end the second curve is at its top, and the first one at its bottom.
    QImage const end = plot.copy(0, 0, plot.width() / 4, plot.height());
    int const top = height(vtkAxis::RIGHT, 2000.0, plot);
    EXPECT_GT(PlotTestPage::pixelsNear(end.copy(0, top - 2, end.width(), 40), app::PlotTheme::curve(1), 30), 20);
    EXPECT_EQ(PlotTestPage::pixelsNear(end.copy(0, top - 2, end.width(), 40), app::PlotTheme::curve(0), 30), 0);
    page().session().undo();
    page().picture();
    EXPECT_FALSE(axis(vtkAxis::RIGHT).GetVisible());
    EXPECT_GT(range(vtkAxis::LEFT)[1], 2000.0);
}

TEST_F(LineAxes, TheLeftOneIsGoneWhenAllCurvesAreAtTheRightSide)
{
    assign(1, true);
    assign(2, true);
    page().picture("axes-right-alone");
    EXPECT_FALSE(axis(vtkAxis::LEFT).GetVisible());
    EXPECT_NEAR(range(vtkAxis::RIGHT)[1], 2120.0, 1e-6);
}

TEST_F(LineAxes, TheSecondOneIsLogarithmicByItself)
{
    assign(2, true);
    ASSERT_TRUE(page().session().perform(kernel::SetPlotOption(page().frame().id, &kernel::Frame::logY2, true)));
    page().picture("axes-log-second");
    EXPECT_NEAR(range(vtkAxis::LEFT)[1], 10.6, 1e-9);
    EXPECT_NEAR(range(vtkAxis::RIGHT)[1], std::log10(2000.0) + 0.06 * std::log10(2.0), 1e-9);
    EXPECT_EQ(axis(vtkAxis::RIGHT).GetTickLabels()->GetValue(0), "1000");
    set(LineAxisKind::Y2, {true, 10.0, 1e5, {}});
    EXPECT_NEAR(range(vtkAxis::RIGHT)[0], 1.0, 1e-12);
    EXPECT_NEAR(range(vtkAxis::RIGHT)[1], 5.0, 1e-12);
    set(LineAxisKind::Y2, {true, -1.0, 1e5, {}});
    EXPECT_GT(range(vtkAxis::RIGHT)[0], 2.9) << "a range that no logarithm has gives way to the values";
}

TEST_F(LineAxes, MoveAndGrowTogether)
{
    assign(2, true);
    auto const left = range(vtkAxis::LEFT);
    auto const right = range(vtkAxis::RIGHT);
    page().drag(page().at(0.5, 0.5), page().at(0.5, 0.7));
    page().picture();
    double const leftStep = (range(vtkAxis::LEFT)[0] - left[0]) / (left[1] - left[0]);
    EXPECT_GT(leftStep, 0.1);
    EXPECT_NEAR((range(vtkAxis::RIGHT)[0] - right[0]) / (right[1] - right[0]), leftStep, 1e-9);
    page().wheel(page().at(0.5, 0.5), 3);
    EXPECT_LT(range(vtkAxis::RIGHT)[1] - range(vtkAxis::RIGHT)[0], 0.9 * (right[1] - right[0]));
    page().view().fitActiveFrame();
    page().picture();
    EXPECT_EQ(range(vtkAxis::RIGHT), right);
    EXPECT_EQ(range(vtkAxis::LEFT), left);
}

TEST_F(LineAxes, ATypedRangeHoldsAndLeavesTheOtherAxesAlone)
{
    auto const below = range(vtkAxis::BOTTOM);
    set(LineAxisKind::Y, {true, -100.0, 500.0, {}});
    EXPECT_EQ(range(vtkAxis::LEFT), (std::array<double, 2>{-100.0, 500.0}));
    EXPECT_EQ(range(vtkAxis::BOTTOM), below);
    set(LineAxisKind::Y, {false, -100.0, 500.0, {}});
    EXPECT_GT(range(vtkAxis::LEFT)[1], 2000.0);
    page().session().undo();
    page().picture();
    EXPECT_EQ(range(vtkAxis::LEFT), (std::array<double, 2>{-100.0, 500.0}));
}

TEST_F(LineAxes, ShowTypedTitlesAndThoseOfTheVariablesOtherwise)
{
    assign(2, true);
    QImage const before = page().plot();
    set(LineAxisKind::X, {false, 0.0, 1.0, "time (s)"});
    set(LineAxisKind::Y2, {false, 0.0, 1.0, "pressure (Pa)"});
    ASSERT_TRUE(page().session().perform(kernel::SetPlotTitle(page().frame().id, "Behind the step")));
    QImage const after = page().plot(0, "axes-titles");
    EXPECT_EQ(axis(vtkAxis::BOTTOM).GetTitle(), "time (s)");
    EXPECT_EQ(axis(vtkAxis::LEFT).GetTitle(), "sine");
    EXPECT_EQ(axis(vtkAxis::RIGHT).GetTitle(), "pressure (Pa)");
    int const legend = static_cast<int>(page().lines().legend().height());
    QRect const strip(0, legend, after.width(), 30);
    EXPECT_GT(PlotTestPage::inkedPixels(after.copy(strip)), PlotTestPage::inkedPixels(before.copy(strip)) + 200)
        << "the title of the plot";
    set(LineAxisKind::X, {});
    EXPECT_EQ(axis(vtkAxis::BOTTOM).GetTitle(), "t");
    EXPECT_EQ(PlotTestPage::inkedPixels(after.copy(after.width() - 3, 0, 3, after.height())), 0) << "clear of the edge";
}

TEST_F(LineAxes, ALongTitleOfThePlotLosesItsMiddle)
{
    std::string const longTitle = "How it began" + std::string(400, '.') + "how it ended";
    ASSERT_TRUE(page().session().perform(kernel::SetPlotTitle(page().frame().id, longTitle)));
    QImage const plot = page().plot(0, "axes-long-title");
    std::string const shown = page().lines().chart().GetTitle();
    EXPECT_LT(shown.size(), longTitle.size());
    EXPECT_EQ(shown.find("How it began"), 0U);
    EXPECT_NE(shown.find("how it ended"), std::string::npos);
    int const legend = static_cast<int>(page().lines().legend().height());
    EXPECT_GT(PlotTestPage::inkedPixels(plot.copy(0, legend, plot.width(), 25)), 500);
    EXPECT_EQ(PlotTestPage::inkedPixels(plot.copy(0, legend, 10, 25)), 0);
    EXPECT_EQ(PlotTestPage::inkedPixels(plot.copy(plot.width() - 10, legend, 10, 25)), 0);
}

TEST_F(LineAxes, TellTheValuesOfAPointAtTheRightSide)
{
    assign(2, true);
    QImage const plot = page().plot();
    int const* const low = page().lines().chart().GetPoint1();
    int const* const high = page().lines().chart().GetPoint2();
    auto const below = range(vtkAxis::BOTTOM);
    double const share = (2.0 - below[0]) / (below[1] - below[0]);
    QRect const area = page().view().plotArea(page().frame().id);
    QPoint const place = area.topLeft() + QPoint(static_cast<int>(low[0] + share * (high[0] - low[0])),
                                                 height(vtkAxis::RIGHT, 1800.0, plot));
    QHelpEvent rest(QEvent::ToolTip, place, page().view().mapToGlobal(place));
    QApplication::sendEvent(&page().view(), &rest);
    EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("cosine = 1800"))) << QToolTip::text().toStdString();
    QToolTip::hideText();
}

} // namespace veldraw::tests
