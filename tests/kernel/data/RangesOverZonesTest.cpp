#include "kernel/data/RangesOverZones.h"

#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/LoadVariables.h"
#include "kernel/operations/MirrorZones.h"
#include "kernel/operations/RotateZones.h"
#include "kernel/operations/SetValue.h"
#include "kernel/session/Session.h"
#include "tests/kernel/support/SampleData.h"
#include "tests/kernel/support/SampleLoader.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace veldraw::tests {

using namespace kernel;

namespace {

constexpr int manyZones = 700;
constexpr int variableCount = 6;

/// What is known of a range, found out in the plainest way.
struct FreshRange
{
    ValueRange range;
    bool mayBeOther = false;
};

FreshRange freshRange(DataSet const& dataSet, int variable)
{
    FreshRange fresh;
    for (int number = 1; number <= dataSet.zoneCount(); ++number) {
        Zone const& zone = *dataSet.zone(number);
        if (!zone.enabled) {
            continue;
        }
        ValueRange const range = zone.range(variable);
        bool const isExact = range.state == ValueRange::State::Exact || dataSet.field(number, variable)->isLoaded();
        fresh.mayBeOther = fresh.mayBeOther || !isExact;
        if (range.isValid()) {
            bool const isFirst = !fresh.range.isValid();
            fresh.range.min = isFirst || range.min < fresh.range.min ? range.min : fresh.range.min;
            fresh.range.max = isFirst || range.max > fresh.range.max ? range.max : fresh.range.max;
            fresh.range.state = range.state;
        }
    }
    return fresh;
}

void expectFreshRanges(DataSet& dataSet, std::string const& when)
{
    for (int variable = 1; variable <= dataSet.variableCount(); ++variable) {
        JoinedRange const kept = dataSet.ranges().of(variable);
        FreshRange const fresh = freshRange(dataSet, variable);
        std::string const what = when + ", variable " + std::to_string(variable);
        ASSERT_EQ(kept.range().isValid(), fresh.range.isValid()) << what;
        ASSERT_EQ(kept.range().min, fresh.range.min) << what;
        ASSERT_EQ(kept.range().max, fresh.range.max) << what;
        ASSERT_EQ(kept.isEstimated(), fresh.range.isValid() && fresh.mayBeOther) << what;
    }
}

/// Zones of two by two points, each with a value of its own that is the largest but for zones behind it.
std::shared_ptr<DataSet> rising(int zones)
{
    auto dataSet = std::make_shared<DataSet>("rising");
    dataSet->addVariable(std::make_shared<Variable>("value"));
    for (int number = 1; number <= zones; ++number) {
        auto zone = std::make_shared<Zone>("zone", ZoneType_Ordered, 2, 2, 1);
        double const value = number;
        zone->fields = {sample::field({value, -value, 0, std::numeric_limits<double>::quiet_NaN()})};
        dataSet->addZone(zone);
    }
    return dataSet;
}

double largest(DataSet& dataSet)
{
    return dataSet.ranges().of(1).range().max;
}

/// Values of many kinds: own and shared ones, at cells, hidden, passive, not finite, loaded on demand with and without an estimate.
class AllKindsOfZones
{
public:
    explicit AllKindsOfZones(unsigned seed)
        : m_random(seed)
    {
    }

    std::shared_ptr<DataSet> make(int zones)
    {
        auto dataSet = std::make_shared<DataSet>("all kinds");
        for (int number = 1; number <= variableCount; ++number) {
            dataSet->addVariable(std::make_shared<Variable>("v" + std::to_string(number)));
        }
        m_shared = sample::field(values());
        for (int number = 0; number < zones; ++number) {
            dataSet->addZone(zone());
        }
        return dataSet;
    }

private:
    std::vector<double> values()
    {
        std::normal_distribution<double> anyValue(0, 100);
        std::vector<double> result(6);
        for (double& value : result) {
            value = m_random() % 20 == 0 ? std::numeric_limits<double>::infinity() : anyValue(m_random);
        }
        return result;
    }

    std::shared_ptr<Zone> zone()
    {
        auto zone = std::make_shared<Zone>("zone", ZoneType_Ordered, 3, 2, 1);
        zone->enabled = m_random() % 10 != 0;
        zone->fields = {sample::field(values()), sample::field(values()), Field()};
        if (m_random() % 5 == 0) {
            zone->fields[2] = m_shared;
        }
        zone->fields.push_back(sample::field(values(), FieldDataType_Float, ValueLocation_CellCentered));
        auto const loader = std::make_shared<sample::Loader>(values());
        loader->knownRange = {m_random() % 2 == 0 ? ValueRange::State::Estimated : ValueRange::State::Unknown, -500,
                              500};
        zone->fields.push_back(sample::Loader::field(loader));
        zone->fields.push_back(sample::Loader::field(std::make_shared<sample::Loader>(values())));
        if (m_random() % 4 == 0) {
            blank(*zone);
        }
        return zone;
    }

