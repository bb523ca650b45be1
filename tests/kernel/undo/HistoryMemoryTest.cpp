// What the steps of the history hold in memory, counted for all that the user can do, taken back or not.
#include "kernel/operations/AddFrame.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/DuplicateZonesAxially.h"
#include "kernel/operations/MirrorZones.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/operations/RotateZones.h"
#include "kernel/operations/SetValue.h"
#include "tests/kernel/support/SessionFixture.h"
#include "tests/kernel/support/SpatialData.h"
#include "tests/support/AllocationFailure.h"

namespace veldraw::tests {

using namespace kernel;
using sample::aboutZ;
using sample::slanting;

namespace {

constexpr std::int64_t pointCount = 100000;
constexpr std::int64_t array = pointCount * 4;

/// One zone of floats X, Y, Z, U, V, W, P, each an array of its own.
class HistoryMemory : public SessionFixture
{
protected:
    HistoryMemory()
    {
        dataSet = sample::emptySpace();
        auto zone = std::make_shared<Zone>("zone", ZoneType_Ordered, pointCount, 1, 1);
        for (int variable = 0; variable < 7; ++variable) {
            zone->fields.emplace_back(std::make_shared<ShareGroup>(Buffer::allocate(FieldDataType_Float, pointCount)),
                                      ValueLocation_Nodal);
        }
        dataSet->addZone(zone);
        frame = sample::show(session, dataSet);
        recorder.take();
    }

    History const& history() const { return session.history(); }
    bool edit(int zone, std::int64_t index, double value)
    {
        return session.perform(SetValue(*dataSet, zone, 7, index, value, true));
    }

    /// The values that the last step holds as it stands, once it is taken back, and once it is done again.
    void expectValues(std::int64_t done, std::int64_t undone)
    {
        EXPECT_EQ(history().valueBytes(), done);
        ASSERT_TRUE(session.undo());
        EXPECT_EQ(history().valueBytes(), undone);
        ASSERT_TRUE(session.redo());
        EXPECT_EQ(history().valueBytes(), done);
    }
};

} // namespace

TEST_F(HistoryMemory, IsThatOfTheOldValuesAfterARotationAndThatOfTheNewOnesWhenItIsTakenBack)
{
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {1}, sample::inSpace, aboutZ, 30)));
    expectValues(4 * array, 4 * array);
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {1}, sample::inSpace, slanting, 30)));
    expectValues((4 + 6) * array, (4 + 6) * array);
}

TEST_F(HistoryMemory, IsThatOfNoValuesOnceARotationOfSharedValuesIsDone)
{
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {1})));
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {2}, sample::inSpace, aboutZ, 30)));
    expectValues(0, 4 * array);
}

TEST_F(HistoryMemory, IsThatOfTheRotatedArraysWhenAnAxialDuplicationIsTakenBack)
{
    AxialCopies const copies{30, 0, 11, true};
    ASSERT_TRUE(session.perform(DuplicateZonesAxially(*dataSet, {1}, sample::inSpace, aboutZ, copies)));
    expectValues(0, 11 * 4 * array);
}

TEST_F(HistoryMemory, IsThatOfTheMirroredArraysWhenAMirrorIsTakenBack)
{
    ASSERT_TRUE(session.perform(MirrorZones(frame->id, {1}, 'Y')));
    expectValues(0, 2 * array);
}

TEST_F(HistoryMemory, CountsOnceWhatSeveralMirrorsShare)
{
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {1, 1})));
    ASSERT_TRUE(session.perform(MirrorZones(frame->id, {1, 2}, 'Y')));
    expectValues(0, 2 * array);
}

TEST_F(HistoryMemory, IsThatOfNoValuesWhenZonesAreDuplicatedAsTheyAre)
{
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {1})));
    expectValues(0, 0);
}

TEST_F(HistoryMemory, IsThatOfDeletedVariablesWhileTheyAreDeleted)
{
    ASSERT_TRUE(session.perform(DeleteVariables(*dataSet, {5, 7})));
    expectValues(2 * array, 0);
}

TEST_F(HistoryMemory, IsThatOfAnEditedCopyWhenTheBranchIsTakenBack)
{
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {1})));
    ASSERT_TRUE(edit(2, 5, 1.5));
    expectValues(0, array);
}

TEST_F(HistoryMemory, IsThatOfADataSetWhoseLastFrameIsDeleted)
{
    ASSERT_TRUE(session.perform(DeleteFrame(frame->id)));
    expectValues(7 * array, 0);
}

