#include "dialogs/datasetinfo/DataSetPropertiesManager.h"

#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/LoadVariables.h"
#include "kernel/operations/SetPlotType.h"
#include "kernel/operations/SetValue.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/datasetinfo/CountingLoaders.h"
#include "tests/support/FakeStateChange.h"
#include "tests/support/KernelSpy.h"

#include <gmock/gmock.h>
#include <map>
#include <set>

namespace veldraw::tests {
namespace {

using sdk::ui::common::IdleDispatcher;
using sdk::ui::propertymanager::DataSetPropertiesManager;
using testing::ElementsAre;

/// The texts of a data set with three zones of 3 by 2 points and the variables X and Y.
class DataSetPropertiesManagerTest : public testing::Test
{
protected:
    DataSetPropertiesManagerTest() { sample.session().history().clear(); }

    /// Zones, variables, points, elements, lock.
    std::vector<std::string> texts() const
    {
        return {manager.numZones()->value(), manager.numVars()->value(), manager.totalPoints()->value(),
                manager.totalElements()->value(), manager.lockedBy()->value()};
    }
    std::vector<std::string> textsAtIdle() const
    {
        IdleDispatcher::flush();
        return texts();
    }
    void perform(kernel::Operation&& operation) { EXPECT_TRUE(sample.session().perform(operation)); }

