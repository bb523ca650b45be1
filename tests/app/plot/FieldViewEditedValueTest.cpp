#include "kernel/operations/SetValue.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"
#include "tests/support/WriteValue.h"

#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkScalarsToColors.h>

#include <gtest/gtest.h>
#include <limits>
#include <ostream>
#include <string>

namespace veldraw::tests {

namespace {

struct EditedPlot
{
    char const* name;
    SampleData::DataSetPtr (*data)();
    PlotType_e plotType;
};

std::ostream& operator<<(std::ostream& stream, EditedPlot const& plot)
{
    return stream << plot.name;
}

SampleData::DataSetPtr smallSheet()
{
    return SampleData::block(3, 3, 1);
}

SampleData::DataSetPtr largeSheet()
{
    return SampleData::block(41, 21, 1);
}

SampleData::DataSetPtr flatSheet()
{
    return SampleData::sheet(41, 21);
}

SampleData::DataSetPtr volume()
{
    return SampleData::block(20, 15, 10);
}

SampleData::DataSetPtr cells()
{
    return SampleData::cellSheet(6, 5);
}

SampleData::DataSetPtr disc()
{
    return SampleData::triangles(4);
}

/// A plot and one value that the user corrects.
class EditedValue : public ::testing::TestWithParam<EditedPlot>
{
protected:
    EditedValue()
        : page({SampleData::frame("Data", GetParam().data(), GetParam().plotType)})
        , before(page.plot())
    {
    }

    kernel::DataSet& dataSet() { return *page.frame().dataSet; }
    kernel::ShareGroup& values(int variable) { return *dataSet().field(1, variable)->group(); }

    // The plot differs while the value does, and not any longer. It does not stand in the way of writing in place.
    void expectShown(int variable, std::int64_t index, double value)
    {
        void const* const memory = values(variable).buffer()->data();
        ASSERT_TRUE(page.session().perform(kernel::SetValue(dataSet(), 1, variable, index, value, false)));
        QImage const after = page.plot(0, std::string("edited-") + GetParam().name);
        EXPECT_GT(PlotTestPage::differingPixels(before, after), 100);
        ASSERT_TRUE(page.session().undo());
        EXPECT_EQ(PlotTestPage::differingPixels(before, page.plot()), 0);
        ASSERT_TRUE(page.session().redo());
        EXPECT_EQ(PlotTestPage::differingPixels(after, page.plot()), 0);
        EXPECT_EQ(values(variable).buffer()->data(), memory);
    }

