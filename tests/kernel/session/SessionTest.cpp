#include "kernel/operations/AddFrame.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/LineMapOperation.h"
#include "kernel/operations/RenameFrame.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/kernel/support/SessionFixture.h"
#include "tests/support/SpecialNumbers.h"

#include <algorithm>
#include <stdexcept>
#include <unistd.h>

namespace veldraw::tests {

using namespace kernel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class SessionOperations : public SessionFixture
{
};

class CountingDisplay : public Display
{
public:
    void redraw() override { ++redraws; }
    bool fitData(Frame const& frame) override { return frame.id == fittingFrame; }
    bool fitAllFrames() override { return fitsAll; }

    int redraws = 0;
    UniqueId fittingFrame = 0;
    bool fitsAll = false;
};

} // namespace

TEST(Session, StartsWithAnEmptyPage)
{
    Session const session;
    ASSERT_EQ(session.pages().all().size(), 1U);
    EXPECT_EQ(session.activePage(), session.pages().all().front());
    EXPECT_EQ(session.activeFrame(), nullptr);
    EXPECT_EQ(session.activeDataSet(), nullptr);
}

TEST(Session, LetsTheHistoryHoldAQuarterOfTheMachinesMemory)
{
    struct Holding : Change
    {
        explicit Holding(std::int64_t bytes)
            : memory{bytes, 0}
        {
        }

        void apply() noexcept override {}
        void revert() noexcept override {}
        HeldMemory held() const noexcept override { return memory; }

        HeldMemory memory;
    };
    std::int64_t const mebibyte = std::int64_t{1} << 20;
    std::int64_t const machine = static_cast<std::int64_t>(sysconf(_SC_PHYS_PAGES)) * sysconf(_SC_PAGESIZE);
    std::int64_t const limit = std::max(machine / 4, 1024 * mebibyte);
    Session session;
    session.history().perform("held", std::make_shared<Holding>(limit - mebibyte));
    EXPECT_TRUE(session.history().canUndo());
    session.history().perform("too much", std::make_shared<Holding>(limit + mebibyte));
    EXPECT_FALSE(session.history().canUndo());
}

TEST_F(SessionOperations, RenameAZone)
{
    std::string const before = withoutHistory();
    EXPECT_TRUE(session.perform(RenameZone(*dataSet, 2, "top \xC3\xA4")));
    EXPECT_EQ(dataSet->zone(2)->name, "top \xC3\xA4");
    EXPECT_THAT(recorder.take(), ElementsAre("18 zones 2"));
    EXPECT_EQ(session.history().undoName(), "Rename Zone");
    expectUndoAndRedo(before, {"18 zones 2"}, {"18 zones 2"});
    expectRefused([&] { return session.perform(RenameZone(*dataSet, 3, "x")); });
    expectRefused([&] { return session.perform(RenameZone(*dataSet, 0, "x")); });
    expectRefused([&] { return session.perform(RenameZone(*dataSet, 1, "")); });
    expectRefused([&] { return session.perform(RenameZone(*sample::twoPlanes(), 1, "x")); });
}

TEST_F(SessionOperations, RenameAVariableAlsoToANameThatIsUsed)
{
    std::string const before = withoutHistory();
    EXPECT_TRUE(session.perform(RenameVariable(*dataSet, 4, "X")));
    EXPECT_THAT(recorder.take(), ElementsAre("17 variables 4"));
    EXPECT_EQ(session.history().undoName(), "Rename Variable");
    expectUndoAndRedo(before, {"17 variables 4"}, {"17 variables 4"});
    expectRefused([&] { return session.perform(RenameVariable(*dataSet, 6, "x")); });
    expectRefused([&] { return session.perform(RenameVariable(*dataSet, 4, "")); });
}

