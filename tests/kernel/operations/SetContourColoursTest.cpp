#include "kernel/operations/SetContourColours.h"

#include "kernel/operations/SetPlotType.h"
#include "tests/kernel/support/SessionFixture.h"

#include <limits>

namespace veldraw::tests {

using namespace kernel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class SetContourColoursTest : public SessionFixture
{
protected:
    bool set(ContourColours const& colours) { return session.perform(SetContourColours(frame->id, colours)); }

    std::string reasonFor(ContourColours const& colours)
    {
        expectRefused([&] { return set(colours); });
        return session.lastError();
    }
};

constexpr ContourColours between(double min, double max)
{
    return {true, min, max, 0, ColourMapKind::Viridis};
}

} // namespace

TEST_F(SetContourColoursTest, AFrameStartsWithTheColoursOfWhatIsShown)
{
    Frame const fresh("Frame 2", {});
    EXPECT_FALSE(fresh.contourColours.isFixed);
    EXPECT_EQ(fresh.contourColours.levels, 0);
    EXPECT_EQ(fresh.contourColours.map, ColourMapKind::Viridis);
}

TEST_F(SetContourColoursTest, IsAStepThatIsTakenBackAndDoneAgain)
{
    std::string const before = withoutHistory();
    std::string const told = "7 FieldContour Colors frame";
    ASSERT_TRUE(set({true, -1.5, 2.5, 7, ColourMapKind::CoolToWarm}));
    EXPECT_EQ(session.history().undoName(), "Contour Colours");
    EXPECT_THAT(recorder.take(), ElementsAre(told));
    expectUndoAndRedo(before, {told}, {told});
    EXPECT_TRUE(set({true, -1.5, 2.5, 7, ColourMapKind::CoolToWarm}));
    EXPECT_THAT(recorder.take(), IsEmpty()) << "nothing happens where it is so already";
}

TEST_F(SetContourColoursTest, IsRefusedWithAReason)
{
    double const none = std::numeric_limits<double>::quiet_NaN();
    double const endless = std::numeric_limits<double>::infinity();
    EXPECT_EQ(reasonFor(between(none, 1.0)), "The limits of a contour are finite numbers.");
    EXPECT_EQ(reasonFor(between(0.0, endless)), "The limits of a contour are finite numbers.");
    EXPECT_EQ(reasonFor(between(1.0, 1.0)), "The lower limit of a contour has to be below the upper one.");
    EXPECT_EQ(reasonFor(between(2.0, 1.0)), "The lower limit of a contour has to be below the upper one.");
    ContourColours colours;
    colours.levels = -1;
    EXPECT_EQ(reasonFor(colours), "A contour has up to 100 levels.");
    colours.levels = 101;
    EXPECT_EQ(reasonFor(colours), "A contour has up to 100 levels.");
    colours.levels = 100;
    colours.map = static_cast<ColourMapKind>(colourMapCount);
    EXPECT_EQ(reasonFor(colours), "There is no such colour map.");
    colours.map = static_cast<ColourMapKind>(-1);
    EXPECT_EQ(reasonFor(colours), "There is no such colour map.");
}

TEST_F(SetContourColoursTest, HasACommandThatTellsAllOfIt)
{
    auto const command = [this](ContourColours const& colours) {
        return SetContourColours(frame->id, colours).command().text();
    };
    EXPECT_EQ(command({}), "set-contour-colours map=viridis");
    EXPECT_EQ(command({true, -1.5, 2.5, 7, ColourMapKind::CoolToWarm}),
              "set-contour-colours range=fixed min=-1.5 max=2.5 levels=7 map=cool-to-warm");
    EXPECT_EQ(command({false, 1.0, 2.0, 0, ColourMapKind::Grey}),
              "set-contour-colours range=shown min=1 max=2 map=grey");
}

} // namespace veldraw::tests
