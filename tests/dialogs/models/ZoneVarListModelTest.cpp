#include "dialogs/models/EnabledVariablesListModel.h"
#include "dialogs/models/LineMapListModel.h"
#include "dialogs/models/QListModel.h"
#include "dialogs/models/ZoneListModel.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/LineMapOperation.h"
#include "kernel/operations/RenameZone.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkcommon/StateChangeEventObservable.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/models/ListLog.h"
#include "tests/dialogs/models/Rows.h"
#include "tests/dialogs/models/SampleSession.h"
#include "tests/support/FakeStateChange.h"
#include "tests/support/KernelSpy.h"

#include <QAbstractItemModelTester>

#include <gtest/gtest.h>
#include <random>
#include <stdexcept>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings::models;
using sdk::getEnabledVarsForFrame;
using sdk::getEnabledZonesForFrame;
using sdk::ui::common::IdleDispatcher;

class ZoneVarListModelTest : public ::testing::Test
{
protected:
    SampleSession sample{{"Wing", "Body", "Tail"}, {"X", "Y", "P", "T"}};
    kernel::Session& session = sample.session();
    kernel::DataSet& dataSet = sample.dataSet();
};

TEST_F(ZoneVarListModelTest, ListsNumbersAndNames)
{
    EXPECT_EQ(rows(ZoneListModel(getEnabledZonesForFrame, false)), "1=1: Wing | 2=2: Body | 3=3: Tail");
    EXPECT_EQ(rows(EnabledVariablesListModel(getEnabledVarsForFrame, false)), "1=1: X | 2=2: Y | 3=3: P | 4=4: T");
}

TEST_F(ZoneVarListModelTest, EditsThePlainName)
{
    ZoneListModel const zones(getEnabledZonesForFrame, true);
    EXPECT_EQ(zones.getStrForEdit(1), "Body");
}

TEST_F(ZoneVarListModelTest, ShowsWhatItsSourceGivesForTheActiveFrame)
{
    long long askedFrame = 0;
    ZoneListModel const zones(
        [&askedFrame](long long frame) {
            askedFrame = frame;
            return toolbox::Set(std::set<int>{3, 1});
        },
        false);
    EXPECT_EQ(askedFrame, sample.frame()->id);
    EXPECT_EQ(rows(zones), "1=1: Wing | 3=3: Tail");
}

TEST_F(ZoneVarListModelTest, LeavesDisabledOnesOut)
{
    ZoneListModel const zones(getEnabledZonesForFrame, false);
    EnabledVariablesListModel const variables(getEnabledVarsForFrame, false);
    ListLog zoneLog(zones);
    ListLog variableLog(variables);
    ASSERT_TRUE(session.perform(kernel::EnableZone(dataSet, 2, false)));
    EXPECT_EQ(rows(zones), "1=1: Wing | 3=3: Tail");
    EXPECT_EQ(zoneLog.take(), "data");
    EXPECT_EQ(variableLog.take(), "");
    ASSERT_TRUE(session.perform(kernel::EnableVariable(dataSet, 1, false)));
    EXPECT_EQ(rows(variables), "2=2: Y | 3=3: P | 4=4: T");
    EXPECT_EQ(variableLog.take(), "data");
    EXPECT_EQ(zoneLog.take(), "");
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(rows(variables), "1=1: X | 2=2: Y | 3=3: P | 4=4: T");
    EXPECT_EQ(variableLog.take(), "data");
}

// A list that is empty by mistake would stay so until the next change.
TEST_F(ZoneVarListModelTest, IsRightAlsoWhenTheQuestionForTheFrameFails)
{
    KernelSpy spy;
    spy.failNext("VelUtilFrameGetUniqueID");
    ZoneListModel const zones(getEnabledZonesForFrame, false);
    LineMapListModel const lineMaps;
    std::string const maps = rows(lineMaps);
    EXPECT_EQ(rows(zones), "1=1: Wing | 2=2: Body | 3=3: Tail");
    spy.failNext("VelUtilFrameGetUniqueID");
    ASSERT_TRUE(session.perform(kernel::EnableZone(dataSet, 2, false)));
    EXPECT_EQ(rows(zones), "1=1: Wing | 3=3: Tail");
    spy.failNext("VelUtilFrameGetUniqueID");
    spy.failNext("VelUtilLineMapGetCount");
    ASSERT_TRUE(session.perform(kernel::CreateLineMap(sample.frame()->id)));
    sdk::ui::common::IdleDispatcher::flush();
    EXPECT_GT(rows(lineMaps).size(), maps.size());
    EXPECT_EQ(rows(zones), "1=1: Wing | 3=3: Tail");
}

