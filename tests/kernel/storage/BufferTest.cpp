#include "kernel/storage/Buffer.h"

#include "tests/support/SpecialNumbers.h"

#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <new>

namespace veldraw::tests {

using namespace kernel;

namespace {

constexpr FieldDataType_e everyType[] = {FieldDataType_Float, FieldDataType_Double, FieldDataType_Int32,
                                         FieldDataType_Int16, FieldDataType_Byte,   FieldDataType_Bit};

class BufferOfType : public testing::TestWithParam<FieldDataType_e>
{
};

double pattern(FieldDataType_e type, std::int64_t index)
{
    return static_cast<double>(type == FieldDataType_Bit ? index % 3 == 0 : index % 100);
}

} // namespace

INSTANTIATE_TEST_SUITE_P(All, BufferOfType, testing::ValuesIn(everyType));

TEST_P(BufferOfType, StartsWithZeros)
{
    auto const buffer = Buffer::allocate(GetParam(), 100);
    for (std::int64_t index = 0; index < 100; ++index) {
        EXPECT_EQ(buffer->value(index), 0.0);
    }
}

TEST_P(BufferOfType, GivesBackWhatWasStored)
{
    auto const buffer = Buffer::allocate(GetParam(), 101);
    for (std::int64_t index = 0; index < 101; ++index) {
        buffer->setValue(index, pattern(GetParam(), index));
    }
    for (std::int64_t index = 0; index < 101; ++index) {
        EXPECT_EQ(buffer->value(index), pattern(GetParam(), index)) << index;
    }
}

TEST_P(BufferOfType, IsCopiedToAContiguousOne)
{
    std::int64_t const count = 1000;
    auto const memory = Buffer::allocate(GetParam(), count * 3);
    std::int64_t const stride = GetParam() == FieldDataType_Bit ? 1 : 3;
    auto const every = Buffer::adopt(GetParam(), count, memory->mutableData(), stride, memory->owner());
    for (std::int64_t index = 0; index < count; ++index) {
        every->setValue(index, pattern(GetParam(), index));
    }
    auto const copy = every->clone();
    EXPECT_TRUE(copy->isContiguous());
    EXPECT_NE(copy->data(), every->data());
    ASSERT_EQ(copy->size(), count);
    for (std::int64_t index = 0; index < count; ++index) {
        ASSERT_EQ(copy->value(index), pattern(GetParam(), index)) << index;
    }
}

TEST_P(BufferOfType, MayBeEmpty)
{
    auto const buffer = Buffer::allocate(GetParam(), 0);
    EXPECT_EQ(buffer->size(), 0);
    EXPECT_EQ(buffer->bytes(), 0);
    EXPECT_EQ(buffer->clone()->size(), 0);
}

TEST_P(BufferOfType, IsAlignedForVectorUnits)
{
    auto const small = Buffer::allocate(GetParam(), 3);
    auto const large = Buffer::allocate(GetParam(), 100000000);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(small->data()) % 64, 0U);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(large->data()) % 64, 0U);
    large->setValue(99999999, 1.0);
    EXPECT_EQ(large->value(99999999), 1.0);
    EXPECT_EQ(large->value(99999998), 0.0);
}

TEST_P(BufferOfType, WithANegativeSizeIsRefused)
{
    EXPECT_THROW(Buffer::allocate(GetParam(), -1), std::bad_alloc);
}

TEST_P(BufferOfType, BeyondAllMemoryIsRefused)
{
    EXPECT_THROW(Buffer::allocate(GetParam(), std::numeric_limits<std::int64_t>::max() / 17), std::bad_alloc);
    EXPECT_THROW(Buffer::allocate(GetParam(), std::numeric_limits<std::int64_t>::max()), std::bad_alloc);
}

TEST(Buffer, KeepsTheLastBitOfAnOddLength)
{
    auto const buffer = Buffer::allocate(FieldDataType_Bit, 9);
    buffer->setValue(8, 1.0);
    EXPECT_EQ(buffer->bytes(), 2);
    EXPECT_EQ(buffer->value(8), 1.0);
    EXPECT_EQ(buffer->clone()->value(8), 1.0);
}

