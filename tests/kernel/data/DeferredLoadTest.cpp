// Values and dimensions that are loaded when they are wanted.
#include "kernel/base/Progress.h"
#include "kernel/base/SystemMemory.h"
#include "kernel/compute/Rotation.h"
#include "kernel/operations/AddFrame.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/DuplicateZonesAxially.h"
#include "kernel/operations/LoadVariables.h"
#include "kernel/operations/MirrorZones.h"
#include "kernel/operations/RotateZones.h"
#include "kernel/operations/SetValue.h"
#include "kernel/operations/SpatialVariables.h"
#include "kernel/style/StyleTree.h"
#include "tests/kernel/support/SampleLoader.h"
#include "tests/kernel/support/SessionFixture.h"
#include "tests/kernel/support/SpatialData.h"
#include "tests/kernel/support/Waiters.h"
#include "tests/support/AllocationFailure.h"
#include "tests/support/MemoryLimit.h"

#include <optional>
#include <utility>

namespace veldraw::tests {

using namespace kernel;
using sample::aboutZ;
using sample::Loader;
using sample::noVector;
using sample::values;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// The two planes with X of both zones and the shared P not loaded. Nothing of the deferred variables is shown.
class LoadOnDemand : public SessionFixture
{
protected:
    LoadOnDemand()
    {
        dataSet->zone(1)->fields[0] = Loader::field(x1);
        dataSet->zone(2)->fields[0] = Loader::field(x2);
        dataSet->zone(1)->fields[3] = Loader::field(p);
        dataSet->zone(2)->fields[3] = dataSet->zone(1)->fields[3];
        frame->axes2D = {};
        frame->axes3D = {};
        frame->contourVariable = 0;
        frame->lineMaps.clear();
    }

    Field const& field(int zone, int variable) { return *dataSet->field(zone, variable); }
    bool available(NumberSet const& zones, NumberSet const& variables)
    {
        return session.perform(MakeVariablesAvailable(*dataSet, zones, variables));
    }

    /// Lets everything go that may go.
    void unloadSpare()
    {
        std::int64_t const limit = session.loadedValues().limit();
        session.loadedValues().setLimit(0);
        session.loadedValues().setLimit(limit);
    }

    static constexpr int bytesOfField = 6 * 4;

    std::shared_ptr<Loader> x1 = std::make_shared<Loader>(std::vector<double>{0, 1, 2, 0, 1, 2});
    std::shared_ptr<Loader> x2 = std::make_shared<Loader>(std::vector<double>{3, 4, 5, 3, 4, 5});
    std::shared_ptr<Loader> p = std::make_shared<Loader>(std::vector<double>{10, 11, 12, 13, 14, 15});
};

TEST_F(LoadOnDemand, KnowsTypeAndNumberOfValuesBeforeTheyAreLoaded)
{
    EXPECT_FALSE(field(1, 1).isLoaded());
    EXPECT_FALSE(field(1, 1).isPassive());
    EXPECT_EQ(field(1, 1).type(), FieldDataType_Float);
    EXPECT_EQ(field(1, 1).group()->size(), 6);
    EXPECT_EQ(field(1, 1).group()->buffer(), nullptr);
    EXPECT_FALSE(dataSet->zone(1)->range(1).isValid());
    EXPECT_EQ(x1->loads, 0);
}

TEST_F(LoadOnDemand, LoadsTheWantedVariablesOfTheZonesAlone)
{
    EXPECT_TRUE(available({1}, {1}));
    EXPECT_TRUE(field(1, 1).isLoaded());
    EXPECT_EQ(values(*dataSet, 1, 1), (std::vector<double>{0, 1, 2, 0, 1, 2}));
    EXPECT_FALSE(field(2, 1).isLoaded());
    EXPECT_FALSE(field(1, 4).isLoaded());
    EXPECT_THAT(recorder.take(), ElementsAre("21 zones 1 variables 1"));
    EXPECT_FALSE(session.history().canUndo()) << "loading is no step";
}

TEST_F(LoadOnDemand, LoadsForAllZonesThatShareTheStorage)
{
    EXPECT_TRUE(available({2}, {4}));
    EXPECT_TRUE(field(1, 4).isLoaded());
    EXPECT_EQ(field(1, 4).shareCount(), 2);
    EXPECT_EQ(p->loads, 1);
    EXPECT_THAT(recorder.take(), ElementsAre("21 zones 1 2 variables 4"));
}

TEST_F(LoadOnDemand, TellsNothingWhenAllIsAsWanted)
{
    available({1}, {1});
    recorder.take();
    EXPECT_TRUE(available({1}, {1, 2, 3, 5}));
    EXPECT_TRUE(available({}, {}));
    EXPECT_EQ(x1->loads, 1);
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST_F(LoadOnDemand, LetsNothingGoThatIsNotWantedAnyMore)
{
    available({1, 2}, {1, 4});
    recorder.take();
    EXPECT_TRUE(available({1, 2}, {4}));
    EXPECT_TRUE(available({1, 2}, {}));
    EXPECT_TRUE(field(1, 1).isLoaded() && field(2, 1).isLoaded() && field(1, 4).isLoaded());
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST_F(LoadOnDemand, LetsTheLeastRecentlyUsedValuesGoAboveTheLimit)
{
    session.perform(LoadVariables(*dataSet, {1}, {1}));
    session.perform(LoadVariables(*dataSet, {2}, {1}));
    session.loadedValues().setLimit(2 * bytesOfField);
    recorder.take();
    EXPECT_TRUE(field(1, 1).isLoaded() && field(2, 1).isLoaded()) << "just within it";
    session.perform(LoadVariables(*dataSet, {1}, {1})); // a use
    EXPECT_TRUE(session.perform(LoadVariables(*dataSet, {1}, {4})));
    EXPECT_TRUE(field(1, 1).isLoaded());
    EXPECT_FALSE(field(2, 1).isLoaded());
    EXPECT_TRUE(field(1, 4).isLoaded());
    EXPECT_THAT(recorder.take(), ElementsAre("21 zones 1 2 variables 4", "21 zones 2 variables 1"));
    EXPECT_TRUE(session.perform(LoadVariables(*dataSet, {2}, {1})));
    EXPECT_EQ(values(*dataSet, 2, 1), (std::vector<double>{3, 4, 5, 3, 4, 5})) << "comes again";
    EXPECT_FALSE(field(1, 1).isLoaded()) << "went in its place";
}

TEST_F(LoadOnDemand, LetsGoAtOnceWhenTheLimitIsLowered)
{
    session.perform(LoadVariables(*dataSet, {1, 2}, {1, 4}));
    recorder.take();
    session.loadedValues().setLimit(bytesOfField);
    EXPECT_FALSE(field(1, 1).isLoaded() || field(1, 4).isLoaded());
    EXPECT_TRUE(field(2, 1).isLoaded()) << "was loaded last";
    EXPECT_THAT(recorder.take(), ElementsAre("21 zones 1 2 variables 1 4"));
}

TEST_F(LoadOnDemand, KeepsWhatIsWantedAnywhere)
{
    available({1}, {1, 4});
    available({2}, {1});
    unloadSpare();
    EXPECT_TRUE(field(1, 1).isLoaded() && field(2, 1).isLoaded() && field(1, 4).isLoaded());
    available({1}, {});
    unloadSpare();
    EXPECT_FALSE(field(1, 1).isLoaded());
    EXPECT_TRUE(field(2, 1).isLoaded()) << "the other zone goes on wanting it";
    EXPECT_FALSE(field(1, 4).isLoaded());
    available({2}, {4});
    available({1}, {});
    unloadSpare();
    EXPECT_FALSE(field(2, 1).isLoaded());
    EXPECT_TRUE(field(1, 4).isLoaded()) << "the other zone shares it";
}

TEST_F(LoadOnDemand, KeepsWhatACopyOfAZoneWants)
{
    available({1}, {1});
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {1})));
    available({1}, {});
    unloadSpare();
    EXPECT_TRUE(field(1, 1).isLoaded());
    available({3}, {});
    unloadSpare();
    EXPECT_FALSE(field(1, 1).isLoaded());
}

