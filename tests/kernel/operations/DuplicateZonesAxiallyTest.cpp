#include "kernel/operations/DuplicateZonesAxially.h"

#include "kernel/base/SystemMemory.h"
#include "kernel/data/TimeStrands.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/RotateZones.h"
#include "platform/vdsdkbase/VelUtil.h"
#include "tests/kernel/support/SpatialFixture.h"
#include "tests/support/SpecialNumbers.h"
#include "tests/support/WriteValue.h"

#include <climits>
#include <cmath>
#include <set>

namespace veldraw::tests {

using namespace kernel;
using sample::aboutZ;
using sample::inPlane;
using sample::inSpace;
using sample::noVector;
using sample::slanting;
using sample::values;
using testing::ElementsAre;

namespace {

class DuplicateAxially : public SpatialFixture
{
protected:
    bool duplicate(NumberSet const& zones, AxialCopies const& copies, RotationAxis const& axis = aboutZ)
    {
        return session.perform(DuplicateZonesAxially(*dataSet, zones, inSpace, axis, copies));
    }

    /// Storage of all fields, each counted once.
    std::int64_t bytesHeld() const
    {
        std::set<ShareGroup const*> groups;
        std::int64_t bytes = 0;
        for (auto const& zone : dataSet->zones()) {
            for (Field const& each : zone->fields) {
                bool const isNew = !each.isPassive() && groups.insert(each.group().get()).second;
                bytes += isNew ? each.group()->buffer()->bytes() : 0;
            }
        }
        return bytes;
    }
};

} // namespace

TEST_F(DuplicateAxially, PutsCopiesAtOffsetPlusMultiplesOfTheAngle)
{
    ASSERT_TRUE(duplicate({1}, {20, 50, 2, true}));
    ASSERT_EQ(dataSet->zoneCount(), 3);
    session.perform(DuplicateZones(*dataSet, {1, 1}));
    session.perform(DuplicateZones(*dataSet, {1}));
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {4}, inSpace, aboutZ, 70)));
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {5}, inSpace, aboutZ, 90)));
    for (int variable = 1; variable <= 7; ++variable) {
        EXPECT_EQ(values(*dataSet, 2, variable), values(*dataSet, 4, variable)) << variable;
        EXPECT_EQ(values(*dataSet, 3, variable), values(*dataSet, 5, variable)) << variable;
    }
}

TEST_F(DuplicateAxially, AppendsRoundByRound)
{
    sample::addOrdered(*dataSet, 2, 2, 2)->name = "second";
    ASSERT_TRUE(duplicate({1, 2}, {90, 0, 2, true}));
    std::vector<std::string> names;
    for (auto const& zone : dataSet->zones()) {
        names.push_back(zone->name);
    }
    EXPECT_THAT(names, ElementsAre("ordered", "second", "ordered", "second", "ordered", "second"));
    EXPECT_THAT(recorder.take(), ElementsAre("4 zones 3 4 5 6"));
}

TEST_F(DuplicateAxially, IsOneStepThatIsTakenBackAndDoneAgain)
{
    std::string const before = withoutHistory();
    ASSERT_TRUE(duplicate({1}, {30, 0, 3, true}, slanting));
    EXPECT_EQ(session.history().undoName(), "Axial Duplication");
    for (int round = 0; round < 3; ++round) {
        expectUndoAndRedo(before, {"5 zones 2 3 4"}, {"4 zones 2 3 4"});
    }
}

TEST_F(DuplicateAxially, HoldsTwelveTimesTheChangedArraysAndNothingMore)
{
    std::int64_t const array = 12 * 8;
    EXPECT_EQ(bytesHeld(), 7 * array);
    ASSERT_TRUE(duplicate({1}, {30, 0, 11, true}));
    EXPECT_EQ(bytesHeld(), 12 * 4 * array + 3 * array) << "X, Y, U, V are rotated; Z, W, P are not";
    EXPECT_EQ(field(1, 3).shareCount(), 12);
    EXPECT_EQ(field(1, 7).shareCount(), 12);
    EXPECT_EQ(field(1, 1).shareCount(), 1);
    EXPECT_EQ(session.history().valueBytes(), 0);
    session.undo();
    EXPECT_EQ(bytesHeld(), 7 * array);
    EXPECT_EQ(field(1, 7).shareCount(), 1);
    session.redo();
    ASSERT_TRUE(session.undo());
    ASSERT_TRUE(duplicate({1}, {30, 0, 11, true}, slanting));
    EXPECT_EQ(bytesHeld(), 12 * 6 * array + array);
}