TEST_F(ZoneVarListModelTest, FollowsADeletionAndItsUndo)
{
    EnabledVariablesListModel const variables(getEnabledVarsForFrame, false);
    ListLog log(variables);
    ASSERT_TRUE(session.perform(kernel::DeleteVariables(dataSet, {2})));
    EXPECT_EQ(rows(variables), "1=1: X | 2=2: P | 3=3: T");
    EXPECT_EQ(log.take(), "data");
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(rows(variables), "1=1: X | 2=2: Y | 3=3: P | 4=4: T");
    EXPECT_EQ(log.take(), "data");
    ASSERT_TRUE(session.redo());
    EXPECT_EQ(rows(variables), "1=1: X | 2=2: P | 3=3: T");
    EXPECT_EQ(log.take(), "data");
}

TEST_F(ZoneVarListModelTest, ReadsNothingButTheNameAfterARename)
{
    int timesAsked = 0;
    ZoneListModel const zones(
        [&timesAsked](long long) {
            ++timesAsked;
            return toolbox::Set(std::set<int>{1, 3});
        },
        true);
    ListLog log(zones);
    timesAsked = 0;
    dataSet.zone(1)->name = "altered behind the list's back";
    ASSERT_TRUE(session.perform(kernel::RenameZone(dataSet, 3, "Fin")));
    ASSERT_TRUE(session.perform(kernel::RenameZone(dataSet, 2, "not in the list")));
    EXPECT_EQ(rows(zones), "1=1: Wing | 3=3: Fin");
    EXPECT_EQ(log.take(), "item 1");
    EXPECT_EQ(timesAsked, 0);
}

TEST_F(ZoneVarListModelTest, TellsARenameAsAChangeOfTheRow)
{
    ZoneListModel const zones(getEnabledZonesForFrame, false);
    EnabledVariablesListModel const variables(getEnabledVarsForFrame, false);
    ListLog zoneLog(zones);
    ListLog variableLog(variables);
    ASSERT_TRUE(session.perform(kernel::RenameZone(dataSet, 3, "Fin")));
    EXPECT_EQ(zoneLog.take(), "item 2");
    EXPECT_EQ(rows(zones), "1=1: Wing | 2=2: Body | 3=3: Fin");
    ASSERT_TRUE(session.perform(kernel::RenameVariable(dataSet, 1, "Length")));
    EXPECT_EQ(variableLog.take(), "item 0");
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(variableLog.take(), "item 0");
    EXPECT_EQ(rows(variables), "1=1: X | 2=2: Y | 3=3: P | 4=4: T");
}

TEST_F(ZoneVarListModelTest, SaysNothingWhenNothingItShowsHasChanged)
{
    ZoneListModel const zones(getEnabledZonesForFrame, false);
    EnabledVariablesListModel const variables(getEnabledVarsForFrame, true);
    ListLog zoneLog(zones);
    ListLog variableLog(variables);
    for (int kind = 0; kind <= 51; ++kind)
        FakeStateChange(kind, {"PlotType"}).send();
    EXPECT_EQ(zoneLog.take(), "");
    EXPECT_EQ(variableLog.take(), "");
}

TEST_F(ZoneVarListModelTest, ReadsNoNamesAfterAnEditOfValues)
{
    int namesRead = 0;
    class Counting : public ZoneVarListModelAbstract
    {
    public:
        explicit Counting(int& count)
            : ZoneVarListModelAbstract(
                  &getEnabledZonesForFrame, nullptr,
                  [&count](long long, int) {
                      ++count;
                      return std::string("zone");
                  },
                  IDOf(), StateChange_ZonesRenamed, Rename())
        {
        }
    };
    Counting const list(namesRead);
    EXPECT_EQ(namesRead, 3);
    FakeStateChange(StateChange_ValuesAltered).send();
    FakeStateChange(StateChange_SharingChanged).send();
    FakeStateChange(StateChange_VariablesLoaded).send();
    FakeStateChange(StateChange_ZoneMetricsLoaded).send();
    IdleDispatcher::flush();
    EXPECT_EQ(namesRead, 3);
    FakeStateChange(StateChange_ZonesRenamed).send();
    EXPECT_EQ(namesRead, 6);
}