TEST_F(LoadOnDemand, WantsVariablesWhateverTheirNumbersBecome)
{
    available({1, 2}, {4});
    session.perform(LoadVariables(*dataSet, {1}, {1}));
    ASSERT_TRUE(session.perform(DeleteVariables(*dataSet, {2})));
    unloadSpare();
    EXPECT_TRUE(field(1, 3).isLoaded());
    EXPECT_FALSE(field(1, 1).isLoaded());
}

TEST_F(LoadOnDemand, KeepsWhatAFrameShows)
{
    for (UniqueId* const shown : {&frame->contourVariable, &frame->axes2D[1], &frame->axes3D[2], &frame->vector[2]}) {
        session.perform(LoadVariables(*dataSet, {1, 2}, {1, 4}));
        *shown = dataSet->variable(4)->id;
        recorder.take();
        unloadSpare();
        EXPECT_TRUE(field(1, 4).isLoaded());
        EXPECT_FALSE(field(1, 1).isLoaded());
        EXPECT_THAT(recorder.take(), ElementsAre("21 zones 1 2 variables 1"));
        *shown = 0;
    }
    unloadSpare();
    EXPECT_FALSE(field(1, 4).isLoaded());
}

TEST_F(LoadOnDemand, KeepsWhatALineMapShowsInItsZone)
{
    frame->lineMaps = {LineMap()};
    LineMap& map = frame->lineMaps[0];
    map.zone = dataSet->zone(1)->id;
    for (UniqueId* const shown : {&map.xVariable, &map.yVariable}) {
        session.perform(LoadVariables(*dataSet, {1, 2}, {1}));
        *shown = dataSet->variable(1)->id;
        recorder.take();
        unloadSpare();
        EXPECT_TRUE(field(1, 1).isLoaded());
        EXPECT_FALSE(field(2, 1).isLoaded());
        EXPECT_THAT(recorder.take(), ElementsAre("21 zones 2 variables 1"));
        *shown = 0;
    }
}

TEST_F(LoadOnDemand, KeepsWhatIsDeclaredAsShownAsLongAsTheDeclarationLives)
{
    UniqueId const x = dataSet->variable(1)->id;
    UniqueId const pressure = dataSet->variable(4)->id;
    auto first = session.loadedValues().declareShown({dataSet->zone(1)->id, {x, 12345678}});
    auto second = session.loadedValues().declareShown({dataSet->zone(2)->id, {pressure}});
    auto const ofNoZone = session.loadedValues().declareShown({12345678, {x}});
    session.perform(LoadVariables(*dataSet, {1, 2}, {1, 4}));
    unloadSpare();
    EXPECT_TRUE(field(1, 1).isLoaded());
    EXPECT_FALSE(field(2, 1).isLoaded()) << "that zone is not in the table";
    EXPECT_TRUE(field(1, 4).isLoaded()) << "the zone of the other table shares it";
    first.reset();
    unloadSpare();
    EXPECT_FALSE(field(1, 1).isLoaded());
    EXPECT_TRUE(field(1, 4).isLoaded());
    second.reset();
    unloadSpare();
    EXPECT_FALSE(field(1, 4).isLoaded());
}

