#include "app/plot/ColourMap.h"
#include "app/plot/PlotTheme.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"
#include "tests/support/WriteValue.h"

#include <QTest>
#include <vtkCamera.h>
#include <vtkLookupTable.h>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace veldraw::tests {

namespace {

QColor mapColour(double share)
{
    double rgb[3];
    app::ColourMap::create(0.0, 1.0)->GetColor(share, rgb);
    return QColor::fromRgbF(rgb[0], rgb[1], rgb[2]);
}

std::array<double, 3> cameraPosition(app::FieldView const& view)
{
    std::array<double, 3> position{};
    view.stage().GetActiveCamera()->GetPosition(position.data());
    return position;
}

QRect legendArea(QImage const& plot)
{
    int const width = static_cast<int>(124 * plot.devicePixelRatio());
    return {plot.width() - width, 0, width, plot.height()};
}

} // namespace

TEST(FieldPlotInSpace, ShowsTheContourFloodOfABlock)
{
    PlotTestPage page({SampleData::frame("Bent block", SampleData::block(40, 30, 20), PlotType_Cartesian3D)});
    QImage const plot = page.plot(0, "space-block");
    EXPECT_GT(PlotTestPage::colouredPixels(plot), 20000);
    EXPECT_EQ(page.message(), QString());
}

TEST(FieldPlotInSpace, DrawsTheMeshOverTheSurface)
{
    PlotTestPage page({SampleData::frame("Bent block", SampleData::block(40, 30, 20), PlotType_Cartesian3D)});
    QImage const plain = page.plot();
    ASSERT_TRUE(page.session().perform(kernel::SetPlotOption(page.frame().id, &kernel::Frame::showMesh, true)));
    QImage const meshed = page.plot(0, "space-mesh");
    EXPECT_GT(PlotTestPage::pixelsNear(meshed, app::PlotTheme::mesh(), 40),
              PlotTestPage::pixelsNear(plain, app::PlotTheme::mesh(), 40) + 1000);
}

TEST(FieldPlotInSpace, ShowsBricksByTheirOuterFaces)
{
    PlotTestPage page({SampleData::frame("Bricks", SampleData::bricks(8), PlotType_Cartesian3D)});
    ASSERT_TRUE(page.session().perform(kernel::SetPlotOption(page.frame().id, &kernel::Frame::showMesh, true)));
    EXPECT_GT(PlotTestPage::colouredPixels(page.plot(0, "space-bricks")), 20000);
    EXPECT_EQ(page.field().zones().at(0)->cellCount(), 6 * 8 * 8);
}

TEST(FieldPlotInSpace, ShowsPolyhedraAndMixedCells)
{
    PlotTestPage page({SampleData::frame("Polyhedron", SampleData::prism(), PlotType_Cartesian3D),
                       SampleData::frame("Mixed", SampleData::mixed(), PlotType_Cartesian3D)});
    page.picture("space-polyhedron");
    EXPECT_GT(PlotTestPage::colouredPixels(page.plot(0)), 3000);
    EXPECT_GT(PlotTestPage::colouredPixels(page.plot(1)), 1500);
    for (std::size_t const frame : {0U, 1U})
        EXPECT_GT(PlotTestPage::pixelsNear(page.plot(frame).copy(0, 0, 300, 600), app::PlotTheme::text(), 10), 20)
            << "the names of the axes stand beside the box of frame " << frame;
}

TEST(FieldPlotInSpace, ShadesSurfacesWhenTheFloodIsOff)
{
    PlotTestPage page({SampleData::frame("Bent block", SampleData::block(40, 30, 20), PlotType_Cartesian3D)});
    ASSERT_TRUE(page.session().perform(kernel::SetPlotOption(page.frame().id, &kernel::Frame::showContour, false)));
    QImage const plot = page.plot(0, "space-shaded");
    EXPECT_GT(PlotTestPage::inkedPixels(plot), 20000);
    EXPECT_LT(PlotTestPage::colouredPixels(plot), 2000);
    EXPECT_FALSE(page.field().legend().isShown());
}