TEST_F(ZoneVarListModelTest, ReadsTheNamesAgainAfterTheEventItWasMadeFor)
{
    std::string name = "before";
    class Named : public ZoneVarListModelAbstract
    {
    public:
        Named(std::string const& current, StateChange_e stateChange)
            : ZoneVarListModelAbstract([](long long) { return toolbox::Set(7); }, nullptr,
                                       [&current](long long, int) { return current; }, IDOf(), stateChange, Rename())
        {
        }
    };
    Named const onLineMaps(name, StateChange_LineMaps);
    Named const onValues(name, StateChange_ValuesAltered);
    name = "after";
    FakeStateChange(StateChange_LineMaps).send();
    EXPECT_EQ(rows(onLineMaps), "7=7: after");
    EXPECT_EQ(rows(onValues), "7=7: before");
    FakeStateChange(StateChange_ValuesAltered).send();
    EXPECT_EQ(rows(onValues), "7=7: after");
}

TEST_F(ZoneVarListModelTest, IsEmptyWithoutADataSet)
{
    session.createFrame("Frame 002", kernel::Rectangle{0.0, 0.0, 2.0, 2.0});
    EXPECT_EQ(ZoneListModel(getEnabledZonesForFrame, false).size(), 0);
    EXPECT_EQ(EnabledVariablesListModel(getEnabledVarsForFrame, false).size(), 0);
}

TEST_F(ZoneVarListModelTest, IsEmptyWithoutAFrameWhateverItsSourceSays)
{
    ZoneListModel const zones([](long long) { return toolbox::Set(1); }, false);
    ListLog log(zones);
    EXPECT_EQ(rows(zones), "1=1: Wing");
    session.removeAllPages();
    EXPECT_EQ(zones.size(), 0);
    EXPECT_EQ(zones.indexOf(1), -1);
    EXPECT_EQ(log.take(), "data");
}

TEST_F(ZoneVarListModelTest, FollowsTheActiveFrame)
{
    ZoneListModel const zones(getEnabledZonesForFrame, false);
    auto const other = session.createFrame("Frame 002", kernel::Rectangle{0.0, 0.0, 2.0, 2.0});
    EXPECT_EQ(zones.size(), 0);
    ASSERT_TRUE(session.setFrameDataSet(other->id, SampleSession::makeDataSet({"A", "B", "C"}, {"X", "Y"})));
    EXPECT_EQ(rows(zones), "1=1: A | 2=2: B | 3=3: C");
    ListLog log(zones);
    ASSERT_TRUE(session.activateFrame(sample.frame()->id));
    EXPECT_EQ(rows(zones), "1=1: Wing | 2=2: Body | 3=3: Tail");
    EXPECT_EQ(log.take(), "item 0; item 1; item 2");
}

TEST_F(ZoneVarListModelTest, RenamesThroughTheKernelAndHearsTheNewNameFromIt)
{
    ZoneListModel const zones(getEnabledZonesForFrame, true);
    EnabledVariablesListModel const variables(getEnabledVarsForFrame, true);
    ASSERT_TRUE(zones.isEditable());
    ASSERT_TRUE(variables.isEditable());
    ListLog log(zones);
    EXPECT_TRUE(zones.setEditedItem("  Left wing\t\n", 0));
    EXPECT_EQ(log.take(), "item 0");
    EXPECT_EQ(rows(zones), "1=1: Left wing | 2=2: Body | 3=3: Tail");
    EXPECT_EQ(dataSet.zone(1)->name, "Left wing");
    EXPECT_TRUE(variables.setEditedItem("Pressure", 2));
    EXPECT_EQ(dataSet.variable(3)->name, "Pressure");
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(dataSet.variable(3)->name, "P");
    EXPECT_EQ(variables.getStrForEdit(2), "P");
}

TEST_F(ZoneVarListModelTest, RefusesTextsThatAreNoNames)
{
    ZoneListModel const zones(getEnabledZonesForFrame, true);
    ListLog log(zones);
    EXPECT_FALSE(zones.setEditedItem("", 0));
    EXPECT_FALSE(zones.setEditedItem(" \t ", 0));
    EXPECT_FALSE(zones.setEditedItem("Name", -1));
    EXPECT_FALSE(zones.setEditedItem("Name", 3));
    EXPECT_EQ(log.take(), "");
    EXPECT_FALSE(ZoneListModel(getEnabledZonesForFrame, false).setEditedItem("Name", 0));
    EXPECT_EQ(rows(zones), "1=1: Wing | 2=2: Body | 3=3: Tail");
}