TEST_F(LoadOnDemand, LetsTheValuesOfOtherDataSetsGoToo)
{
    session.perform(LoadVariables(*dataSet, {1}, {1}));
    auto const second = std::make_shared<Frame>("second", Rectangle{});
    second->dataSet = std::make_shared<DataSet>("other");
    second->dataSet->addVariable(std::make_shared<Variable>("v"));
    auto const zone = std::make_shared<Zone>("z", ZoneType_Ordered, 6, 1, 1);
    zone->fields = {Loader::field(x2)};
    second->dataSet->addZone(zone);
    session.perform(AddFrame(second));
    session.loadedValues().setLimit(bytesOfField);
    recorder.take();
    EXPECT_TRUE(session.perform(LoadVariables(*second->dataSet, {1}, {1})));
    EXPECT_TRUE(zone->fields[0].isLoaded());
    EXPECT_FALSE(field(1, 1).isLoaded());
}

TEST_F(LoadOnDemand, NeverUnloadsWhatHasBeenAltered)
{
    session.perform(LoadVariables(*dataSet, {1, 2}, {1, 4}));
    ASSERT_TRUE(session.perform(SetValue(*dataSet, 1, 1, 2, 77, false)));
    ASSERT_TRUE(session.undo()) << "redo will write here again";
    unloadSpare();
    EXPECT_TRUE(field(1, 1).isLoaded());
    EXPECT_FALSE(field(2, 1).isLoaded());
    ASSERT_TRUE(session.redo());
    EXPECT_EQ(values(*dataSet, 1, 1)[2], 77);
}

TEST_F(LoadOnDemand, NeverUnloadsWhatCannotBeLoadedAnyMore)
{
    session.perform(LoadVariables(*dataSet, {1, 2}, {1}));
    x1->isThere = false; // its file has been saved over
    unloadSpare();
    EXPECT_TRUE(field(1, 1).isLoaded());
    EXPECT_FALSE(field(2, 1).isLoaded());
}

TEST_F(LoadOnDemand, CountsTheWholeArrayForOneComponent)
{
    auto const array = std::make_shared<std::vector<float>>(12, 1.0F);
    auto const group = std::make_shared<ShareGroup>(FieldDataType_Float, 6, x1);
    group->setLoaded(Buffer::adopt(FieldDataType_Float, 6, array->data(), 2, array));
    dataSet->zone(1)->fields[0] = Field(group, ValueLocation_Nodal);
    session.loadedValues().setLimit(2 * bytesOfField);
    EXPECT_TRUE(field(1, 1).isLoaded());
    session.loadedValues().setLimit(2 * bytesOfField - 1);
    EXPECT_FALSE(field(1, 1).isLoaded());
}

TEST_F(LoadOnDemand, AsksForTheMemoryOfAnArrayOnce)
{
    double const available = availableMemory();
    std::int64_t const most = static_cast<std::int64_t>(0.6 * available);
    x1->wholeArray = {this, most};
    x2->wholeArray = {this, most};
    EXPECT_TRUE(session.perform(LoadVariables(*dataSet, {1, 2}, {1})));
    unloadSpare();
    recorder.take();
    x2->wholeArray.identity = &x2;
    expectRefused([&] { return session.perform(LoadVariables(*dataSet, {1, 2}, {1})); });
    EXPECT_EQ(session.lastError(), "Out of memory.");
}

TEST_F(LoadOnDemand, LetsTheComponentsOfAnArrayGoTogetherOrNotAtAll)
{
    auto const array = std::make_shared<std::vector<float>>(12, 1.0F);
    auto const component = [&](std::size_t first) {
        auto group = std::make_shared<ShareGroup>(FieldDataType_Float, 6, x1);
        group->setLoaded(Buffer::adopt(FieldDataType_Float, 6, array->data() + first, 2, array));
        return Field(std::move(group), ValueLocation_Nodal);
    };
    dataSet->zone(1)->fields[0] = component(0);
    dataSet->zone(1)->fields[1] = component(1);
    available({1}, {2});
    unloadSpare();
    EXPECT_TRUE(field(1, 1).isLoaded()) << "its memory stays for the other component";
    available({1}, {});
    session.loadedValues().setLimit(bytesOfField);
    EXPECT_FALSE(field(1, 1).isLoaded() || field(1, 2).isLoaded());
}

TEST_F(LoadOnDemand, MakesRoomWhereMemoryIsRefused)
{
    session.perform(LoadVariables(*dataSet, {1}, {1}));
    session.perform(LoadVariables(*dataSet, {1}, {4}));
    recorder.take();
    bool isFirst = true;
    x2->before = [&](Progress&) {
        if (std::exchange(isFirst, false)) {
            throw NotEnoughMemory(bytesOfField - 1);
        }
    };
    EXPECT_TRUE(session.perform(LoadVariables(*dataSet, {2}, {1})));
    EXPECT_EQ(x2->loads, 1);
    EXPECT_TRUE(field(2, 1).isLoaded());
    EXPECT_FALSE(field(1, 1).isLoaded()) << "was not used for longest";
    EXPECT_TRUE(field(1, 4).isLoaded()) << "less suffices";
    EXPECT_THAT(recorder.take(), ElementsAre("21 zones 2 variables 1", "21 zones 1 variables 1"));
}