TEST(FieldPlotInSpace, TurnsByADragAndMovesByAMiddleDrag)
{
    PlotTestPage page({SampleData::frame("Bent block", SampleData::block(20, 15, 10), PlotType_Cartesian3D)});
    auto const before = cameraPosition(page.field());
    double const distance = page.field().stage().GetActiveCamera()->GetDistance();
    QImage const pictureBefore = page.plot();
    page.drag(page.at(0.4, 0.5), page.at(0.6, 0.4));
    auto const turned = cameraPosition(page.field());
    EXPECT_NE(before, turned);
    EXPECT_NEAR(page.field().stage().GetActiveCamera()->GetDistance(), distance, 1e-6 * distance);
    EXPECT_GT(PlotTestPage::differingPixels(pictureBefore, page.plot(0, "space-turned")), 5000);

    double focus[3];
    page.drag(page.at(0.4, 0.5), page.at(0.6, 0.5), Qt::MiddleButton);
    page.field().stage().GetActiveCamera()->GetFocalPoint(focus);
    EXPECT_GT(std::hypot(focus[0], focus[1], focus[2]), 0.05);
}

TEST(FieldPlotInSpace, KeepsTheViewWhenValuesChangeAndFitsWhenTheExtentDoes)
{
    auto const set = SampleData::block(20, 15, 10);
    PlotTestPage page({SampleData::frame("Bent block", set, PlotType_Cartesian3D)});
    page.drag(page.at(0.4, 0.5), page.at(0.6, 0.4));
    auto const turned = cameraPosition(page.field());
    ASSERT_TRUE(page.session().perform(kernel::AssignVariable(page.frame().id, 'C', 1)));
    page.picture();
    EXPECT_EQ(cameraPosition(page.field()), turned);
    ASSERT_TRUE(page.session().perform(kernel::AssignVariable(page.frame().id, 'Z', 4)));
    page.picture();
    EXPECT_NE(cameraPosition(page.field()), turned);
}

TEST(FieldPlotInPlane, ShowsBothEndsOfTheColoursAndTheLegendTheRange)
{
    PlotTestPage page({SampleData::frame("Sheet", SampleData::sheet(41, 21), PlotType_Cartesian2D)});
    QImage const plot = page.plot(0, "plane-sheet");
    QImage const left = plot.copy(0, 0, plot.width() / 2, plot.height());
    QImage const right = plot.copy(plot.width() / 2, 0, plot.width() / 2 - legendArea(plot).width(), plot.height());
    EXPECT_GT(PlotTestPage::pixelsNear(left, mapColour(0.01)), 500);
    EXPECT_EQ(PlotTestPage::pixelsNear(left, mapColour(0.99)), 0);
    EXPECT_GT(PlotTestPage::pixelsNear(right, mapColour(0.99)), 500);
    EXPECT_EQ(PlotTestPage::pixelsNear(right, mapColour(0.01)), 0);

    EXPECT_DOUBLE_EQ(page.field().legend().min(), -5.0);
    EXPECT_DOUBLE_EQ(page.field().legend().max(), 15.0);
    EXPECT_EQ(page.field().legend().name(), QStringLiteral("p"));
    QImage const legend = plot.copy(legendArea(plot));
    EXPECT_GT(PlotTestPage::pixelsNear(legend, mapColour(0.01)), 10);
    EXPECT_GT(PlotTestPage::pixelsNear(legend, mapColour(0.99)), 10);
}

