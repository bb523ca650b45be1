#include "dialogs/fourier/FourierTransformPropertiesManager.h"
#include "kernel/operations/AddFrame.h"
#include "kernel/operations/RenameFrame.h"
#include "kernel/operations/SetPlotType.h"
#include "platform/vdsdkbase/VelUtilMouse.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "tests/dialogs/fourier/FourierManagerFixture.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <set>
#include <sstream>

namespace veldraw::tests {
namespace {

using kernel::Rectangle;
using testing::ElementsAre;
using testing::IsEmpty;

class FourierTransformPropertiesManagerFrameTest : public FourierManagerFixture
{
protected:
    /// What the kernel is asked for, by name.
    std::vector<std::string> functionsOfTransform()
    {
        spy.reset();
        manager.transform();
        std::vector<std::string> names;
        for (std::string const& call : spy.calls())
            names.push_back(call.substr(0, call.find('(')));
        return names;
    }

    /// Nothing of a run is left open.
    void expectAtRest(std::string const& when)
    {
        EXPECT_EQ(sdk::AppLock::depth(), 0) << when;
        EXPECT_FALSE(sample.session().nextFrameInLoop()) << when;
        EXPECT_EQ(sample.session().activeFrame(), sample.frame()) << when;
        EXPECT_TRUE(sample.session().isDrawing()) << when;
        EXPECT_EQ(VelUtilMouseGetCurrentMode(), static_cast<int>(kernel::MouseMode::Select)) << when;
        EXPECT_TRUE(sample.session().undo()) << "a group is open after " << when;
        EXPECT_TRUE(sample.session().redo());
    }

    /// The functions whose calls fail when the n-th one does, or also all later ones.
    std::set<std::string> functionsFrom(int n, bool failsOnce) const
    {
        std::vector<std::string> const calls = spy.calls();
        std::set<std::string> names;
        for (std::size_t at = static_cast<std::size_t>(n) - 1; at < calls.size(); ++at) {
            names.insert(calls[at].substr(0, calls[at].find('(')));
            if (failsOnce)
                break;
        }
        return names;
    }

    /// What a run has changed for itself is as it was, but for what the failed functions were to give back.
    void expectRestored(std::set<std::string> const& failed, std::string const& when)
    {
        auto const works = [&failed](char const* function) { return failed.count(function) == 0; };
        EXPECT_EQ(sdk::AppLock::depth(), 0) << when;
        bool const endsWalks = works("VelUtilFrameLightweightLoopEnd");
        bool const activates = works("VelUtilFrameActivateByUniqueID") && works("VelUtilFrameGetUniqueID");
        bool const draws = works("VelUtilDrawGraphics");
        EXPECT_FALSE(endsWalks && sample.session().nextFrameInLoop()) << when;
        EXPECT_TRUE(!activates || sample.session().activeFrame() == sample.frame()) << when;
        EXPECT_TRUE(!draws || sample.session().isDrawing()) << when;
        EXPECT_EQ(VelUtilMouseGetCurrentMode(), static_cast<int>(kernel::MouseMode::Select)) << when;
    }

    /// Functions that tell that they failed, and whose failure the user is told.
    std::set<std::string> const tellable{kernelFunction,
                                         "VelUtilFrameCreateNew",
                                         "VelUtilFrameSetDataSet",
                                         "VelUtilFrameSetPlotType",
                                         "VelUtilLineMapDelete",
                                         "VelUtilLineMapCreate",
                                         "VelUtilLineMapSetName",
                                         "VelUtilLineMapSetAssignment",
                                         "VelUtilLineMapSetActive",
                                         "VelUtilLineMapSetIndices",
                                         "VelUtilViewDataFit"};

    /// Takes away what runs have left, also where a call that takes something away was the one that failed.
    void beginAnew()
    {
        sample.session().endFrameLoop();
        while (frames().size() > 1)
            sample.session().perform(kernel::DeleteFrame(frames().back()->id));
        sample.session().activateFrame(sample.frame()->id);
        sample.session().setDrawing(true);
        sample.frame()->auxiliaryData = {};
    }