TEST_F(LoadOnDemand, LetsNothingGoWhereThatWouldNotSuffice)
{
    session.perform(LoadVariables(*dataSet, {1}, {1, 4}));
    recorder.take();
    x2->before = [](Progress&) { throw NotEnoughMemory(2 * bytesOfField + 1); };
    expectRefused([&] { return session.perform(LoadVariables(*dataSet, {2}, {1})); });
    EXPECT_EQ(session.lastError(), "Out of memory.");
    EXPECT_TRUE(field(1, 1).isLoaded() && field(1, 4).isLoaded());
}

TEST_F(LoadOnDemand, LetsAllGoWhereNobodyKnowsHowMuchIsMissing)
{
    session.perform(LoadVariables(*dataSet, {1}, {4}));
    available({1}, {1});
    recorder.take();
    int tries = 0;
    x2->before = [&](Progress&) {
        ++tries;
        throw std::bad_alloc();
    };
    EXPECT_FALSE(session.perform(LoadVariables(*dataSet, {2}, {1})));
    EXPECT_EQ(session.lastError(), "Out of memory.");
    EXPECT_EQ(tries, 2);
    EXPECT_FALSE(field(1, 4).isLoaded());
    EXPECT_TRUE(field(1, 1).isLoaded()) << "is wanted";
    EXPECT_THAT(recorder.take(), ElementsAre("21 zones 1 2 variables 4")) << "is told though the load has failed";
}

TEST_F(LoadOnDemand, GoesOnWithWhatIsMissingWhenRoomHasBeenMade)
{
    session.perform(LoadVariables(*dataSet, {1}, {4}));
    int tries = 0;
    x2->before = [&](Progress&) {
        if (++tries == 1) {
            throw std::bad_alloc();
        }
    };
    PlainWaiter waiter;
    session.setWaiter(&waiter);
    EXPECT_TRUE(available({1, 2}, {1}));
    session.setWaiter(nullptr);
    EXPECT_EQ(x1->loads, 1);
    EXPECT_EQ(x2->loads, 1);
    EXPECT_EQ(values(*dataSet, 1, 1), (std::vector<double>{0, 1, 2, 0, 1, 2}));
    EXPECT_EQ(waiter.total, 6) << "the second time";
    EXPECT_EQ(waiter.fraction, 1);
}

TEST_F(LoadOnDemand, AsksForTheMemoryOfWhatIsMissingWhenRoomHasBeenMade)
{
    session.perform(LoadVariables(*dataSet, {1}, {4}));
    std::optional<MemoryLimit> limit(2 * bytesOfField);
    bool isFirst = true;
    x2->before = [&](Progress&) {
        if (std::exchange(isFirst, false)) {
            limit.emplace(bytesOfField); // the values that have come have taken the rest
            throw std::bad_alloc();
        }
    };
    EXPECT_TRUE(available({1, 2}, {1}));
    EXPECT_EQ(x2->loads, 1);
}

TEST_F(LoadOnDemand, MakesRoomForAnOperationButNotOfWhatItNeeds)
{
    frame->plotType = PlotType_Cartesian3D;
    for (int operation = 0; operation < 3; ++operation) {
        frame->axes3D = {};
        dataSet->zones().resize(2);
        session.history().clear();
        dataSet->zone(1)->fields[0] = Loader::field(x1);
        dataSet->zone(2)->fields[0] = Loader::field(x2);
        session.perform(LoadVariables(*dataSet, {1}, {1, 4}));
        frame->axes3D[0] = operation == 2 ? dataSet->variable(1)->id : 0;
        bool isFirst = true;
        x2->before = [&](Progress&) {
            if (std::exchange(isFirst, false)) {
                throw std::bad_alloc();
            }
        };
        if (operation == 0) {
            EXPECT_TRUE(session.perform(RotateZones(*dataSet, {1, 2}, noVector, aboutZ, 90)));
            EXPECT_EQ(values(*dataSet, 1, 2), (std::vector<double>{0, 1, 2, 0, 1, 2}));
            EXPECT_EQ(values(*dataSet, 2, 2), (std::vector<double>{3, 4, 5, 3, 4, 5}));
            dataSet->zone(1)->fields[1] = sample::field({0, 0, 0, 1, 1, 1});
            dataSet->zone(2)->fields[1] = sample::field({0, 0, 0, 1, 1, 1});
        } else if (operation == 1) {
            EXPECT_TRUE(session.perform(DuplicateZonesAxially(*dataSet, {1, 2}, noVector, aboutZ, {90, 0, 1, false})));
            EXPECT_EQ(dataSet->zoneCount(), 4) << "not twice as many copies";
        } else {
            EXPECT_TRUE(session.perform(MirrorZones(frame->id, {1, 2}, 'X')));
            EXPECT_EQ(dataSet->zoneCount(), 4);
        }
        EXPECT_FALSE(isFirst);
        EXPECT_FALSE(field(1, 4).isLoaded());
        EXPECT_EQ(x1->loads, operation + 1) << "was loaded once, and stayed";
    }
}

TEST_F(LoadOnDemand, MakesCopiesOnceWhereverMemoryIsRefused)
{
    dataSet->zone(1)->fields[0] = sample::field({0, 1, 2, 0, 1, 2});
    dataSet->zone(2)->fields[0] = sample::field({0, 1, 2, 0, 1, 2});
    dataSet->zone(2)->strand = 3;
    NumberSet const zones{1, 2};
    int retries = 0;
    for (int request = 1; request < 1000; ++request) {
        session.perform(LoadVariables(*dataSet, {1}, {4}));
        bool isDone = false;
        bool happened = false;
        {
            AllocationFailure const failure(request);
            isDone = refusedWithoutMemory(session, [&] {
                return session.perform(DuplicateZonesAxially(*dataSet, zones, noVector, aboutZ, {90, 0, 2, false}));
            });
            happened = failure.hasHappened();
        }
        ASSERT_EQ(dataSet->zoneCount(), isDone ? 6 : 2) << request;
        if (isDone) {
            ASSERT_EQ(dataSet->zone(4)->strand, 4);
            ASSERT_EQ(dataSet->zone(6)->strand, 5);
            ASSERT_TRUE(session.undo());
        }
        retries += isDone && happened && !field(1, 4).isLoaded() ? 1 : 0;
        session.history().clear();
        if (!happened) {
            break;
        }
    }
    EXPECT_GT(retries, 3);
}

