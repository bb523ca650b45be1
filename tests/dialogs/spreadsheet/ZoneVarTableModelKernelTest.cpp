#include "dialogs/spreadsheet/FEZoneVarTableModel.h"
#include "dialogs/spreadsheet/IJKLineZoneVarTableModel.h"
#include "dialogs/spreadsheet/OrderedZoneVarTableModel.h"
#include "platform/exception/IOException.h"
#include "platform/exception/InterruptedException.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/StateChangeEventObservable.h"
#include "tests/dialogs/models/FakeTable.h"
#include "tests/dialogs/spreadsheet/GermanNumbers.h"
#include "tests/dialogs/spreadsheet/SheetStage.h"
#include "tests/dialogs/spreadsheet/ValueChange.h"
#include "tests/dialogs/support/RecordedMessages.h"
#include "tests/support/KernelSpy.h"

#include <gmock/gmock.h>
#include <locale>
#include <stdexcept>

namespace veldraw::tests {
namespace {

using namespace tables;
using testing::ElementsAre;
using testing::IsEmpty;
using toolbox::Set;

int eventListeners()
{
    return sdk::integration::StateChangeEventObservable::getInstance().listenerCount();
}

/// How the tables talk to the kernel. Three lines of four points with the variables X, Y and P; the third has P not loaded,
/// and shares X with the second.
class ZoneVarTableModelKernelTest : public testing::Test
{
protected:
    ZoneVarTableModelKernelTest()
    {
        for (char const* const name : {"first", "second", "third"})
            stage.fillAll(stage.addZone(name, ZoneType_Ordered, 4, 1, 1));
        stage.share(third, 1, second);
        stage.defer(third, 3, 8.0);
        stage.show();
    }

    std::unique_ptr<ZoneVarTableModelAbstract> lineTable(int zone, bool alterShared = false)
    {
        return std::make_unique<IJKLineZoneVarTableModel>(zone, Set(std::set<int>{1, 2, 3}), alterShared,
                                                          ValueLocation_Nodal);
    }