TEST_F(ZoneVarListModelTest, RenamesWhatTheRowShowsEvenWhenNumbersHaveMovedMeanwhile)
{
    // A listener that hears the kernel before the list does and edits a row that the list shows still.
    class EarlyEditor : public toolbox::StateChangeListenerInterface
    {
    public:
        void stateChanged(toolbox::StateChangeEventInterface const& event) override
        {
            if (list && event.kind() == StateChange_VariablesDeleted) {
                deletedWasRenamed = list->setEditedItem("Gone", 1);
                otherWasRenamed = list->setEditedItem("Pressure", 2);
            }
        }
        ListModelInterface<int> const* list = nullptr;
        bool deletedWasRenamed = true;
        bool otherWasRenamed = false;
    };
    auto& observable = sdk::integration::StateChangeEventObservable::getInstance();
    EarlyEditor editor;
    observable.addListener(&editor);
    {
        EnabledVariablesListModel const variables(getEnabledVarsForFrame, true);
        editor.list = &variables;
        ASSERT_TRUE(session.perform(kernel::DeleteVariables(dataSet, {2})));
        EXPECT_FALSE(editor.deletedWasRenamed);
        EXPECT_TRUE(editor.otherWasRenamed);
        EXPECT_EQ(rows(variables), "1=1: X | 2=2: Pressure | 3=3: T");
    }
    observable.removeListener(&editor);
}

TEST_F(ZoneVarListModelTest, AllowsANameThatIsTaken)
{
    ZoneListModel const zones(getEnabledZonesForFrame, true);
    EXPECT_TRUE(zones.setEditedItem("Wing", 1));
    EXPECT_EQ(rows(zones), "1=1: Wing | 2=2: Wing | 3=3: Tail");
}

TEST_F(ZoneVarListModelTest, IsUpToDateForOtherListenersInsideTheEvent)
{
    ZoneListModel const zones(getEnabledZonesForFrame, false);
    std::string seen;
    boost::signals2::scoped_connection const connection =
        sdk::integration::StateChangeEventObservable::getInstance().connectStateChanged(
            [&](toolbox::StateChangeEventInterface const&) { seen = rows(zones); });
    session.perform(kernel::RenameZone(dataSet, 1, "Flap"));
    EXPECT_EQ(seen, "1=1: Flap | 2=2: Body | 3=3: Tail");
}

TEST_F(ZoneVarListModelTest, StandsAListenerThatChangesTheKernel)
{
    ZoneListModel const zones(getEnabledZonesForFrame, false);
    bool done = false;
    boost::signals2::scoped_connection const connection = zones.connectItemChanged([&](int) {
        if (!std::exchange(done, true)) {
            session.perform(kernel::EnableZone(dataSet, 3, false));
            session.perform(kernel::EnableZone(dataSet, 2, false));
        }
    });
    ListLog log(zones);
    session.perform(kernel::RenameZone(dataSet, 3, "Fin"));
    EXPECT_EQ(rows(zones), "1=1: Wing");
    EXPECT_EQ(log.take(), "data; item 2; data");
}

TEST_F(ZoneVarListModelTest, StaysTrueAfterAListenerHasThrown)
{
    ZoneListModel const zones(getEnabledZonesForFrame, false);
    bool fails = true;
    boost::signals2::scoped_connection const connection = zones.connectItemChanged([&fails](int) {
        if (fails)
            throw std::runtime_error("");
    });
    EnabledVariablesListModel const later(getEnabledVarsForFrame, false);
    session.perform(kernel::RenameZone(dataSet, 1, "Flap"));
    EXPECT_EQ(rows(zones), "1=1: Flap | 2=2: Body | 3=3: Tail");
    fails = false;
    ListLog log(zones);
    session.perform(kernel::RenameZone(dataSet, 2, "Hull"));
    EXPECT_EQ(log.take(), "item 1");
    session.perform(kernel::RenameVariable(dataSet, 1, "Length"));
    EXPECT_EQ(later.getStr(0), "1: Length");
}