TEST(FieldPlotInPlane, GivesEachCellOneColour)
{
    PlotTestPage page({SampleData::frame("Cells", SampleData::cellSheet(5, 3), PlotType_Cartesian2D)});
    QImage const plot = page.plot(0, "plane-cells");
    for (double const share : {0.0, 1.0 / 3.0, 2.0 / 3.0, 1.0})
        EXPECT_GT(PlotTestPage::pixelsNear(plot, mapColour(share), 6), 10000) << share;
    EXPECT_DOUBLE_EQ(page.field().legend().min(), 1.0);
    EXPECT_DOUBLE_EQ(page.field().legend().max(), 4.0) << "the slots that stand for no cell count";
}

TEST(FieldPlotInPlane, ShowsTrianglesPointsAndSegments)
{
    PlotTestPage page({SampleData::frame("Triangles", SampleData::triangles(8), PlotType_Cartesian2D),
                       SampleData::frame("Points", SampleData::points(400), PlotType_Cartesian2D),
                       SampleData::frame("Segments", SampleData::segments(300), PlotType_Cartesian2D)},
                      {1300, 900});
    page.picture("plane-kinds");
    EXPECT_GT(PlotTestPage::colouredPixels(page.plot(0)), 20000);
    EXPECT_GT(PlotTestPage::colouredPixels(page.plot(1)), 3000);
    EXPECT_GT(PlotTestPage::colouredPixels(page.plot(2)), 1500);
    EXPECT_EQ(page.field(1).zones().at(0)->cellCount(), 400) << "each point is drawn, no line through them";
}

TEST(FieldPlotInPlane, ShowsSeveralZonesOverOneCommonRange)
{
    auto const set = SampleData::sheet(21, 11);
    auto second = std::make_shared<kernel::Zone>("Other", ZoneType_Ordered, 2, 2, 1);
    set->addZone(second);
    SampleData::addField(*second, {3.0, 4.0, 3.0, 4.0});
    SampleData::addField(*second, {0.0, 0.0, 1.0, 1.0});
    SampleData::addField(*second, {15.0, 35.0, 15.0, 35.0});
    PlotTestPage page({SampleData::frame("Two zones", set, PlotType_Cartesian2D)});
    EXPECT_DOUBLE_EQ(page.field().legend().max(), 35.0);
    int const both = PlotTestPage::colouredPixels(page.plot(0, "plane-zones"));
    ASSERT_TRUE(page.session().perform(kernel::EnableZone(*page.frame().dataSet, 2, false)));
    page.picture();
    EXPECT_DOUBLE_EQ(page.field().legend().max(), 15.0);
    EXPECT_EQ(page.field().zones().size(), 1U);
    EXPECT_NE(PlotTestPage::colouredPixels(page.plot()), both);
}

TEST(FieldPlotInPlane, DrawsAZoneWithoutTheContourVariableInGreyAndLeavesItOutOfTheRange)
{
    auto const set = SampleData::sheet(21, 11);
    kernel::ShareGroup& values = *set->field(1, 3)->group();
    for (std::int64_t n = 0; n < values.size(); ++n)
        writeValue(values, n, 300.0 + static_cast<double>(n % 50));
    auto bare = std::make_shared<kernel::Zone>("Bare", ZoneType_Ordered, 2, 2, 1);
    set->addZone(bare);
    SampleData::addField(*bare, {0.5, 1.5, 0.5, 1.5});
    SampleData::addField(*bare, {0.2, 0.2, 0.8, 0.8});
    ASSERT_TRUE(set->field(2, 3)->isPassive());
    PlotTestPage page({SampleData::frame("Partly", set, PlotType_Cartesian2D)});
    QImage const plot = page.plot(0, "plane-passive");
    EXPECT_DOUBLE_EQ(page.field().legend().min(), 300.0);
    EXPECT_DOUBLE_EQ(page.field().legend().max(), 349.0);
    QColor const middle = plot.pixelColor((plot.width() - legendArea(plot).width()) / 2, plot.height() / 2);
    EXPECT_EQ(middle, app::PlotTheme::noValue());
    EXPECT_GT(PlotTestPage::pixelsNear(plot, app::PlotTheme::noValue(), 2), 20000);
    EXPECT_EQ(page.message(), QString());
}

