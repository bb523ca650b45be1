// Logarithmic axes of a line plot, and what it tells of the point under the mouse.
#include "app/plot/LinePoints.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"
#include "tests/support/WriteValue.h"

#include <QApplication>
#include <QHelpEvent>
#include <QTest>
#include <QToolTip>
#include <vtkAxis.h>
#include <vtkStringArray.h>

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

constexpr int pointsOfCurve = 61;

/// Powers of ten from 1e-3 to 1e3 over 1 to 61.
std::shared_ptr<kernel::DataSet> powers()
{
    auto const set = SampleData::waves(pointsOfCurve);
    for (std::int64_t n = 0; n < pointsOfCurve; ++n) {
        writeValue(*set->field(1, 1)->group(), n, static_cast<double>(n + 1));
        writeValue(*set->field(1, 2)->group(), n, std::pow(10.0, -3.0 + 0.1 * static_cast<double>(n)));
        writeValue(*set->field(1, 3)->group(), n, std::pow(10.0, -3.0 + 0.1 * static_cast<double>(n)));
    }
    return set;
}

class LogarithmicAxisTest : public testing::Test
{
protected:
    void show(std::shared_ptr<kernel::DataSet> const& set)
    {
        m_page = std::make_unique<PlotTestPage>(std::vector{SampleData::waveFrame(set)});
    }

    PlotTestPage& page() { return *m_page; }

    void choose(bool kernel::Frame::*axis, bool isOn = true)
    {
        ASSERT_TRUE(page().session().perform(kernel::SetPlotOption(page().frame().id, axis, isOn)));
        page().picture();
    }

    vtkAxis& axis(int side) { return *page().lines().chart().GetAxis(side); }

    std::vector<std::string> labels(int side)
    {
        std::vector<std::string> found;
        for (vtkIdType n = 0; n < axis(side).GetTickLabels()->GetNumberOfValues(); ++n)
            found.push_back(axis(side).GetTickLabels()->GetValue(n));
        return found;
    }

    /// The tool tip at a share of the plot, the upper left corner first.
    QString tipAt(double x, double y)
    {
        QPoint const position = page().at(x, y);
        QHelpEvent event(QEvent::ToolTip, position, page().view().mapToGlobal(position));
        QApplication::sendEvent(&page().view(), &event);
        return QToolTip::text();
    }

    /// Where the point of a curve is: a share of the plot.
    QPointF placeOf(double x, double y)
    {
        page().picture();
        QRect const area = page().view().plotArea(page().frame().id);
        double const ratio = page().view().devicePixelRatioF();
        auto const along = [&](int side, double value, int first, int last) {
            double const share =
                (value - axis(side).GetMinimum()) / (axis(side).GetMaximum() - axis(side).GetMinimum());
            return (first + share * (last - first)) / ratio;
        };
        int const* const low = page().lines().chart().GetPoint1();
        int const* const high = page().lines().chart().GetPoint2();
        return {along(vtkAxis::BOTTOM, x, low[0], high[0]) / area.width(),
                1.0 - along(vtkAxis::LEFT, y, low[1], high[1]) / area.height()};
    }

private:
    std::unique_ptr<PlotTestPage> m_page;
};

} // namespace

TEST_F(LogarithmicAxisTest, HasPowersOfTenAtEqualDistances)
{
    show(powers());
    choose(&kernel::Frame::logY);
    PlotTestPage::save(page().picture(), "line-logarithmic");
    EXPECT_NEAR(axis(vtkAxis::LEFT).GetMinimum(), -3.36, 0.01);
    EXPECT_NEAR(axis(vtkAxis::LEFT).GetMaximum(), 3.36, 0.01);
    EXPECT_THAT(labels(vtkAxis::LEFT), testing::IsSupersetOf({"0.001", "1", "1000"}));
    EXPECT_THAT(labels(vtkAxis::BOTTOM), testing::Contains("20")) << "the other one stays as it was";
    EXPECT_EQ(page().message(), QString());
    choose(&kernel::Frame::logX);
    EXPECT_NEAR(axis(vtkAxis::BOTTOM).GetMaximum(), std::log10(61.0), 0.05);
    EXPECT_THAT(labels(vtkAxis::BOTTOM), testing::IsSupersetOf({"1", "10"}));
    choose(&kernel::Frame::logX, false);
    choose(&kernel::Frame::logY, false);
    EXPECT_GT(axis(vtkAxis::LEFT).GetMaximum(), 1000.0);
}

