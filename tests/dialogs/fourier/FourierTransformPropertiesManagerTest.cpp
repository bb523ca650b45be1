#include "dialogs/fourier/FourierTransformPropertiesManager.h"

#include "kernel/operations/AddFrame.h"
#include "kernel/operations/RenameFrame.h"
#include "kernel/operations/SetPlotType.h"
#include "platform/vdsdkbase/VelUtilMouse.h"
#include "platform/vdsdkbase/VelUtilPage.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdtoolbox/AuxData.h"
#include "tests/dialogs/fourier/FourierFixture.h"
#include "tests/dialogs/support/RecordedGuards.h"
#include "tests/support/KernelSpy.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <sstream>

namespace veldraw::tests {
namespace {

using kernel::Rectangle;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;
using Manager = FourierTransformPropertiesManager;

std::string const noTransform = "error: Insufficient resources to perform Fourier transform.";
std::string const noFrame = "error: Fourier Transform succeeded but results frame could not be created.";

// As a library does that is loaded before the options are made.
boost::shared_ptr<PropertyAbstract<WindowFunction_e>> const askedBeforeMain = Manager::windowFunction();

// The options as they are before any test has touched them.
class FourierAtLoad : public testing::Environment
{
public:
    void SetUp() override
    {
        display = Manager::plotDisplay()->value();
        window = Manager::windowFunction()->value();
        conjugates = Manager::includeConjugates()->value();
        zones = Manager::replaceLatestResultZones()->value();
        vars = Manager::replaceLatestResultVars()->value();
        blanking = Manager::obeySourceZoneBlanking()->value();
    }
    static inline int display = -1;
    static inline int window = -1;
    static inline bool conjugates = true;
    static inline bool zones = false;
    static inline bool vars = false;
    static inline bool blanking = true;
};
testing::Environment* const fourierAtLoad = testing::AddGlobalTestEnvironment(new FourierAtLoad);

class FourierTransformPropertiesManagerTest : public FourierFixture
{
protected:
    FourierTransformPropertiesManagerTest()
    {
        manager.dependentVariables()->setValue({2});
        manager.sourceZones()->setValue({1});
    }

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
        sample.session().history().beginGroup("open?");
        sample.session().history().endGroup();
        EXPECT_TRUE(sample.session().undo()) << "no group is open after " << when;
        EXPECT_TRUE(sample.session().redo());
    }