TEST_F(LoadOnDemand, LoadsALockedDataSet)
{
    session.setLock(*dataSet, "somebody");
    EXPECT_TRUE(available({1}, {1}));
    EXPECT_TRUE(field(1, 1).isLoaded());
}

TEST_F(LoadOnDemand, RefusesNumbersThatDoNotExist)
{
    expectRefused([&] { return available({0}, {1}); });
    expectRefused([&] { return available({3}, {1}); });
    expectRefused([&] { return available({1}, {0}); });
    expectRefused([&] { return available({1}, {6}); });
    DataSet stranger;
    expectRefused([&] { return session.perform(MakeVariablesAvailable(stranger, {}, {})); });
}

TEST_F(LoadOnDemand, ChangesNothingWhenOneLoaderFails)
{
    available({1}, {4});
    recorder.take();
    x2->before = [](Progress&) { throw std::runtime_error("The file has gone."); };
    expectRefused([&] { return available({1, 2}, {1}); });
    EXPECT_EQ(session.lastError(), "\"X\" of zone \"upper\" cannot be loaded: The file has gone.");
    EXPECT_FALSE(field(1, 1).isLoaded());
    unloadSpare();
    EXPECT_TRUE(field(1, 4).isLoaded()) << "is wanted as it was";
    x2->before = nullptr;
    EXPECT_TRUE(available({1, 2}, {1}));
}

TEST_F(LoadOnDemand, RefusesValuesThatAreNotThoseAnnounced)
{
    auto const other = std::make_shared<Loader>(std::vector<double>{1, 2});
    dataSet->zone(1)->fields[0] =
        Field(std::make_shared<ShareGroup>(FieldDataType_Float, 6, other), ValueLocation_Nodal);
    expectRefused([&] { return available({1}, {1}); });
    dataSet->zone(1)->fields[0] =
        Field(std::make_shared<ShareGroup>(FieldDataType_Double, 2, other), ValueLocation_Nodal);
    expectRefused([&] { return available({1}, {1}); });
    dataSet->zone(1)->fields[0] =
        Field(std::make_shared<ShareGroup>(FieldDataType_Float, 6, nullptr), ValueLocation_Nodal);
    expectRefused([&] { return available({1}, {1}); });
}

TEST_F(LoadOnDemand, IsCancelledBetweenAndWithinLoaders)
{
    x2->before = [this](Progress& progress) {
        session.setInterrupted(true);
        progress.check();
    };
    expectRefused([&] { return available({1, 2}, {1}); });
    EXPECT_TRUE(session.isInterrupted());
    EXPECT_FALSE(field(1, 1).isLoaded());
    x2->before = nullptr;
    x1->before = [this](Progress&) { session.setInterrupted(true); };
    expectRefused([&] { return available({1, 2}, {1}); });
    x1->before = nullptr;
    EXPECT_TRUE(available({1, 2}, {1}));
    EXPECT_FALSE(session.isInterrupted());
}

TEST_F(LoadOnDemand, RunsOnAWorkerWhileEditsAreRefusedAndShareCountsStayTrue)
{
    ActingWaiter waiter([this](Progress&) {
        EXPECT_FALSE(session.perform(SetValue(*dataSet, 1, 2, 0, 5, false)));
        EXPECT_FALSE(available({1}, {4}));
        EXPECT_FALSE(session.undo());
        EXPECT_EQ(field(1, 4).shareCount(), 2);
    });
    session.setWaiter(&waiter);
    EXPECT_TRUE(available({1, 2}, {1, 4}));
    session.setWaiter(nullptr);
    EXPECT_THAT(waiter.names, ElementsAre("Load Variable"));
    EXPECT_EQ(waiter.fraction, 1);
    EXPECT_EQ(field(1, 4).shareCount(), 2);
}

TEST_F(LoadOnDemand, RefusesWhatNoMachineCanHoldBeforeItIsRead)
{
    std::int64_t const tooMany = std::int64_t{1} << 56;
    auto const defer = [&] {
        auto group = std::make_shared<ShareGroup>(FieldDataType_Double, tooMany, x1);
        dataSet->zone(1)->fields[0] = Field(std::move(group), ValueLocation_Nodal);
    };
    defer();
    expectRefused([&] { return available({1}, {1}); });
    EXPECT_EQ(session.lastError(), "Out of memory.");
    EXPECT_EQ(x1->loads, 0);
    x1->mapped = true;
    defer();
    expectRefused([&] { return available({1}, {1}); });
    EXPECT_EQ(x1->loads, 1) << "mapped values need no memory; but these are not as many as announced";
}

TEST_F(LoadOnDemand, LoadsInTheOrderOfZonesAndVariables)
{
    std::string order;
    auto const noting = [&](char name, double value) {
        auto loader = std::make_shared<Loader>(std::vector<double>(6, value));
        loader->before = [&order, name](Progress&) { order += name; };
        return Loader::field(loader);
    };
    for (std::size_t const variable : {3U, 1U, 2U, 0U}) { // so that memory has another order
        dataSet->zone(2)->fields[variable] = noting(static_cast<char>('e' + variable), 2);
        dataSet->zone(1)->fields[variable] = noting(static_cast<char>('a' + variable), 1);
    }
    EXPECT_TRUE(available({1, 2}, {1, 2, 3, 4}));
    EXPECT_EQ(order, "abcdefgh");
}

