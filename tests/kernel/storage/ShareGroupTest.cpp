#include "tests/kernel/support/SampleData.h"
#include "tests/kernel/support/SampleLoader.h"
#include "tests/support/WriteValue.h"

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

TEST(ShareGroup, WritesForAllItsFields)
{
    Field const first = sample::field({1, 2});
    Field const second = first;
    writeValue(*first.group(), 1, 9);
    EXPECT_EQ(second.group()->buffer()->value(1), 9);
}

TEST(ShareGroup, GivesABranchWhatIsExactlyKnownOfTheRangeAndNoMore)
{
    for (auto const state : {ValueRange::State::Exact, ValueRange::State::Estimated}) {
        auto const loader = std::make_shared<sample::Loader>(std::vector<double>{1, 2});
        loader->mapped = true;
        loader->knownRange = {state, 0, 9}; // to be told from a range that is computed
        Field const field = sample::Loader::field(loader);
        Progress progress;
        field.group()->setLoaded(loader->load(progress));
        EXPECT_EQ(field.group()->range().max, 9);
        bool const isExact = state == ValueRange::State::Exact;
        EXPECT_EQ(field.group()->branch(field.group()->buffer()->clone())->range().max, isExact ? 9 : 2);
    }
}

TEST(ShareGroup, MakesAReserveThatKnowsAsMuchAndHoldsNothingButTheMemory)
{
    auto const loader = std::make_shared<sample::Loader>(std::vector<double>{1, 2, 3});
    loader->mapped = true;
    loader->knownRange = {ValueRange::State::Estimated, 0, 9};
    Field const field = sample::Loader::field(loader);
    ShareGroup& group = *field.group();
    EXPECT_FALSE(group.makeReserve()->isLoaded());
    Progress progress;
    group.setLoaded(loader->load(progress));
    EXPECT_FALSE(group.makeReserve()->isLoaded()) << "can be loaded again";
    group.writeBits(1, Buffer::bitsOf(FieldDataType_Float, 12), {});
    auto const reserve = group.makeReserve();
    ASSERT_TRUE(reserve->isLoaded());
    EXPECT_EQ(reserve->buffer()->data(), group.buffer()->data());
    EXPECT_FALSE(group.isHeld());
    EXPECT_FALSE(reserve->canUnload()) << "altered";
    EXPECT_EQ(reserve->range().max, 12);
    reserve->writeBits(1, Buffer::bitsOf(FieldDataType_Float, 2), {});
    EXPECT_EQ(reserve->range().state, ValueRange::State::Estimated) << "mapped as before: not gone through";
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
    writeValue(group, 0, 7);
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
