#include "app/plot/LinePoints.h"
#include "app/plot/PlotTheme.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/LineMapOperation.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/operations/SetPlotType.h"
#include "kernel/operations/SetValue.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"
#include "tests/support/WriteValue.h"

#include <vtkAxis.h>
#include <vtkPlot.h>
#include <vtkStringArray.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

namespace veldraw::tests {

namespace {

double width(vtkAxis& axis)
{
    return axis.GetMaximum() - axis.GetMinimum();
}

} // namespace

TEST(LinePlot, ShowsACurveForEachActiveLineMap)
{
    PlotTestPage page({SampleData::waveFrame(SampleData::waves(400))});
    QImage const plot = page.plot(0, "line-waves");
    EXPECT_GT(PlotTestPage::pixelsNear(plot, app::PlotTheme::curve(0), 30), 800);
    EXPECT_GT(PlotTestPage::pixelsNear(plot, app::PlotTheme::curve(1), 30), 800);
    EXPECT_EQ(page.lines().chart().GetNumberOfPlots(), 2);
    EXPECT_EQ(page.lines().chart().GetPlot(1)->GetLabel(), "cosine");
    EXPECT_EQ(page.lines().chart().GetAxis(vtkAxis::BOTTOM)->GetTitle(), "t");
    EXPECT_EQ(page.lines().chart().GetAxis(vtkAxis::LEFT)->GetTitle(), "sine, cosine");
    EXPECT_EQ(page.message(), QString());
}

TEST(LinePlot, TellsCurvesOfOneNameApartByTheirVariables)
{
    auto frame = SampleData::waveFrame(SampleData::waves(50));
    for (kernel::LineMap& map : frame->lineMaps)
        map.name = "Probe";
    PlotTestPage page({frame});
    page.picture("line-one-name");
    EXPECT_EQ(page.lines().chart().GetPlot(0)->GetLabel(), "Probe: sine");
    EXPECT_EQ(page.lines().chart().GetPlot(1)->GetLabel(), "Probe: cosine");
}

TEST(LinePlot, NamesTheFirstOfManyVariablesAtAnAxis)
{
    auto const set = SampleData::waves(50);
    auto frame = SampleData::waveFrame(set);
    kernel::LineMap const map = frame->lineMaps.front();
    for (int n = 4; n <= 6; ++n) {
        set->addVariable(std::make_shared<kernel::Variable>("wave " + std::to_string(n)));
        set->zone(1)->fields[static_cast<std::size_t>(n - 1)] = *set->field(1, 2);
        frame->lineMaps.push_back(map);
        frame->lineMaps.back().yVariable = set->variable(n)->id;
    }
    PlotTestPage page({frame});
    page.picture("line-many-names");
    EXPECT_EQ(page.lines().chart().GetAxis(vtkAxis::LEFT)->GetTitle(), "sine, cosine and 3 more");
}

TEST(LinePlot, HasNoCurveOfAVariableThatIsPassiveInTheZone)
{
    auto const set = SampleData::waves(100);
    set->zone(1)->fields[2] = kernel::Field();
    PlotTestPage page({SampleData::waveFrame(set)});
    page.picture("line-passive");
    QString const missing = QStringLiteral("The variable \"cosine\" has no values in the zone of the line map.");
    EXPECT_EQ(page.lines().chart().GetNumberOfPlots(), 1);
    EXPECT_EQ(page.lines().chart().GetPlot(0)->GetLabel(), "sine");
    EXPECT_EQ(page.message(), missing);
    set->zone(1)->fields[1] = kernel::Field();
    PlotTestPage empty({SampleData::waveFrame(set)});
    EXPECT_EQ(empty.view().frameView(empty.frame().id), nullptr) << "no picture";
    EXPECT_EQ(empty.message(), missing);
}

TEST(LinePlot, SpansTheValues)
{
    PlotTestPage page({SampleData::waveFrame(SampleData::waves(401))});
    page.picture();
    vtkAxis& bottom = *page.lines().chart().GetAxis(vtkAxis::BOTTOM);
    EXPECT_LE(bottom.GetMinimum(), 0.0);
    EXPECT_GE(bottom.GetMaximum(), 4.0 * 3.14159);
    EXPECT_LT(width(bottom), 4.0 * 3.15 * 1.1);
}

TEST(LinePlot, HasRoundNumbersAtItsAxes)
{
    auto const set = SampleData::waves(101);
    kernel::ShareGroup& x = *set->field(1, 1)->group();
    for (std::int64_t n = 0; n < x.size(); ++n)
        writeValue(x, n, -0.3 + 0.006 * static_cast<double>(n));
    PlotTestPage page({SampleData::waveFrame(set)});
    page.picture("line-round");
    vtkStringArray& labels = *page.lines().chart().GetAxis(vtkAxis::BOTTOM)->GetTickLabels();
    ASSERT_GT(labels.GetNumberOfValues(), 4);
    for (vtkIdType n = 0; n < labels.GetNumberOfValues(); ++n)
        EXPECT_THAT(labels.GetValue(n), testing::MatchesRegex("-?0\\.[0-9][0-9]?")) << "not -2e-15";
    page.wheel(page.at(0.5, 0.5), 12);
    EXPECT_GT(page.lines().chart().GetAxis(vtkAxis::BOTTOM)->GetTickLabels()->GetNumberOfValues(), 4)
        << "also where the view is enlarged";
}

TEST(LinePlot, ShowsLongNamesWhole)
{
    auto const set = SampleData::waves(101);
    std::string const time = "simulated physical time since the start of the pump in seconds";
    std::string const force = "time_averaged_axial_force_on_the_first_row_of_blades_in_newtons_Z";
    PlotTestPage page({SampleData::waveFrame(set)}, {420, 380});
    ASSERT_TRUE(page.session().perform(kernel::RenameVariable(*set, 1, time)));
    ASSERT_TRUE(page.session().perform(kernel::RenameVariable(*set, 2, force)));
    ASSERT_TRUE(page.session().perform(kernel::DeleteLineMaps(page.frame().id, {2})));
    ASSERT_TRUE(page.session().perform(
        kernel::ChangeLineMaps(page.frame().id, {1}, [](kernel::LineMap& map) { map.name.clear(); })));
    QImage const plot = page.plot(0, "line-long-names");
    auto const whole = [](std::string text) {
        std::replace(text.begin(), text.end(), '\n', ' ');
        return text;
    };
    EXPECT_EQ(whole(page.lines().chart().GetAxis(vtkAxis::BOTTOM)->GetTitle()), time);
    std::string shown = page.lines().chart().GetAxis(vtkAxis::LEFT)->GetTitle();
    shown.erase(std::remove(shown.begin(), shown.end(), '\n'), shown.end());
    EXPECT_EQ(shown, force);
    EXPECT_EQ(PlotTestPage::inkedPixels(plot.copy(0, 0, 3, plot.height())), 0) << "clear of the left edge";
    EXPECT_EQ(PlotTestPage::inkedPixels(plot.copy(0, plot.height() - 3, plot.width(), 3)), 0) << "and of the lower";
    EXPECT_EQ(PlotTestPage::inkedPixels(plot.copy(plot.width() - 3, 0, 3, plot.height())), 0) << "and of the right";
}

namespace {

// Curves called @p name with their numbers in front, all of the same values, in a window of a size.
std::unique_ptr<PlotTestPage> curves(int count, std::string const& name, QSize size)
{
    auto const frame = SampleData::waveFrame(SampleData::waves(20));
    kernel::LineMap const map = frame->lineMaps.front();
    frame->lineMaps.assign(static_cast<std::size_t>(count), map);
    for (int n = 0; n < count; ++n)
        frame->lineMaps[static_cast<std::size_t>(n)].name = std::to_string(n + 1) + name;
    return std::make_unique<PlotTestPage>(std::vector<std::shared_ptr<kernel::Frame>>{frame}, size);
}

// The part of a plot that the legend takes.
QImage legendIn(QImage const& plot, app::LineView& lines)
{
    return plot.copy(0, 0, plot.width(), static_cast<int>(lines.legend().height()));
}

constexpr char longCurve[] = " time_averaged_axial_force_on_the_first_row_of_blades_in_newtons_over_the_whole_run_Z";

} // namespace

TEST(CurveLegend, ShowsALongNameWholeInAsManyLinesAsItNeeds)
{
    for (int const width : {240, 330, 900}) {
        auto const page = curves(2, longCurve, {width, 420});
        QImage const plot = page->plot(0, "line-legend-" + std::to_string(width));
        app::CurveLegend const& legend = page->lines().legend();
        ASSERT_EQ(legend.shownNames().size(), 2);
        for (int n = 0; n < 2; ++n) {
            QString const shown = legend.shownNames()[n];
            EXPECT_EQ(QString(shown).remove(QLatin1Char('\n')).toStdString(), std::to_string(n + 1) + longCurve)
                << width;
            EXPECT_EQ(shown.contains(QLatin1Char('\n')), width < 900) << width;
        }
        EXPECT_LE(legend.height(), 0.4 * plot.height()) << width;
        QImage const drawn = legendIn(plot, page->lines());
        EXPECT_GT(PlotTestPage::pixelsNear(drawn, app::PlotTheme::text(), 60), 400) << width;
        EXPECT_GT(PlotTestPage::pixelsNear(drawn, app::PlotTheme::curve(0), 30), 20) << "a piece of the curve";
        EXPECT_GT(PlotTestPage::pixelsNear(drawn, app::PlotTheme::curve(1), 30), 20) << "and of the other";
        EXPECT_LT(page->lines().chart().GetPoint2()[1], plot.height() - legend.height()) << "above the chart";
    }
}

TEST(CurveLegend, LeavesOutTheMiddleOnlyOfWhatTwoFifthsOfTheFrameDoNotHold)
{
    auto const page = curves(2, longCurve, {240, 280});
    QImage const plot = page->plot(0, "line-legend-shortened");
    app::CurveLegend const& legend = page->lines().legend();
    ASSERT_EQ(legend.shownNames().size(), 2);
    for (QString const& shown : legend.shownNames()) {
        EXPECT_TRUE(shown.contains(QChar(0x2026))) << shown.toStdString();
        EXPECT_GE(shown.count(QLatin1Char('\n')), 1) << shown.toStdString();
        EXPECT_TRUE(shown.endsWith(QStringLiteral("run_Z"))) << shown.toStdString();
    }
    EXPECT_LE(legend.height(), 0.4 * plot.height());
}

TEST(CurveLegend, PutsManyShortNamesIntoColumns)
{
    auto const page = curves(24, " force", {900, 420});
    QImage const plot = page->plot(0, "line-legend-columns");
    app::CurveLegend const& legend = page->lines().legend();
    ASSERT_EQ(legend.shownNames().size(), 24);
    EXPECT_EQ(legend.shownNames()[23], QStringLiteral("24 force"));
    EXPECT_LE(legend.height(), 0.4 * plot.height());
    QImage const drawn = legendIn(plot, page->lines());
    for (int n = 0; n < 8; ++n)
        EXPECT_GT(PlotTestPage::pixelsNear(drawn, app::PlotTheme::curve(n), 30), 3 * 20) << n;
}

TEST(CurveLegend, CountsTheCurvesThatItHasNoRoomFor)
{
    auto const page = curves(60, longCurve, {420, 320});
    QImage const plot = page->plot(0, "line-legend-rest");
    QStringList const names = page->lines().legend().shownNames();
    ASSERT_GT(names.size(), 3);
    EXPECT_EQ(names.last(), QStringLiteral("and %1 more").arg(60 - (names.size() - 1)));
    EXPECT_TRUE(names.first().startsWith(QStringLiteral("1 time"))) << names.first().toStdString();
    EXPECT_TRUE(names.first().endsWith(QStringLiteral("run_Z")));
    EXPECT_LE(page->lines().legend().height(), 0.4 * plot.height());
    EXPECT_EQ(PlotTestPage::inkedPixels(plot.copy(plot.width() - 3, 0, 3, plot.height())), 0);
}

TEST(CurveLegend, IsNotCoveredByWhatIsSaidOfAMissingCurve)
{
    for (int const width : {240, 900}) {
        auto const set = SampleData::waves(100);
        set->zone(1)->fields[2] = kernel::Field();
        PlotTestPage page({SampleData::waveFrame(set)}, {width, 420});
        QImage const all = page.picture("line-legend-notice-" + std::to_string(width));
        QColor const ground(0xFF, 0xF4, 0xD6);
        EXPECT_GT(PlotTestPage::pixelsNear(all, ground, 4), 1000) << width;
        QImage const plot = page.plot();
        EXPECT_EQ(PlotTestPage::pixelsNear(plot, ground, 4), 0) << width;
        EXPECT_GT(PlotTestPage::pixelsNear(legendIn(plot, page.lines()), app::PlotTheme::text(), 60), 20) << width;
        ASSERT_TRUE(page.session().perform(kernel::DeleteLineMaps(page.frame().id, {2})));
        EXPECT_GT(page.plot().height(), plot.height()) << "the strip goes with the sentence, " << width;
    }
}

TEST(CurveLegend, StandsInABoxWithAllItsSidesWhateverTheSize)
{
    for (int width = 500; width < 512; ++width) {
        auto const page = curves(2, " force", {width, 400 + width % 5});
        QImage const plot = page->plot(0, "line-legend-box-" + std::to_string(width));
        QImage const drawn = legendIn(plot, page->lines());
        int sides = 0;
        for (int x = 0; x < drawn.width(); ++x)
            sides += PlotTestPage::pixelsNear(drawn.copy(x, 0, 1, drawn.height()), app::PlotTheme::border(), 24) >
                     drawn.height() / 2;
        EXPECT_EQ(sides, 2) << width;
    }
}

TEST(CurveLegend, LeavesATinyFrameToTheCurves)
{
    auto const page = curves(2, longCurve, {420, 110});
    page->picture("line-legend-tiny");
    EXPECT_EQ(page->lines().legend().height(), 0.0);
    EXPECT_TRUE(page->lines().legend().shownNames().isEmpty());
}

TEST(LinePlot, ShowsSymbolsInPlaceOfLines)
{
    PlotTestPage page({SampleData::waveFrame(SampleData::waves(40))});
    QImage const lines = page.plot();
    ASSERT_TRUE(page.session().perform(kernel::SetPlotOption(page.frame().id, &kernel::Frame::showSymbols, true)));
    ASSERT_TRUE(page.session().perform(kernel::SetPlotOption(page.frame().id, &kernel::Frame::showLines, false)));
    QImage const symbols = page.plot(0, "line-symbols");
    EXPECT_GT(PlotTestPage::pixelsNear(symbols, app::PlotTheme::curve(0), 30), 300);
    EXPECT_GT(PlotTestPage::differingPixels(lines, symbols), 1000);
    ASSERT_TRUE(page.session().perform(kernel::SetPlotOption(page.frame().id, &kernel::Frame::showSymbols, false)));
    page.picture();
    EXPECT_EQ(page.message(), QStringLiteral("Neither lines nor symbols are switched on."));
}

TEST(LinePlot, LeavesGapsWhereAValueIsMissing)
{
    auto const set = SampleData::waves(400);
    kernel::ShareGroup& sine = *set->field(1, 2)->group();
    for (std::int64_t n = 100; n < 200; ++n)
        writeValue(sine, n, n % 2 ? std::numeric_limits<double>::quiet_NaN() : std::numeric_limits<double>::infinity());
    PlotTestPage page({SampleData::waveFrame(set)});
    QImage const plot = page.plot(0, "line-gap");
    EXPECT_GT(PlotTestPage::pixelsNear(plot, app::PlotTheme::curve(0), 30), 400);
    EXPECT_LT(page.lines().chart().GetAxis(vtkAxis::LEFT)->GetMaximum(), 2.0);
}

TEST(LinePlot, SaysWhenAVariableIsGoneAndBringsThePictureBackOnUndo)
{
    PlotTestPage page({SampleData::waveFrame(SampleData::waves(100))});
    QImage const before = page.plot();
    ASSERT_TRUE(page.session().perform(kernel::DeleteVariables(*page.frame().dataSet, {1})));
    EXPECT_LT(PlotTestPage::colouredPixels(page.plot(0, "line-no-axis")), 50);
    EXPECT_EQ(page.message(), QStringLiteral("No variable is assigned to the X axis."));
    ASSERT_TRUE(page.session().undo());
    EXPECT_EQ(PlotTestPage::differingPixels(before, page.plot()), 0);
}

TEST(LinePlot, ShowsTheOtherCurvesWhenOneIsGone)
{
    PlotTestPage page({SampleData::waveFrame(SampleData::waves(100))});
    ASSERT_TRUE(page.session().perform(kernel::DeleteVariables(*page.frame().dataSet, {3})));
    QImage const plot = page.plot(0, "line-one-left");
    EXPECT_GT(PlotTestPage::pixelsNear(plot, app::PlotTheme::curve(0), 30), 800);
    EXPECT_EQ(page.message(), QStringLiteral("No variable is assigned to the Y axis."));
}

TEST(LinePlot, SaysWhenNoLineMapIsActive)
{
    auto frame = SampleData::waveFrame(SampleData::waves(100));
    for (kernel::LineMap& map : frame->lineMaps)
        map.active = false;
    PlotTestPage page({frame});
    EXPECT_EQ(page.message(), QStringLiteral("No line map is active."));
}

TEST(LinePlot, MovesAndEnlargesByTheMouseAndFits)
{
    PlotTestPage page({SampleData::waveFrame(SampleData::waves(100))});
    QImage const before = page.plot();
    vtkAxis& bottom = *page.lines().chart().GetAxis(vtkAxis::BOTTOM);
    double const whole = width(bottom);
    double const start = bottom.GetMinimum();
    page.drag(page.at(0.4, 0.5), page.at(0.6, 0.5));
    EXPECT_NEAR(width(bottom), whole, 1e-9);
    EXPECT_LT(bottom.GetMinimum(), start - 0.15 * whole);
    page.wheel(page.at(0.5, 0.5), 3);
    EXPECT_NEAR(width(bottom), whole / std::pow(1.15, 3), 1e-9);
    EXPECT_GT(PlotTestPage::differingPixels(before, page.plot()), 500);
    page.view().fitAllFrames();
    EXPECT_EQ(PlotTestPage::differingPixels(before, page.plot()), 0);
}

namespace {

/// A line plot whose curves get another extent.
class LineViewAfterChange : public ::testing::Test
{
protected:
    LineViewAfterChange()
        : page({SampleData::waveFrame(SampleData::waves(100))})
    {
        page.picture();
    }