    PlotTestPage page;
    QImage before;
};

} // namespace

TEST_P(EditedValue, OfTheContourColoursItsPlaceInTheSameRange)
{
    ASSERT_EQ(page.message(), QString());
    int const variable = page.frame().variableNumber('C');
    kernel::ValueRange const range = dataSet().zone(1)->range(variable);
    double const value = values(variable).buffer()->value(1); // before the edit: who reads holds the buffer
    expectShown(variable, 1, value > 0.5 * (range.min + range.max) ? range.min : range.max);
    EXPECT_EQ(range.max, dataSet().zone(1)->range(variable).max);
}

TEST_P(EditedValue, OfTheContourWidensTheRangeOfTheColours)
{
    expectShown(page.frame().variableNumber('C'), 1, 1e3);
    EXPECT_EQ(page.field().legend().max(), 1e3);
}

TEST_P(EditedValue, OfTheContourIsShownAsInAFreshPictureButTheShapeIsKept)
{
    int const variable = page.frame().variableNumber('C');
    vtkPoints const* const points = page.field().zones().front()->surface().GetPoints();
    for (double const value : {0.5, 1e3}) {
        ASSERT_TRUE(page.session().perform(kernel::SetValue(dataSet(), 1, variable, 1, value, false)));
        QImage const followed = page.plot();
        EXPECT_EQ(page.field().zones().front()->surface().GetPoints(), points);
        PlotTestPage fresh({SampleData::frame("Data", page.frame().dataSet, GetParam().plotType)});
        EXPECT_EQ(PlotTestPage::differingPixels(followed, fresh.plot()), 0) << value;
    }
}

TEST_P(EditedValue, OfACoordinateMovesThePoint)
{
    expectShown(page.frame().axisVariables()[0], 1, 0.6);
}

TEST_P(EditedValue, OfACoordinateWidensTheExtent)
{
    expectShown(page.frame().axisVariables()[0], 1, 5.0);
    EXPECT_EQ(page.field().space().max(0), 5.0);
}

TEST_P(EditedValue, ThatIsNotANumberLeavesAGap)
{
    expectShown(page.frame().axisVariables()[1], 1, std::numeric_limits<double>::quiet_NaN());
}

INSTANTIATE_TEST_SUITE_P(FieldPlots, EditedValue,
                         ::testing::Values(EditedPlot{"SmallSheetInThePlane", smallSheet, PlotType_Cartesian2D},
                                           EditedPlot{"SmallSheetInSpace", smallSheet, PlotType_Cartesian3D},
                                           EditedPlot{"LargeSheetInThePlane", flatSheet, PlotType_Cartesian2D},
                                           EditedPlot{"LargeSheetInSpace", largeSheet, PlotType_Cartesian3D},
                                           EditedPlot{"VolumeInSpace", volume, PlotType_Cartesian3D},
                                           EditedPlot{"CellsInThePlane", cells, PlotType_Cartesian2D},
                                           EditedPlot{"DiscInThePlane", disc, PlotType_Cartesian2D}),
                         [](auto const& plot) { return plot.param.name; });

TEST(EditedValueOfACurve, IsShownAndTakenBack)
{
    PlotTestPage page({SampleData::waveFrame(SampleData::waves(100))});
    QImage const before = page.plot();
    kernel::DataSet& dataSet = *page.frame().dataSet;
    for (int const variable : {1, 2, 3})
        for (double const value : {0.5, 20.0}) {
            void const* const memory = dataSet.field(1, variable)->group()->buffer()->data();
            ASSERT_TRUE(page.session().perform(kernel::SetValue(dataSet, 1, variable, 60, value, false)));
            QImage const after = page.plot(0, "edited-curve");
            EXPECT_GT(PlotTestPage::differingPixels(before, after), 100) << variable << ": " << value;
            ASSERT_TRUE(page.session().undo());
            EXPECT_EQ(PlotTestPage::differingPixels(before, page.plot()), 0) << variable << ": " << value;
            EXPECT_EQ(dataSet.field(1, variable)->group()->buffer()->data(), memory);
        }
}

TEST(EditedValueOfTheContour, IsShownInEveryFrameThatDrawsIt)
{
    auto const set = SampleData::block(3, 3, 1);
    PlotTestPage page(
        {SampleData::frame("Plane", set, PlotType_Cartesian2D), SampleData::frame("Space", set, PlotType_Cartesian3D)});
    QImage const plane = page.plot(0);
    QImage const space = page.plot(1);
    ASSERT_TRUE(page.session().perform(kernel::SetValue(*set, 1, 4, 4, 1e3, false)));
    EXPECT_GT(PlotTestPage::differingPixels(plane, page.plot(0)), 100);
    EXPECT_GT(PlotTestPage::differingPixels(space, page.plot(1)), 100);
    ASSERT_TRUE(page.session().undo());
    EXPECT_EQ(PlotTestPage::differingPixels(plane, page.plot(0)), 0);
    EXPECT_EQ(PlotTestPage::differingPixels(space, page.plot(1)), 0);
}

TEST(EditedValueOfTheContour, AtASharpEdgeIsShownOnAllItsSides)
{
    PlotTestPage page({SampleData::frame("Data", SampleData::bricks(3), PlotType_Cartesian3D)});
    page.plot();
    kernel::DataSet& set = *page.frame().dataSet;
    int const variable = page.frame().variableNumber('C');
    for (std::int64_t point : {0, 1, 15, 63}) {
        ASSERT_TRUE(page.session().perform(kernel::SetValue(set, 1, variable, point, 0.25, false)));
        QImage const followed = page.plot();
        PlotTestPage fresh({SampleData::frame("Data", page.frame().dataSet, PlotType_Cartesian3D)});
        EXPECT_EQ(PlotTestPage::differingPixels(followed, fresh.plot()), 0) << point;
    }
}

TEST(EditedValueOfTheContour, BringsTheLegendWhereThereWereNoValues)
{
    auto const set = SampleData::block(3, 3, 1);
    kernel::ShareGroup& values = *set->field(1, 4)->group();
    for (std::int64_t n = 0; n < values.size(); ++n)
        writeValue(values, n, std::numeric_limits<double>::quiet_NaN());
    PlotTestPage page({SampleData::frame("Plane", set, PlotType_Cartesian2D)});
    page.picture();
    QString const gap = QStringLiteral("The contour variable has no values in the enabled zones.");
    EXPECT_EQ(page.message(), gap);
    ASSERT_TRUE(page.session().perform(kernel::SetValue(*set, 1, 4, 4, 7.0, false)));
    page.picture();
    EXPECT_EQ(page.message(), QString());
    EXPECT_TRUE(page.field().legend().isShown());
    ASSERT_TRUE(page.session().undo());
    page.picture();
    EXPECT_EQ(page.message(), gap);
}

} // namespace veldraw::tests
