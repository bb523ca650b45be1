#include "kernel/style/SolutionTimeItem.h"

#include "tests/support/StyleSession.h"

#include <gmock/gmock.h>
#include <limits>

namespace veldraw::tests {

using kernel::StyleNumber;
using testing::ElementsAre;

namespace {

class SolutionTimeItemTest : public testing::Test
{
protected:
    SetValueReturnCode_e set(double time, kernel::UniqueId frame = 0, long long offset = -1)
    {
        return tree.set({{"SolutionTime"}, frame, offset}, StyleNumber::ofReal(time));
    }

    StyleSession sample;
    kernel::StyleTree& tree = sample.tree();
};

} // namespace

TEST_F(SolutionTimeItemTest, IsReadAndWrittenInEachFrame)
{
    auto const other = sample.addFrame();
    sample.takeEvents();
    EXPECT_EQ(set(2.5, sample.frame().id), SetValueReturnCode_Ok);
    EXPECT_THAT(sample.takeEvents(), ElementsAre("7 SolutionTime"));
    EXPECT_EQ(sample.frame().solutionTime, 2.5);
    EXPECT_EQ(other->solutionTime, 0.0);
    EXPECT_EQ(tree.get({{"SolutionTime"}, sample.frame().id}).value().real, 2.5);
    EXPECT_EQ(set(-1.0), SetValueReturnCode_Ok) << "of the active frame";
    EXPECT_EQ(other->solutionTime, -1.0);
    EXPECT_EQ(set(-1.0), SetValueReturnCode_Duplicate);
    EXPECT_EQ(sample.session().history().undoName(), "Solution Time");
    sample.session().undo();
    EXPECT_EQ(tree.get({{"SolutionTime"}}).value().real, 0.0);
}

TEST_F(SolutionTimeItemTest, RefusesWhatIsNoMomentAndNoFrame)
{
    EXPECT_EQ(set(std::numeric_limits<double>::infinity()), SetValueReturnCode_Refused);
    EXPECT_EQ(set(1.0, 987654321), SetValueReturnCode_Refused);
    EXPECT_EQ(tree.lastError(), "There is no such frame for SolutionTime.");
    EXPECT_EQ(set(1.0, 0, 1), SetValueReturnCode_Refused);
    EXPECT_EQ(tree.lastError(), "SolutionTime exists once in a frame and takes no offset.");
    EXPECT_FALSE(tree.get({{"SolutionTime"}, 0, 1}));
    EXPECT_FALSE(tree.get({{"SolutionTime"}, 987654321}));
    EXPECT_EQ(sample.frame().solutionTime, 0.0);
}

} // namespace veldraw::tests
