#include "dialogs/fourier/FourierResultsFrame.h"

#include "kernel/operations/AddFrame.h"
#include "kernel/operations/RenameFrame.h"
#include "kernel/operations/SetPlotType.h"
#include "platform/vdsdkbase/VelUtilFrame.h"
#include "platform/vdtoolbox/AuxData.h"
#include "tests/dialogs/fourier/FourierFrames.h"
#include "tests/support/KernelSpy.h"

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using kernel::Rectangle;
using sdk::ui::propertymanager::findOrCreateResultsFrame;
using sdk::ui::propertymanager::prepareResultsFrame;
using testing::ElementsAre;
using toolbox::AuxData;

std::string const resultsMark = "IsVeldrawFourierTransformOutputFrame";

class FourierResultsFrameTest : public FourierFrames
{
protected:
    long long find(FourierPlotDisplayType_e display = FourierPlotDisplayType_InCorner) const
    {
        return findOrCreateResultsFrame(source(), display);
    }

    /// A frame with the mark, which shows the sample's data.
    long long addMarked(bool value = true)
    {
        long long const id = addFrame(true);
        sample.session().activateFrame(id);
        AuxData(AuxDataLocation_Frame, 1).set(resultsMark, value, true);
        sample.session().activateFrame(source());
        return id;
    }

    std::string activates(long long id) const { return "VelUtilFrameActivateByUniqueID(" + std::to_string(id) + ")"; }

    std::size_t frameCount() const { return page().frames.size(); }

    KernelSpy spy;
};

TEST_F(FourierResultsFrameTest, IsANewLinePlotOfTheSameDataWithoutLineMaps)
{
    long long const id = find();
    ASSERT_NE(id, 0);
    EXPECT_NE(id, source());
    EXPECT_EQ(active(), id);
    EXPECT_EQ(frame(id).dataSet, sample.frame()->dataSet);
    EXPECT_EQ(frame(id).plotType, PlotType_XYLine);
    EXPECT_TRUE(frame(id).lineMaps.empty());
    EXPECT_EQ(frame(id).rectangle, (Rectangle{5.0, 1.0, 4.0, 3.0}));
}

TEST_F(FourierResultsFrameTest, HasTheNameThatItWasGivenByTheKernelInBrackets)
{
    EXPECT_EQ(frame(find()).name, "Fourier Transform (Frame 2)");
}

TEST_F(FourierResultsFrameTest, IsMarkedInItsAuxiliaryData)
{
    long long const id = find();
    AuxData const data(AuxDataLocation_Frame, 1);
    ASSERT_EQ(data.indexOf(resultsMark), 1);
    EXPECT_EQ(data.value(1), "TRUE");
    EXPECT_TRUE(frame(id).auxiliaryData.item(1).retain);
    EXPECT_EQ(sample.frame()->auxiliaryData.size(), 0);
}

TEST_F(FourierResultsFrameTest, IsFoundAgainByItsMark)
{
    long long const id = find();
    sample.session().perform(kernel::RenameFrame(id, "Spectra"));
    sample.session().perform(kernel::MoveFrame(id, {0.0, 0.0, 1.0, 1.0}));
    EXPECT_EQ(find(), id);
    EXPECT_EQ(frame(id).name, "Spectra") << "a name of the user's stays";
    EXPECT_EQ(frame(id).rectangle, (Rectangle{5.0, 1.0, 4.0, 3.0})) << "it returns to its place";
    EXPECT_EQ(frameCount(), 2u);
    EXPECT_EQ(active(), id);
}

TEST_F(FourierResultsFrameTest, KeepsTheLineMapsOfAnEarlierRun)
{
    long long const id = find();
    frame(id).lineMaps.resize(3);
    EXPECT_EQ(find(), id);
    EXPECT_EQ(frame(id).lineMaps.size(), 3u);
}

TEST_F(FourierResultsFrameTest, IsMadeAnewWhenTheUserHasDeletedIt)
{
    long long const first = find();
    sample.session().perform(kernel::DeleteFrame(first));
    sample.session().activateFrame(source());
    long long const second = find();
    EXPECT_NE(second, 0);
    EXPECT_NE(second, first);
    EXPECT_EQ(frameCount(), 2u);
}

TEST_F(FourierResultsFrameTest, IsTheFirstOfSeveral)
{
    long long const first = addMarked();
    addMarked();
    EXPECT_EQ(find(), first);
    EXPECT_EQ(frameCount(), 3u);
}

TEST_F(FourierResultsFrameTest, IsNoneThatShowsOtherDataOrNoData)
{
    long long const other = addMarked();
    sample.session().setFrameDataSet(other, SampleSession::makeDataSet({"Alone"}, {"X", "Y"}));
    long long const empty = addMarked();
    frame(empty).dataSet = nullptr;
    long long const made = find();
    EXPECT_NE(made, 0);
    EXPECT_NE(made, other);
    EXPECT_NE(made, empty);
    EXPECT_NE(made, source());
    EXPECT_EQ(frameCount(), 4u);
}