TEST_F(SessionOperations, EnableAndDisableZonesAndVariables)
{
    std::string const before = withoutHistory();
    EXPECT_TRUE(session.perform(EnableZone(*dataSet, 1, false)));
    EXPECT_THAT(recorder.take(), ElementsAre("6 zones 1"));
    EXPECT_EQ(session.history().undoName(), "Disable Zone");
    expectUndoAndRedo(before, {"6 zones 1"}, {"6 zones 1"});
    EXPECT_TRUE(session.perform(EnableZone(*dataSet, 1, true)));
    EXPECT_EQ(session.history().undoName(), "Enable Zone");
    recorder.take();
    std::string const enabled = withoutHistory();
    EXPECT_TRUE(session.perform(EnableVariable(*dataSet, 3, false)));
    EXPECT_THAT(recorder.take(), ElementsAre("3 variables 3"));
    EXPECT_EQ(session.history().undoName(), "Disable Variable");
    expectUndoAndRedo(enabled, {"3 variables 3"}, {"3 variables 3"});
    EXPECT_TRUE(session.perform(EnableVariable(*dataSet, 3, true)));
    EXPECT_EQ(session.history().undoName(), "Enable Variable");
    recorder.take();
    expectRefused([&] { return session.perform(EnableZone(*dataSet, 3, false)); });
    expectRefused([&] { return session.perform(EnableVariable(*dataSet, -7, false)); });
}