TEST_F(HistoryMemory, IsThatOfNoDataSetThatAnotherFrameShows)
{
    auto const other = std::make_shared<Frame>("other", Rectangle{0, 0, 1, 1});
    other->dataSet = dataSet;
    ASSERT_TRUE(session.perform(AddFrame(other)));
    ASSERT_TRUE(session.perform(DeleteFrame(frame->id)));
    expectValues(0, 0);
}

TEST_F(HistoryMemory, EndsWithTheStepsThatWereTakenBack)
{
    ASSERT_TRUE(session.perform(MirrorZones(frame->id, {1}, 'Y')));
    ASSERT_TRUE(session.undo());
    ASSERT_TRUE(session.perform(RenameZone(*dataSet, 1, "keel")));
    EXPECT_EQ(history().valueBytes(), 0);
    session.history().clear();
    EXPECT_EQ(history().bytes(), 0);
}

TEST_F(HistoryMemory, StaysWithinTheLimit)
{
    session.history().setMemoryLimit(10 * array);
    for (int copy = 0; copy < 20; ++copy) {
        ASSERT_TRUE(session.perform(RotateZones(*dataSet, {1}, sample::inSpace, aboutZ, 30)));
        EXPECT_LE(history().bytes(), 10 * array);
        EXPECT_TRUE(history().canUndo());
    }
    ASSERT_TRUE(session.perform(DuplicateZonesAxially(*dataSet, {1}, sample::inSpace, aboutZ, {30, 0, 11, true})));
    ASSERT_TRUE(session.undo());
    EXPECT_LE(history().bytes(), 10 * array) << "eleven rotated copies are too much to keep";
    EXPECT_FALSE(history().canRedo());
}

TEST_F(HistoryMemory, OfSingleEditsIsWhatTheyTake)
{
    constexpr int edits = 20000;
    edit(1, 0, 0.5);
    std::int64_t const taken = allocatedBytes();
    std::int64_t const counted = history().bytes();
    for (int number = 1; number <= edits; ++number) {
        edit(1, number, 0.5);
    }
    double const real = static_cast<double>(allocatedBytes() - taken) / edits;
    double const told = static_cast<double>(history().bytes() - counted) / edits;
    EXPECT_EQ(history().valueBytes(), 0);
    EXPECT_GT(told, real);
    EXPECT_LT(told, 2 * real);
}

TEST_F(HistoryMemory, OfEditsOfManyZonesThatShareCountsTheListsOfThese)
{
    for (int round = 0; round < 9; ++round) {
        ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, dataSet->enabledZones())));
    }
    ASSERT_EQ(dataSet->zoneCount(), 512);
    recorder.take();
    std::int64_t const taken = allocatedBytes();
    std::int64_t const counted = history().bytes();
    ASSERT_TRUE(session.perform(SetValue(*dataSet, 1, 7, 5, 1.5, false)));
    recorder.take();
    std::int64_t const real = allocatedBytes() - taken;
    EXPECT_GT(history().bytes() - counted, 8 * real / 10);
    EXPECT_LT(history().bytes() - counted, 2 * real);
}

TEST_F(HistoryMemory, OfZonesThatAreTakenBackCountsTheZones)
{
    std::int64_t const taken = allocatedBytes();
    for (int round = 0; round < 9; ++round) {
        ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, dataSet->enabledZones())));
    }
    while (session.undo()) {
    }
    std::int64_t const real = allocatedBytes() - taken;
    EXPECT_GT(history().bytes(), real / 2);
    EXPECT_LT(history().bytes(), 2 * real);
}

TEST_F(HistoryMemory, OfDeletionsInManyZonesCountsTheirLists)
{
    for (int round = 0; round < 9; ++round) {
        ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, dataSet->enabledZones())));
    }
    std::int64_t const taken = allocatedBytes();
    std::int64_t const counted = history().bytes();
    ASSERT_TRUE(session.perform(DeleteVariables(*dataSet, {7})));
    std::int64_t const real = allocatedBytes() - taken;
    EXPECT_GT(history().bytes() - counted, real / 2);
    EXPECT_LT(history().bytes() - counted, 2 * real + array);
}

TEST_F(HistoryMemory, OfADeletionAmongThousandsOfVariablesCountsTheirList)
{
    auto const set = std::make_shared<DataSet>();
    for (int number = 1; number <= 5000; ++number) {
        set->addVariable(std::make_shared<Variable>("V" + std::to_string(number)));
    }
    sample::show(session, set);
    std::int64_t const taken = allocatedBytes();
    std::int64_t const counted = history().bytes();
    ASSERT_TRUE(session.perform(DeleteVariables(*set, {7}))) << session.lastError();
    std::int64_t const real = allocatedBytes() - taken;
    EXPECT_GT(history().bytes() - counted, real / 2);
    EXPECT_LT(history().bytes() - counted, 2 * real);
}

} // namespace veldraw::tests