TEST_F(FourierResultsFrameTest, IsNoneWithoutTheMarkOrWithTheMarkFalse)
{
    long long const without = addFrame(true);
    long long const marked = addMarked(false);
    long long const made = find();
    EXPECT_NE(made, without);
    EXPECT_NE(made, marked);
    EXPECT_EQ(frameCount(), 4u);
}

TEST_F(FourierResultsFrameTest, MayBeTheSourceItselfAndIsNotMovedThen)
{
    AuxData(AuxDataLocation_Frame, 1).set(resultsMark, true, true);
    EXPECT_EQ(find(), source());
    EXPECT_EQ(frame(source()).rectangle, (Rectangle{1.0, 1.0, 8.0, 6.0}));
    EXPECT_EQ(frameCount(), 1u);
    EXPECT_EQ(find(FourierPlotDisplayType_Tile), source());
    EXPECT_EQ(frame(source()).rectangle, (Rectangle{0.0, 0.0, 11.0, 8.5})) << "tiling moves every frame";
}

TEST_F(FourierResultsFrameTest, IsTiledWithAllFramesIfWanted)
{
    long long const id = find(FourierPlotDisplayType_Tile);
    EXPECT_THAT(places(), ElementsAre(Rectangle{0.0, 0.0, 11.0, 4.25}, Rectangle{0.0, 4.25, 11.0, 4.25}));
    EXPECT_EQ(active(), id);
    sample.session().perform(kernel::MoveFrame(id, {0.0, 0.0, 1.0, 1.0}));
    addFrame(true);
    EXPECT_EQ(find(FourierPlotDisplayType_Tile), id);
    EXPECT_EQ(frame(id).rectangle, (Rectangle{5.5, 0.0, 5.5, 4.25}));
}

TEST_F(FourierResultsFrameTest, EndsItsWalkOverTheFramesInEveryCase)
{
    find();
    EXPECT_FALSE(VelUtilFrameLightweightLoopNext()) << "no frame had the mark";
    addFrame(true);
    find();
    EXPECT_FALSE(VelUtilFrameLightweightLoopNext()) << "the last frame was not reached";
    EXPECT_EQ(spy.count("VelUtilFrameLightweightLoopStart"), 2);
    EXPECT_EQ(spy.count("VelUtilFrameLightweightLoopEnd"), 2);
}

TEST_F(FourierResultsFrameTest, IsMadeByTheseCalls)
{
    long long const id = find();
    std::vector<std::string> const calls = spy.calls();
    std::string const data = std::to_string(sample.dataSet().id());
    EXPECT_THAT(
        calls,
        ElementsAre(activates(source()), "VelUtilDataSetGetUniqueID()", "VelUtilFrameLightweightLoopStart()",
                    "VelUtilDataSetIsAvailable()", "VelUtilDataSetGetUniqueID()", "VelUtilFrameLightweightLoopNext()",
                    "VelUtilFrameLightweightLoopEnd()", activates(source()), "VelUtilFrameCreateNew(true, 0, 0, 0, 0)",
                    "VelUtilFrameGetUniqueID()", "VelUtilFrameGetName(out)", "VelUtilStringDealloc(out)",
                    "VelUtilFrameSetName(\"Fourier Transform (Frame 2)\")", activates(id), "VelUtilFrameGetPlotType()",
                    "VelUtilDataSetIsAvailable()", activates(source()), "VelUtilDataSetGetUniqueID()",
                    "VelUtilFrameSetDataSet(" + data + ", " + std::to_string(id) + ")", activates(id),
                    "VelUtilFrameSetPlotType(3)", "VelUtilLineMapDelete(null)", activates(source()),
                    "VelUtilFrameGetPosAndSize(out, out, out, out)", activates(id),
                    "VelUtilFrameSetPosAndSize(5, 1, 4, 3)"));
}

TEST_F(FourierResultsFrameTest, IsFoundByTheseCalls)
{
    long long const id = find();
    spy.reset();
    find(FourierPlotDisplayType_Tile);
    EXPECT_THAT(spy.calls(),
                ElementsAre(activates(source()), "VelUtilDataSetGetUniqueID()", "VelUtilFrameLightweightLoopStart()",
                            "VelUtilDataSetIsAvailable()", "VelUtilDataSetGetUniqueID()",
                            "VelUtilFrameLightweightLoopNext()", "VelUtilDataSetIsAvailable()",
                            "VelUtilDataSetGetUniqueID()", "VelUtilFrameGetUniqueID()",
                            "VelUtilFrameLightweightLoopEnd()", "VelUtilPaperGetDimensions(out, out)",
                            "VelUtilFrameGetCount()", "VelUtilFrameGetUniqueID()", "VelUtilFrameActivateByNumber(1)",
                            "VelUtilFrameSetPosAndSize(0, 0, 11, 4.25)", "VelUtilFrameActivateByNumber(2)",
                            "VelUtilFrameSetPosAndSize(0, 4.25, 11, 4.25)", activates(source())));
    EXPECT_NE(id, source());
}