    /// Takes away what runs have left, also where a call that takes something away was the one that failed.
    void beginAnew()
    {
        sample.session().endFrameLoop();
        while (frames().size() > 1)
            sample.session().perform(kernel::DeleteFrame(frames().back()->id));
        sample.session().activateFrame(sample.frame()->id);
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

    Manager const manager;
    KernelSpy spy;
};

TEST_F(FourierTransformPropertiesManagerTest, StartsWithTheOptionsOfTheLibrary)
{
    ASSERT_TRUE(fourierAtLoad);
    EXPECT_EQ(FourierAtLoad::display, FourierPlotDisplayType_InCorner);
    EXPECT_EQ(FourierAtLoad::window, WindowFunction_Rectangular);
    EXPECT_FALSE(FourierAtLoad::conjugates);
    EXPECT_TRUE(FourierAtLoad::zones);
    EXPECT_TRUE(FourierAtLoad::vars);
    EXPECT_FALSE(FourierAtLoad::blanking);
}

TEST_F(FourierTransformPropertiesManagerTest, SharesItsOptionsWithEveryOtherAndItsSelectionsWithNone)
{
    Manager::windowFunction()->setValue(WindowFunction_Hann);
    manager.independentVariable()->setValue(3);
    Manager const other;
    EXPECT_EQ(other.windowFunction()->value(), WindowFunction_Hann);
    EXPECT_EQ(other.independentVariable()->value(), 1);
    EXPECT_THAT(other.dependentVariables()->value(), IsEmpty());
    EXPECT_THAT(other.sourceZones()->value(), IsEmpty());
    EXPECT_EQ(manager.independentVariable()->value(), 3);
}

TEST_F(FourierTransformPropertiesManagerTest, HandsOutTheSameObjectsEachTime)
{
    EXPECT_EQ(Manager::plotDisplay(), Manager::plotDisplay());
    EXPECT_EQ(Manager::windowFunction(), Manager::windowFunction());
    EXPECT_EQ(Manager::includeConjugates(), Manager::includeConjugates());
    EXPECT_EQ(Manager::replaceLatestResultZones(), Manager::replaceLatestResultZones());
    EXPECT_EQ(Manager::replaceLatestResultVars(), Manager::replaceLatestResultVars());
    EXPECT_NE(Manager::replaceLatestResultVars(), Manager::replaceLatestResultZones());
    EXPECT_EQ(Manager::obeySourceZoneBlanking(), Manager::obeySourceZoneBlanking());
    EXPECT_EQ(manager.independentVariable(), manager.independentVariable());
    EXPECT_EQ(manager.dependentVariables(), manager.dependentVariables());
    EXPECT_EQ(manager.sourceZones(), manager.sourceZones());
    EXPECT_EQ(manager.variableModel(), manager.variableModel());
    EXPECT_EQ(manager.sourceZonesModel(), manager.sourceZonesModel());
    EXPECT_EQ(manager.windowFunctionModel(), manager.windowFunctionModel());
    EXPECT_EQ(manager.plotDisplayModel(), manager.plotDisplayModel());
    EXPECT_EQ(manager.transformButtonRelevance(), manager.transformButtonRelevance());
    EXPECT_EQ(Manager::relevance(), Manager::relevance());
}

TEST_F(FourierTransformPropertiesManagerTest, HandsOutItsOptionsAlsoBeforeTheProgramBegins)
{
    ASSERT_TRUE(askedBeforeMain);
    EXPECT_EQ(askedBeforeMain, Manager::windowFunction());
}

TEST_F(FourierTransformPropertiesManagerTest, RefusesNoValue)
{
    EXPECT_NO_THROW(manager.independentVariable()->setValue(-7));
    EXPECT_NO_THROW(manager.dependentVariables()->setValue({0, 99}));
    EXPECT_NO_THROW(manager.sourceZones()->setValue({99}));
    EXPECT_FALSE(manager.transformButtonRelevance()->isRelevant());
}

TEST_F(FourierTransformPropertiesManagerTest, OffersWhatCanBeChosen)
{
    EXPECT_EQ(manager.variableModel()->size(), 4);
    EXPECT_EQ(manager.sourceZonesModel()->size(), 3);
    EXPECT_FALSE(manager.variableModel()->isEditable());
    EXPECT_FALSE(manager.sourceZonesModel()->isEditable());
    EXPECT_EQ(manager.windowFunctionModel()->size(), 4);
    EXPECT_EQ(manager.windowFunctionModel()->get(2), WindowFunction_Hann);
    EXPECT_EQ(manager.windowFunctionModel()->getStr(3), "Hamming");
    EXPECT_EQ(manager.plotDisplayModel()->size(), 2);
    EXPECT_EQ(manager.plotDisplayModel()->getStr(1), "Tile with existing frames");
    sample.dataSet().zone(2)->i = 3;
    enableZone(3, false);
    EXPECT_EQ(manager.sourceZonesModel()->size(), 1);
}

TEST_F(FourierTransformPropertiesManagerTest, PassesTenArgumentsInOrder)
{
    manager.independentVariable()->setValue(4);
    manager.dependentVariables()->setValue({1, 2, 3});
    manager.sourceZones()->setValue({1, 3});
    Manager::windowFunction()->setValue(WindowFunction_Hamming);
    Manager::obeySourceZoneBlanking()->setValue(true);
    Manager::replaceLatestResultVars()->setValue(false);
    spy.reset();
    spy.failNext(kernelFunction);
    manager.transform();
    std::vector<std::string> calls = spy.calls();
    EXPECT_THAT(std::vector<std::string>(calls.begin(), calls.begin() + 12),
                ElementsAre("VelUtilArgListAlloc()", "VelUtilArgListAppendInt(list, \"IndependentVar\", 4)",
                            "VelUtilArgListAppendInt(list, \"WindowFunction\", 3)",
                            "VelUtilArgListAppendSet(list, \"DependentVars\", {1, 2, 3})",
                            "VelUtilArgListAppendSet(list, \"SourceZones\", {1, 3})",
                            "VelUtilArgListAppendInt(list, \"IncludeConjugates\", 0)",
                            "VelUtilArgListAppendInt(list, \"ObeySourceZoneBlanking\", 1)",
                            "VelUtilArgListAppendInt(list, \"ReplaceMatchingResultZones\", 1)",
                            "VelUtilArgListAppendInt(list, \"ReplaceMatchingResultVariables\", 0)",
                            StartsWith("VelUtilArgListAppendInt(list, \"FourierTransformResultingZones\", "),
                            StartsWith("VelUtilArgListAppendInt(list, \"FourierTransformResultingVars\", "),
                            "VelUtilFourierTransformX(list)"));
    EXPECT_NE(calls.at(9).substr(calls.at(9).rfind(' ')), calls.at(10).substr(calls.at(10).rfind(' ')));
}

TEST_F(FourierTransformPropertiesManagerTest, LeavesTheIndependentVariableOutOfTheDependentOnesForTheKernelOnly)
{
    manager.independentVariable()->setValue(3);
    manager.dependentVariables()->setValue({3, 4});
    EXPECT_TRUE(manager.transformButtonRelevance()->isRelevant());
    spy.reset();
    spy.failNext(kernelFunction);
    manager.transform();
    EXPECT_THAT(spy.callsOf("VelUtilArgListAppendSet"),
                testing::Contains(std::string("VelUtilArgListAppendSet(list, \"DependentVars\", {4})")));
    EXPECT_EQ(manager.dependentVariables()->value(), (std::set<int>{3, 4}));
}

TEST_F(FourierTransformPropertiesManagerTest, TellsATransformThatFailsAndTouchesNoFrame)
{
    spy.reset();
    spy.failNext(kernelFunction);
    manager.transform();
    EXPECT_THAT(messages.take(), ElementsAre(noTransform));
    EXPECT_EQ(spy.count(kernelFunction), 1) << "nothing tries again by itself";
    std::vector<std::string> const calls = spy.calls();
    auto const transformed = std::find(calls.begin(), calls.end(), "VelUtilFourierTransformX(list)");
    EXPECT_THAT(std::vector<std::string>(transformed + 1, calls.end()),
                ElementsAre("VelUtilDialogErrMsg(\"Insufficient resources to perform Fourier transform.\")",
                            "VelUtilArgListDealloc(out)"));
    EXPECT_EQ(frames().size(), 1u);
}

TEST_F(FourierTransformPropertiesManagerTest, ChecksNothingItselfAndLeavesThatToTheKernel)
{
    manager.sourceZones()->setValue({});
    manager.dependentVariables()->setValue({1});
    manager.transform();
    EXPECT_EQ(spy.count(kernelFunction), 1);
    EXPECT_THAT(messages.take(), ElementsAre(noTransform));
    EXPECT_EQ(frames().size(), 1u);
}

TEST_F(FourierTransformPropertiesManagerTest, FailsWhenAnArgumentFindsNoMemory)
{
    for (int n = 1; n <= 8; ++n) {
        spy.reset();
        spy.failNext("VelUtilArgListAppendInt", n);
        manager.transform();
        EXPECT_THAT(messages.take(), ElementsAre(noTransform)) << n;
    }
    for (int n = 1; n <= 2; ++n) {
        spy.reset();
        spy.failNext("VelUtilArgListAppendSet", n);
        manager.transform();
        EXPECT_THAT(messages.take(), ElementsAre(noTransform)) << n;
    }
    spy.reset();
    spy.failNext("VelUtilArgListAlloc");
    manager.transform();
    EXPECT_THAT(messages.take(), ElementsAre(noTransform));
    EXPECT_EQ(sample.dataSet().zoneCount(), 3);
    EXPECT_EQ(frames().size(), 1u);
}

TEST_F(FourierTransformPropertiesManagerTest, HoldsTheApplicationWhileItTellsAFailure)
{
    RecordedGuards const recorded;
    spy.failNext(kernelFunction);
    manager.transform();
    spy.failNext("VelUtilFrameCreateNew");
    manager.transform();
    EXPECT_EQ(recorded.guards(), (RecordedGuards::Guards{{1, 0}, {1, 0}}));
    EXPECT_EQ(sdk::AppLock::depth(), 0);
}

TEST_F(FourierTransformPropertiesManagerTest, ShowsItsResultsByTheseCallsAfterTheTransform)
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

TEST_F(FourierTransformPropertiesManagerTest, ShowsAmplitudesOverFrequenciesInAFrameOfTheirOwn)
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

TEST_F(FourierTransformPropertiesManagerTest, SwitchesLinesOnWhereTheUserHadNone)
{
    manager.transform();
    sample.session().perform(kernel::SetPlotOption(resultsFrame().id, &kernel::Frame::showLines, false));
    manager.transform();
    EXPECT_TRUE(resultsFrame().showLines);
}

TEST_F(FourierTransformPropertiesManagerTest, AddsLineMapsToTheFrameOfTheLastRunAndPutsItBack)
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

TEST_F(FourierTransformPropertiesManagerTest, MakesAnotherFrameWhereTheUserHasClosedTheOldOneOrShownOtherDataInIt)
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

TEST_F(FourierTransformPropertiesManagerTest, LeavesTheResultsFrameInItsPlaceWhenTheRunStartsFromIt)
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

TEST_F(FourierTransformPropertiesManagerTest, TilesAllFramesAndBringsThemIntoView)
{
    Manager::plotDisplay()->setValue(FourierPlotDisplayType_Tile);
    manager.transform();
    EXPECT_EQ(sample.frame()->rectangle, (Rectangle{0.0, 0.0, 11.0, 4.25}));
    EXPECT_EQ(resultsFrame().rectangle, (Rectangle{0.0, 4.25, 11.0, 4.25}));
    EXPECT_EQ(spy.count("VelUtilWorkViewFitAllFrames"), 1);
    expectAtRest("tiling");
}

TEST_F(FourierTransformPropertiesManagerTest, BringsAllFramesIntoViewAlsoWhenThereIsNoResultsFrame)
{
    Manager::plotDisplay()->setValue(FourierPlotDisplayType_Tile);
    spy.failNext("VelUtilFrameCreateNew");
    manager.transform();
    EXPECT_THAT(messages.take(), ElementsAre(noFrame));
    EXPECT_EQ(spy.count("VelUtilWorkViewFitAllFrames"), 1);
    EXPECT_EQ(frames().size(), 1u);
}

// Whoever hears of the new frame may set the option.
TEST_F(FourierTransformPropertiesManagerTest, AsksOnceMoreWhereThePlotGoesBeforeItBringsAllFramesIntoView)
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

TEST_F(FourierTransformPropertiesManagerTest, GivesTheMouseItsModeBack)
{
    auto const listening = sample.session().events().subscribe([](kernel::StateChangeEvent const& event) {
        if (event.kind == StateChange_FrameCreated)
            VelUtilMouseSetMode(static_cast<int>(kernel::MouseMode::Zoom));
    });
    manager.transform();
    sample.session().events().unsubscribe(listening);
    EXPECT_EQ(VelUtilMouseGetCurrentMode(), static_cast<int>(kernel::MouseMode::Select));
}

TEST_F(FourierTransformPropertiesManagerTest, TellsOnceThatTheFrameCouldNotBeMadeAndKeepsTheResults)
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

TEST_F(FourierTransformPropertiesManagerTest, LeavesTheMapsThatWereMadeBeforeOneFailed)
{
    manager.sourceZones()->setValue({1, 2, 3});
    spy.failNext("VelUtilLineMapCreate", 3);
    manager.transform();
    EXPECT_THAT(messages.take(), ElementsAre(noFrame));
    EXPECT_EQ(resultsFrame().lineMaps.size(), 2u);
    EXPECT_EQ(spy.count("VelUtilViewDataFit"), 0);
}

TEST_F(FourierTransformPropertiesManagerTest, LeavesTheMapsWhenTheViewCannotBeFitted)
{
    spy.failNext("VelUtilViewDataFit");
    manager.transform();
    EXPECT_THAT(messages.take(), ElementsAre(noFrame));
    EXPECT_EQ(resultsFrame().lineMaps.size(), 1u);
}

TEST_F(FourierTransformPropertiesManagerTest, IsTakenBackStepByStepAndDoneAgainWithFramesMapsAndMark)
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
    for (std::size_t step = states.size() - 1; step > 0; --step) {
        EXPECT_EQ(state(), states[step]);
        ASSERT_TRUE(sample.session().redo());
    }
    EXPECT_EQ(state(), states.front());
    EXPECT_FALSE(history.canRedo());
    EXPECT_EQ(resultsFrame().plotType, PlotType_XYLine);
    EXPECT_EQ(resultsFrame().lineMaps.front().indices[0].min, 2);
    sample.session().activateFrame(sample.frame()->id);
    manager.transform();
    EXPECT_EQ(frames().size(), 2u) << "the frame that came back is found";
}

TEST_F(FourierTransformPropertiesManagerTest, EndsAtRestAndCanRunAgainWhicheverCallFails)
{
    Manager::plotDisplay()->setValue(FourierPlotDisplayType_Tile);
    int const callsOfRun = static_cast<int>(functionsOfTransform().size());
    EXPECT_GT(callsOfRun, 70);
    for (void (KernelSpy::*const fail)(int) : {&KernelSpy::failCall, &KernelSpy::failFrom})
        for (int n = 1; n <= callsOfRun; ++n) {
            spy.reset();
            (spy.*fail)(n);
            manager.transform();
            std::vector<std::string> const calls = spy.calls();
            std::string const failed = static_cast<int>(calls.size()) < n ? "none" : calls.at(std::size_t(n - 1));
            EXPECT_LE(messages.take().size(), 1u) << n << ": " << failed;
            EXPECT_EQ(sdk::AppLock::depth(), 0) << n << ": " << failed;
            spy.reset();
            beginAnew();
            manager.transform();
            EXPECT_THAT(messages.take(), IsEmpty()) << n << ": " << failed;
            ASSERT_EQ(frames().size(), 2u) << n << ": " << failed;
            EXPECT_EQ(resultsFrame().lineMaps.size(), 1u) << n << ": " << failed;
            expectAtRest(failed);
            beginAnew();
        }
}

} // namespace
} // namespace veldraw::tests
