#include "kernel/operations/SetLineAxis.h"

#include "tests/kernel/support/SessionFixture.h"

#include <limits>

namespace veldraw::tests {

using namespace kernel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class SetLineAxisTest : public SessionFixture
{
protected:
    bool set(LineAxisKind kind, LineAxis const& axis) { return session.perform(SetLineAxis(frame->id, kind, axis)); }

    std::string reasonFor(LineAxisKind kind, double min, double max)
    {
        expectRefused([&] { return set(kind, {true, min, max, {}}); });
        return session.lastError();
    }
};

} // namespace

TEST_F(SetLineAxisTest, GivesOneAxisARangeAndATitleAsAStep)
{
    std::string const before = withoutHistory();
    std::string const told = "7 LinePlotAxes frame";
    ASSERT_TRUE(set(LineAxisKind::Y2, {true, -1.5, 2.5, "p (Pa)"}));
    EXPECT_EQ(session.history().undoName(), "Axis");
    EXPECT_EQ(frame->lineAxes.axes[2].title, "p (Pa)");
    EXPECT_FALSE(frame->lineAxes.axes[0].isFixed);
    EXPECT_FALSE(frame->lineAxes.axes[1].isFixed);
    EXPECT_THAT(recorder.take(), ElementsAre(told));
    expectUndoAndRedo(before, {told}, {told});
    EXPECT_TRUE(set(LineAxisKind::Y2, {true, -1.5, 2.5, "p (Pa)"}));
    EXPECT_THAT(recorder.take(), IsEmpty()) << "nothing happens where it is so already";
}

TEST_F(SetLineAxisTest, IsRefusedWithAReason)
{
    double const none = std::numeric_limits<double>::quiet_NaN();
    double const endless = std::numeric_limits<double>::infinity();
    EXPECT_EQ(reasonFor(LineAxisKind::X, none, 1.0), "The limits of an axis are finite numbers.");
    EXPECT_EQ(reasonFor(LineAxisKind::Y, 0.0, endless), "The limits of an axis are finite numbers.");
    EXPECT_EQ(reasonFor(LineAxisKind::Y2, 1.0, 1.0), "The lower limit of an axis has to be below the upper one.");
    EXPECT_EQ(reasonFor(static_cast<LineAxisKind>(3), 0.0, 1.0), "There is no such axis.");
    EXPECT_EQ(reasonFor(static_cast<LineAxisKind>(-1), 0.0, 1.0), "There is no such axis.");
}

TEST_F(SetLineAxisTest, WritesATitleAboveThePlot)
{
    std::string const before = withoutHistory();
    ASSERT_TRUE(session.perform(SetPlotTitle(frame->id, "Wake")));
    EXPECT_EQ(session.history().undoName(), "Plot Title");
    EXPECT_EQ(frame->lineAxes.title, "Wake");
    EXPECT_THAT(recorder.take(), ElementsAre("7 LinePlotAxes frame"));
    expectUndoAndRedo(before, {"7 LinePlotAxes frame"}, {"7 LinePlotAxes frame"});
}

TEST_F(SetLineAxisTest, HasACommandThatTellsAllOfIt)
{
    EXPECT_EQ(SetLineAxis(frame->id, LineAxisKind::Y2, {true, -1.5, 2.5, "p (Pa)"}).command().text(),
              "set-line-axis axis=y2 range=fixed min=-1.5 max=2.5 title=\"p (Pa)\"");
    EXPECT_EQ(SetLineAxis(frame->id, LineAxisKind::X, {}).command().text(),
              "set-line-axis axis=x range=fit min=0 max=1 title=\"\"");
    EXPECT_EQ(SetPlotTitle(frame->id, "Wake 1").command().text(), "set-plot-title title=\"Wake 1\"");
}

} // namespace veldraw::tests