    SampleSession sample{{"Wing", "Body", "Tail"}, {"X", "Y"}};
    DataSetPropertiesManager manager;
};

TEST_F(DataSetPropertiesManagerTest, HasTheTextsAtOnce)
{
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
    EXPECT_THAT(texts(), ElementsAre("3", "2", "18", "6", "none"));
    EXPECT_EQ(manager.dataSetTitle()->value(), sample.dataSet().title());
    EXPECT_EQ(manager.dataFiles()->value(), "");
}

TEST_F(DataSetPropertiesManagerTest, NamesTheHolderOfTheLock)
{
    sample.session().setLock(sample.dataSet(), "Solver <b>7</b>");
    EXPECT_THAT(textsAtIdle(), ElementsAre("3", "2", "18", "6", "Solver <b>7</b>"));
    sample.session().setLock(sample.dataSet(), "");
    EXPECT_THAT(textsAtIdle(), ElementsAre("3", "2", "18", "6", "none"));
}

TEST_F(DataSetPropertiesManagerTest, FollowsTheKernelAtIdle)
{
    perform(kernel::DuplicateZones(sample.dataSet(), {1}));
    EXPECT_THAT(texts(), ElementsAre("3", "2", "18", "6", "none"));
    EXPECT_THAT(textsAtIdle(), ElementsAre("4", "2", "24", "8", "none"));
    perform(kernel::EnableZone(sample.dataSet(), 2, false));
    EXPECT_THAT(textsAtIdle(), ElementsAre("4", "2", "18", "6", "none"));
    perform(kernel::DeleteVariables(sample.dataSet(), {2}));
    EXPECT_THAT(textsAtIdle(), ElementsAre("4", "1", "18", "6", "none"));
    while (sample.session().undo()) {
    }
    EXPECT_THAT(textsAtIdle(), ElementsAre("3", "2", "18", "6", "none"));
}

TEST_F(DataSetPropertiesManagerTest, HasNothingToCountWithoutADataSet)
{
    std::string const title = manager.dataSetTitle()->value();
    sample.dataSet().loaderInstructions() = {{"VELDRAW", {"a.dat"}}};
    sample.session().clear();
    EXPECT_THAT(textsAtIdle(), ElementsAre("0", "0", "0", "0", "none"));
    EXPECT_EQ(manager.dataFiles()->value(), "");
    EXPECT_EQ(manager.dataSetTitle()->value(), title) << "the last one there was";
}

TEST_F(DataSetPropertiesManagerTest, ShowsTheFilesOfWhateverIsActive)
{
    sample.dataSet().loaderInstructions() = {{"VTK", {"FILENAME_", "wing.vtu"}}};
    FakeStateChange(StateChange_FrameDataSet).send();
    IdleDispatcher::flush();
    EXPECT_EQ(manager.dataFiles()->value(), "wing.vtu\n");
    sample.session().createFrame("Empty", kernel::Rectangle{0.0, 0.0, 1.0, 1.0});
    IdleDispatcher::flush();
    EXPECT_EQ(manager.dataFiles()->value(), "");
}

TEST_F(DataSetPropertiesManagerTest, SaysThatATotalIsNotLoadedUntilItIs)
{
    DeferredZones deferred;
    deferred.append(sample.dataSet(), "Late", 5, 4, 3);
    FakeStateChange(StateChange_ZonesAdded).send();
    EXPECT_THAT(textsAtIdle(), ElementsAre("4", "2", "Not Loaded", "Not Loaded", "none"));
    EXPECT_FALSE(manager.totalPointsKnown()->isRelevant());
    EXPECT_FALSE(manager.totalElementsKnown()->isRelevant());
    EXPECT_EQ(deferred.timesLoaded(), 0);
    perform(kernel::LoadDimensions(sample.dataSet(), 4));
    EXPECT_THAT(textsAtIdle(), ElementsAre("4", "2", "78", "30", "none"));
    EXPECT_TRUE(manager.totalPointsKnown()->isRelevant());
    EXPECT_TRUE(manager.totalElementsKnown()->isRelevant());
}

TEST_F(DataSetPropertiesManagerTest, KnowsEachTotalByItself)
{
    sample.dataSet().addZone(std::make_shared<kernel::Zone>("Odd", ZoneType_FEBrick, 8, -1, 0));
    FakeStateChange(StateChange_ZonesAdded).send();
    EXPECT_THAT(textsAtIdle(), ElementsAre("4", "2", "26", "Not Loaded", "none"));
    EXPECT_TRUE(manager.totalPointsKnown()->isRelevant());
    EXPECT_FALSE(manager.totalElementsKnown()->isRelevant());
}

TEST_F(DataSetPropertiesManagerTest, RefillsOnceAfterAStorm)
{
    KernelSpy spy;
    for (int event = 0; event < 1000; ++event)
        perform(kernel::EnableZone(sample.dataSet(), 1, event % 2 == 1));
    EXPECT_EQ(spy.count("VelUtilZoneGetMetrics"), 0);
    IdleDispatcher::flush();
    EXPECT_EQ(spy.count("VelUtilZoneGetMetrics"), 3);
    EXPECT_EQ(spy.count("VelUtilImportGetLoaderInstrCount"), 0) << "no file has come";
    EXPECT_EQ(spy.count("VelUtilDataSetIsLocked"), 0);
    IdleDispatcher::flush();
    EXPECT_EQ(spy.count("VelUtilZoneGetMetrics"), 3);
}

TEST_F(DataSetPropertiesManagerTest, RefillsEachTextOnceAndOnlyForWhatCanAlterIt)
{
    std::map<std::string, std::set<int>> kindsByQuestion;
    for (int kind = 0; kind <= 60; ++kind) {
        KernelSpy const spy;
        FakeStateChange(kind).send();
        FakeStateChange(kind).send();
        IdleDispatcher::flush();
        for (char const* const question : {"VelUtilImportGetLoaderInstrCount", "VelUtilDataSetGetNumVars",
                                           "VelUtilZoneGetMetrics", "VelUtilDataSetIsLocked"}) {
            int const times = spy.count(question);
            if (times > 0)
                kindsByQuestion[question].insert(kind);
            bool const isOfAZone = std::string(question) == "VelUtilZoneGetMetrics";
            EXPECT_TRUE(times == 0 || times == (isOfAZone ? 3 : 1)) << question << " for " << kind;
        }
    }
    EXPECT_THAT(kindsByQuestion["VelUtilImportGetLoaderInstrCount"], ElementsAre(4, 5, 10, 12, 16, 24));
    EXPECT_THAT(kindsByQuestion["VelUtilDataSetGetNumVars"], ElementsAre(1, 2, 4, 5, 10, 12, 16, 24));
    EXPECT_THAT(kindsByQuestion["VelUtilZoneGetMetrics"], ElementsAre(4, 5, 6, 10, 12, 16, 23, 24));
    EXPECT_THAT(kindsByQuestion["VelUtilDataSetIsLocked"], ElementsAre(10, 12, 14, 16, 24));
}

TEST_F(DataSetPropertiesManagerTest, TellsOnlyWhatHasChanged)
{
    int changes = 0;
    for (auto const& text :
         {manager.dataFiles(), manager.numZones(), manager.numVars(), manager.totalPoints(), manager.totalElements()})
        text->connectValueChanged([&changes](std::string const&) { ++changes; });
    sample.session().setLock(sample.dataSet(), "Solver");
    IdleDispatcher::flush();
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(manager.lockedBy()->value(), "Solver");
}

TEST_F(DataSetPropertiesManagerTest, AsksTheKernelUnderTheLockOfTheApplication)
{
    FakeStateChange(StateChange_FrameDataSet).send();
    KernelSpy spy;
    int calls = 0;
    spy.onCall([&calls](std::string const& function) {
        ++calls;
        EXPECT_GT(sdk::AppLock::depth(), 0) << function;
    });
    IdleDispatcher::flush();
    manager.dataSetTitle()->value();
    EXPECT_GT(calls, 10);
    EXPECT_EQ(sdk::AppLock::depth(), 0);
}

TEST_F(DataSetPropertiesManagerTest, IsForDataThatAreShownInAPlot)
{
    auto const rule = DataSetPropertiesManager::relevance();
    EXPECT_EQ(rule, DataSetPropertiesManager::relevance());
    for (auto const& [type, isFor] : std::vector<std::pair<PlotType_e, bool>>{{PlotType_Cartesian3D, true},
                                                                              {PlotType_Cartesian2D, true},
                                                                              {PlotType_XYLine, true},
                                                                              {PlotType_Sketch, false}}) {
        sample.session().perform(kernel::SetPlotType(sample.frame()->id, type));
        EXPECT_EQ(rule->isRelevant(), isFor) << type;
    }
    sample.session().perform(kernel::SetPlotType(sample.frame()->id, PlotType_Cartesian2D));
    sample.session().clear();
    EXPECT_FALSE(rule->isRelevant());
    sample.session().removeAllPages();
    EXPECT_FALSE(rule->isRelevant());
}

} // namespace
} // namespace veldraw::tests
