#include "dialogs/fourier/FramePlacement.h"

#include "tests/dialogs/fourier/FourierFrames.h"
#include "tests/support/KernelSpy.h"

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using kernel::Rectangle;
using sdk::ui::propertymanager::placeFrameInCorner;
using sdk::ui::propertymanager::tileFrames;
using testing::ElementsAre;

class FramePlacementTest : public FourierFrames
{
protected:
    /// Tiles the source and more frames on a paper.
    std::vector<Rectangle> tiled(int frameCount, double paperWidth, double paperHeight)
    {
        setPaper(paperWidth, paperHeight);
        while (static_cast<int>(page().frames.size()) < frameCount)
            addFrame(true);
        tileFrames();
        return places();
    }

    KernelSpy spy;
};

TEST_F(FramePlacementTest, PutsAFrameOverTheQuarterFromTheMiddleOfTheUpperEdge)
{
    long long const added = addFrame(true);
    placeFrameInCorner(source(), added);
    EXPECT_EQ(frame(added).rectangle, (Rectangle{5.0, 1.0, 4.0, 3.0}));
    EXPECT_EQ(frame(source()).rectangle, (Rectangle{1.0, 1.0, 8.0, 6.0}));
    EXPECT_EQ(active(), added);
}

TEST_F(FramePlacementTest, GivesAFrameNoSizeWhenTheOtherOneTellsNone)
{
    long long const added = addFrame(true);
    spy.failNext("VelUtilFrameGetPosAndSize");
    placeFrameInCorner(source(), added);
    EXPECT_EQ(frame(added).rectangle, (Rectangle{0.0, 0.0, 0.0, 0.0}));
}

TEST_F(FramePlacementTest, StacksTwoFramesWhateverTheShapeOfThePaper)
{
    for (auto const& [width, height] : {std::pair{11.0, 8.5}, std::pair{3.0, 10.0}, std::pair{20.0, 1.0}})
        EXPECT_THAT(tiled(2, width, height), ElementsAre(Rectangle{0.0, 0.0, width, 0.5 * height},
                                                         Rectangle{0.0, 0.5 * height, width, 0.5 * height}));
}

TEST_F(FramePlacementTest, LeavesTheFourthPlaceOfThreeFramesOnAWidePaperEmpty)
{
    EXPECT_THAT(tiled(3, 10.0, 5.0), ElementsAre(Rectangle{0.0, 0.0, 5.0, 2.5}, Rectangle{5.0, 0.0, 5.0, 2.5},
                                                 Rectangle{0.0, 2.5, 5.0, 2.5}));
}

TEST_F(FramePlacementTest, LetsTheFourthFrameOnAWidePaperRunPastItsBottom)
{
    EXPECT_THAT(tiled(4, 12.0, 6.0), ElementsAre(Rectangle{0.0, 0.0, 4.0, 6.0}, Rectangle{4.0, 0.0, 4.0, 6.0},
                                                 Rectangle{8.0, 0.0, 4.0, 6.0}, Rectangle{0.0, 6.0, 4.0, 6.0}));
}

TEST_F(FramePlacementTest, TakesColumnsAndRowsByTheNearestWholeNumber)
{
    struct Case
    {
        int frames;
        double width;
        double height;
        double columns;
        double rows;
    };
    // By hand: columns = sqrt(frames * width / height), rows = frames / columns, both rounded.
    for (Case const& each : {Case{1, 11.0, 8.5, 1, 1}, Case{3, 11.0, 8.5, 2, 2}, Case{3, 8.5, 11.0, 2, 2},
                             Case{4, 11.0, 8.5, 2, 2}, Case{5, 11.0, 8.5, 3, 2}, Case{6, 1.0, 1.0, 2, 3},
                             Case{6, 24.0, 25.0, 2, 3}, Case{7, 1.0, 1.0, 3, 2}, Case{7, 2.0, 9.0, 1, 7}}) {
        std::vector<Rectangle> const tiles = tiled(each.frames, each.width, each.height);
        EXPECT_DOUBLE_EQ(tiles.front().width, each.width / each.columns) << each.frames << " frames";
        EXPECT_DOUBLE_EQ(tiles.front().height, each.height / each.rows) << each.frames << " frames";
    }
}

TEST_F(FramePlacementTest, KeepsAColumnAndARowOnPapersThatAreNothingButLong)
{
    EXPECT_THAT(tiled(3, 0.1, 9.0), ElementsAre(Rectangle{0.0, 0.0, 0.1, 3.0}, Rectangle{0.0, 3.0, 0.1, 3.0},
                                                Rectangle{0.0, 6.0, 0.1, 3.0}));
    EXPECT_DOUBLE_EQ(tiled(3, 100.0, 1.0).back().height, 1.0);
    EXPECT_DOUBLE_EQ(places().back().x, 2.0 * 100.0 / 17.0);
}

TEST_F(FramePlacementTest, LeavesFramesWhereTheyAreOnAPaperWithoutASize)
{
    long long const added = addFrame(true);
    Rectangle const place = frame(added).rectangle;
    setPaper(0.0, 8.5);
    tileFrames();
    setPaper(11.0, 0.0);
    tileFrames();
    setPaper(11.0, 8.5);
    spy.failNext("VelUtilPaperGetDimensions");
    tileFrames();
    EXPECT_EQ(frame(added).rectangle, place);
}

TEST_F(FramePlacementTest, KeepsTheActiveFrameWhichNeedNotBeTheLast)
{
    addFrame(true);
    addFrame(true);
    long long const middle = page().frames[1]->id;
    sample.session().activateFrame(middle);
    tileFrames();
    EXPECT_EQ(active(), middle);
}

TEST_F(FramePlacementTest, GoesOnWhenAFrameCannotBeMoved)
{
    setPaper(10.0, 5.0);
    addFrame(true);
    addFrame(true);
    spy.failNext("VelUtilFrameSetPosAndSize", 2);
    tileFrames();
    EXPECT_THAT(places(), ElementsAre(Rectangle{0.0, 0.0, 5.0, 2.5}, Rectangle{0.0, 0.0, 2.0, 1.0},
                                      Rectangle{0.0, 2.5, 5.0, 2.5}));
}

TEST_F(FramePlacementTest, AsksTheKernelInThisOrder)
{
    long long const added = addFrame(true);
    std::string const one = std::to_string(source());
    std::string const other = std::to_string(added);
    spy.reset();
    placeFrameInCorner(source(), added);
    EXPECT_THAT(spy.calls(),
                ElementsAre("VelUtilFrameActivateByUniqueID(" + one + ")",
                            "VelUtilFrameGetPosAndSize(out, out, out, out)",
                            "VelUtilFrameActivateByUniqueID(" + other + ")", "VelUtilFrameSetPosAndSize(5, 1, 4, 3)"));
    setPaper(8.0, 4.0);
    spy.reset();
    tileFrames();
    EXPECT_THAT(spy.calls(),
                ElementsAre("VelUtilPaperGetDimensions(out, out)", "VelUtilFrameGetCount()",
                            "VelUtilFrameGetUniqueID()", "VelUtilFrameActivateByNumber(1)",
                            "VelUtilFrameSetPosAndSize(0, 0, 8, 2)", "VelUtilFrameActivateByNumber(2)",
                            "VelUtilFrameSetPosAndSize(0, 2, 8, 2)", "VelUtilFrameActivateByUniqueID(" + other + ")"));
}

} // namespace
} // namespace veldraw::tests