    /// Data set and frames in words.
    std::vector<std::string> state() const
    {
        kernel::DataSet const& data = sample.dataSet();
        std::vector<std::string> lines{std::to_string(data.zoneCount()) + " zones, " +
                                       std::to_string(data.variableCount()) + " variables"};
        for (auto const& frame : frames()) {
            std::ostringstream line;
            Rectangle const& place = frame->rectangle;
            line << frame->name << " at " << place.x << ", " << place.y << ", " << place.width << ", " << place.height
                 << ", marked: " << frame->auxiliaryData.size() << ", maps: " << frame->lineMaps.size();
            lines.push_back(line.str());
        }
        return lines;
    }
};

TEST_F(FourierTransformPropertiesManagerFrameTest, ShowsItsResultsByTheseCallsAfterTheTransform)
{
    std::vector<std::string> const names = functionsOfTransform();
    auto const transformed = std::find(names.begin(), names.end(), kernelFunction);
    std::vector<std::string> shown(transformed + 1, names.end());
    // Lists ask questions of their own when they hear of changes.
    std::set<std::string> const asked{"VelUtilFrameGetDataSetUniqueIDByFrameID", "VelUtilDataSetGetNumZonesByUniqueID",
                                      "VelUtilFourierTransformIsValidZoneByDataSetID", "VelUtilFrameGetCount",
                                      "VelUtilFrameGetUniqueID"};
    shown.erase(std::remove_if(shown.begin(), shown.end(), [&](auto const& name) { return asked.count(name) != 0; }),
                shown.end());
    auto const between = [&shown](std::string const& from, std::string const& to) {
        auto const first = std::find(shown.begin(), shown.end(), from);
        return std::vector<std::string>(first, std::find(first, shown.end(), to) + 1);
    };
    EXPECT_THAT(between("VelUtilMouseGetCurrentMode", "VelUtilFrameActivateByUniqueID"),
                ElementsAre("VelUtilMouseGetCurrentMode", "VelUtilDrawGraphics", "VelUtilFrameActivateByUniqueID"));
    EXPECT_THAT(between("VelUtilLinePlotLayerSetIsActive", "VelUtilArgListDealloc"),
                ElementsAre("VelUtilLinePlotLayerSetIsActive", "VelUtilLineMapGetCount", "VelUtilLineMapCreate",
                            "VelUtilZoneGetName", "VelUtilLineMapSetName", "VelUtilStringDealloc",
                            "VelUtilLineMapSetAssignment", "VelUtilLineMapSetAssignment", "VelUtilLineMapSetAssignment",
                            "VelUtilLineMapSetActive", "VelUtilLineMapSetIndices", "VelUtilFrameActivateByUniqueID",
                            "VelUtilViewDataFit", "VelUtilFrameActivateByUniqueID", "VelUtilDrawGraphics",
                            "VelUtilMouseIsValidMode", "VelUtilMouseSetMode", "VelUtilArgListDealloc"));
    EXPECT_THAT(spy.callsOf("VelUtilDrawGraphics"),
                ElementsAre("VelUtilDrawGraphics(false)", "VelUtilDrawGraphics(true)"));
    EXPECT_THAT(spy.callsOf("VelUtilLinePlotLayerSetIsActive"),
                ElementsAre("VelUtilLinePlotLayerSetIsActive(\"ShowLines\", true)"));
    EXPECT_EQ(spy.count("VelUtilWorkViewFitAllFrames"), 0);
    EXPECT_EQ(spy.count("VelUtilDialogErrMsg"), 0);
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(FourierTransformPropertiesManagerFrameTest, GoesFromFrameToFrameInThisOrder)
{
    auto const activations = [this](std::string const& route) {
        std::vector<std::string> calls;
        for (char const stop : route)
            calls.push_back("VelUtilFrameActivateByUniqueID(" +
                            std::to_string(stop == 's' ? sample.frame()->id : resultsFrame().id) + ")");
        return calls;
    };
    manager.transform();
    // To look for the frame, to make it (which takes two looks at the source), to place it, to prepare it again, to add curves, to
    // fit the view, and back.
    EXPECT_EQ(spy.callsOf("VelUtilFrameActivateByUniqueID"), activations("ssrsrsrrrrs"));
    spy.reset();
    manager.transform();
    EXPECT_EQ(spy.callsOf("VelUtilFrameActivateByUniqueID"), activations("ssrrrrs")) << "the frame is there";
}

TEST_F(FourierTransformPropertiesManagerFrameTest, ShowsAmplitudesOverFrequenciesInAFrameOfTheirOwn)
{
    manager.sourceZones()->setValue({1, 3});
    manager.transform();
    ASSERT_EQ(frames().size(), 2u);
    ASSERT_EQ(resultsFrame().lineMaps.size(), 2u);
    EXPECT_TRUE(resultsFrame().showLines);
    EXPECT_EQ(resultsFrame().dataSet, sample.frame()->dataSet);
    for (int const number : {0, 1}) {
        kernel::LineMap const& map = resultsFrame().lineMaps[static_cast<std::size_t>(number)];
        EXPECT_EQ(sample.dataSet().zoneNumber(map.zone), 4 + number);
        EXPECT_EQ(map.name, sample.dataSet().zone(4 + number)->name);
        EXPECT_EQ(sample.dataSet().variableNumber(map.xVariable), 5);
        EXPECT_EQ(sample.dataSet().variableNumber(map.yVariable), 6);
        EXPECT_EQ(map.indices[0].min, 2);
    }
    expectAtRest("a run");
}

TEST_F(FourierTransformPropertiesManagerFrameTest, HasACurveForEachVariableInEachZone)
{
    manager.dependentVariables()->setValue({2, 3});
    manager.sourceZones()->setValue({1, 3});
    manager.transform();
    std::vector<std::vector<int>> curves;
    for (kernel::LineMap const& map : resultsFrame().lineMaps)
        curves.push_back({sample.dataSet().zoneNumber(map.zone), sample.dataSet().variableNumber(map.xVariable),
                          sample.dataSet().variableNumber(map.yVariable)});
    EXPECT_THAT(curves,
                ElementsAre(ElementsAre(4, 5, 6), ElementsAre(4, 8, 9), ElementsAre(5, 5, 6), ElementsAre(5, 8, 9)));
    for (int const zone : {4, 5}) {
        EXPECT_THAT(values(zone, 5),
                    ElementsAre(0.0, testing::DoubleNear(1.0 / 3.0, 1e-12), // of three seconds
                                testing::DoubleNear(2.0 / 3.0, 1e-12), testing::DoubleNear(1.0, 1e-12)));
        EXPECT_NEAR(values(zone, 6).at(1), 1.0, 1e-12) << "the amplitude of the cosine";
        EXPECT_NEAR(values(zone, 9).at(0), 23.0 / 6.0, 1e-12) << "the mean of the other signal";
    }
}

TEST_F(FourierTransformPropertiesManagerFrameTest, SwitchesLinesOnWhereTheUserHadNone)
{
    manager.transform();
    sample.session().perform(kernel::SetPlotOption(resultsFrame().id, &kernel::Frame::showLines, false));
    manager.transform();
    EXPECT_TRUE(resultsFrame().showLines);
}

TEST_F(FourierTransformPropertiesManagerFrameTest, AddsLineMapsToTheFrameOfTheLastRunAndPutsItBack)
{
    manager.transform();
    long long const id = resultsFrame().id;
    sample.session().perform(kernel::MoveFrame(id, {0.0, 0.0, 1.0, 1.0}));
    sample.session().perform(kernel::RenameFrame(id, "Spectra"));
    sample.session().perform(kernel::SetPlotType(id, PlotType_Cartesian2D));
    Manager const other;
    other.dependentVariables()->setValue({3});
    other.sourceZones()->setValue({2});
    other.transform();
    ASSERT_EQ(frames().size(), 2u);
    EXPECT_EQ(resultsFrame().id, id);
    EXPECT_EQ(resultsFrame().name, "Spectra");
    EXPECT_EQ(resultsFrame().plotType, PlotType_XYLine);
    EXPECT_EQ(resultsFrame().lineMaps.size(), 2u);
    EXPECT_EQ(resultsFrame().rectangle, (Rectangle{5.0, 1.0, 4.0, 3.0}));
}

TEST_F(FourierTransformPropertiesManagerFrameTest, MakesAnotherFrameWhereTheUserHasClosedTheOldOneOrShownOtherDataInIt)
{
    manager.transform();
    sample.session().perform(kernel::DeleteFrame(resultsFrame().id));
    manager.transform();
    ASSERT_EQ(frames().size(), 2u);
    EXPECT_EQ(resultsFrame().lineMaps.size(), 1u);
    sample.session().setFrameDataSet(resultsFrame().id, SampleSession::makeDataSet({"Alone"}, {"X", "Y"}));
    manager.transform();
    ASSERT_EQ(frames().size(), 3u);
    EXPECT_EQ(frames().back()->lineMaps.size(), 1u);
    EXPECT_EQ(frames().back()->dataSet, sample.frame()->dataSet);
}

TEST_F(FourierTransformPropertiesManagerFrameTest, LeavesTheResultsFrameInItsPlaceWhenTheRunStartsFromIt)
{
    manager.transform();
    Rectangle const place = resultsFrame().rectangle;
    sample.session().activateFrame(resultsFrame().id);
    manager.transform();
    EXPECT_EQ(frames().size(), 2u);
    EXPECT_EQ(resultsFrame().rectangle, place);
    EXPECT_EQ(resultsFrame().lineMaps.size(), 2u);
    EXPECT_EQ(sample.session().activeFrame()->id, resultsFrame().id);
}

TEST_F(FourierTransformPropertiesManagerFrameTest, TilesAllFramesAndBringsThemIntoView)
{
    Manager::plotDisplay()->setValue(FourierPlotDisplayType_Tile);
    manager.transform();
    EXPECT_EQ(sample.frame()->rectangle, (Rectangle{0.0, 0.0, 11.0, 4.25}));
    EXPECT_EQ(resultsFrame().rectangle, (Rectangle{0.0, 4.25, 11.0, 4.25}));
    EXPECT_EQ(spy.count("VelUtilWorkViewFitAllFrames"), 1);
    expectAtRest("tiling");
}

TEST_F(FourierTransformPropertiesManagerFrameTest, BringsAllFramesIntoViewAlsoWhenThereIsNoResultsFrame)
{
    Manager::plotDisplay()->setValue(FourierPlotDisplayType_Tile);
    spy.failNext("VelUtilFrameCreateNew");
    manager.transform();
    EXPECT_THAT(messages.take(), ElementsAre(noFrame));
    EXPECT_EQ(spy.count("VelUtilWorkViewFitAllFrames"), 1);
    EXPECT_EQ(frames().size(), 1u);
}

// Whoever hears of the new frame may set the option.
TEST_F(FourierTransformPropertiesManagerFrameTest, AsksOnceMoreWhereThePlotGoesBeforeItBringsAllFramesIntoView)
{
    auto const listening = sample.session().events().subscribe([](kernel::StateChangeEvent const& event) {
        if (event.kind == StateChange_FrameCreated)
            Manager::plotDisplay()->setValue(FourierPlotDisplayType_Tile);
    });
    manager.transform();
    sample.session().events().unsubscribe(listening);
    EXPECT_EQ(resultsFrame().rectangle, (Rectangle{5.0, 1.0, 4.0, 3.0})) << "placed by the option that held then";
    EXPECT_EQ(spy.count("VelUtilWorkViewFitAllFrames"), 1);
}

TEST_F(FourierTransformPropertiesManagerFrameTest, GivesTheMouseItsModeBack)
{
    auto const listening = sample.session().events().subscribe([](kernel::StateChangeEvent const& event) {
        if (event.kind == StateChange_FrameCreated)
            VelUtilMouseSetMode(static_cast<int>(kernel::MouseMode::Zoom));
    });
    manager.transform();
    sample.session().events().unsubscribe(listening);
    EXPECT_EQ(VelUtilMouseGetCurrentMode(), static_cast<int>(kernel::MouseMode::Select));
}

TEST_F(FourierTransformPropertiesManagerFrameTest, TellsOnceThatTheFrameCouldNotBeMadeAndKeepsTheResults)
{
    for (char const* const failing :
         {"VelUtilFrameCreateNew", "VelUtilFrameSetDataSet", "VelUtilFrameSetPlotType", "VelUtilLineMapDelete",
          "VelUtilLineMapCreate", "VelUtilZoneGetName", "VelUtilLineMapSetName", "VelUtilLineMapSetAssignment",
          "VelUtilLineMapSetActive", "VelUtilLineMapSetIndices", "VelUtilViewDataFit"}) {
        sample.session().setFrameDataSet(sample.frame()->id, sample.frame()->dataSet);
        int const zones = sample.dataSet().zoneCount();
        Manager::replaceLatestResultZones()->setValue(false);
        spy.reset();
        spy.failNext(failing);
        manager.transform();
        EXPECT_THAT(messages.take(), ElementsAre(noFrame)) << failing;
        EXPECT_EQ(sample.dataSet().zoneCount(), zones + 1) << failing;
        EXPECT_EQ(spy.count(failing) > 0, true) << failing;
        bool const makesNone = std::string(failing) == "VelUtilFrameCreateNew";
        EXPECT_EQ(frames().size(), makesNone ? 1u : 2u) << "a frame already made stays after " << failing;
        expectAtRest(failing);
        while (frames().size() > 1)
            sample.session().perform(kernel::DeleteFrame(frames().back()->id));
    }
}

TEST_F(FourierTransformPropertiesManagerFrameTest, LeavesTheMapsThatWereMadeBeforeOneFailed)
{
    manager.sourceZones()->setValue({1, 2, 3});
    spy.failNext("VelUtilLineMapCreate", 3);
    manager.transform();
    EXPECT_THAT(messages.take(), ElementsAre(noFrame));
    EXPECT_EQ(resultsFrame().lineMaps.size(), 2u);
    EXPECT_EQ(spy.count("VelUtilViewDataFit"), 0);
}

TEST_F(FourierTransformPropertiesManagerFrameTest, LeavesTheMapsWhenTheViewCannotBeFitted)
{
    spy.failNext("VelUtilViewDataFit");
    manager.transform();
    EXPECT_THAT(messages.take(), ElementsAre(noFrame));
    EXPECT_EQ(resultsFrame().lineMaps.size(), 1u);
}

TEST_F(FourierTransformPropertiesManagerFrameTest, IsTakenBackStepByStepAndDoneAgainWithFramesMapsAndMark)
{
    kernel::History& history = sample.session().history();
    history.clear();
    manager.transform();
    std::vector<std::string> names;
    std::vector<std::vector<std::string>> states{state()};
    while (history.canUndo()) {
        names.push_back(history.undoName());
        ASSERT_TRUE(sample.session().undo());
        states.push_back(state());
    }
    EXPECT_THAT(names, ElementsAre("Frame Contents", "Move Frame", "Delete Line Map", "Auxiliary Data", "Rename Frame",
                                   "New Frame", "Discrete Fourier Transform"));
    EXPECT_THAT(states.back(), ElementsAre("3 zones, 4 variables", "Frame 001 at 1, 1, 8, 6, marked: 0, maps: 1"));
    EXPECT_THAT(states.front(), ElementsAre("4 zones, 7 variables", "Frame 001 at 1, 1, 8, 6, marked: 0, maps: 1",
                                            "Fourier Transform (Frame 2) at 5, 1, 4, 3, marked: 1, maps: 1"));
    EXPECT_EQ(sample.session().activeFrame(), sample.frame());
    for (std::size_t step = states.size() - 1; step > 0; --step) {
        EXPECT_EQ(state(), states[step]);
        ASSERT_TRUE(sample.session().redo());
    }
    EXPECT_EQ(state(), states.front());
    EXPECT_FALSE(history.canRedo());
    EXPECT_EQ(sample.session().activeFrame(), sample.frame()) << "as after the run";
    EXPECT_EQ(resultsFrame().plotType, PlotType_XYLine);
    EXPECT_EQ(resultsFrame().lineMaps.front().indices[0].min, 2);
    manager.transform();
    EXPECT_EQ(frames().size(), 2u) << "the frame that came back is found";
}

TEST_F(FourierTransformPropertiesManagerFrameTest, EndsAtRestWhicheverCallFailsUnlessItIsTheOneThatRestores)
{
    Manager::plotDisplay()->setValue(FourierPlotDisplayType_Tile);
    manager.transform();
    beginAnew(); // later runs replace the results, so that each makes the same calls
    int const callsOfRun = static_cast<int>(functionsOfTransform().size());
    EXPECT_GT(callsOfRun, 70);
    int told = 0;
    for (void (KernelSpy::*const fail)(int) : {&KernelSpy::failCall, &KernelSpy::failFrom})
        for (int n = 1; n <= callsOfRun; ++n) {
            beginAnew();
            spy.reset();
            (spy.*fail)(n);
            manager.transform();
            bool const failsOnce = fail == &KernelSpy::failCall;
            std::set<std::string> const failed = functionsFrom(n, failsOnce);
            ASSERT_FALSE(failed.empty()) << n << ": a run like the first";
            std::string const when =
                std::to_string(n) + (failsOnce ? ": " : " and all from there on: ") + *failed.begin();
            std::vector<std::string> const said = messages.take();
            spy.reset();
            expectRestored(failed, when);
            if (failsOnce && tellable.count(*failed.begin()) != 0) {
                EXPECT_THAT(said, ElementsAre(*failed.begin() == kernelFunction ? noTransform : noFrame)) << when;
                ++told;
            } else {
                EXPECT_LE(said.size(), 1u) << when;
            }
        }
    EXPECT_EQ(told, 13) << "each of them, and three assignments";
}

TEST_F(FourierTransformPropertiesManagerFrameTest, CanRunAgainWhicheverCallHasFailed)
{
    Manager::plotDisplay()->setValue(FourierPlotDisplayType_Tile);
    manager.transform();
    beginAnew(); // later runs replace the results, so that each makes the same calls
    int const callsOfRun = static_cast<int>(functionsOfTransform().size());
    for (void (KernelSpy::*const fail)(int) : {&KernelSpy::failCall, &KernelSpy::failFrom})
        for (int n = 1; n <= callsOfRun; ++n) {
            beginAnew();
            spy.reset();
            (spy.*fail)(n);
            manager.transform();
            messages.take();
            spy.reset();
            beginAnew();
            manager.transform();
            EXPECT_THAT(messages.take(), IsEmpty()) << n;
            ASSERT_EQ(frames().size(), 2u) << n;
            EXPECT_EQ(resultsFrame().lineMaps.size(), 1u) << n;
            expectAtRest(std::to_string(n));
        }
}

} // namespace
} // namespace veldraw::tests