    void blank(Zone& zone)
    {
        auto const marks = Buffer::allocate(FieldDataType_Byte, 6);
        for (int point = 0; point < 6; ++point) {
            marks->setValue(point, m_random() % 2 == 0 ? Blanking::hiddenPoint : 0);
        }
        zone.blanking = std::make_shared<Blanking>(zone, Blanking::Marks{marks, nullptr});
    }

    std::mt19937 m_random;
    Field m_shared;
};

} // namespace

TEST(RangesOverZones, AreThoseOfTheEnabledZones)
{
    for (int const zones : {1, 256, 257, manyZones}) {
        auto const dataSet = rising(zones);
        expectFreshRanges(*dataSet, "at first");
        EXPECT_EQ(largest(*dataSet), zones);
        EXPECT_EQ(dataSet->ranges().of(1).range().min, -zones);
        EXPECT_EQ(dataSet->ranges().of(1).range().state, ValueRange::State::Exact);
    }
    EXPECT_FALSE(rising(1)->ranges().of(0).range().isValid());
    EXPECT_FALSE(rising(manyZones)->ranges().of(2).range().isValid());
}

TEST(RangesOverZones, AreNotLookedForAnewInZonesThatNobodyHasChanged)
{
    auto const dataSet = rising(manyZones);
    ASSERT_EQ(largest(*dataSet), manyZones);
    dataSet->zone(manyZones)->enabled = false; // which nobody tells
    EXPECT_EQ(largest(*dataSet), manyZones);
    dataSet->ranges().follow({StateChange_ZonesEnabled, {1}, {}, {}, 0});
    dataSet->ranges().follow({StateChange_ValuesAltered, {1, 300}, {1}, {}, 0});
    dataSet->ranges().follow({StateChange_ZonesRenamed, {manyZones}, {}, {}, 0});
    EXPECT_EQ(largest(*dataSet), manyZones);
    dataSet->ranges().follow({StateChange_ZonesEnabled, {1, manyZones}, {}, {}, 0});
    EXPECT_EQ(largest(*dataSet), manyZones - 1);
}

TEST(RangesOverZones, AreLookedForAnewFromTheFirstZoneOnThatHasAnotherNumber)
{
    auto const dataSet = rising(manyZones);
    ASSERT_EQ(largest(*dataSet), manyZones);
    dataSet->zone(manyZones)->enabled = false; // which nobody tells
    dataSet->zone(1)->fields[0] = sample::field({5000, 0, 0, 0});
    dataSet->ranges().follow({StateChange_ZonesDeleted, {400}, {}, {}, 0});
    EXPECT_EQ(largest(*dataSet), manyZones - 1) << "the first 256 are as they were";
    dataSet->ranges().follow({StateChange_ZonesAdded, {}, {}, {}, 0});
    EXPECT_EQ(largest(*dataSet), 5000) << "it may be any";
}

TEST(RangesOverZones, OfOneVariableSurviveAnEditOfAnother)
{
    AllKindsOfZones kinds(3);
    auto const dataSet = kinds.make(manyZones);
    double const first = dataSet->ranges().of(1).range().max;
    double const second = dataSet->ranges().of(2).range().max;
    for (auto const& zone : dataSet->zones()) { // which nobody tells
        zone->fields[0] = Field();
        zone->fields[1] = Field();
    }
    NumberSet all;
    for (int zone = 1; zone <= manyZones; ++zone) {
        all.insert(zone);
    }
    dataSet->ranges().follow({StateChange_ValuesAltered, all, {1}, {}, 0});
    EXPECT_FALSE(dataSet->ranges().of(1).range().isValid()) << first;
    EXPECT_EQ(dataSet->ranges().of(2).range().max, second);
}

TEST(RangesOverZones, AreFoundForAllBeforeAnybodyAsks)
{
    auto const dataSet = rising(manyZones);
    Progress progress;
    dataSet->ranges().findAll(progress);
    for (auto const& zone : dataSet->zones()) {
        ASSERT_TRUE(zone->fields[0].group()->knownRange().isKnown());
        zone->enabled = false; // which nobody tells
    }
    EXPECT_EQ(largest(*dataSet), manyZones);
}