TEST(Buffer, PutsTheFirstBitInTheHighestOfItsByte)
{
    auto const buffer = Buffer::allocate(FieldDataType_Bit, 16);
    buffer->setValue(0, 1.0);
    buffer->setValue(15, -2.5);
    auto const* const bytes = static_cast<unsigned char const*>(buffer->data());
    EXPECT_EQ(bytes[0], 0x80);
    EXPECT_EQ(bytes[1], 0x01);
    buffer->setValue(0, 0.0);
    EXPECT_EQ(bytes[0], 0x00);
}

TEST(Buffer, RoundsToTheNearestInteger)
{
    auto const buffer = Buffer::allocate(FieldDataType_Int32, 4);
    buffer->setValue(0, 1.4);
    buffer->setValue(1, 1.5);
    buffer->setValue(2, -1.5);
    buffer->setValue(3, -0.4);
    EXPECT_EQ(buffer->value(0), 1.0);
    EXPECT_EQ(buffer->value(1), 2.0);
    EXPECT_EQ(buffer->value(2), -2.0);
    EXPECT_EQ(buffer->value(3), 0.0);
}

TEST(Buffer, CutsAtTheLimitsOfTheIntegerTypes)
{
    auto const expectLimits = [&](FieldDataType_e type, double lowest, double highest) {
        auto const buffer = Buffer::allocate(type, 4);
        buffer->setValue(0, -1e30);
        buffer->setValue(1, 1e30);
        buffer->setValue(2, -infinity);
        buffer->setValue(3, infinity);
        EXPECT_EQ(buffer->value(0), lowest);
        EXPECT_EQ(buffer->value(1), highest);
        EXPECT_EQ(buffer->value(2), lowest);
        EXPECT_EQ(buffer->value(3), highest);
    };
    expectLimits(FieldDataType_Int32, -2147483648.0, 2147483647.0);
    expectLimits(FieldDataType_Int16, -32768.0, 32767.0);
    expectLimits(FieldDataType_Byte, 0.0, 255.0);
}

TEST(Buffer, TurnsNotANumberIntoZeroWhereThereIsNone)
{
    for (FieldDataType_e const type :
         {FieldDataType_Int32, FieldDataType_Int16, FieldDataType_Byte, FieldDataType_Bit}) {
        auto const buffer = Buffer::allocate(type, 1);
        buffer->setValue(0, 1.0);
        buffer->setValue(0, notANumber);
        EXPECT_EQ(buffer->value(0), 0.0);
    }
    auto const floats = Buffer::allocate(FieldDataType_Float, 1);
    floats->setValue(0, notANumber);
    EXPECT_TRUE(std::isnan(floats->value(0)));
}

TEST(Buffer, ReadsEveryThirdValueOfAnInterleavedArray)
{
    auto const values = std::make_shared<std::array<float, 9>>(std::array<float, 9>{0, 1, 2, 3, 4, 5, 6, 7, 8});
    auto const y = Buffer::adopt(FieldDataType_Float, 3, values->data() + 1, 3, values);
    EXPECT_FALSE(y->isContiguous());
    EXPECT_EQ(y->value(0), 1.0);
    EXPECT_EQ(y->value(2), 7.0);
    EXPECT_EQ(y->bytes(), 12);
    y->setValue(1, 40.0);
    EXPECT_EQ((*values)[4], 40.0F);
}

TEST(Buffer, KeepsAdoptedMemoryAliveExactlyAsLongAsItself)
{
    auto values = std::make_shared<std::array<double, 2>>();
    std::weak_ptr<void> const memory = values;
    auto buffer = Buffer::adopt(FieldDataType_Double, 2, values->data(), 1, values);
    values.reset();
    EXPECT_FALSE(memory.expired());
    buffer.reset();
    EXPECT_TRUE(memory.expired());
}

TEST(Buffer, AdoptedFromNowhereIsEmpty)
{
    EXPECT_EQ(Buffer::adopt(FieldDataType_Float, 5, nullptr, 1, nullptr)->size(), 0);
    float value = 1.0F;
    EXPECT_EQ(Buffer::adopt(FieldDataType_Float, -5, &value, 1, nullptr)->size(), 0);
    EXPECT_EQ(Buffer::adopt(FieldDataType_Float, 1, &value, 0, nullptr)->stride(), 1);
}

} // namespace veldraw::tests