TEST(FieldPlotInSpace, DrawsAZoneWithoutTheContourVariableInShadesOfGrey)
{
    auto const set = SampleData::block(9, 9, 9);
    PlotTestPage whole({SampleData::frame("Whole", set, PlotType_Cartesian3D)});
    ASSERT_GT(PlotTestPage::colouredPixels(whole.plot()), 20000);
    auto const other = SampleData::block(9, 9, 9);
    set->addZone(other->zone(1));
    set->zone(2)->fields[3] = kernel::Field();
    set->zone(1)->enabled = false;
    PlotTestPage page({SampleData::frame("Passive", set, PlotType_Cartesian3D)});
    EXPECT_EQ(page.message(), QStringLiteral("The contour variable has no values in the enabled zones."));
    EXPECT_FALSE(page.field().legend().isShown());
    ASSERT_TRUE(page.session().perform(kernel::EnableZone(*set, 1, true)));
    QImage const plot = page.plot(0, "space-passive");
    EXPECT_LT(PlotTestPage::colouredPixels(plot.copy(0, 0, 700, plot.height())), 2000)
        << "the zones lie in one place, and the second is drawn over the first";
    EXPECT_TRUE(page.field().legend().isShown());
    EXPECT_EQ(page.message(), QString());
}

TEST(FieldPlotInPlane, LeavesOutCellsWithoutAPlaceAndGreysCellsWithoutAValue)
{
    auto const set = SampleData::sheet(21, 11);
    double const none = std::numeric_limits<double>::quiet_NaN();
    auto const write = [&set](int variable, std::int64_t index, double value) {
        writeValue(*set->field(1, variable)->group(), index, value);
    };
    write(1, 5 * 21 + 4, none);
    write(1, 5 * 21 + 5, std::numeric_limits<double>::infinity());
    for (std::int64_t j = 2; j < 9; ++j)
        for (std::int64_t i = 12; i < 18; ++i)
            write(3, i + 21 * j, none);
    PlotTestPage page({SampleData::frame("Holes", set, PlotType_Cartesian2D)});
    QImage const plot = page.plot(0, "plane-holes");
    EXPECT_EQ(page.field().zones().at(0)->cellCount(), 20 * 10 - 6);
    EXPECT_GT(PlotTestPage::pixelsNear(plot, app::PlotTheme::noValue(), 4), 5000);
    EXPECT_GT(PlotTestPage::colouredPixels(plot), 20000);
}

TEST(FieldPlotInPlane, ColoursValuesWhoseDifferenceIsBeyondTheLargestNumber)
{
    auto const set = SampleData::sheet(5, 2);
    double const most = std::numeric_limits<double>::max();
    kernel::ShareGroup& values = *set->field(1, 3)->group();
    for (std::int64_t point = 0; point < 10; ++point)
        writeValue(values, point, most * (static_cast<double>(point % 5) / 2.0 - 1.0));
    PlotTestPage page({SampleData::frame("Sheet", set, PlotType_Cartesian2D)});
    page.picture("beyond-the-largest-number");
    vtkFloatArray* const shares = page.field().zones().at(0)->shares();
    ASSERT_EQ(shares->GetNumberOfValues(), 10);
    for (int point = 0; point < 10; ++point)
        EXPECT_NEAR(shares->GetValue(point), static_cast<float>(point % 5) / 4.0F, 1e-6F);
}

TEST(FieldPlotInPlane, DrawsAVariableWithoutAnyFiniteValueInNeutralShadeAndSaysSo)
{
    auto const set = SampleData::sheet(5, 5);
    kernel::ShareGroup& values = *set->field(1, 3)->group();
    for (std::int64_t n = 0; n < values.size(); ++n)
        writeValue(values, n, std::numeric_limits<double>::quiet_NaN());
    PlotTestPage page({SampleData::frame("Nothing", set, PlotType_Cartesian2D)});
    EXPECT_GT(PlotTestPage::pixelsNear(page.plot(), app::PlotTheme::shade(), 4), 20000);
    EXPECT_EQ(page.message(), QStringLiteral("The contour variable has no values in the enabled zones."));
}

