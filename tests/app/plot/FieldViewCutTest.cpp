// Slices and iso-surfaces in the picture: what is seen of them, in which colours, and what is computed for it.
#include "app/plot/ColourMap.h"
#include "kernel/frames/CutDefaults.h"
#include "kernel/operations/CutOperation.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/app/plot/CutMeasure.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"

#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

using kernel::Cut;
using kernel::CutKind;

/// A block in which P is X, so that a slice along X has one colour.
class CutsInAFrame : public testing::Test
{
protected:
    CutsInAFrame()
        : page({SampleData::frame("Cuts", dataSet, PlotType_Cartesian3D)})
    {
    }

    kernel::UniqueId add(CutKind kind, double position)
    {
        Cut cut = kernel::defaultCut(kind, page.frame());
        cut.position = position;
        EXPECT_TRUE(page.session().perform(kernel::AddCut(page.frame().id, cut)));
        return cut.id;
    }

    void change(kernel::UniqueId cut, std::function<void(Cut&)> const& alter)
    {
        EXPECT_TRUE(page.session().perform(kernel::ChangeCut(page.frame().id, cut, alter)));
    }

    static QColor colourAt(double share)
    {
        std::array<double, 3> rgb{};
        app::ColourMap::create(0.0, 1.0)->GetColor(share, rgb.data());
        return QColor::fromRgbF(rgb[0], rgb[1], rgb[2]);
    }

    int pixelsOf(double share) { return PlotTestPage::pixelsNear(stage(), colourAt(share), 3); }

    /// The plot without the legend, which has all colours.
    QImage stage()
    {
        QImage const all = page.plot();
        return all.copy(0, 0, all.width() * 4 / 5, all.height());
    }

    SampleData::DataSetPtr dataSet = grids::ordered(30, 30, 30, [](CutMeasure::Point const& p) { return p[0]; });
    PlotTestPage page;
};

} // namespace

TEST_F(CutsInAFrame, ASlicesColourIsTheValueThere)
{
    kernel::UniqueId const slice = add(CutKind::X, 0.25);
    for (double const position : {0.25, 0.5, 0.8}) {
        change(slice, [position](Cut& cut) { cut.position = position; });
        QImage const picture = stage();
        int const coloured = PlotTestPage::colouredPixels(picture);
        EXPECT_GT(coloured, 3000) << position;
        EXPECT_GT(PlotTestPage::pixelsNear(picture, colourAt(position), 3), coloured * 9 / 10) << position;
    }
}

TEST_F(CutsInAFrame, ValuesAtCellsAreFlat)
{
    std::vector<double> cells;
    for (int slot = 0; slot < 27000; ++slot)
        cells.push_back(slot % 30 < 15 ? 0.0 : 1.0);
    SampleData::addField(*dataSet->zone(1), cells, ValueLocation_CellCentered, 4);
    add(CutKind::Y, 0.5);
    QImage const picture = stage();
    int const coloured = PlotTestPage::colouredPixels(picture);
    EXPECT_GT(PlotTestPage::pixelsNear(picture, colourAt(0.0), 3), coloured / 3);
    EXPECT_GT(PlotTestPage::pixelsNear(picture, colourAt(1.0), 3), coloured / 3);
}

TEST_F(CutsInAFrame, VolumesAreSeenByThemAlone)
{
    QImage const whole = page.plot();
    add(CutKind::X, 0.5);
    add(CutKind::K, 3);
    page.picture();
    ASSERT_EQ(page.field().zones().size(), 2U);
    EXPECT_TRUE(page.field().zones()[0]->geometry()->key().cut.has_value());
    ASSERT_TRUE(page.session().perform(kernel::SetPlotOption(page.frame().id, &kernel::Frame::showCuts, false)));
    EXPECT_EQ(PlotTestPage::differingPixels(page.plot(), whole), 0);
    page.session().undo();
    page.session().undo();
    page.session().undo();
    EXPECT_EQ(PlotTestPage::differingPixels(page.plot(), whole), 0);
}

TEST_F(CutsInAFrame, OneThatIsNotShownCountsForNothing)
{
    QImage const whole = page.plot();
    kernel::UniqueId const slice = add(CutKind::X, 0.5);
    change(slice, [](Cut& cut) { cut.isShown = false; });
    EXPECT_EQ(PlotTestPage::differingPixels(page.plot(), whole), 0);
}

TEST_F(CutsInAFrame, OnlyTheOneThatIsMovedIsComputedAgain)
{
    add(CutKind::X, 0.5);
    kernel::UniqueId const moved = add(CutKind::Y, 0.5);
    page.picture();
    auto const first = page.field().zones()[0]->geometry();
    auto const second = page.field().zones()[1]->geometry();
    change(moved, [](Cut& cut) { cut.position = 0.6; });
    page.picture();
    EXPECT_EQ(page.field().zones()[0]->geometry(), first);
    EXPECT_NE(page.field().zones()[1]->geometry(), second);
}

TEST_F(CutsInAFrame, AClickPicksTheZoneOfTheSlice)
{
    add(CutKind::X, 0.5);
    page.picture();
    page.click(page.at(0.42, 0.5));
    ASSERT_EQ(page.session().picks().size(), 1U);
    EXPECT_EQ(page.session().picks().front().zone, dataSet->zone(1)->id);
}

TEST_F(CutsInAFrame, ItIsSaidWhenNoneMeetsTheZones)
{
    kernel::UniqueId const slice = add(CutKind::X, 7.0);
    page.picture();
    EXPECT_EQ(page.message(), QStringLiteral("No slice meets the zones. Plot > Slices shows their surfaces again."));
    change(slice, [](Cut& cut) { cut.position = 0.5; });
    page.picture();
    EXPECT_EQ(page.message(), QString());
}

TEST_F(CutsInAFrame, AnIsoSurfaceGoesAndComesBackWithItsVariable)
{
    add(CutKind::IsoSurface, 0.5);
    page.picture();
    ASSERT_EQ(page.field().zones().size(), 1U);
    EXPECT_GT(page.field().zones().front()->cellCount(), 500);
    ASSERT_TRUE(page.session().perform(kernel::DeleteVariables(*dataSet, {4})));
    page.picture();
    EXPECT_EQ(page.field().zones().front()->cellCount(), 0);
    page.session().undo();
    page.picture();
    EXPECT_GT(page.field().zones().front()->cellCount(), 500);
}

TEST_F(CutsInAFrame, AreDrawnInThePlaneToo)
{
    add(CutKind::K, 3);
    ASSERT_TRUE(page.session().perform(kernel::SetPlotType(page.frame().id, PlotType_Cartesian2D)));
    page.picture();
    ASSERT_EQ(page.field().zones().size(), 1U);
    EXPECT_EQ(page.field().zones().front()->cellCount(), 29 * 29);
}

TEST_F(CutsInAFrame, EachOfManyPositionsIsShownInTheEnd)
{
    kernel::UniqueId const slice = add(CutKind::X, 0.5);
    for (int n = 0; n < 60; ++n) {
        change(slice, [n](Cut& cut) { cut.position = 0.1 + 0.012 * n; });
        page.view().refresh();
    }
    EXPECT_GT(pixelsOf(0.1 + 0.012 * 59), 3000);
}

} // namespace veldraw::tests