TEST_F(DuplicateAxially, SharesAllWithTheSourceAfterAFullCircle)
{
    ASSERT_TRUE(duplicate({1}, {360, 0, 1, true}));
    EXPECT_EQ(field(2, 1).group(), field(1, 1).group());
    EXPECT_EQ(field(2, 4).group(), field(1, 4).group());
    ASSERT_TRUE(duplicate({1}, {30, -30, 2, true}));
    EXPECT_EQ(field(3, 1).group(), field(1, 1).group());
    EXPECT_NE(field(4, 1).group(), field(1, 1).group());
}

TEST_F(DuplicateAxially, SharesAmongTheCopiesOfARoundWhatTheSourcesShare)
{
    session.perform(DuplicateZones(*dataSet, {1}));
    ASSERT_TRUE(duplicate({1, 2}, {30, 0, 2, true}));
    EXPECT_EQ(field(3, 1).group(), field(4, 1).group());
    EXPECT_EQ(field(5, 1).group(), field(6, 1).group());
    EXPECT_NE(field(3, 1).group(), field(5, 1).group());
    EXPECT_EQ(field(3, 1).shareCount(), 2);
}

TEST_F(DuplicateAxially, ClosesARingOfSectorsAtItsSeam)
{
    for (int const sectors : {3, 7, 12, 36, 360}) {
        session.clear();
        dataSet = sample::emptySpace();
        auto const zone = sample::addOrdered(*dataSet, 4, 2, 3);
        double const angle = 360.0 / sectors;
        for (std::int64_t point = 0; point < 24; ++point) { // two radial planes, one angle apart
            double const radius = 1.0 + static_cast<double>(point % 4);
            double const radians = point / 4 % 2 == 0 ? 0.0 : angle * std::acos(-1.0) / 180;
            writeValue(*zone->fields[0].group(), point, radius * std::cos(radians));
            writeValue(*zone->fields[1].group(), point, radius * std::sin(radians));
        }
        sample::show(session, dataSet);
        ASSERT_TRUE(duplicate({1}, {angle, 0, sectors - 1, true}));
        for (int sector = 1; sector <= sectors; ++sector) {
            int const next = sector % sectors + 1;
            for (int variable = 1; variable <= 2; ++variable) {
                auto const end = values(*dataSet, sector, variable);
                auto const begin = values(*dataSet, next, variable);
                for (std::size_t point = 0; point < 24; ++point) {
                    if (point / 4 % 2 == 1) {
                        EXPECT_NEAR(end[point], begin[point - 4], 4e-12) << sectors << " sectors, seam " << sector;
                    }
                }
            }
        }
    }
}

TEST_F(DuplicateAxially, PutsCopiesIntoTheStrandOfTheirSource)
{
    dataSet->zone(1)->strand = 4;
    dataSet->zone(1)->solutionTime = 2.5;
    ASSERT_TRUE(duplicate({1}, {30, 0, 2, true}));
    EXPECT_EQ(dataSet->zone(3)->strand, 4);
    EXPECT_EQ(dataSet->zone(3)->solutionTime, 2.5);
}

TEST_F(DuplicateAxially, MakesAStrandForEachStrandAndRound)
{
    sample::addOrdered(*dataSet, 2, 2, 2);
    sample::addOrdered(*dataSet, 2, 2, 2);
    sample::addOrdered(*dataSet, 2, 2, 2);
    int const strands[] = {4, 4, 9, staticStrand};
    for (int zone = 1; zone <= 4; ++zone) {
        dataSet->zone(zone)->strand = strands[zone - 1];
        dataSet->zone(zone)->solutionTime = zone;
    }
    ASSERT_TRUE(duplicate({1, 2, 3, 4}, {30, 0, 2, false}));
    std::vector<int> copies;
    for (int zone = 5; zone <= 12; ++zone) {
        copies.push_back(dataSet->zone(zone)->strand);
        EXPECT_EQ(dataSet->zone(zone)->solutionTime, (zone - 1) % 4 + 1);
    }
    EXPECT_THAT(copies, ElementsAre(10, 10, 11, staticStrand, 12, 12, 13, staticStrand));
}

TEST_F(DuplicateAxially, FindsFreeStrandNumbersBelowTheHighest)
{
    dataSet->zone(1)->strand = staticStrand - 1;
    StrandNumbers numbers(*dataSet);
    EXPECT_EQ(numbers.next(), 1);
    EXPECT_EQ(numbers.next(), 2);
}