TEST(FieldPlotInPlane, MovesByADragButNeverTurns)
{
    PlotTestPage page({SampleData::frame("Sheet", SampleData::sheet(41, 21), PlotType_Cartesian2D)});
    page.drag(page.at(0.4, 0.4), page.at(0.6, 0.6));
    vtkCamera* const camera = page.field().stage().GetActiveCamera();
    double const* const direction = camera->GetDirectionOfProjection();
    EXPECT_DOUBLE_EQ(direction[2], -1.0);
    EXPECT_DOUBLE_EQ(camera->GetViewUp()[1], 1.0);
    EXPECT_LT(camera->GetFocalPoint()[0], -0.05);
    EXPECT_GT(camera->GetFocalPoint()[1], 0.05);
}

TEST(FieldPlotInPlane, WheelEnlargesAroundTheMouseAndFitTakesItBack)
{
    PlotTestPage page({SampleData::frame("Sheet", SampleData::sheet(41, 21), PlotType_Cartesian2D)});
    vtkCamera* const camera = page.field().stage().GetActiveCamera();
    double const whole = camera->GetParallelScale();
    QImage const before = page.plot();
    page.wheel(page.at(0.25, 0.5), 4);
    EXPECT_NEAR(camera->GetParallelScale(), whole / std::pow(1.15, 4), 1e-9);
    EXPECT_LT(camera->GetFocalPoint()[0], -0.01) << "the point under the mouse stays there";
    EXPECT_GT(PlotTestPage::differingPixels(before, page.plot(0, "plane-enlarged")), 5000);
    page.view().fitActiveFrame();
    EXPECT_EQ(PlotTestPage::differingPixels(before, page.plot()), 0);
    EXPECT_DOUBLE_EQ(camera->GetParallelScale(), whole);
}

TEST(FieldPlot, SaysWhenTheContourVariableIsGoneAndBringsThePictureBackOnUndo)
{
    PlotTestPage page({SampleData::frame("Sheet", SampleData::sheet(41, 21), PlotType_Cartesian2D)});
    QImage const before = page.plot();
    ASSERT_TRUE(page.session().perform(kernel::DeleteVariables(*page.frame().dataSet, {3})));
    QImage const without = page.plot(0, "plane-no-contour");
    EXPECT_EQ(page.message(), QStringLiteral("No variable is assigned to the contour."));
    EXPECT_GT(PlotTestPage::pixelsNear(without, app::PlotTheme::shade(), 4), 20000);
    ASSERT_TRUE(page.session().undo());
    EXPECT_EQ(PlotTestPage::differingPixels(before, page.plot()), 0);
    EXPECT_EQ(page.message(), QString());
}

TEST(FieldPlot, SaysWhenAnAxisVariableIsGoneAndBringsThePictureBackOnUndo)
{
    PlotTestPage page({SampleData::frame("Sheet", SampleData::sheet(41, 21), PlotType_Cartesian2D)});
    QImage const before = page.plot();
    ASSERT_TRUE(page.session().perform(kernel::DeleteVariables(*page.frame().dataSet, {1})));
    QImage const without = page.plot(0, "plane-no-axis");
    EXPECT_EQ(page.message(), QStringLiteral("No variable is assigned to the X axis."));
    EXPECT_EQ(PlotTestPage::colouredPixels(without), 0);
    EXPECT_GT(PlotTestPage::inkedPixels(without), 200) << "the sentence is to be read";
    EXPECT_EQ(page.view().frameView(page.frame().id), nullptr);
    ASSERT_TRUE(page.session().undo());
    EXPECT_EQ(PlotTestPage::differingPixels(before, page.plot()), 0);
}