TEST_F(SessionOperations, DoNothingWhenTheValueIsThereAlready)
{
    std::string const before = stateDigest(session);
    EXPECT_TRUE(session.perform(RenameZone(*dataSet, 1, "lower")));
    EXPECT_TRUE(session.perform(EnableZone(*dataSet, 1, true)));
    EXPECT_TRUE(session.perform(EnableVariable(*dataSet, 1, true)));
    EXPECT_TRUE(session.perform(SetTitle(*dataSet, "Two planes")));
    EXPECT_TRUE(session.perform(SetPlotType(frame->id, frame->plotType)));
    EXPECT_TRUE(session.perform(MoveFrame(frame->id, frame->rectangle)));
    EXPECT_TRUE(session.perform(AssignVariable(frame->id, 'X', 1)));
    EXPECT_TRUE(session.activateFrame(frame->id));
    session.setLock(*dataSet, "");
    EXPECT_EQ(stateDigest(session), before);
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST_F(SessionOperations, TellALockAndLeaveItAsItIsWhenStepsAreTakenBack)
{
    ASSERT_TRUE(session.perform(RenameZone(*dataSet, 1, "renamed")));
    recorder.take();
    session.setLock(*dataSet, "somebody");
    session.setLock(*dataSet, "somebody");
    EXPECT_THAT(recorder.take(), ElementsAre("14"));
    session.setLock(*dataSet, "somebody else");
    EXPECT_THAT(recorder.take(), ElementsAre("14"));
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(dataSet->lockHolder(), "somebody else");
    ASSERT_TRUE(session.redo());
    EXPECT_EQ(dataSet->lockHolder(), "somebody else");
    EXPECT_THAT(recorder.take(), ElementsAre("18 zones 1", "24", "18 zones 1", "24"));
    session.setLock(*dataSet, "");
    EXPECT_THAT(recorder.take(), ElementsAre("14"));
    EXPECT_FALSE(session.history().undoName().empty()) << "none of it is a step";
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(dataSet->lockHolder(), "");
}

TEST_F(SessionOperations, SetTheTitle)
{
    std::string const before = withoutHistory();
    EXPECT_TRUE(session.perform(SetTitle(*dataSet, "A much longer title than there was before")));
    EXPECT_EQ(dataSet->title(), "A much longer title than there was before");
    EXPECT_THAT(recorder.take(), ElementsAre("13"));
    EXPECT_EQ(session.history().undoName(), "Data Set Title");
    expectUndoAndRedo(before, {"13"}, {"13"});
    expectRefused([&] { return session.perform(SetTitle(*sample::twoPlanes(), "x")); });
}

TEST_F(SessionOperations, CreateAFrameAndTakeItBack)
{
    std::string const before = withoutHistory();
    auto const created = session.createFrame("second", {1, 2, 0, 0});
    ASSERT_NE(created, nullptr);
    EXPECT_EQ(session.activeFrame(), created);
    EXPECT_EQ(created->plotType, PlotType_Sketch);
    EXPECT_EQ(created->dataSet, nullptr);
    EXPECT_EQ(recorder.events().at(0).frame, created->id);
    EXPECT_EQ(recorder.events().at(1).frame, created->id);
    EXPECT_THAT(recorder.take(), ElementsAre("8 frame", "10 frame"));
    EXPECT_EQ(session.history().undoName(), "New Frame");
    expectUndoAndRedo(before, {"9 frame", "10 frame"}, {"8 frame", "10 frame"});
}

TEST_F(SessionOperations, RefuseAFrameThatCannotBe)
{
    using Frames = std::vector<std::shared_ptr<Frame>>;
    expectRefused([&] { return session.createFrame("bad", {0, 0, -1, 1}) != nullptr; });
    expectRefused([&] { return session.createFrame("bad", {notANumber, 0, 1, 1}) != nullptr; });
    expectRefused([&] { return session.perform(MoveFrame(frame->id, {0, 0, 1, -1})); });
    expectRefused([&] { return session.perform(MoveFrame(noFrame, {0, 0, 1, 1})); });
    expectRefused([&] { return session.perform(AddFrame(nullptr)); });
    expectRefused([&] { return session.perform(AddFrame(frame)); });
    auto const good = std::make_shared<Frame>("good", Rectangle{});
    expectRefused([&] { return session.perform(AddFrame(Frames{good, frame})); });
    expectRefused([&] { return session.perform(AddFrame(Frames{good, nullptr})); });
    expectRefused([&] { return session.perform(AddFrame(Frames{})); });
    session.removeAllPages();
    EXPECT_THAT(recorder.take(), ElementsAre("16", "10"));
    expectRefused([&] { return session.createFrame("bad", {0, 0, 1, 1}) != nullptr; });
    expectRefused([&] { return session.perform(AddFrame(std::make_shared<Frame>("f", Rectangle{}))); });
    expectRefused([&] { return session.startFrameLoop(); });
    expectRefused([&] { return session.fitAllFrames(); });
    session.tileFrames();
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST_F(SessionOperations, AddAFinishedFrameAndTileThePage)
{
    std::string const before = withoutHistory();
    auto const added = std::make_shared<Frame>("added", Rectangle{});
    added->dataSet = sample::ordered({"time", "force"}, 10);
    EXPECT_TRUE(session.perform(AddFrame(added)));
    EXPECT_THAT(recorder.take(), ElementsAre("8 frame", "10 frame"));
    EXPECT_EQ(added->plotType, PlotType_XYLine);
    EXPECT_EQ(frame->rectangle.width, 5.5);
    EXPECT_EQ(added->rectangle.x, 5.5);
    EXPECT_EQ(added->rectangle.height, 8.5);
    expectUndoAndRedo(before, {"9 frame", "10 frame"}, {"8 frame", "10 frame"});
}

TEST_F(SessionOperations, AddSeveralFramesInOneStep)
{
    using Frames = std::vector<std::shared_ptr<Frame>>;
    std::string const before = withoutHistory();
    auto const first = std::make_shared<Frame>("first", Rectangle{});
    auto const second = std::make_shared<Frame>("second", Rectangle{});
    second->dataSet = sample::ordered({"time", "force"}, 10);
    EXPECT_TRUE(session.perform(AddFrame(Frames{first, second})));
    EXPECT_THAT(recorder.take(), ElementsAre("8 frame", "8 frame", "10 frame"));
    EXPECT_EQ(session.activeFrame(), second);
    EXPECT_EQ(second->plotType, PlotType_XYLine);
    EXPECT_EQ(session.history().undoName(), "New Frames");
    expectUndoAndRedo(before, {"9 frame", "9 frame", "10 frame"}, {"8 frame", "8 frame", "10 frame"});
}

TEST_F(SessionOperations, DeleteFramesAndActivateAnother)
{
    auto const second = session.createFrame("second", {0, 0, 1, 1});
    recorder.take();
    std::string const before = withoutHistory();
    EXPECT_TRUE(session.perform(DeleteFrame(second->id)));
    EXPECT_EQ(session.activeFrame(), frame);
    EXPECT_EQ(session.frame(second->id), nullptr);
    EXPECT_EQ(recorder.events().at(0).frame, second->id);
    EXPECT_EQ(recorder.events().at(1).frame, frame->id);
    EXPECT_THAT(recorder.take(), ElementsAre("9 frame", "10 frame"));
    EXPECT_EQ(session.history().undoName(), "Delete Frame");
    expectUndoAndRedo(before, {"8 frame", "10 frame"}, {"9 frame", "10 frame"});
    EXPECT_TRUE(session.perform(DeleteFrame(frame->id)));
    EXPECT_EQ(session.activeFrame(), nullptr);
    EXPECT_THAT(recorder.take(), ElementsAre("9 frame", "10"));
    expectRefused([&] { return session.perform(DeleteFrame(frame->id)); });
    EXPECT_TRUE(session.undo());
    EXPECT_EQ(session.activeFrame(), frame);
}

TEST_F(SessionOperations, ActivateAFrameWithoutAStep)
{
    auto const second = session.createFrame("second", {0, 0, 1, 1});
    recorder.take();
    EXPECT_TRUE(session.activateFrame(frame->id));
    EXPECT_EQ(session.activeFrame(), frame);
    EXPECT_THAT(recorder.take(), ElementsAre("10 frame"));
    EXPECT_EQ(session.history().undoName(), "New Frame");
    expectRefused([&] { return session.activateFrame(noFrame); });
}

TEST_F(SessionOperations, RenameAndMoveAFrame)
{
    std::string const before = withoutHistory();
    EXPECT_TRUE(session.perform(RenameFrame(frame->id, "renamed")));
    EXPECT_THAT(recorder.take(), ElementsAre("11 frame"));
    EXPECT_EQ(session.history().undoName(), "Rename Frame");
    expectUndoAndRedo(before, {"11 frame"}, {"11 frame"});
    std::string const renamed = withoutHistory();
    EXPECT_TRUE(session.perform(MoveFrame(frame->id, {1, 1, 0, 0})));
    EXPECT_THAT(recorder.take(), ElementsAre("11 frame"));
    EXPECT_EQ(session.history().undoName(), "Move Frame");
    expectUndoAndRedo(renamed, {"11 frame"}, {"11 frame"});
    expectRefused([&] { return session.perform(RenameFrame(noFrame, "x")); });
}

TEST_F(SessionOperations, TileTheFramesRowByRow)
{
    session.createFrame("second", {0, 0, 1, 1});
    auto const third = session.createFrame("third", {0, 0, 1, 1});
    recorder.take();
    session.tileFrames();
    EXPECT_EQ(third->rectangle, (Rectangle{0, 4.25, 5.5, 4.25}));
    EXPECT_THAT(recorder.take(), ElementsAre("11 frame", "11 frame", "11 frame"));
    EXPECT_EQ(session.history().undoName(), "New Frame");
}

TEST_F(SessionOperations, SetThePlotType)
{
    std::string const before = withoutHistory();
    EXPECT_TRUE(session.perform(SetPlotType(frame->id, PlotType_Cartesian3D)));
    EXPECT_THAT(recorder.take(), ElementsAre("7 PlotType frame"));
    EXPECT_EQ(session.history().undoName(), "Plot Type");
    expectUndoAndRedo(before, {"7 PlotType frame"}, {"7 PlotType frame"});
    expectRefused([&] { return session.perform(SetPlotType(noFrame, PlotType_XYLine)); });
    expectRefused([&] { return session.perform(SetPlotType(frame->id, static_cast<PlotType_e>(0))); });
    expectRefused([&] { return session.perform(SetPlotType(frame->id, static_cast<PlotType_e>(6))); });
}

TEST_F(SessionOperations, AssignVariablesIn2D)
{
    ASSERT_EQ(frame->plotType, PlotType_Cartesian2D);
    std::string const before = withoutHistory();
    EXPECT_TRUE(session.perform(AssignVariable(frame->id, 'Y', 4)));
    EXPECT_THAT(recorder.take(), ElementsAre("7 TwoDAxis YVar frame"));
    EXPECT_EQ(frame->axisVariables(), (std::array<int, 3>{1, 4, 0}));
    EXPECT_EQ(session.history().undoName(), "Assign Variable");
    expectUndoAndRedo(before, {"7 TwoDAxis YVar frame"}, {"7 TwoDAxis YVar frame"});
    EXPECT_TRUE(session.perform(AssignVariable(frame->id, 'U', 1)));
    EXPECT_EQ(frame->variableNumber('U'), 1);
    EXPECT_THAT(recorder.take(), ElementsAre("7 GlobalTwoDVector UVar frame"));
    EXPECT_TRUE(session.perform(AssignVariable(frame->id, 'C', 0)));
    EXPECT_EQ(frame->variableNumber('C'), 0);
    EXPECT_THAT(recorder.take(), ElementsAre("7 GlobalContour Var frame"));
    expectRefused([&] { return session.perform(AssignVariable(frame->id, 'Z', 1)); });
}

TEST_F(SessionOperations, AssignVariablesIn3D)
{
    session.perform(SetPlotType(frame->id, PlotType_Cartesian3D));
    recorder.take();
    EXPECT_TRUE(session.perform(AssignVariable(frame->id, 'Z', 5)));
    EXPECT_EQ(frame->axisVariables()[2], 5);
    EXPECT_THAT(recorder.take(), ElementsAre("7 ThreeDAxis ZVar frame"));
    EXPECT_TRUE(session.perform(AssignVariable(frame->id, 'W', 5)));
    EXPECT_THAT(recorder.take(), ElementsAre("7 GlobalThreeDVector WVar frame"));
}

TEST_F(SessionOperations, RefuseAssignmentsThatMakeNoSense)
{
    expectRefused([&] { return session.perform(AssignVariable(frame->id, 'X', 6)); });
    expectRefused([&] { return session.perform(AssignVariable(frame->id, 'X', -1)); });
    expectRefused([&] { return session.perform(AssignVariable(frame->id, 'A', 1)); });
    expectRefused([&] { return session.perform(AssignVariable(frame->id, '\0', 1)); });
    expectRefused([&] { return session.perform(AssignVariable(noFrame, 'X', 1)); });
    auto const empty = session.createFrame("empty", {});
    recorder.take();
    expectRefused([&] { return session.perform(AssignVariable(empty->id, 'X', 1)); });
}

TEST_F(SessionOperations, ShowAndHideLayers)
{
    std::string const before = withoutHistory();
    EXPECT_TRUE(session.perform(SetPlotOption(frame->id, &Frame::showContour, false)));
    EXPECT_THAT(recorder.take(), ElementsAre("7 FieldLayers ShowContour frame"));
    EXPECT_EQ(session.history().undoName(), "Contour");
    expectUndoAndRedo(before, {"7 FieldLayers ShowContour frame"}, {"7 FieldLayers ShowContour frame"});
    EXPECT_TRUE(session.perform(SetPlotOption(frame->id, &Frame::showMesh, true)));
    EXPECT_EQ(session.history().undoName(), "Mesh");
    EXPECT_TRUE(session.perform(SetPlotOption(frame->id, &Frame::showLines, false)));
    EXPECT_TRUE(session.perform(SetPlotOption(frame->id, &Frame::showSymbols, true)));
    EXPECT_THAT(recorder.take(), ElementsAre("7 FieldLayers ShowMesh frame", "7 LinePlotLayers ShowLines frame",
                                             "7 LinePlotLayers ShowSymbols frame"));
    expectRefused([&] { return session.perform(SetPlotOption(noFrame, &Frame::showMesh, true)); });
}

TEST_F(SessionOperations, StretchTheAxes)
{
    std::string const before = withoutHistory();
    EXPECT_TRUE(session.perform(SetPlotOption(frame->id, &Frame::stretchAxes, true)));
    EXPECT_TRUE(frame->stretchAxes);
    EXPECT_THAT(recorder.take(), ElementsAre("7 FieldAxes Stretch frame"));
    EXPECT_EQ(session.history().undoName(), "Stretch Axes");
    expectUndoAndRedo(before, {"7 FieldAxes Stretch frame"}, {"7 FieldAxes Stretch frame"});
    expectRefused([&] { return session.perform(SetPlotOption(noFrame, &Frame::stretchAxes, true)); });
}

TEST_F(SessionOperations, SetTheLinePlot)
{
    std::string const before = withoutHistory();
    EXPECT_TRUE(session.perform(SetLinePlot(frame->id, 2, 4, 5)));
    ASSERT_EQ(frame->lineMaps.size(), 1U);
    EXPECT_EQ(frame->lineMaps[0].zone, dataSet->zone(2)->id);
    EXPECT_EQ(frame->lineMaps[0].xVariable, dataSet->variable(4)->id);
    EXPECT_EQ(frame->lineMaps[0].yVariable, dataSet->variable(5)->id);
    EXPECT_THAT(recorder.take(), ElementsAre("19 frame", "7 LineMap Assign frame"));
    EXPECT_EQ(session.history().undoName(), "Line Map");
    expectUndoAndRedo(before, {"19 frame", "7 LineMap Assign frame"}, {"19 frame", "7 LineMap Assign frame"});
    expectRefused([&] { return session.perform(SetLinePlot(frame->id, 3, 1, 2)); });
    expectRefused([&] { return session.perform(SetLinePlot(frame->id, 1, 0, 2)); });
    expectRefused([&] { return session.perform(SetLinePlot(frame->id, 1, 1, 6)); });
    expectRefused([&] { return session.perform(SetLinePlot(noFrame, 1, 1, 2)); });
}

TEST_F(SessionOperations, SetTheLinePlotOfAFrameWithoutLineMaps)
{
    session.perform(DeleteLineMaps(frame->id, {1}));
    EXPECT_TRUE(session.perform(SetLinePlot(frame->id, 1, 1, 4)));
    EXPECT_EQ(frame->lineMaps.size(), 1U);
}

TEST_F(SessionOperations, SetTheLinePlotKeepsNothingOfWhatWasShownBefore)
{
    LineMap& map = frame->lineMaps.front();
    map.name = "Fourier Transform of Probe";
    map.indices[0] = {2, 9, 3};
    session.perform(SetLinePlot(frame->id, dataSet->zoneNumber(map.zone), dataSet->variableNumber(map.xVariable),
                                dataSet->variableNumber(map.yVariable)));
    EXPECT_EQ(frame->lineMaps.front().name, "Fourier Transform of Probe") << "the same curve";
    EXPECT_TRUE(session.perform(SetLinePlot(frame->id, 2, 4, 5)));
    EXPECT_EQ(frame->lineMaps.front().name, "Map 1");
    EXPECT_EQ(frame->lineMaps.front().indices[0].min, IndexRange().min);
    EXPECT_EQ(frame->lineMaps.front().indices[0].max, IndexRange().max);
}

TEST_F(SessionOperations, CreateChangeAndDeleteLineMaps)
{
    std::string const before = withoutHistory();
    EXPECT_TRUE(session.perform(CreateLineMap(frame->id)));
    EXPECT_EQ(frame->lineMaps.size(), 2U);
    EXPECT_THAT(recorder.take(), ElementsAre("19 frame", "7 LineMap Assign frame"));
    expectUndoAndRedo(before, {"19 frame", "7 LineMap Assign frame"}, {"19 frame", "7 LineMap Assign frame"});
    EXPECT_TRUE(session.perform(ChangeLineMaps(frame->id, {1, 2}, [](LineMap& map) { map.active = false; })));
    EXPECT_FALSE(frame->lineMaps[1].active);
    recorder.take();
    expectRefused([&] {
        return session.perform(ChangeLineMaps(frame->id, {1}, [](LineMap& map) {
            map.name = "half done";
            throw std::runtime_error("no");
        }));
    });
    EXPECT_EQ(session.lastError(), "no");
    expectRefused([&] { return session.perform(ChangeLineMaps(frame->id, {3}, [](LineMap&) {})); });
    expectRefused([&] { return session.perform(ChangeLineMaps(frame->id, {}, [](LineMap&) {})); });
    expectRefused([&] { return session.perform(DeleteLineMaps(frame->id, {0})); });
    EXPECT_TRUE(session.perform(DeleteLineMaps(frame->id, {1})));
    EXPECT_EQ(frame->lineMaps.size(), 1U);
    EXPECT_THAT(recorder.take(), ElementsAre("19 frame", "7 LineMap Assign frame"));
    EXPECT_TRUE(session.perform(DeleteLineMaps(frame->id, {})));
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST_F(SessionOperations, ReplaceThePageAndForgetTheHistory)
{
    session.perform(RenameZone(*dataSet, 1, "x"));
    recorder.take();
    session.clear();
    EXPECT_EQ(session.pages().all().size(), 1U);
    EXPECT_EQ(session.activeFrame(), nullptr);
    EXPECT_FALSE(session.history().canUndo());
    EXPECT_THAT(recorder.take(), ElementsAre("16", "10"));
    expectRefused([&] { return session.undo(); });
    expectRefused([&] { return session.redo(); });
}

TEST_F(SessionOperations, OpenAPageOfFramesSideBySideWithTheFirstActive)
{
    auto const first = std::make_shared<Frame>("1", Rectangle{});
    auto const second = std::make_shared<Frame>("2", Rectangle{});
    session.openPage({first, nullptr, second});
    EXPECT_EQ(session.activeFrame(), first);
    EXPECT_EQ(session.activePage()->frames.size(), 2U);
    EXPECT_EQ(second->rectangle, (Rectangle{5.5, 0, 5.5, 8.5}));
    EXPECT_THAT(recorder.take(), ElementsAre("16", "10 frame"));
}

TEST_F(SessionOperations, GiveAFrameADataSetWithoutAStep)
{
    auto const second = session.createFrame("second", {});
    recorder.take();
    EXPECT_TRUE(session.setFrameDataSet(second->id, dataSet));
    EXPECT_THAT(recorder.take(), ElementsAre("12 frame"));
    EXPECT_EQ(session.pages().framesOf(*dataSet).size(), 2U);
    EXPECT_EQ(session.history().undoName(), "New Frame");
    expectRefused([&] { return session.setFrameDataSet(second->id, nullptr); });
    expectRefused([&] { return session.setFrameDataSet(noFrame, dataSet); });
}

TEST_F(SessionOperations, ForgetTheStepsOfADataSetThatNobodyShowsAnyMore)
{
    session.perform(RenameZone(*dataSet, 1, "x"));
    auto const second = session.createFrame("second", {});
    session.setFrameDataSet(second->id, dataSet);
    session.setFrameDataSet(frame->id, sample::twoPlanes());
    EXPECT_TRUE(session.history().canUndo());
    session.setFrameDataSet(second->id, sample::twoPlanes());
    EXPECT_FALSE(session.history().canUndo());
}

TEST_F(SessionOperations, WalkOverTheFramesWithoutAnEvent)
{
    auto const second = session.createFrame("second", {});
    recorder.take();
    ASSERT_TRUE(session.startFrameLoop());
    EXPECT_EQ(session.activeFrame(), frame);
    EXPECT_EQ(session.activeDataSet(), dataSet);
    EXPECT_TRUE(session.nextFrameInLoop());
    EXPECT_EQ(session.activeFrame(), second);
    EXPECT_EQ(session.activeDataSet(), nullptr);
    EXPECT_FALSE(session.nextFrameInLoop());
    EXPECT_EQ(session.activeFrame(), second);
    session.startFrameLoop();
    EXPECT_EQ(session.activeFrame(), frame);
    session.endFrameLoop();
    EXPECT_EQ(session.activeFrame(), second);
    EXPECT_FALSE(session.nextFrameInLoop());
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST_F(SessionOperations, WalkPastFramesThatHaveGone)
{
    auto const second = session.createFrame("second", {});
    auto const third = session.createFrame("third", {});
    session.startFrameLoop();
    session.perform(DeleteFrame(second->id));
    EXPECT_TRUE(session.nextFrameInLoop());
    EXPECT_EQ(session.activeFrame(), third);
    EXPECT_FALSE(session.nextFrameInLoop()) << "it has walked past the second, not to it";
    session.perform(DeleteFrame(third->id));
    EXPECT_EQ(session.activeFrame(), frame) << "who has gone counts as active no more";
    session.endFrameLoop();
}

TEST_F(SessionOperations, TellOfPicksAndMouseModes)
{
    session.setPicks({{Pick::zoneType, dataSet->zone(1)->id}});
    EXPECT_EQ(session.picks().size(), 1U);
    EXPECT_TRUE(session.setMouseMode(2));
    EXPECT_TRUE(session.setMouseMode(2));
    EXPECT_THAT(recorder.take(), ElementsAre("25", "26"));
    EXPECT_EQ(session.mouseMode(), 2);
    expectRefused([&] { return session.setMouseMode(0); });
    expectRefused([&] { return session.setMouseMode(5); });
}

TEST_F(SessionOperations, DrawOnceWhenDrawingIsResumed)
{
    CountingDisplay display;
    session.setDisplay(&display);
    session.setDrawing(false);
    EXPECT_FALSE(session.isDrawing());
    session.setDrawing(false);
    session.setDrawing(true);
    session.setDrawing(true);
    EXPECT_EQ(display.redraws, 1);
    session.setDisplay(nullptr);
    session.setDrawing(false);
    session.setDrawing(true);
    EXPECT_EQ(display.redraws, 1);
}

TEST_F(SessionOperations, FitTheViewAsTheDisplayCan)
{
    EXPECT_TRUE(session.fitData());
    EXPECT_TRUE(session.fitAllFrames());
    CountingDisplay display;
    session.setDisplay(&display);
    EXPECT_FALSE(session.fitData());
    EXPECT_FALSE(session.fitAllFrames());
    display.fittingFrame = frame->id;
    display.fitsAll = true;
    EXPECT_TRUE(session.fitData());
    EXPECT_TRUE(session.fitAllFrames());
    session.createFrame("empty", {});
    EXPECT_FALSE(session.fitData());
}

TEST_F(SessionOperations, MakeOneStepOfAGroup)
{
    std::string const before = withoutHistory();
    session.history().beginGroup("Both");
    session.perform(RenameZone(*dataSet, 1, "x"));
    session.perform(DeleteVariables(*dataSet, {5}));
    EXPECT_FALSE(session.undo());
    session.history().endGroup();
    EXPECT_EQ(session.history().undoName(), "Both");
    expectUndoAndRedo(before, {"1 variables 5", "18 zones 1"}, {"18 zones 1", "2 variables 5"});
}

TEST_F(SessionOperations, SayThatTheyEnd)
{
    session.goDown();
    EXPECT_THAT(recorder.take(), ElementsAre("15"));
}

TEST_F(SessionOperations, SurviveAListenerThatUndoesWhatItHears)
{
    std::string const before = withoutHistory();
    session.events().subscribe([&](StateChangeEvent const& event) {
        if (event.kind == StateChange_VariablesDeleted) {
            session.undo();
        }
    });
    EXPECT_TRUE(session.perform(DeleteVariables(*dataSet, {1})));
    EXPECT_EQ(withoutHistory(), before);
    EXPECT_TRUE(session.history().canRedo());
}

} // namespace veldraw::tests
