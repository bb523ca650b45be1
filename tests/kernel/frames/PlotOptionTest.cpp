// The table of plot options, and all that goes by it: frames, steps of the history, events, the style tree.
#include "kernel/operations/SetPlotType.h"
#include "kernel/style/StyleTree.h"
#include "tests/kernel/support/SessionFixture.h"

#include <set>

namespace veldraw::tests {

using namespace kernel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class PlotOptionTest : public SessionFixture
{
};

} // namespace

TEST_F(PlotOptionTest, AFrameStartsWithTheValuesOfTheTable)
{
    Frame const fresh("Frame 2", {});
    for (PlotOption const& option : plotOptions()) {
        EXPECT_EQ(fresh.*option.member, option.isOnAtFirst) << option.value;
    }
    EXPECT_TRUE(fresh.showContour);
    EXPECT_FALSE(fresh.contourInBands);
    EXPECT_FALSE(fresh.contourWithoutEnds);
    EXPECT_FALSE(fresh.contourLog);
    EXPECT_FALSE(fresh.contourLines);
    EXPECT_TRUE(fresh.contourLabels);
    EXPECT_FALSE(fresh.showVectors);
    EXPECT_FALSE(fresh.equalVectors);
    EXPECT_FALSE(fresh.showMesh);
    EXPECT_TRUE(fresh.showCuts);
    EXPECT_FALSE(fresh.stretchAxes);
    EXPECT_FALSE(fresh.parallelProjection);
    EXPECT_TRUE(fresh.showLines);
    EXPECT_FALSE(fresh.showSymbols);
    EXPECT_FALSE(fresh.logX);
    EXPECT_FALSE(fresh.logY);
}

TEST_F(PlotOptionTest, EachHasAMemberAndAPathOfItsOwn)
{
    std::set<std::vector<std::string>> paths;
    for (PlotOption const& option : plotOptions()) {
        EXPECT_EQ(&plotOption(option.member), &option) << option.value;
        EXPECT_TRUE(paths.insert(option.path()).second) << option.value;
    }
}

TEST_F(PlotOptionTest, IsSwitchedInAStepThatBearsItsNameAndTellsItsPath)
{
    for (PlotOption const& option : plotOptions()) {
        bool const wasOn = (*frame).*option.member;
        std::string const before = withoutHistory();
        std::string const told = std::string("7 ") + option.group + " " + option.value + " frame";
        ASSERT_TRUE(session.perform(SetPlotOption(frame->id, option.member, !wasOn))) << option.value;
        EXPECT_EQ((*frame).*option.member, !wasOn) << option.value;
        EXPECT_EQ(session.history().undoName(), option.step);
        EXPECT_THAT(recorder.take(), ElementsAre(told));
        expectUndoAndRedo(before, {told}, {told});
        EXPECT_TRUE(session.perform(SetPlotOption(frame->id, option.member, !wasOn)));
        EXPECT_THAT(recorder.take(), IsEmpty()) << "nothing happens where it is so already: " << option.value;
    }
}

TEST_F(PlotOptionTest, IsAValueOfTheStyleTree)
{
    for (PlotOption const& option : plotOptions()) {
        StyleAddress const address{option.path()};
        bool const wasOn = (*frame).*option.member;
        ASSERT_TRUE(session.style().get(address).has_value()) << option.value;
        EXPECT_EQ(session.style().get(address)->whole, wasOn ? 1 : 0);
        EXPECT_EQ(session.style().set(address, StyleNumber::ofWhole(wasOn ? 0 : 1)), SetValueReturnCode_Ok);
        EXPECT_EQ((*frame).*option.member, !wasOn);
        EXPECT_EQ(session.history().undoName(), option.step);
    }
}

} // namespace veldraw::tests
