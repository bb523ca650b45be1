#include "app/plot/PartwiseMapper.h"

#include "kernel/operations/SetPlotType.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"

#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

app::PartwiseMapper& mapperOf(PlotTestPage& page)
{
    return dynamic_cast<app::PartwiseMapper&>(*page.field().actors().at(0)->GetMapper());
}

// Draws the plot at once and in parts, of a size that leaves a rest, and compares the pictures.
void expectTheSameInParts(PlotTestPage& page, int trianglesInPart, int parts)
{
    QImage const atOnce = page.plot();
    ASSERT_EQ(mapperOf(page).partCount(), 1);
    mapperOf(page).setTrianglesInPart(trianglesInPart);
    page.view().scheduleRefresh();
    QImage const inParts = page.plot();
    EXPECT_EQ(mapperOf(page).partCount(), parts);
    EXPECT_EQ(PlotTestPage::differingPixels(atOnce, inParts), 0);
    EXPECT_GT(PlotTestPage::inkedPixels(inParts), 20000);
}

} // namespace

TEST(PartwiseMapper, DrawsAFloodedBlockInPartsAsAtOnce)
{
    PlotTestPage page({SampleData::frame("Block", SampleData::block(12, 9, 7), PlotType_Cartesian3D)});
    constexpr int triangles = 2 * 2 * (11 * 8 + 11 * 6 + 8 * 6);
    expectTheSameInParts(page, 100, (triangles + 99) / 100);
}

TEST(PartwiseMapper, DrawsTheMeshInPartsAsAtOnce)
{
    PlotTestPage page({SampleData::frame("Block", SampleData::block(12, 9, 7), PlotType_Cartesian3D)});
    ASSERT_TRUE(page.session().perform(kernel::SetPlotOption(page.frame().id, &kernel::Frame::showMesh, true)));
    expectTheSameInParts(page, 101, 8);
}

TEST(PartwiseMapper, GivesCellsTheirColoursInEveryPart)
{
    PlotTestPage page({SampleData::frame("Cells", SampleData::cellSheet(5, 3), PlotType_Cartesian2D)});
    expectTheSameInParts(page, 3, 6);
}

TEST(PartwiseMapper, DrawsALargeSurfaceInPartsByItself)
{
    PlotTestPage page({SampleData::frame("Sheet", SampleData::sheet(200, 200), PlotType_Cartesian2D)});
    page.plot();
    EXPECT_EQ(mapperOf(page).partCount(), 3) << "79,202 triangles in parts of 32,768";
}

TEST(PartwiseMapper, LeavesLinesAndPointsWhole)
{
    PlotTestPage page({SampleData::frame("Points", SampleData::points(400), PlotType_Cartesian2D)});
    mapperOf(page).setTrianglesInPart(1);
    page.view().scheduleRefresh();
    EXPECT_GT(PlotTestPage::colouredPixels(page.plot()), 3000);
    EXPECT_EQ(mapperOf(page).partCount(), 1);
}

} // namespace veldraw::tests
