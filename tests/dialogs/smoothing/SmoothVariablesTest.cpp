#include "dialogs/smoothing/SmoothVariables.h"

#include "kernel/operations/EnableZone.h"
#include "kernel/operations/LineMapOperation.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/dialogs/models/SampleSession.h"
#include "tests/support/FakeStateChange.h"
#include "tests/support/StyleSession.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {
namespace {

using dialogs::data::isSmoothVariableStateChange;
using testing::ElementsAre;
using testing::IsEmpty;

class SmoothVariablesTest : public testing::Test
{
protected:
    void showAs(PlotType_e plotType) { sample.session().perform(kernel::SetPlotType(sample.frame()->id, plotType)); }

    std::vector<int> variables() const { return dialogs::data::smoothVariablesForFrame(sample.frame()->id).members(); }

    /// A curve of one variable over another, after those that there are.
    void addLineMap(int zone, int x, int y, bool xDependsOnY = false)
    {
        kernel::LineMap map;
        map.zone = sample.dataSet().zone(zone)->id;
        map.xVariable = x == 0 ? 0 : sample.dataSet().variable(x)->id;
        map.yVariable = y == 0 ? 0 : sample.dataSet().variable(y)->id;
        map.xDependsOnY = xDependsOnY;
        sample.frame()->lineMaps.push_back(map);
    }

    SampleSession sample{{"Wing", "Body"}, {"X", "Y", "Z", "P", "T"}};
};

TEST_F(SmoothVariablesTest, AreThoseThatAreOnNoAxisOfAFieldPlot)
{
    for (auto const& [axis, variable] : {std::pair{'X', 1}, std::pair{'Y', 2}, std::pair{'Z', 3}})
        sample.session().perform(kernel::AssignVariable(sample.frame()->id, axis, variable));
    showAs(PlotType_Cartesian2D);
    EXPECT_THAT(variables(), ElementsAre(3, 4, 5));
    showAs(PlotType_Cartesian3D);
    EXPECT_THAT(variables(), ElementsAre(4, 5));
    sample.session().perform(kernel::EnableVariable(sample.dataSet(), 4, false));
    EXPECT_THAT(variables(), ElementsAre(5));
}

TEST_F(SmoothVariablesTest, AreTheDependentOnesOfALinePlotEachOnce)
{
    sample.frame()->lineMaps.clear();
    addLineMap(1, 1, 4);
    addLineMap(2, 1, 4);
    addLineMap(2, 5, 1, true);
    addLineMap(1, 2, 3, false);
    for (PlotType_e const linePlot : {PlotType_XYLine, PlotType_PolarLine}) {
        showAs(linePlot);
        EXPECT_THAT(variables(), ElementsAre(3, 4, 5)) << linePlot;
    }
    sample.session().perform(kernel::EnableZone(sample.dataSet(), 2, false));
    EXPECT_THAT(variables(), ElementsAre(3, 4)) << "line maps of a disabled zone do not count";
}

TEST_F(SmoothVariablesTest, MayBeCoordinatesInALinePlot)
{
    sample.frame()->lineMaps.clear();
    addLineMap(1, 4, 2);
    showAs(PlotType_XYLine);
    EXPECT_THAT(variables(), ElementsAre(2));
}

TEST_F(SmoothVariablesTest, DoNotCountALineMapWhoseVariableIsGone)
{
    sample.frame()->lineMaps.clear();
    addLineMap(1, 1, 0);
    addLineMap(1, 1, 5);
    showAs(PlotType_XYLine);
    EXPECT_THAT(variables(), ElementsAre(5));
}

TEST_F(SmoothVariablesTest, AreNoneInASketchAndWithoutAFrame)
{
    showAs(PlotType_Sketch);
    EXPECT_THAT(variables(), IsEmpty());
    EXPECT_THAT(dialogs::data::smoothVariablesForFrame(0).members(), IsEmpty());
}

TEST_F(SmoothVariablesTest, AreThoseOfTheFrameThatIsAskedFor)
{
    showAs(PlotType_Cartesian2D);
    auto const other = sample.session().createFrame("Other", kernel::Rectangle{1.0, 1.0, 8.0, 6.0});
    ASSERT_EQ(sample.session().activeFrame(), other);
    EXPECT_FALSE(variables().empty());
    EXPECT_THAT(dialogs::data::smoothVariablesForFrame(other->id).members(), IsEmpty());
}

TEST_F(SmoothVariablesTest, MayChangeWithWhatTheFrameDraws)
{
    for (char const* const name : {"PlotType", "ActiveFieldMaps", "ActiveFieldZones", "ActiveXYMaps", "ActiveLineMaps",
                                   "TwoDAxis", "ThreeDAxis", "Frame", "LineMap"})
        EXPECT_TRUE(isSmoothVariableStateChange(FakeStateChange(StateChange_Style, {name}))) << name;
    for (int const kind :
         {StateChange_FrameDataSet, StateChange_NewActiveFrame, StateChange_PageReplaced, StateChange_StateRestored})
        EXPECT_TRUE(isSmoothVariableStateChange(FakeStateChange(kind))) << kind;
    EXPECT_FALSE(isSmoothVariableStateChange(FakeStateChange(StateChange_Style, {"Interface", "TwoDAxis"})));
    EXPECT_FALSE(isSmoothVariableStateChange(FakeStateChange(StateChange_Style)));
    EXPECT_FALSE(isSmoothVariableStateChange(FakeStateChange(StateChange_MouseMode, {"TwoDAxis"})));
    EXPECT_FALSE(isSmoothVariableStateChange(FakeStateChange(StateChange_ValuesAltered)));
}

} // namespace
} // namespace veldraw::tests