TEST_F(LoadOnDemand, TellsHowFarItHasComeByTheValues)
{
    std::vector<double> fractions;
    x1->before = x2->before = [&](Progress& progress) { fractions.push_back(progress.fraction()); };
    EXPECT_TRUE(available({1, 2}, {1}));
    EXPECT_THAT(fractions, ElementsAre(0, 0.5));
}

TEST_F(LoadOnDemand, IsToldBeforeStyleThatWasWrittenMeanwhile)
{
    auto const write = [this](Progress&) {
        std::vector<std::string> const path{"FileConfig", "LoadOnDemand", "KeepHighPriorityVarsAvailable"};
        EXPECT_EQ(session.style().set({path}, StyleNumber::ofWhole(1)), SetValueReturnCode_Pending);
    };
    x1->before = write;
    EXPECT_TRUE(available({1}, {1}));
    EXPECT_THAT(recorder.take(),
                ElementsAre("21 zones 1 variables 1", "7 FileConfig LoadOnDemand KeepHighPriorityVarsAvailable"));
}

TEST_F(LoadOnDemand, FailsWithAReasonWhateverALoaderThrows)
{
    auto const reasonOf = [this](std::function<void(Progress&)> const& trouble) {
        x1->before = trouble;
        expectRefused([&] { return available({1}, {1}); });
        EXPECT_FALSE(field(1, 1).isLoaded());
        return session.lastError();
    };
    PlainWaiter patient;
    for (Waiter* const waiter : {static_cast<Waiter*>(nullptr), static_cast<Waiter*>(&patient)}) {
        session.setWaiter(waiter);
        EXPECT_EQ(reasonOf([](Progress&) { throw std::bad_alloc(); }), "Out of memory.");
        EXPECT_EQ(reasonOf([](Progress&) { throw 17; }), "The operation failed.");
        EXPECT_EQ(reasonOf([](Progress&) { throw Interrupted(); }), "The operation was cancelled.");
        EXPECT_EQ(reasonOf([](Progress&) { throw std::runtime_error("\"/a.raw\" has gone"); }),
                  "\"X\" of zone \"lower\" cannot be loaded: \"/a.raw\" has gone.");
        x1->before = nullptr;
        EXPECT_TRUE(available({1}, {1})) << "another time";
        EXPECT_TRUE(available({1}, {}));
        unloadSpare();
        recorder.take();
    }
    session.setWaiter(nullptr);
}

TEST_F(LoadOnDemand, KnowsRangesWithoutLoading)
{
    auto const rangeAfter = [](ValueRange const& known, bool mapped, bool loads) {
        auto const loader = std::make_shared<Loader>(std::vector<double>{1, 2, 3});
        loader->knownRange = known;
        loader->mapped = mapped;
        Field const field = Loader::field(loader);
        if (loads) {
            Progress progress;
            field.group()->setLoaded(loader->load(progress));
        }
        return field.group()->range();
    };
    using State = ValueRange::State;
    EXPECT_EQ(rangeAfter({}, false, false).state, State::Unknown);
    EXPECT_EQ(rangeAfter({State::Estimated, 0, 9}, false, false).state, State::Estimated);
    EXPECT_EQ(rangeAfter({State::Exact, 1, 3}, false, false).state, State::Exact);
    EXPECT_EQ(rangeAfter({State::Estimated, 0, 9}, false, true).max, 3);
    EXPECT_EQ(rangeAfter({State::Estimated, 0, 9}, false, true).state, State::Exact);
    EXPECT_EQ(rangeAfter({}, false, true).max, 3);
    EXPECT_EQ(rangeAfter({State::Estimated, 0, 9}, true, true).max, 9) << "mapped values are not gone through";
    EXPECT_EQ(rangeAfter({}, true, true).state, State::Unknown);
}

TEST_F(LoadOnDemand, RemembersAComputedRangeAfterAnUnload)
{
    available({1}, {1});
    EXPECT_EQ(dataSet->zone(1)->range(1).max, 2);
    available({1}, {});
    unloadSpare();
    ASSERT_FALSE(field(1, 1).isLoaded());
    EXPECT_EQ(dataSet->zone(1)->range(1).max, 2);
    EXPECT_EQ(dataSet->zone(1)->range(1).state, ValueRange::State::Exact);
}

TEST_F(LoadOnDemand, LooksAtNoValueWhereRangesAreLeftToWhoeverAsks)
{
    using Ranges = LoadVariables::Ranges;
    ASSERT_TRUE(session.perform(LoadVariables(*dataSet, {1}, {1}, Ranges::Computed)));
    EXPECT_TRUE(field(1, 1).group()->knownRange().isKnown());
    ASSERT_TRUE(session.perform(LoadVariables(*dataSet, {2}, {1}, Ranges::Left)));
    EXPECT_FALSE(field(2, 1).group()->knownRange().isKnown());
    EXPECT_EQ(dataSet->zone(2)->range(1).max, 5);
}