    static constexpr int first = 1;
    static constexpr int second = 2;
    static constexpr int third = 3;
    SheetStage stage{{"X", "Y", "P"}};
    RecordedMessages messages;
    KernelSpy spy;
};

TEST_F(ZoneVarTableModelKernelTest, ReadsACellByThreeCalls)
{
    auto const table = lineTable(first);
    spy.reset();
    EXPECT_EQ(table->getStr({2, 1}), "202");
    EXPECT_THAT(spy.calls(), ElementsAre("VelUtilDataValueIsLoaded(1, 2)", "VelUtilDataValueGetType(1, 2)",
                                         "VelUtilDataValueGetByZoneVar(1, 2, 3)"));
}

TEST_F(ZoneVarTableModelKernelTest, TakesNoFailedQuestionForAType)
{
    auto const table = lineTable(first);
    auto const failTypeQuestions = [this](int howMany) {
        spy.reset();
        for (int n = 1; n <= howMany; ++n)
            spy.failNext("VelUtilDataValueGetType", n);
    };
    failTypeQuestions(1);
    EXPECT_EQ(table->fieldDataType({0, 1}), FieldDataType_Float) << "asked once more";
    failTypeQuestions(2);
    EXPECT_THROW(table->fieldDataType({0, 1}), IOException);
    failTypeQuestions(2);
    EXPECT_EQ(table->shortestStr({2, 1}), "202") << "the number is known";
}

TEST_F(ZoneVarTableModelKernelTest, ReadsNothingAndLoadsNothingWhereValuesAreNotLoaded)
{
    auto const table = lineTable(third);
    spy.reset();
    EXPECT_EQ(table->getStr({0, 2}), "Not Loaded");
    EXPECT_TRUE(table->isEditable({0, 2}));
    EXPECT_FALSE(table->setStr({0, 2}, "5"));
    EXPECT_THAT(spy.calls(), ElementsAre("VelUtilDataValueIsLoaded(3, 3)", "VelUtilDataValueIsLoaded(3, 3)"));
    EXPECT_THAT(messages.take(), IsEmpty());
    EXPECT_FALSE(stage.dataSet().field(third, 3)->isLoaded());
}

TEST_F(ZoneVarTableModelKernelTest, WritesACellByNamedArgumentsAndGivesTheListBackLast)
{
    auto const table = lineTable(first);
    spy.reset();
    EXPECT_TRUE(table->setStr({3, 1}, "-2.5e2"));
    EXPECT_THAT(spy.calls(),
                ElementsAre("VelUtilDataValueIsLoaded(1, 2)", "VelUtilArgListAlloc()",
                            "VelUtilArgListAppendInt(list, \"Zone\", 1)", "VelUtilArgListAppendInt(list, \"Var\", 2)",
                            "VelUtilArgListAppendInt(list, \"Index\", 4)",
                            "VelUtilArgListAppendDouble(list, \"FieldValue\", -250)",
                            "VelUtilArgListAppendInt(list, \"AutoBranch\", 1)", "VelUtilDataValueSetByZoneVarX(list)",
                            "VelUtilArgListDealloc(out)"));
    EXPECT_EQ(stage.stored(first, 2, 3), -250.0);
    EXPECT_EQ(table->getStr({3, 1}), "-250");
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(ZoneVarTableModelKernelTest, EditsThisZoneAloneUnlessAllSharingZonesAreMeant)
{
    lineTable(second)->setStr({0, 0}, "1");
    EXPECT_EQ(stage.stored(second, 1, 0), 1.0);
    EXPECT_EQ(stage.stored(third, 1, 0), 100.0);
    stage.session().undo();
    spy.reset();
    lineTable(second, true)->setStr({0, 0}, "2");
    EXPECT_THAT(spy.callsOf("VelUtilArgListAppendInt"),
                testing::Contains("VelUtilArgListAppendInt(list, \"AutoBranch\", 0)"));
    EXPECT_EQ(stage.stored(second, 1, 0), 2.0);
    EXPECT_EQ(stage.stored(third, 1, 0), 2.0);
}

TEST_F(ZoneVarTableModelKernelTest, WritesZeroForATextThatIsNoNumberAndTheStartOfOneThatIsNoneAsAWhole)
{
    auto const table = lineTable(first);
    EXPECT_TRUE(table->setStr({1, 0}, "abc"));
    EXPECT_EQ(stage.stored(first, 1, 1), 0.0);
    EXPECT_TRUE(table->setStr({2, 0}, "1,000"));
    EXPECT_EQ(stage.stored(first, 1, 2), 1.0);
    EXPECT_TRUE(table->setStr({3, 0}, ""));
    EXPECT_EQ(stage.stored(first, 1, 3), 0.0);
}

TEST_F(ZoneVarTableModelKernelTest, ReadsAndWritesADecimalPointWhateverTheLocaleOfStreams)
{
    std::locale const before = std::locale::global(std::locale(std::locale::classic(), new GermanNumbers));
    auto const table = lineTable(first);
    EXPECT_TRUE(table->setStr({0, 0}, "12345.5"));
    EXPECT_EQ(table->getStr({0, 0}), "12345.5");
    EXPECT_EQ(table->rowName(1233), "1234");
    std::locale::global(before);
    EXPECT_EQ(stage.stored(first, 1, 0), 12345.5);
}

TEST_F(ZoneVarTableModelKernelTest, TellsOneCellForItsOwnEditAndEverythingForTheEditsOfOthers)
{
    auto const table = lineTable(first);
    auto const other = lineTable(second);
    TableLog log(*table);
    TableLog otherLog(*other);
    table->setStr({3, 1}, "7");
    EXPECT_THAT(log.take(), ElementsAre("item 3,1"));
    EXPECT_THAT(otherLog.take(), ElementsAre("data")) << "the same variable of another zone";
    other->setStr({0, 2}, "7");
    EXPECT_THAT(log.take(), ElementsAre("data"));
    EXPECT_THAT(otherLog.take(), ElementsAre("item 0,2"));
}

/// At each change of a cell: how many listen to the kernel, and how deep the lock is.
class EditWatch : public TableModelListenerInterface
{
public:
    void dataChanged(TableModelInterface&) override {}
    void itemChanged(ModelIndex const&, TableModelInterface&) override
    {
        ++times;
        kernelListeners = eventListeners();
        lockDepth = sdk::AppLock::depth();
    }
    void rowsInserted(unsigned long long, unsigned long long, TableModelInterface&) override {}
    void rowsRemoved(unsigned long long, unsigned long long, TableModelInterface&) override {}

    int times = 0;
    int kernelListeners = 0;
    int lockDepth = 0;
};

TEST_F(ZoneVarTableModelKernelTest, TellsTheCellUnderTheLockAndBeforeItListensToTheKernelAgain)
{
    auto const table = lineTable(first);
    int const before = eventListeners();
    EditWatch watch;
    table->addListener(&watch);
    EXPECT_TRUE(table->setStr({0, 0}, "7"));
    EXPECT_EQ(watch.times, 1);
    EXPECT_EQ(watch.kernelListeners, before - 1);
    EXPECT_EQ(watch.lockDepth, 1);
    EXPECT_EQ(eventListeners(), before);
    EXPECT_EQ(sdk::AppLock::depth(), 0);
}

/// A line that notes how deep the lock is when it is asked where a value stands.
class WatchedLine : public IJKLineZoneVarTableModel
{
public:
    using IJKLineZoneVarTableModel::IJKLineZoneVarTableModel;
    long long valueOffset(ModelIndex const& index) const override
    {
        lockDepths.push_back(sdk::AppLock::depth());
        isRecording = isRecording && sdk::AppLock::isRecording();
        return IJKLineZoneVarTableModel::valueOffset(index);
    }

    mutable std::vector<int> lockDepths;
    mutable bool isRecording = true;
};

TEST_F(ZoneVarTableModelKernelTest, HoldsTheLockForEachReadAndEachWriteAndNoLonger)
{
    WatchedLine table(first, Set(std::set<int>{1, 2, 3}), false, ValueLocation_Nodal);
    table.getStr({0, 0});
    EXPECT_EQ(sdk::AppLock::depth(), 0);
    EXPECT_TRUE(table.setStr({0, 0}, "7"));
    EXPECT_EQ(sdk::AppLock::depth(), 0);
    EXPECT_THAT(table.lockDepths, ElementsAre(1, 1));
    EXPECT_TRUE(table.isRecording);
}

TEST_F(ZoneVarTableModelKernelTest, ListensAgainWhenSomebodyWhoHearsOfAnEditThrows)
{
    class Thrower : public TableModelListenerInterface
    {
    public:
        void dataChanged(TableModelInterface&) override {}
        void itemChanged(ModelIndex const&, TableModelInterface&) override { throw std::runtime_error("no room"); }
        void rowsInserted(unsigned long long, unsigned long long, TableModelInterface&) override {}
        void rowsRemoved(unsigned long long, unsigned long long, TableModelInterface&) override {}
    };
    auto const table = lineTable(first);
    int const before = eventListeners();
    Thrower thrower;
    table->addListener(&thrower);
    EXPECT_THROW(table->setStr({0, 0}, "7"), std::runtime_error);
    EXPECT_EQ(eventListeners(), before);
    EXPECT_EQ(sdk::AppLock::depth(), 0);
    EXPECT_EQ(spy.count("VelUtilArgListDealloc"), 1);
}

TEST_F(ZoneVarTableModelKernelTest, TellsTheUserOfARefusalAndListensAgain)
{
    auto const table = lineTable(first);
    int const before = eventListeners();
    TableLog log(*table);
    spy.failNext("VelUtilDataValueSetByZoneVarX");
    EXPECT_FALSE(table->setStr({0, 0}, "7"));
    EXPECT_THAT(messages.take(), ElementsAre("error: Error while setting variable value"));
    EXPECT_THAT(log.take(), IsEmpty());
    EXPECT_EQ(stage.stored(first, 1, 0), 100.0);
    EXPECT_EQ(eventListeners(), before);
    EXPECT_EQ(sdk::AppLock::depth(), 0);
    lineTable(second)->setStr({0, 0}, "9");
    EXPECT_THAT(log.take(), ElementsAre("data")) << "a later change by somebody else";
}

TEST_F(ZoneVarTableModelKernelTest, TellsTheUserThatALockedDataSetRefuses)
{
    stage.session().setLock(stage.dataSet(), "another operation");
    EXPECT_FALSE(lineTable(first)->setStr({0, 0}, "7"));
    EXPECT_THAT(messages.take(), ElementsAre("error: Error while setting variable value"));
    EXPECT_EQ(stage.stored(first, 1, 0), 100.0);
}

TEST_F(ZoneVarTableModelKernelTest, StaysWholeWhicheverKernelCallOfAnEditFails)
{
    auto const table = lineTable(first);
    int const before = eventListeners();
    spy.reset();
    ASSERT_TRUE(table->setStr({0, 0}, "7"));
    std::vector<std::string> const calls = spy.calls();
    ASSERT_EQ(calls.size(), 9u);
    for (std::size_t failing = 0; failing < calls.size(); ++failing) {
        SCOPED_TRACE(calls[failing] + " fails");
        stage.session().undo();
        messages.take();
        spy.reset();
        spy.failCall(static_cast<int>(failing) + 1);
        bool const isLoadedQuery = failing == 0;
        bool const isRelease = failing + 1 == calls.size();
        EXPECT_EQ(table->setStr({0, 0}, "7"), isRelease);
        spy.reset();
        EXPECT_EQ(stage.stored(first, 1, 0), isRelease ? 7.0 : 100.0);
        EXPECT_EQ(messages.take().size(), isLoadedQuery || isRelease ? 0u : 1u);
        EXPECT_EQ(eventListeners(), before);
        EXPECT_EQ(sdk::AppLock::depth(), 0);
        EXPECT_TRUE(table->setStr({0, 0}, "7")) << "a try without a failure succeeds";
    }
}

TEST_F(ZoneVarTableModelKernelTest, FollowsAlteredValuesOfItsVariablesInWhateverZone)
{
    OrderedZoneVarTableModel table(first, 2, IJKPlanes_K, 1, false);
    TableLog log(table);
    ValueChange(StateChange_ValuesAltered, Set(3), Set(std::set<int>{1, 3})).send();
    EXPECT_THAT(log.take(), IsEmpty()) << "other variables";
    ValueChange(StateChange_ValuesAltered, Set(3), Set(std::set<int>{2, 3})).send();
    EXPECT_THAT(log.take(), ElementsAre("data"));
    ValueChange(StateChange_ValuesAltered, Set(first), Set()).send();
    EXPECT_THAT(log.take(), IsEmpty());
}

TEST_F(ZoneVarTableModelKernelTest, TakesAChangeOfUnknownExtentAsItsOwn)
{
    OrderedZoneVarTableModel table(first, 2, IJKPlanes_K, 1, false);
    TableLog log(table);
    ValueChange(StateChange_ValuesAltered, std::nullopt, Set(1)).send();
    ValueChange(StateChange_ValuesAltered, Set(1), std::nullopt).send();
    ValueChange(StateChange_ValuesAltered, std::nullopt, std::nullopt).send();
    EXPECT_THAT(log.take(), ElementsAre("data", "data", "data"));
}

TEST_F(ZoneVarTableModelKernelTest, IgnoresAllOtherKindsOfChanges)
{
    auto const table = lineTable(first);
    TableLog log(*table);
    for (int kind = 1; kind <= StateChange_AuxDataOwnersReplaced; ++kind) {
        ValueChange(kind, Set(first), Set(1)).send();
        ValueChange(kind, std::nullopt, std::nullopt).send();
    }
    EXPECT_THAT(log.take(), IsEmpty());
}

TEST_F(ZoneVarTableModelKernelTest, ListensFromItsConstructionToItsEnd)
{
    int const before = eventListeners();
    {
        auto const table = lineTable(first);
        EXPECT_EQ(eventListeners(), before + 1);
    }
    EXPECT_EQ(eventListeners(), before);
}

TEST_F(ZoneVarTableModelKernelTest, RefusesAZoneWithoutDimensionsAndDoesNotListen)
{
    int const before = eventListeners();
    spy.failNext("VelUtilZoneGetIJK");
    try {
        lineTable(first);
        FAIL() << "a table without a size";
    } catch (IOException const& failure) {
        EXPECT_EQ(failure.message(), "Failed to load zone metrics.");
    }
    EXPECT_EQ(eventListeners(), before);
    EXPECT_NO_THROW(lineTable(first));
}

TEST_F(ZoneVarTableModelKernelTest, AsksOnceMoreForALocationAndRefusesWithoutOne)
{
    int const before = eventListeners();
    OrderedZoneVarTableModel const expected(first, 1, IJKPlanes_K, 1, false);
    spy.failNext("VelUtilDataValueGetLocation");
    OrderedZoneVarTableModel const table(first, 1, IJKPlanes_K, 1, false);
    EXPECT_EQ(table.rowCount(), expected.rowCount());
    EXPECT_EQ(table.columnCount(), expected.columnCount());
    auto const columns = lineTable(first)->columnCount();
    spy.failNext("VelUtilDataValueGetLocation", 2);
    EXPECT_EQ(lineTable(first)->columnCount(), columns) << "no column is lost";
    spy.failNext("VelUtilDataValueGetLocation", 1);
    spy.failNext("VelUtilDataValueGetLocation", 2);
    EXPECT_THROW(OrderedZoneVarTableModel(first, 1, IJKPlanes_K, 1, false), IOException);
    spy.failNext("VelUtilDataValueGetLocation", 1);
    spy.failNext("VelUtilDataValueGetLocation", 2);
    EXPECT_THROW(lineTable(first), IOException);
    EXPECT_EQ(eventListeners(), before + 2) << "those of the two tables";
}

TEST_F(ZoneVarTableModelKernelTest, ToldThatTheUserStoppedTheLoadingOfDimensionsSaysSoWithoutAText)
{
    int const before = eventListeners();
    spy.failNext("VelUtilZoneGetIJK");
    stage.session().setInterrupted(true);
    try {
        OrderedZoneVarTableModel const table(first, 1, IJKPlanes_K, 1, false);
        FAIL() << "a table without a size";
    } catch (InterruptedException const& interrupted) {
        EXPECT_EQ(interrupted.message(), "");
    }
    EXPECT_EQ(eventListeners(), before);
    stage.session().setInterrupted(false);
}

TEST_F(ZoneVarTableModelKernelTest, AsksForDimensionsOnceHoweverOftenItIsAsked)
{
    auto const table = lineTable(first);
    EXPECT_EQ(spy.count("VelUtilZoneGetIJK"), 1);
    for (int round = 0; round < 3; ++round)
        static_cast<void>(table->rowCount() + table->columnCount());
    EXPECT_EQ(spy.count("VelUtilZoneGetIJK"), 1);
    EXPECT_EQ(spy.count("VelUtilDataValueGetByZoneVar"), 0);
}

} // namespace
} // namespace veldraw::tests
