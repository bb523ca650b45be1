#include "SampleData.h"

#include <gtest/gtest.h>

using namespace veldraw::kernel;

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

TEST(ShareGroup, ForgetsItsRangeWhenTheBufferIsReplaced)
{
    Field const field = sample::field({1, 2});
    EXPECT_EQ(field.group()->range().max, 2);
    field.group()->replaceBuffer(Buffer::allocate(FieldDataType_Byte, 3));
    EXPECT_EQ(field.group()->range().max, 0);
    EXPECT_EQ(field.type(), FieldDataType_Byte);
}

TEST(ShareGroup, BranchesWithoutACopyUntilOneOfTheTwoIsWritten)
{
    Field const field = sample::field({1, 2});
    EXPECT_EQ(field.group()->range().min, 1);
    Field const branch(field.group()->branch(), ValueLocation_Nodal);
    EXPECT_EQ(branch.group()->buffer(), field.group()->buffer());
    EXPECT_EQ(branch.shareCount(), 1);
    EXPECT_EQ(branch.group()->range().min, 1);
    branch.group()->writableBuffer().setValue(0, 5);
    EXPECT_EQ(field.group()->buffer()->value(0), 1);
    EXPECT_EQ(branch.group()->buffer()->value(0), 5);
}

TEST(Field, WithoutAGroupIsPassiveAndAlone)
{
    Field const field(FieldDataType_Int16, ValueLocation_CellCentered);
    EXPECT_TRUE(field.isPassive());
    EXPECT_EQ(field.shareCount(), 1);
    EXPECT_EQ(field.type(), FieldDataType_Int16);
    EXPECT_EQ(field.location(), ValueLocation_CellCentered);
}