TEST_F(LoadOnDemand, LoadsWhatARotationNeedsWithinIt)
{
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {1}, noVector, aboutZ, 90)));
    EXPECT_EQ(values(*dataSet, 1, 2), (std::vector<double>{0, 1, 2, 0, 1, 2}));
    EXPECT_THAT(recorder.take(), ElementsAre("0 zones 1 variables 1 2", "21 zones 1 variables 1"));
    EXPECT_FALSE(field(2, 1).isLoaded());
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(values(*dataSet, 1, 1), (std::vector<double>{0, 1, 2, 0, 1, 2})) << "stays loaded";
    EXPECT_THAT(recorder.take(), ElementsAre("0 zones 1 variables 1 2", "24"));
    ASSERT_TRUE(session.redo());
    EXPECT_EQ(values(*dataSet, 1, 2), (std::vector<double>{0, 1, 2, 0, 1, 2}));
    EXPECT_THAT(recorder.take(), ElementsAre("0 zones 1 variables 1 2", "24"));
}

TEST_F(LoadOnDemand, LoadsNothingForARotationThatFails)
{
    x2->before = [](Progress&) { throw std::runtime_error("The file has gone."); };
    expectRefused([&] { return session.perform(RotateZones(*dataSet, {1, 2}, noVector, aboutZ, 90)); });
    EXPECT_FALSE(field(1, 1).isLoaded());
    dataSet->zone(1)->fields[1] = sample::field({1, 2}); // not at the places of X
    x2->before = nullptr;
    expectRefused([&] { return session.perform(RotateZones(*dataSet, {1, 2}, noVector, aboutZ, 90)); });
    EXPECT_FALSE(field(1, 1).isLoaded());
}

TEST_F(LoadOnDemand, LoadsForMirrorsAndRotatedCopies)
{
    frame->plotType = PlotType_Cartesian3D;
    frame->axes3D = {dataSet->variable(1)->id, dataSet->variable(2)->id, dataSet->variable(3)->id};
    ASSERT_TRUE(session.perform(MirrorZones(frame->id, {1}, 'X')));
    EXPECT_EQ(values(*dataSet, 3, 1), (std::vector<double>{0, -1, -2, 0, -1, -2}));
    EXPECT_FALSE(field(3, 4).isLoaded()) << "what is shared stays out of memory";
    EXPECT_EQ(field(3, 4).group(), field(1, 4).group());
    ASSERT_TRUE(session.perform(DuplicateZonesAxially(*dataSet, {2}, noVector, aboutZ, {90, 0, 1, true})));
    EXPECT_EQ(values(*dataSet, 4, 2), (std::vector<double>{3, 4, 5, 3, 4, 5}));
    EXPECT_TRUE(available({4}, {4}));
    EXPECT_TRUE(field(1, 4).isLoaded());
}

TEST_F(LoadOnDemand, DeletesAndDuplicatesWithoutLoading)
{
    std::string const before = withoutHistory();
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {1})));
    ASSERT_TRUE(session.perform(DeleteVariables(*dataSet, {4})));
    EXPECT_EQ(session.history().valueBytes(), 0);
    ASSERT_TRUE(session.undo());
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(withoutHistory(), before);
    EXPECT_EQ(p->loads + x1->loads, 0);
}

TEST_F(LoadOnDemand, TakesAnEditOfABranchBackToStorageThatHasBeenUnloaded)
{
    available({1, 2}, {4});
    ASSERT_TRUE(session.perform(SetValue(*dataSet, 1, 4, 0, -1, true)));
    EXPECT_TRUE(available({1, 2}, {}));
    unloadSpare();
    EXPECT_TRUE(field(1, 4).isLoaded()) << "altered";
    EXPECT_FALSE(field(2, 4).isLoaded());
    ASSERT_TRUE(session.undo());
    EXPECT_FALSE(field(1, 4).isLoaded());
    EXPECT_EQ(field(1, 4).group(), field(2, 4).group());
    EXPECT_TRUE(available({1}, {4}));
    EXPECT_EQ(values(*dataSet, 1, 4)[0], 10);
    ASSERT_TRUE(session.redo());
    EXPECT_EQ(values(*dataSet, 1, 4)[0], -1);
    EXPECT_EQ(values(*dataSet, 2, 4)[0], 10);
}

TEST_F(LoadOnDemand, ChangesNothingWithoutMemory)
{
    int failures = 0;
    NumberSet const zones{1, 2};
    NumberSet const wanted{1, 4};
    for (int request = 1; request < 1000; ++request) {
        std::string const before = stateDigest(session);
        bool succeeded = false;
        {
            AllocationFailure const failure(request);
            succeeded = refusedWithoutMemory(
                session, [&] { return session.perform(MakeVariablesAvailable(*dataSet, zones, wanted)); });
            failures += failure.hasHappened() ? 1 : 0;
            if (!failure.hasHappened()) {
                request = 1000;
            }
        }
        if (!succeeded) {
            ASSERT_EQ(stateDigest(session), before) << request;
            ASSERT_FALSE(field(1, 1).isLoaded());
            ASSERT_THAT(recorder.take(), IsEmpty());
            continue;
        }
        ASSERT_TRUE(field(1, 1).isLoaded() && field(2, 1).isLoaded() && field(1, 4).isLoaded());
        ASSERT_TRUE(available({1, 2}, {}));
        unloadSpare();
        recorder.take();
    }
    EXPECT_GT(failures, 10);
}

/// A zone whose dimensions are not known, with one variable.
class DeferredDimensions : public SessionFixture
{
protected:
    DeferredDimensions()
    {
        auto zone = std::make_shared<Zone>("deferred", ZoneType_Ordered, -1, -1, -1);
        zone->dimensionsLoader = size;
        zone->fields = {Field(std::make_shared<ShareGroup>(FieldDataType_Float, -1, x), ValueLocation_Nodal), Field()};
        for (char const* name : {"X", "Y"}) {
            deferred->addVariable(std::make_shared<Variable>(name));
        }
        deferred->addZone(zone);
        session.setFrameDataSet(frame->id, deferred);
        recorder.take();
    }