TEST(FieldPlot, HoldsNoBufferOfTheDataSet)
{
    auto const set = SampleData::block(12, 9, 7);
    std::vector<std::weak_ptr<kernel::Buffer const>> buffers;
    for (int variable = 1; variable <= 4; ++variable)
        buffers.push_back(set->field(1, variable)->group()->buffer());
    PlotTestPage page({SampleData::frame("Block", set, PlotType_Cartesian3D)});
    page.picture();
    for (auto const& buffer : buffers)
        EXPECT_EQ(buffer.use_count(), 1);
}

TEST(FieldPlot, KeepsOnlyTheOuterSurfaceOfALargeBlock)
{
    constexpr int n = 100;
    auto const set = SampleData::block(n, n, n);
    PlotTestPage page({SampleData::frame("Large block", set, PlotType_Cartesian3D)});
    EXPECT_EQ(page.field().zones().at(0)->cellCount(), 6LL * (n - 1) * (n - 1));
    EXPECT_LT(page.field().zones().at(0)->bytes(), 4LL * n * n * n * 8 / 5);
}

TEST(FieldPlot, SaysWhatIsMissing)
{
    auto const blank = std::make_shared<kernel::Frame>("Blank", kernel::Rectangle{});
    blank->plotType = PlotType_Cartesian2D;
    auto const noPoints = SampleData::sheet(3, 3);
    noPoints->zone(1)->i = 0;
    PlotTestPage page({blank, SampleData::frame("Empty", noPoints, PlotType_Cartesian2D),
                       SampleData::frame("Sketch", SampleData::sheet(3, 3), PlotType_Sketch)});
    page.picture("notices");
    EXPECT_EQ(page.message(0), QStringLiteral("This frame has no data set."));
    EXPECT_EQ(page.message(1), QStringLiteral("The enabled zones have no points."));
    EXPECT_EQ(page.message(2), QStringLiteral("A sketch shows no data. Choose another plot type."));
}

TEST(FieldPlot, SaysWhenNoZoneIsEnabledOrAnAxisHasItsValuesInCells)
{
    PlotTestPage page({SampleData::frame("Sheet", SampleData::sheet(9, 9), PlotType_Cartesian2D),
                       SampleData::frame("Cells", SampleData::cellSheet(5, 3), PlotType_Cartesian2D)});
    ASSERT_TRUE(page.session().perform(kernel::EnableZone(*page.frame(0).dataSet, 1, false)));
    ASSERT_TRUE(page.session().perform(kernel::AssignVariable(page.frame(1).id, 'Y', 3)));
    page.picture();
    EXPECT_EQ(page.message(0), QStringLiteral("No zone is enabled."));
    EXPECT_EQ(page.message(1), QStringLiteral("The variable on the Y axis has values at cells, not at points."));
}

TEST(FieldPlot, LeavesOutCellsThatNamePointsWhichDoNotExist)
{
    auto const set = SampleData::triangles(4);
    set->zone(1)->i -= 1;
    PlotTestPage page({SampleData::frame("Broken", set, PlotType_Cartesian2D)});
    EXPECT_EQ(page.field().zones().at(0)->cellCount(), 0);
    page.picture();
}

TEST(FieldPlot, PicksTheZoneUnderTheMouse)
{
    PlotTestPage page({SampleData::frame("Sheet", SampleData::sheet(21, 11), PlotType_Cartesian2D)});
    page.picture();
    page.click(page.at(0.45, 0.5));
    ASSERT_EQ(page.session().picks().size(), 1U);
    EXPECT_EQ(page.session().picks().at(0).zone, page.frame().dataSet->zone(1)->id);
    page.click(page.at(0.45, 0.04));
    EXPECT_TRUE(page.session().picks().empty());
}

} // namespace veldraw::tests