    void edit(double value)
    {
        ASSERT_TRUE(page.session().perform(kernel::SetValue(*page.frame().dataSet, 1, 2, 60, value, false)));
        page.picture();
    }

    void moveView()
    {
        page.drag(page.at(0.4, 0.5), page.at(0.5, 0.45));
        page.wheel(page.at(0.3, 0.5), 3);
    }

    std::array<double, 4> limits()
    {
        vtkAxis& x = *page.lines().chart().GetAxis(vtkAxis::BOTTOM);
        vtkAxis& y = *page.lines().chart().GetAxis(vtkAxis::LEFT);
        return {x.GetMinimum(), x.GetMaximum(), y.GetMinimum(), y.GetMaximum()};
    }

    // As a frame looks that has just been opened with the same data.
    void expectFitted()
    {
        auto const frame = SampleData::waveFrame(page.frame().dataSet);
        frame->lineMaps = page.frame().lineMaps;
        PlotTestPage fresh({frame});
        fresh.picture();
        vtkAxis& x = *fresh.lines().chart().GetAxis(vtkAxis::BOTTOM);
        vtkAxis& y = *fresh.lines().chart().GetAxis(vtkAxis::LEFT);
        EXPECT_EQ(limits(), (std::array<double, 4>{x.GetMinimum(), x.GetMaximum(), y.GetMinimum(), y.GetMaximum()}));
    }