TEST(RangesOverZones, AreFoundInASingleZoneToo)
{
    auto const dataSet = rising(1);
    Progress progress;
    dataSet->ranges().findAll(progress);
    ValueRange const range = dataSet->field(1, 1)->group()->knownRange().range();
    EXPECT_EQ(range.state, ValueRange::State::Exact);
    EXPECT_EQ(range.min, -1.0);
    EXPECT_EQ(range.max, 1.0);
}

TEST(RangesOverZones, OfMappedValuesAreNotLookedForUnasked)
{
    for (int const zones : {1, manyZones}) {
        auto const dataSet = rising(zones);
        auto const loader = std::make_shared<sample::Loader>(std::vector<double>{1, 2, 3, 4});
        loader->mapped = true;
        loader->knownRange = {ValueRange::State::Exact, 1, 4};
        Field const field = sample::Loader::field(loader);
        Progress progress;
        field.group()->setLoaded(loader->load(progress));
        Zone& zone = *dataSet->zone(1);
        zone.fields[0] = field;
        auto const marks = Buffer::allocate(FieldDataType_Byte, 4);
        marks->setValue(0, Blanking::hiddenPoint);
        zone.blanking =
            std::make_shared<Blanking>(zone, Blanking::Marks{marks, nullptr}); // so the given range is none of it
        dataSet->ranges().findAll(progress);
        EXPECT_EQ(field.group()->knownRange().range().min, 1.0) << "as it was given";
    }
}

TEST(RangesOverZones, CanBeCancelledWhileAllAreLookedFor)
{
    auto const dataSet = rising(1);
    Progress progress;
    progress.interrupt();
    EXPECT_THROW(dataSet->ranges().findAll(progress), Interrupted);
}

TEST(RangesOverZones, EqualAFreshWalkAfterEachOfManyRandomChanges)
{
    AllKindsOfZones kinds(17);
    auto const dataSet = kinds.make(manyZones);
    auto const other = kinds.make(300);
    auto const frame = std::make_shared<Frame>("frame", Rectangle{});
    frame->dataSet = dataSet;
    auto const otherFrame = std::make_shared<Frame>("other", Rectangle{});
    otherFrame->dataSet = other;
    Session session;
    session.openPage({frame, otherFrame});
    Progress progress;
    dataSet->ranges().findAll(progress);
    SpatialVariables spatial;
    spatial.coordinates = {1, 2, 0};
    spatial.isThreeD = false;
    std::mt19937 random(17);
    std::normal_distribution<double> anyValue(0, 300);
    auto const below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    int performed = 0;
    for (int round = 0; round < 400; ++round) {
        DataSet& chosen = below(4) == 0 ? *other : *dataSet;
        int const zone = 1 + below(chosen.zoneCount());
        NumberSet const some{zone, 1 + below(chosen.zoneCount()), 1 + below(chosen.zoneCount())};
        int const variable = 1 + below(chosen.variableCount());
        bool isDone = false;
        switch (below(10)) {
        case 0:
            isDone = session.perform(EnableZone(chosen, zone, !chosen.zone(zone)->enabled));
            break;
        case 1:
            isDone = session.perform(DuplicateZones(chosen, some));
            break;
        case 2:
        case 3:
            isDone = session.perform(SetValue(chosen, zone, variable, below(6), anyValue(random), below(2) == 0));
            break;
        case 4:
            isDone = session.perform(LoadVariables(chosen, some, {variable}));
            break;
        case 5:
            isDone = session.perform(RotateZones(chosen, some, spatial, RotationAxis(), 30));
            break;
        case 6:
            isDone = below(8) == 0 && session.perform(DeleteVariables(chosen, {1 + below(chosen.variableCount())}));
            break;
        case 7:
            session.loadedValues().setLimit(below(2) == 0 ? 0 : std::int64_t{1} << 30);
            isDone = session.perform(MakeVariablesAvailable(chosen, some, {variable}));
            break;
        case 8:
            isDone = session.redo();
            break;
        default:
            isDone = session.undo();
        }
        performed += isDone ? 1 : 0;
        std::string const when = "round " + std::to_string(round);
        expectFreshRanges(*dataSet, when);
        expectFreshRanges(*other, when + ", other data set");
        if (HasFatalFailure()) {
            return;
        }
    }
    EXPECT_GT(performed, 200);
}

} // namespace veldraw::tests