TEST_F(FourierResultsFrameTest, IsMadeAnywhereWhenAllFramesAreTiledAfterwards)
{
    find(FourierPlotDisplayType_Tile);
    EXPECT_THAT(spy.callsOf("VelUtilFrameCreateNew"), ElementsAre("VelUtilFrameCreateNew(false, 0, 0, 0, 0)"));
}

TEST_F(FourierResultsFrameTest, IsNoneWhenTheKernelMakesNoFrame)
{
    spy.failNext("VelUtilFrameCreateNew");
    EXPECT_EQ(find(), 0);
    EXPECT_EQ(frameCount(), 1u);
    EXPECT_EQ(spy.count("VelUtilFrameGetName"), 0);
    EXPECT_EQ(spy.count("VelUtilFrameSetPosAndSize"), 0);
}

TEST_F(FourierResultsFrameTest, IsNoneWhenItsPreparationFailsThoughTheFrameStays)
{
    for (char const* const failing : {"VelUtilFrameSetDataSet", "VelUtilFrameSetPlotType", "VelUtilLineMapDelete"}) {
        std::size_t const before = frameCount();
        spy.reset();
        spy.failNext(failing);
        EXPECT_EQ(find(), 0) << failing;
        EXPECT_EQ(frameCount(), before + 1) << failing;
        EXPECT_EQ(spy.count("VelUtilFrameSetPosAndSize"), 0) << failing;
        sample.session().undo();
        while (frameCount() > before)
            sample.session().undo();
        sample.session().activateFrame(source());
    }
}

TEST_F(FourierResultsFrameTest, IsNoneWithoutAnIdentity)
{
    spy.failNext("VelUtilFrameGetUniqueID");
    EXPECT_EQ(find(), 0);
    EXPECT_EQ(spy.count("VelUtilFrameSetDataSet"), 0);
}

TEST_F(FourierResultsFrameTest, DoesWithoutANameThatTheKernelDoesNotTellOrTake)
{
    spy.failNext("VelUtilFrameGetName");
    long long const id = find();
    EXPECT_EQ(frame(id).name, "Fourier Transform ()");
    sample.session().perform(kernel::DeleteFrame(id));
    sample.session().activateFrame(source());
    spy.failNext("VelUtilFrameSetName");
    EXPECT_EQ(frame(find()).name, "Frame 2");
}

TEST_F(FourierResultsFrameTest, IsPassedOverWhileItHasNoIdentity)
{
    addMarked();
    long long const second = addMarked();
    spy.failNext("VelUtilFrameGetUniqueID");
    EXPECT_EQ(find(), second);
}

TEST_F(FourierResultsFrameTest, IsLeftAloneByItsPreparationWhenItIsALinePlotWhateverItsData)
{
    long long const empty = addFrame(false);
    sample.session().perform(kernel::SetPlotType(empty, PlotType_XYLine));
    spy.reset();
    EXPECT_TRUE(prepareResultsFrame(source(), empty));
    EXPECT_THAT(spy.calls(), ElementsAre(activates(empty), "VelUtilFrameGetPlotType()"));
    EXPECT_FALSE(frame(empty).dataSet);
}

TEST_F(FourierResultsFrameTest, IsMadeALinePlotAgainAfterALookAtItsData)
{
    long long const id = find();
    sample.session().perform(kernel::SetPlotType(id, PlotType_Cartesian2D));
    spy.reset();
    EXPECT_TRUE(prepareResultsFrame(source(), id));
    EXPECT_EQ(frame(id).plotType, PlotType_XYLine);
    EXPECT_THAT(spy.calls(), ElementsAre(activates(id), "VelUtilFrameGetPlotType()", "VelUtilDataSetIsAvailable()",
                                         activates(id), "VelUtilFrameSetPlotType(3)"));
    EXPECT_EQ(active(), id);
}

TEST_F(FourierResultsFrameTest, TakesAPlotTypeThatHoldsAlreadyForDone)
{
    sample.session().setFrameDataSet(source(), sample.frame()->dataSet); // two lines make a line plot
    ASSERT_EQ(sample.frame()->plotType, PlotType_XYLine);
    long long const empty = addFrame(false);
    EXPECT_TRUE(prepareResultsFrame(source(), empty));
    EXPECT_EQ(frame(empty).plotType, PlotType_XYLine) << "the kernel chose it when the frame got its data";
    EXPECT_EQ(spy.count("VelUtilFrameSetPlotType"), 1);
}

} // namespace
} // namespace veldraw::tests
