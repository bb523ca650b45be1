// Contour lines in field plots, with the numbers at them.
#include "app/plot/ContourLayer.h"

#include "app/plot/ContourLines.h"
#include "app/plot/PlotTheme.h"
#include "kernel/operations/SetContourColours.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"

#include <vtkCellData.h>
#include <vtkIntArray.h>

#include <gtest/gtest.h>
#include <set>

namespace veldraw::tests {

using kernel::Frame;

namespace {

class ContourLineLayer : public ::testing::Test
{
protected:
    explicit ContourLineLayer(SampleData::DataSetPtr const& data = SampleData::sheet(61, 61),
                              PlotType_e type = PlotType_Cartesian2D)
        : m_page({SampleData::frame("Sheet", data, type)})
    {
    }

    void set(bool Frame::*option, bool value)
    {
        ASSERT_TRUE(m_page.session().perform(kernel::SetPlotOption(m_page.frame().id, option, value)));
        m_page.picture();
    }

    std::set<int> levels()
    {
        auto* const all =
            vtkIntArray::SafeDownCast(layer().lines().GetCellData()->GetArray(app::ContourLines::levelName));
        std::set<int> found;
        for (vtkIdType n = 0; all && n < all->GetNumberOfValues(); ++n)
            found.insert(all->GetValue(n));
        return found;
    }

    app::ContourLayer const& layer() { return m_page.field().contourLines(); }

    PlotTestPage m_page;
};

class ContourLineLayerInSpace : public ContourLineLayer
{
protected:
    ContourLineLayerInSpace()
        : ContourLineLayer(SampleData::block(40, 30, 20), PlotType_Cartesian3D)
    {
    }
};

class ContourLinesOfCells : public ContourLineLayer
{
protected:
    ContourLinesOfCells()
        : ContourLineLayer(SampleData::cellSheet(21, 21))
    {
    }
};

/// A sheet whose value changes below one of the same size where it does not.
SampleData::DataSetPtr twoSheets()
{
    auto set = std::make_shared<kernel::DataSet>("sheets");
    for (char const* name : {"X", "Y", "Z", "p"})
        set->addVariable(std::make_shared<kernel::Variable>(name));
    for (double const height : {0.0, 1.0}) {
        auto zone = std::make_shared<kernel::Zone>("sheet", ZoneType_Ordered, 11, 11, 1);
        set->addZone(zone);
        std::vector<std::vector<double>> values(4);
        for (int point = 0; point < 121; ++point) {
            values[0].push_back(0.2 * (point % 11));
            values[1].push_back(0.2 * (point / 11));
            values[2].push_back(height);
            values[3].push_back(height > 0.0 ? 5.5 : point % 11);
        }
        for (auto const& ofVariable : values)
            SampleData::addField(*zone, ofVariable);
    }
    return set;
}

class HiddenContourLines : public ContourLineLayer
{
protected:
    HiddenContourLines()
        : ContourLineLayer(twoSheets(), PlotType_Cartesian3D)
    {
    }
};

} // namespace

TEST_F(ContourLineLayer, IsThereOnRequestOnly)
{
    QImage const plain = m_page.plot();
    EXPECT_EQ(layer().lines().GetNumberOfLines(), 0);
    set(&Frame::contourLines, true);
    EXPECT_GT(layer().lines().GetNumberOfLines(), 5);
    EXPECT_GT(PlotTestPage::pixelsNear(m_page.plot(0, "contour-lines"), app::PlotTheme::mesh(), 40),
              PlotTestPage::pixelsNear(plain, app::PlotTheme::mesh(), 40) + 1000);
    set(&Frame::contourLines, false);
    EXPECT_EQ(PlotTestPage::differingPixels(m_page.plot(), plain), 0);
}

TEST_F(ContourLineLayer, HasAsManyLevelsAsAreChosen)
{
    set(&Frame::contourLines, true);
    kernel::ContourColours colours = m_page.frame().contourColours;
    colours.levels = 5;
    ASSERT_TRUE(m_page.session().perform(kernel::SetContourColours(m_page.frame().id, colours)));
    m_page.picture();
    EXPECT_EQ(levels(), (std::set<int>{0, 1, 2, 3})) << "the lowest and the highest value have no line";
}

TEST_F(ContourLineLayer, StandsAloneWithoutTheColoursOfTheContour)
{
    set(&Frame::contourLines, true);
    set(&Frame::showContour, false);
    QImage const plot = m_page.plot(0, "contour-lines-alone");
    EXPECT_GT(layer().lines().GetNumberOfLines(), 5);
    EXPECT_GT(PlotTestPage::pixelsNear(plot, app::PlotTheme::shade(), 4), plot.width() * plot.height() / 4);
    EXPECT_TRUE(m_page.field().legend().isShown());
    EXPECT_EQ(m_page.message(), QString());
    set(&Frame::contourLines, false);
    EXPECT_FALSE(m_page.field().legend().isShown());
}

TEST_F(ContourLineLayer, TellsTheValuesOfLinesBesideThem)
{
    set(&Frame::contourLines, true);
    int const shown = layer().labels().paintedCount();
    EXPECT_GT(shown, 4);
    set(&Frame::contourLabels, false);
    EXPECT_EQ(layer().labels().paintedCount(), 0);
    set(&Frame::contourLabels, true);
    EXPECT_EQ(layer().labels().paintedCount(), shown);
}

TEST_F(ContourLineLayer, GoesWithTheBandsOfAContour)
{
    set(&Frame::contourLines, true);
    auto const before = levels();
    set(&Frame::contourInBands, true);
    m_page.plot(0, "contour-lines-and-bands");
    EXPECT_EQ(levels().size(), before.size());
}

TEST_F(ContourLinesOfCells, AreNoneWhichThePlotTells)
{
    EXPECT_EQ(m_page.view().remark(m_page.frame().id), QString());
    set(&Frame::contourLines, true);
    EXPECT_EQ(layer().lines().GetNumberOfLines(), 0);
    EXPECT_EQ(m_page.view().remark(m_page.frame().id), QStringLiteral("No contour lines of values at cells"));
}

TEST_F(ContourLineLayerInSpace, LiesOnTheSurfaceThatIsSeen)
{
    QImage const plain = m_page.plot();
    set(&Frame::contourLines, true);
    EXPECT_GT(layer().labels().paintedCount(), 2);
    m_page.picture("contour-lines-in-space");
    set(&Frame::contourLabels, false);
    int const differing = PlotTestPage::differingPixels(m_page.plot(), plain);
    EXPECT_GT(differing, 1500) << "the lines are not below the surface";
    EXPECT_LT(differing, 15000);
}

TEST_F(HiddenContourLines, HaveNoNumbers)
{
    m_page.picture("plain-sheets");
    set(&Frame::contourLines, true);
    m_page.view().lookFrom(app::ViewSide::PlusZ);
    m_page.picture("contour-lines-hidden");
    EXPECT_EQ(layer().labels().paintedCount(), 0);
    m_page.view().lookFrom(app::ViewSide::MinusZ);
    m_page.picture("contour-lines-from-below");
    EXPECT_GT(layer().labels().paintedCount(), 4);
}

} // namespace veldraw::tests
