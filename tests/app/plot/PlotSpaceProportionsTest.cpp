#include "app/plot/ColourMap.h"
#include "app/plot/PageOnScreen.h"
#include "app/plot/PlaneView.h"
#include "app/plot/PlotTheme.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"
#include "tests/support/WriteValue.h"

#include <vtkPolyData.h>

#include <array>
#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

// A block of 3 x 3 x 3 points with edges along the axes.
std::shared_ptr<kernel::DataSet> plate(double x, double y, double z)
{
    auto const set = SampleData::block(3, 3, 3);
    for (std::int64_t n = 0; n < 27; ++n) {
        writeValue(*set->field(1, 1)->group(), n, x * static_cast<double>(n % 3) / 2.0);
        writeValue(*set->field(1, 2)->group(), n, y * static_cast<double>(n / 3 % 3) / 2.0);
        writeValue(*set->field(1, 3)->group(), n, z * static_cast<double>(n / 9) / 2.0);
    }
    return set;
}

std::array<double, 3> shape(app::FieldView const& field)
{
    double bounds[6];
    field.zones().at(0)->surface().GetBounds(bounds);
    return {bounds[1] - bounds[0], bounds[3] - bounds[2], bounds[5] - bounds[4]};
}

// The strip between a frame's header and its plot.
QImage remarkOver(PlotTestPage& page)
{
    QImage const all = page.picture();
    app::PageOnScreen const screen(*page.session().activePage(), page.view().rect());
    QRect strip = app::PageOnScreen::contentOf(screen.frameOf(page.frame().rectangle));
    strip.setBottom(page.view().plotArea(page.frame().id).top() - 1);
    return strip.isEmpty() ? QImage() : all.copy(strip);
}

QString const stretched = QStringLiteral("Axes stretched, not to scale");

} // namespace

TEST(Proportions, AThinPlateKeepsItsOwn)
{
    PlotTestPage page({SampleData::frame("Plate", plate(300.0, 150.0, 2.0), PlotType_Cartesian3D)});
    EXPECT_GT(PlotTestPage::colouredPixels(page.plot(0, "plate")), 5000);
    auto const [x, y, z] = shape(page.field());
    EXPECT_NEAR(x, 1.0, 1e-6);
    EXPECT_NEAR(y, 0.5, 1e-6);
    EXPECT_NEAR(z, 2.0 / 300.0, 1e-6);
    EXPECT_EQ(page.view().remark(page.frame().id), QString());
    EXPECT_EQ(page.message(), QString());
}

TEST(Proportions, OfAThinPlateLeaveRoomForTheNameOfItsShortAxis)
{
    auto const set = plate(300.0, 150.0, 2.0);
    PlotTestPage page({SampleData::frame("Plate", set, PlotType_Cartesian3D)});
    QImage const before = page.plot();
    ASSERT_TRUE(page.session().perform(kernel::RenameVariable(*set, 3, "thickness")));
    QImage const after = page.plot(0, "plate-short-axis");
    int const letters = PlotTestPage::pixelsNear(after, app::PlotTheme::text(), 60) -
                        PlotTestPage::pixelsNear(before, app::PlotTheme::text(), 60);
    EXPECT_GT(letters, 100);
}

TEST(Proportions, AreGivenUpOnRequestAndTheFrameSaysSo)
{
    PlotTestPage page({SampleData::frame("Plate", plate(300.0, 150.0, 2.0), PlotType_Cartesian3D)});
    QImage const before = page.plot();
    QRect const place = page.view().plotArea(page.frame().id);
    ASSERT_TRUE(page.session().perform(kernel::SetPlotOption(page.frame().id, &kernel::Frame::stretchAxes, true)));
    page.plot(0, "plate-stretched");
    for (double const side : shape(page.field()))
        EXPECT_NEAR(side, 1.0, 1e-6);
    EXPECT_EQ(page.view().remark(page.frame().id), stretched);
    EXPECT_EQ(page.message(), QString()) << "nothing is missing";
    EXPECT_TRUE(page.view().accessibleDescription().contains(stretched));
    EXPECT_GT(PlotTestPage::inkedPixels(remarkOver(page)), 100);
    ASSERT_TRUE(page.session().undo());
    EXPECT_EQ(PlotTestPage::differingPixels(before, page.plot()), 0);
    EXPECT_EQ(page.view().remark(page.frame().id), QString());
    EXPECT_EQ(page.view().plotArea(page.frame().id), place);
}

