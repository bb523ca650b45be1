#include "tests/kernel/support/SampleData.h"
#include "tests/kernel/support/SampleLoader.h"

#include <gtest/gtest.h>
#include <set>

namespace veldraw::tests {

using namespace kernel;

TEST(ShareGroup, CountsTheFieldsOnIt)
{
    Field const first = sample::field({1, 2});
    EXPECT_EQ(first.shareCount(), 1);
    {
        Field const second = first;
        EXPECT_EQ(first.shareCount(), 2);
        EXPECT_EQ(second.shareCount(), 2);
    }
    EXPECT_EQ(first.shareCount(), 1);
}

TEST(ShareGroup, CountsNoBuffersThatOthersHold)
{
    Field const field = sample::field({1, 2});
    auto const held = field.group()->buffer();
    EXPECT_EQ(field.shareCount(), 1);
}

TEST(ShareGroup, IsWrittenInPlaceWhenNobodyElseHoldsTheBuffer)
{
    Field const field = sample::field({1, 2});
    void const* const before = field.group()->buffer()->data();
    field.group()->writableBuffer().setValue(0, 7);
    EXPECT_EQ(field.group()->buffer()->data(), before);
    EXPECT_EQ(field.group()->buffer()->value(0), 7);
}

TEST(ShareGroup, IsCopiedBeforeAWriteWhenTheBufferIsHeld)
{
    Field const field = sample::field({1, 2});
    auto const held = field.group()->buffer();
    field.group()->writableBuffer().setValue(0, 7);
    EXPECT_EQ(held->value(0), 1);
    EXPECT_EQ(field.group()->buffer()->value(0), 7);
    EXPECT_EQ(field.group()->buffer()->value(1), 2);
}

TEST(ShareGroup, WritesForAllItsFields)
{
    Field const first = sample::field({1, 2});
    Field const second = first;
    first.group()->writableBuffer().setValue(1, 9);
    EXPECT_EQ(second.group()->buffer()->value(1), 9);
}

TEST(ShareGroup, GivesABranchWhatIsExactlyKnownOfTheRangeAndNoMore)
{
    Field const field = sample::field({1, 2});
    field.group()->setKnownRange({ValueRange::State::Exact, 0, 9}); // to be told from a range that is computed
    EXPECT_EQ(field.group()->branch(field.group()->buffer()->clone())->range().max, 9);
    field.group()->setKnownRange({ValueRange::State::Estimated, 0, 9});
    EXPECT_EQ(field.group()->branch(field.group()->buffer()->clone())->range().max, 2);
    EXPECT_EQ(field.group()->range().max, 9);
}

TEST(ShareGroup, HasAStandInThatKnowsAsMuchAndHoldsNothingButTheMemory)
{
    auto const loader = std::make_shared<sample::Loader>(std::vector<double>{1, 2, 3});
    loader->mapped = true;
    loader->knownRange = {ValueRange::State::Estimated, 0, 9};
    Field const field = sample::Loader::field(loader);
    ShareGroup& group = *field.group();
    EXPECT_FALSE(group.standIn()->isLoaded());
    Progress progress;
    group.setLoaded(loader->load(progress));
    EXPECT_FALSE(group.standIn()->isLoaded()) << "can be loaded again";
    group.writeBits(1, Buffer::bitsOf(FieldDataType_Float, 12), {});
    auto const standIn = group.standIn();
    ASSERT_TRUE(standIn->isLoaded());
    EXPECT_EQ(standIn->buffer()->data(), group.buffer()->data());
    EXPECT_FALSE(group.isHeld());
    EXPECT_FALSE(standIn->canUnload()) << "altered";
    EXPECT_EQ(standIn->range().max, 12);
    standIn->writeBits(1, Buffer::bitsOf(FieldDataType_Float, 2), {});
    EXPECT_EQ(standIn->range().state, ValueRange::State::Estimated) << "mapped as before: not gone through";
}

TEST(ShareGroup, HasAnotherRevisionAfterEveryChangeOfValuesAndNeverAnOldOne)
{
    Field const field = sample::field({1, 2});
    ShareGroup& group = *field.group();
    std::set<UniqueId> revisions = {group.revision(), sample::field({1, 2}).group()->revision()};
    EXPECT_EQ(revisions.size(), 2U) << "equal values elsewhere are others";
    group.range();
    group.buffer();
    group.replaceByCopy(group.buffer()->clone());
    EXPECT_EQ(revisions.count(group.revision()), 1U) << "the values are the same";
    group.writableBuffer().setValue(0, 7);
    EXPECT_TRUE(revisions.insert(group.revision()).second);
    std::uint64_t const bits = group.buffer()->bits(1);
    group.writeBits(1, Buffer::bitsOf(group.type(), 9), {});
    EXPECT_TRUE(revisions.insert(group.revision()).second);
    group.writeBits(1, bits, {});
    EXPECT_TRUE(revisions.insert(group.revision()).second) << "also when it is taken back";
    group.setLoaded(group.buffer()->clone());
    EXPECT_TRUE(revisions.insert(group.revision()).second);
}

TEST(Field, WithoutAGroupIsPassiveAndAlone)
{
    Field const field(FieldDataType_Int16, ValueLocation_CellCentered);
    EXPECT_TRUE(field.isPassive());
    EXPECT_EQ(field.shareCount(), 1);
    EXPECT_EQ(field.type(), FieldDataType_Int16);
    EXPECT_EQ(field.location(), ValueLocation_CellCentered);
}

} // namespace veldraw::tests