    PlotTestPage page;
};

} // namespace

TEST_F(LineViewAfterChange, OneThatShowsTheWholeGoesOnDoingSo)
{
    edit(30.0);
    EXPECT_GT(limits()[3], 30.0);
    expectFitted();
    ASSERT_TRUE(page.session().undo());
    page.picture();
    EXPECT_LT(limits()[3], 2.0);
    expectFitted();
}

TEST_F(LineViewAfterChange, OneThatWasMovedStaysThroughEditUndoAndRedo)
{
    moveView();
    auto const before = limits();
    edit(30.0);
    EXPECT_EQ(before, limits());
    ASSERT_TRUE(page.session().undo());
    page.picture();
    EXPECT_EQ(before, limits());
    ASSERT_TRUE(page.session().redo());
    page.picture();
    EXPECT_EQ(before, limits());
}

TEST_F(LineViewAfterChange, OneThatWasMovedFollowsTheDataAgainAfterAFit)
{
    moveView();
    page.view().fitActiveFrame();
    edit(30.0);
    expectFitted();
}

TEST_F(LineViewAfterChange, OneThatWasMovedStaysWhileItsCurvesAreGone)
{
    moveView();
    auto const before = limits();
    ASSERT_TRUE(page.session().perform(kernel::DeleteVariables(*page.frame().dataSet, {1})));
    page.picture();
    ASSERT_NE(page.message(), QString());
    ASSERT_TRUE(page.session().undo());
    page.picture();
    EXPECT_EQ(before, limits());
}

TEST_F(LineViewAfterChange, OneThatWasMovedStaysWhenACurveGoes)
{
    edit(30.0);
    moveView();
    auto const before = limits();
    ASSERT_TRUE(page.session().perform(kernel::DeleteVariables(*page.frame().dataSet, {2})));
    page.picture();
    ASSERT_EQ(page.lines().chart().GetNumberOfPlots(), 1);
    EXPECT_EQ(before, limits());
}

TEST_F(LineViewAfterChange, OtherVariablesOnAnAxisAreShownWhole)
{
    moveView();
    kernel::UniqueId const time = page.frame().lineMaps[0].xVariable;
    ASSERT_TRUE(page.session().perform(
        kernel::ChangeLineMaps(page.frame().id, {1, 2}, [time](kernel::LineMap& map) { map.yVariable = time; })));
    page.picture();
    EXPECT_GT(limits()[3], 12.0);
    expectFitted();
}

TEST(LinePoints, TakesTheMiddleOfTwoPointsForAValueInACell)
{
    auto const set = SampleData::waves(5);
    SampleData::addField(*set->zone(1), {1.0, 2.0, 3.0, 4.0, 1e9}, ValueLocation_CellCentered, 2);
    auto const points = app::LinePoints::create(*set, 1, 1, 2, {}).table;
    ASSERT_EQ(points->GetNumberOfRows(), 4);
    double const step = 3.14159265358979323846;
    for (vtkIdType n = 0; n < 4; ++n) {
        EXPECT_NEAR(points->GetValue(n, 0).ToDouble(), (static_cast<double>(n) + 0.5) * step, 1e-12);
        EXPECT_DOUBLE_EQ(points->GetValue(n, 1).ToDouble(), static_cast<double>(n) + 1.0);
    }
}

TEST(LinePoints, RefusesToPairPointsWithCellsOfASheet)
{
    EXPECT_EQ(app::LinePoints::create(*SampleData::cellSheet(4, 3), 1, 1, 3, {}).table, nullptr);
}

TEST(LinePoints, TakesTheChosenPointsOnly)
{
    std::array<kernel::IndexRange, 3> indices{};
    indices[0] = {2, 8, 3};
    auto const points = app::LinePoints::create(*SampleData::waves(11), 1, 1, 2, indices).table;
    ASSERT_EQ(points->GetNumberOfRows(), 3);
    EXPECT_NEAR(points->GetValue(2, 0).ToDouble(), 4.0 * 3.14159265358979 * 7 / 10, 1e-9);
}

TEST(LinePoints, ThinsALongCurveButKeepsItsPeaks)
{
    constexpr int count = 2000000;
    auto const set = SampleData::waves(count);
    writeValue(*set->field(1, 2)->group(), 1234567, 99.0);
    auto const points = app::LinePoints::create(*set, 1, 1, 2, {}).table;
    EXPECT_LE(points->GetNumberOfRows(), 500000);
    double highest = 0.0;
    for (vtkIdType n = 0; n < points->GetNumberOfRows(); ++n)
        highest = std::max(highest, points->GetValue(n, 1).ToDouble());
    EXPECT_DOUBLE_EQ(highest, 99.0);
}

} // namespace veldraw::tests