TEST_F(LogarithmicAxisTest, LeavesOutWhatIsNotPositiveAndSaysSo)
{
    auto const set = powers();
    writeValue(*set->field(1, 2)->group(), 10, 0.0);
    show(set);
    choose(&kernel::Frame::logY);
    EXPECT_EQ(page().view().remark(page().frame().id),
              QStringLiteral("1 point is not shown: its value is not positive, and an axis is logarithmic."));
    writeValue(*set->field(1, 3)->group(), 20, -5.0);
    choose(&kernel::Frame::logY, false);
    EXPECT_EQ(page().view().remark(page().frame().id), QString());
    choose(&kernel::Frame::logY);
    EXPECT_EQ(page().view().remark(page().frame().id),
              QStringLiteral("2 points are not shown: their values are not positive, and an axis is logarithmic."));
    EXPECT_EQ(page().lines().chart().GetNumberOfPlots(), 2);
}

TEST_F(LogarithmicAxisTest, SaysWhenNothingIsPositive)
{
    auto const set = powers();
    for (int const variable : {2, 3})
        for (std::int64_t n = 0; n < pointsOfCurve; ++n)
            writeValue(*set->field(1, variable)->group(), n, -1.0);
    show(set);
    choose(&kernel::Frame::logY);
    EXPECT_EQ(page().message(), QStringLiteral("The curves have no positive values for a logarithmic axis."));
}

TEST_F(LogarithmicAxisTest, ShowsTheWholeAgainAlsoAfterItWasMoved)
{
    show(powers());
    page().picture();
    page().wheel(page().at(0.5, 0.5), 5);
    choose(&kernel::Frame::logY);
    EXPECT_NEAR(axis(vtkAxis::LEFT).GetMaximum(), 3.36, 0.01);
    page().wheel(page().at(0.5, 0.5), 5);
    page().picture();
    EXPECT_LT(axis(vtkAxis::LEFT).GetMaximum(), 3.0);
}

TEST_F(LogarithmicAxisTest, CountsOnlyTheChosenPoints)
{
    auto const set = powers();
    writeValue(*set->field(1, 1)->group(), 0, 0.0); // such as the frequency 0
    std::array<kernel::IndexRange, 3> fromSecond{};
    fromSecond[0].min = 2;
    EXPECT_EQ(app::LinePoints::create(*set, 1, 1, 2, {}, {true, false}).notPositive, 1);
    EXPECT_EQ(app::LinePoints::create(*set, 1, 1, 2, fromSecond, {true, false}).notPositive, 0);
    EXPECT_EQ(app::LinePoints::create(*set, 1, 1, 2, {}, {false, true}).notPositive, 0);
}

TEST_F(LogarithmicAxisTest, TellsTheValuesOfThePointUnderTheMouse)
{
    auto const set = powers();
    set->variable(1)->name = "t";
    set->variable(2)->name = "a<b";
    writeValue(*set->field(1, 1)->group(), 30, 31.25);
    show(set);
    choose(&kernel::Frame::logY);
    QPointF const place = placeOf(31.25, 0.0); // the point with 10 to the power of 0
    EXPECT_THAT(tipAt(place.x(), place.y()).toStdString(), testing::HasSubstr("<br>t = 31.25<br>a&lt;b = 1</p>"));
    EXPECT_THAT(tipAt(place.x() + 0.004, place.y() + 0.004).toStdString(), testing::HasSubstr("t = 31.25"))
        << "near it";
    tipAt(place.x(), place.y() + 0.2);
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); })) << "far away from any point";
}

} // namespace veldraw::tests
