#include "dialogs/property/PlotTypeDependentRelevance.h"

#include "dialogs/property/DataSetExistsRelevance.h"
#include "dialogs/property/FieldPlotTypeDependentRelevance.h"
#include "dialogs/property/LinePlotTypeDependentRelevance.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/dialogs/models/SampleSession.h"

#include <gtest/gtest.h>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::propertymanager;

class StockRelevanceTest : public testing::Test
{
protected:
    // Yes or no of all four rules.
    std::string answers() const
    {
        std::string text;
        for (RelevanceInterface const* const rule :
             {static_cast<RelevanceInterface const*>(&dataSet), static_cast<RelevanceInterface const*>(&fieldPlot),
              static_cast<RelevanceInterface const*>(&linePlot), static_cast<RelevanceInterface const*>(&plot2D)})
            text += rule->isRelevant() ? 'y' : 'n';
        return text;
    }

    void setPlotType(PlotType_e plotType)
    {
        sample.session().perform(kernel::SetPlotType(sample.frame()->id, plotType));
    }

    SampleSession sample{{"Wing"}, {"X", "Y", "P"}};
    DataSetExistsRelevance dataSet;
    FieldPlotTypeDependentRelevance fieldPlot;
    LinePlotTypeDependentRelevance linePlot;
    PlotTypeDependentRelevance plot2D{PlotType_Cartesian2D};
};

TEST_F(StockRelevanceTest, AnswersByThePlotTypeOfTheCurrentFrame)
{
    setPlotType(PlotType_Cartesian3D);
    EXPECT_EQ(answers(), "yynn");
    setPlotType(PlotType_Cartesian2D);
    EXPECT_EQ(answers(), "yyny");
    setPlotType(PlotType_XYLine);
    EXPECT_EQ(answers(), "ynyn");
    setPlotType(PlotType_PolarLine);
    EXPECT_EQ(answers(), "ynyn");
    setPlotType(PlotType_Sketch);
    EXPECT_EQ(answers(), "ynnn");
}

TEST_F(StockRelevanceTest, SaysNoWithoutAFrameOrAPage)
{
    sample.session().clear();
    EXPECT_EQ(answers(), "nnnn");
    sample.session().removeAllPages();
    EXPECT_EQ(answers(), "nnnn");
}

TEST_F(StockRelevanceTest, NeedsADataSetForTheKindsOfPlotButNotForOnePlotType)
{
    auto const empty = sample.session().createFrame("Frame 002", kernel::Rectangle{1.0, 1.0, 4.0, 3.0});
    EXPECT_EQ(answers(), "nnnn");
    empty->plotType = PlotType_Cartesian2D;
    EXPECT_EQ(answers(), "nnny");
    empty->plotType = PlotType_XYLine;
    EXPECT_EQ(answers(), "nnnn");
}

TEST_F(StockRelevanceTest, SignalsWhenTheAnswerMayHaveChanged)
{
    int dataSetSignals = 0;
    int plotSignals = 0;
    dataSet.connectRelevanceChanged([&] { ++dataSetSignals; });
    for (StateChangeDependentRelevance const* const rule :
         {static_cast<StateChangeDependentRelevance const*>(&fieldPlot),
          static_cast<StateChangeDependentRelevance const*>(&linePlot),
          static_cast<StateChangeDependentRelevance const*>(&plot2D)})
        rule->connectRelevanceChanged([&] { ++plotSignals; });

    setPlotType(PlotType_XYLine);
    EXPECT_EQ(dataSetSignals, 0);
    EXPECT_EQ(plotSignals, 3);

    plotSignals = 0;
    sample.session().createFrame("Frame 002", kernel::Rectangle{1.0, 1.0, 4.0, 3.0});
    EXPECT_GE(dataSetSignals, 1);
    EXPECT_GE(plotSignals, 3);

    dataSetSignals = 0;
    sample.session().setFrameDataSet(sample.session().activeFrame()->id,
                                     SampleSession::makeDataSet({"Tail"}, {"X", "Y"}));
    EXPECT_GE(dataSetSignals, 1);
    EXPECT_TRUE(dataSet.isRelevant());
}

} // namespace
} // namespace veldraw::tests