    std::shared_ptr<sample::SizeLoader> size = std::make_shared<sample::SizeLoader>(ZoneDimensions{3, 2, 1, {}});
    std::shared_ptr<Loader> x = std::make_shared<Loader>(std::vector<double>{0, 1, 2, 0, 1, 2});
    std::shared_ptr<DataSet> deferred = std::make_shared<DataSet>("deferred");
};

TEST_F(DeferredDimensions, ReadAsMinusOneUntilTheyAreLoaded)
{
    EXPECT_TRUE(deferred->zone(1)->isDeferred());
    EXPECT_EQ(deferred->zone(1)->i, -1);
    EXPECT_EQ(deferred->zone(1)->pointCount(), 0);
    EXPECT_EQ(size->loads, 0);
    EXPECT_TRUE(session.perform(LoadDimensions(*deferred, 1)));
    EXPECT_EQ(deferred->zone(1)->pointCount(), 6);
    EXPECT_THAT(recorder.take(), ElementsAre("23 zones 1"));
    EXPECT_TRUE(session.perform(LoadDimensions(*deferred, 1)));
    EXPECT_EQ(size->loads, 1);
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST_F(DeferredDimensions, MayBeThoseOfAZoneWithoutPoints)
{
    for (ZoneDimensions const& none : {ZoneDimensions{0, 2, 1, {}}, {3, 0, 1, {}}, {3, 2, 0, {}}}) {
        deferred->zone(1)->setDimensions({-1, -1, -1, {}});
        deferred->zone(1)->dimensionsLoader = std::make_shared<sample::SizeLoader>(none);
        EXPECT_TRUE(session.perform(LoadDimensions(*deferred, 1))) << session.lastError();
        EXPECT_EQ(deferred->zone(1)->pointCount(), 0);
    }
}

TEST_F(DeferredDimensions, AreLearntByCopiesOfTheZoneToo)
{
    ASSERT_TRUE(session.perform(DuplicateZones(*deferred, {1})));
    recorder.take();
    EXPECT_TRUE(session.perform(LoadDimensions(*deferred, 2)));
    EXPECT_EQ(deferred->zone(1)->pointCount(), 6);
    EXPECT_THAT(recorder.take(), ElementsAre("23 zones 1 2"));
}

TEST_F(DeferredDimensions, AreLoadedWithTheValues)
{
    EXPECT_TRUE(session.perform(LoadVariables(*deferred, {1}, {1})));
    EXPECT_THAT(recorder.take(), ElementsAre("23 zones 1", "21 zones 1 variables 1"));
    EXPECT_EQ(deferred->field(1, 1)->group()->size(), 6);
}

TEST_F(DeferredDimensions, AreLoadedForARotationAndStayUnknownWhenItFails)
{
    SpatialVariables const inPlane{{1, 2, 0}, {}, false, false};
    x->before = [](Progress&) { throw std::runtime_error("The file has gone."); };
    expectRefused([&] { return session.perform(RotateZones(*deferred, {1}, inPlane, aboutZ, 90)); });
    x->before = nullptr;
    EXPECT_TRUE(session.perform(RotateZones(*deferred, {1}, inPlane, aboutZ, 90)));
    EXPECT_EQ(values(*deferred, 1, 2), (std::vector<double>{0, 1, 2, 0, 1, 2}));
    EXPECT_EQ(deferred->zone(1)->i, 3);
}

TEST_F(DeferredDimensions, AreKnownToCopiesThatComeLater)
{
    SpatialVariables const inPlane{{1, 2, 0}, {}, false, false};
    ASSERT_TRUE(session.perform(DuplicateZonesAxially(*deferred, {1}, inPlane, aboutZ, {90, 0, 1, true})));
    EXPECT_EQ(deferred->zone(2)->pointCount(), 6);
    EXPECT_EQ(deferred->zone(1)->pointCount(), 6);
    ASSERT_TRUE(session.undo());
    ASSERT_TRUE(session.redo());
    EXPECT_EQ(deferred->zone(2)->pointCount(), 6);
    EXPECT_EQ(values(*deferred, 2, 2), (std::vector<double>{0, 1, 2, 0, 1, 2}));
    EXPECT_EQ(size->loads, 1);
}

TEST_F(DeferredDimensions, StayUnknownWhenTheyCannotBeRead)
{
    size->before = [](Progress&) { throw std::runtime_error("The file has gone."); };
    expectRefused([&] { return session.perform(LoadDimensions(*deferred, 1)); });
    size->before = [this](Progress&) { session.setInterrupted(true); };
    expectRefused([&] { return session.perform(LoadDimensions(*deferred, 1)); });
    EXPECT_TRUE(session.isInterrupted());
    expectRefused([&] { return session.perform(LoadDimensions(*deferred, 2)); });
    for (ZoneDimensions const& wrong : {ZoneDimensions{-3, 2, 1, {}}, {3, -2, 1, {}}, {3, 2, -1, {}}}) {
        deferred->zone(1)->dimensionsLoader = std::make_shared<sample::SizeLoader>(wrong);
        expectRefused([&] { return session.perform(LoadDimensions(*deferred, 1)); });
    }
}

TEST_F(DeferredDimensions, RefuseValuesThatDoNotFillTheZone)
{
    deferred->zone(1)->dimensionsLoader = std::make_shared<sample::SizeLoader>(ZoneDimensions{3, 3, 1, {}});
    expectRefused([&] { return session.perform(LoadVariables(*deferred, {1}, {1})); });
    EXPECT_TRUE(deferred->zone(1)->isDeferred());
}

} // namespace

} // namespace veldraw::tests