TEST_F(DuplicateAxially, RotatesInThePlane)
{
    ASSERT_TRUE(session.perform(DuplicateZonesAxially(*dataSet, {1}, inPlane, aboutZ, {90, 0, 1, true})));
    EXPECT_EQ(values(*dataSet, 2, 2), values(*dataSet, 1, 1));
    EXPECT_EQ(field(2, 6).group(), field(1, 6).group());
}

TEST_F(DuplicateAxially, RefusesWhatDoesNotFit)
{
    auto const refused = [&](NumberSet const& zones, AxialCopies const& copies, RotationAxis const& axis = aboutZ) {
        expectRefused([&] { return duplicate(zones, copies, axis); });
    };
    refused({}, {30, 0, 1, true});
    refused({2}, {30, 0, 1, true});
    refused({1}, {30, 0, 0, true});
    refused({1}, {30, 0, -5, true});
    refused({1}, {notANumber, 0, 1, true});
    refused({1}, {30, infinity, 1, true});
    refused({1}, {30, 0, INT_MAX, true});
    EXPECT_EQ(session.lastError(), "There would be too many zones.");
    refused({1}, {30, 0, 1, true}, {{}, {0, 0, 0}});
    expectRefused([&] {
        return session.perform(
            DuplicateZonesAxially(*dataSet, {1}, {{1, 1, 3}, {}, true, false}, aboutZ, {30, 0, 1, true}));
    });
    session.setLock(*dataSet, "somebody");
    recorder.take();
    refused({1}, {30, 0, 1, true});
}

TEST(SystemMemory, IsRefusedAboveWhatThereWas)
{
    EXPECT_NO_THROW(requireMemory(1, 1));
    EXPECT_THROW(requireMemory(2, 1), std::bad_alloc);
    EXPECT_GT(availableMemory(), 0);
    EXPECT_NO_THROW(requireMemory(1));
    EXPECT_THROW(requireMemory(1e18), std::bad_alloc);
}

TEST_F(DuplicateAxially, RefusesAtOnceWhatTheMachineCannotHold)
{
    expectRefused([&] { return duplicate({1}, {30, 0, 999999999, true}); });
    EXPECT_EQ(session.lastError(), "Out of memory.");
}

TEST(DataAxialDuplicate, RotatesCopiesOfTheDataSet)
{
    Session& session = Session::instance();
    auto const dataSet = sample::emptySpace();
    sample::addOrdered(*dataSet, 2, 2, 2);
    sample::show(session, dataSet);
    Set_s zones{{1}};
    int const xyz[3] = {1, 2, 3};
    int const uvw[3] = {4, 5, 6};
    double const origin[3] = {0, 0, 0};
    double const axis[3] = {0, 0, 2};
    auto const duplicate = [&](long long id, Set_s* set, double const* direction) {
        return VelUtilDataAxialDuplicate(id, set, xyz, true, &uvw[0], &uvw[1], &uvw[2], true, 35.0, 20.0, 2, origin,
                                         direction, false);
    };
    dataSet->zone(1)->strand = 4;
    ASSERT_TRUE(duplicate(dataSet->id(), &zones, axis));
    ASSERT_EQ(dataSet->zoneCount(), 3);
    EXPECT_EQ(values(*dataSet, 3, 2), values(*dataSet, 1, 1)) << "at 20 + 2 * 35 degrees";
    EXPECT_EQ(values(*dataSet, 3, 5), values(*dataSet, 1, 4));
    EXPECT_EQ(dataSet->zone(2)->strand, 5);
    EXPECT_EQ(dataSet->zone(3)->strand, 6);
    EXPECT_FALSE(duplicate(dataSet->id(), nullptr, axis));
    EXPECT_FALSE(duplicate(dataSet->id(), &zones, nullptr));
    for (int const missing : {0, 1, 2}) {
        EXPECT_FALSE(VelUtilDataAxialDuplicate(dataSet->id(), &zones, missing == 0 ? nullptr : xyz, true,
                                               missing == 1 ? nullptr : &uvw[0], &uvw[1], &uvw[2], true, 45.0, 45.0, 2,
                                               missing == 2 ? nullptr : origin, axis, false));
        EXPECT_EQ(session.lastError(), "An argument is missing.") << missing;
    }
    EXPECT_FALSE(duplicate(dataSet->id() + 1000, &zones, axis));
    EXPECT_EQ(session.lastError(), "There is no such data set.");
    EXPECT_EQ(dataSet->zoneCount(), 3);
    session.clear();
}

} // namespace veldraw::tests