TEST_F(ZoneVarListModelTest, EndsItsListeningWithItself)
{
    auto const& observable = sdk::integration::StateChangeEventObservable::getInstance();
    int const before = observable.listenerCount();
    {
        ZoneListModel const zones(getEnabledZonesForFrame, true);
        EXPECT_EQ(observable.listenerCount(), before + 1);
    }
    EXPECT_EQ(observable.listenerCount(), before);
}

TEST(ZoneVarListModelOfManyZones, TellsManyNewNamesAsOneChange)
{
    SampleSession const sample(SampleSession::numberedNames(150), {"X"});
    std::string prefix = "a";
    class Prefixed : public ZoneVarListModelAbstract
    {
    public:
        Prefixed(std::string const& text, int const& limit)
            : ZoneVarListModelAbstract(
                  &getEnabledZonesForFrame, nullptr,
                  [&text, &limit](long long, int zone) { return zone <= limit ? text : std::string("same"); }, IDOf(),
                  StateChange_ZonesRenamed, Rename())
        {
        }
    };
    int limit = 100;
    Prefixed const zones(prefix, limit);
    ListLog log(zones);
    prefix = "b";
    FakeStateChange(StateChange_ZonesRenamed).send();
    std::string const oneByOne = log.take();
    EXPECT_EQ(oneByOne.substr(0, 16), "item 0; item 1; ");
    EXPECT_EQ(oneByOne.substr(oneByOne.size() - 9), "; item 99");
    IdleDispatcher::flush();
    limit = 101;
    prefix = "c";
    FakeStateChange(StateChange_ZonesRenamed).send();
    EXPECT_EQ(log.take(), "data");
}

/// Random changes of the kernel, all lists under Qt's tester; every step each list equals a fresh reading.
class ZoneVarListModelStorm : public ::testing::TestWithParam<unsigned>
{
};

TEST_P(ZoneVarListModelStorm, EqualsAFreshReadingOfTheKernel)
{
    SCOPED_TRACE("seed " + std::to_string(GetParam()));
    std::mt19937 random(GetParam());
    auto const upTo = [&random](int end) { return std::uniform_int_distribution<int>(1, end)(random); };
    SampleSession const sample({"A", "B", "C", "D", "E"}, {"X", "Y", "Z", "P", "T", "R"});
    kernel::Session& session = sample.session();
    kernel::DataSet& dataSet = sample.dataSet();

    ZoneListModel const zones(getEnabledZonesForFrame, true);
    EnabledVariablesListModel const variables(getEnabledVarsForFrame, true);
    QListModel zoneRows(zones);
    QListModel variableRows(variables);
    using Tester = QAbstractItemModelTester;
    Tester const zoneTester(&zoneRows, Tester::FailureReportingMode::Fatal);
    Tester const variableTester(&variableRows, Tester::FailureReportingMode::Fatal);
    for (int step = 0; step < 200; ++step) {
        int const variable = upTo(dataSet.variableCount());
        int const zone = upTo(dataSet.zoneCount());
        switch (upTo(8)) {
        case 1:
            session.perform(kernel::RenameZone(dataSet, zone, "zone " + std::to_string(step)));
            break;
        case 2:
            session.perform(kernel::RenameVariable(dataSet, variable, "variable " + std::to_string(step)));
            break;
        case 3:
            session.perform(kernel::EnableZone(dataSet, zone, upTo(2) == 1));
            break;
        case 4:
            session.perform(kernel::EnableVariable(dataSet, variable, upTo(2) == 1));
            break;
        case 5:
            session.perform(kernel::DeleteVariables(dataSet, {variable}));
            break;
        case 6:
            session.redo();
            break;
        default:
            session.undo();
            break;
        }
        if (upTo(4) == 1)
            IdleDispatcher::flush();
        ASSERT_EQ(zones.size(), ZoneListModel(getEnabledZonesForFrame, false).size());
        ASSERT_EQ(variables.size(), EnabledVariablesListModel(getEnabledVarsForFrame, false).size());
        ASSERT_EQ(rows(zoneRows), rows(ZoneListModel(getEnabledZonesForFrame, false))) << "step " << step;
        ASSERT_EQ(rows(variableRows), rows(EnabledVariablesListModel(getEnabledVarsForFrame, false)))
            << "step " << step;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, ZoneVarListModelStorm, ::testing::Range(1u, 9u));

} // namespace
} // namespace veldraw::tests