TEST(Proportions, TheRemarkStandsClearOfALongNameInTheLegendHoweverNarrowTheFrame)
{
    for (int const width : {190, 240, 290, 600}) {
        auto const set = plate(300.0, 150.0, 2.0);
        set->variables().back()->name = "time_averaged_turbulent_kinetic_energy_of_the_third_stage";
        auto const frame = SampleData::frame("Plate", set, PlotType_Cartesian3D);
        frame->stretchAxes = true;
        PlotTestPage page({frame}, {width, 300});
        page.picture("plate-remark-" + std::to_string(width));
        QImage const strip = remarkOver(page);
        ASSERT_GT(strip.height(), 10) << width;
        int const remark = PlotTestPage::pixelsNear(strip, app::PlotTheme::quietText(), 60);
        EXPECT_GT(remark, 60) << width;
        EXPECT_EQ(PlotTestPage::pixelsNear(strip, app::PlotTheme::text(), 8), 0) << "the legend's name, " << width;
        // The same strip with another name in the legend below it.
        ASSERT_TRUE(page.session().perform(kernel::RenameVariable(*set, 4, "p")));
        EXPECT_EQ(PlotTestPage::differingPixels(strip, remarkOver(page)), 0) << width;
    }
}

TEST(Proportions, ATinyFrameIsLeftToThePicture)
{
    auto const frame = SampleData::frame("Plate", plate(300.0, 150.0, 2.0), PlotType_Cartesian3D);
    frame->stretchAxes = true;
    PlotTestPage page({frame}, {160, 120});
    page.picture("plate-remark-tiny");
    EXPECT_EQ(page.view().remark(page.frame().id), stretched);
    EXPECT_TRUE(remarkOver(page).isNull());
    EXPECT_TRUE(page.view().accessibleDescription().contains(stretched));
}

TEST(Proportions, AreTheSameStretchedWhereAllSidesAreAsLong)
{
    PlotTestPage page({SampleData::frame("Cube", plate(2.0, 2.0, 2.0), PlotType_Cartesian3D)});
    ASSERT_TRUE(page.session().perform(kernel::SetPlotOption(page.frame().id, &kernel::Frame::stretchAxes, true)));
    page.picture();
    EXPECT_EQ(page.view().remark(page.frame().id), QString());
}

TEST(Proportions, APlotToScaleOfWhichNothingIsSeenNamesTheSwitch)
{
    PlotTestPage page({SampleData::frame("Unequal", plate(2.0, 5e4, 0.0), PlotType_Cartesian2D)});
    page.picture("plane-thin");
    EXPECT_EQ(page.message(),
              QStringLiteral("To scale this is too thin to be seen. Plot > Stretch Axes gives each axis a "
                             "scale of its own."));
    ASSERT_TRUE(page.session().perform(kernel::SetPlotOption(page.frame().id, &kernel::Frame::stretchAxes, true)));
    EXPECT_GT(PlotTestPage::colouredPixels(page.plot(0, "plane-unequal")), 50000);
    EXPECT_EQ(page.message(), QString());
    EXPECT_EQ(page.view().remark(page.frame().id), stretched);
}

TEST(Proportions, AViewThatWasMovedShowsTheWholeWhenTheAxesAreStretched)
{
    auto const set = plate(300.0, 100.0, 0.0);
    PlotTestPage page({SampleData::frame("Plate", set, PlotType_Cartesian2D)});
    page.wheel(page.at(0.3, 0.5), 6);
    ASSERT_TRUE(page.session().perform(kernel::SetPlotOption(page.frame().id, &kernel::Frame::stretchAxes, true)));
    auto const frame = SampleData::frame("Plate", set, PlotType_Cartesian2D);
    frame->stretchAxes = true;
    PlotTestPage fresh({frame});
    EXPECT_EQ(PlotTestPage::differingPixels(fresh.plot(), page.plot(0, "plane-stretched-moved")), 0);
}

TEST(ScatteredPoints, AreDrawnOneByOneThoughTheyStandInARow)
{
    auto const set = SampleData::waves(50);
    PlotTestPage page({SampleData::frame("Row", set, PlotType_Cartesian2D)});
    page.picture();
    EXPECT_EQ(page.field().zones().at(0)->surface().GetNumberOfLines(), 49);
    set->zone(1)->isScattered = true;
    PlotTestPage cloud({SampleData::frame("Row", set, PlotType_Cartesian2D)});
    cloud.picture("points-in-a-row");
    EXPECT_EQ(cloud.field().zones().at(0)->surface().GetNumberOfLines(), 0);
    EXPECT_EQ(cloud.field().zones().at(0)->surface().GetNumberOfVerts(), 50);
}

} // namespace veldraw::tests
