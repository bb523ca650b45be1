#include "kernel/storage/ValueType.h"

#include "kernel/storage/Buffer.h"
#include "tests/support/SpecialNumbers.h"

#include <cmath>
#include <gtest/gtest.h>

namespace veldraw::tests {

using namespace kernel;

namespace {

constexpr FieldDataType_e types[] = {FieldDataType_Float, FieldDataType_Double, FieldDataType_Int32,
                                     FieldDataType_Int16, FieldDataType_Byte,   FieldDataType_Bit};

/// What a buffer gives back of a value.
double stored(FieldDataType_e type, double value)
{
    auto const buffer = Buffer::allocate(type, 1);
    buffer->setValue(0, value);
    return buffer->value(0);
}

bool holds(FieldDataType_e type, double value)
{
    return !(stored(type, value) < value) && !(stored(type, value) > value);
}

/// Whether a type holds the limits of another one, and the whole number that is next to the largest.
bool holdsAllOf(FieldDataType_e type, FieldDataType_e other)
{
    double const largest = largestOf(other);
    return holds(type, largest) && holds(type, leastOf(other)) && holds(type, largest - 1) &&
           (isOfWholeNumbers(other) || holds(type, stored(other, 0.1)));
}

} // namespace

TEST(ValueType, HoldsItsLimits)
{
    for (FieldDataType_e const type : types) {
        EXPECT_TRUE(holds(type, leastOf(type))) << type;
        EXPECT_TRUE(holds(type, largestOf(type))) << type;
    }
}

TEST(ValueType, HoldsNothingBeyondItsLimits)
{
    EXPECT_EQ(leastOf(FieldDataType_Int32), -2147483648.0);
    EXPECT_EQ(largestOf(FieldDataType_Int32), 2147483647.0);
    EXPECT_EQ(leastOf(FieldDataType_Int16), -32768.0);
    EXPECT_EQ(largestOf(FieldDataType_Int16), 32767.0);
    EXPECT_EQ(leastOf(FieldDataType_Byte), 0.0);
    EXPECT_EQ(largestOf(FieldDataType_Byte), 255.0);
    EXPECT_EQ(leastOf(FieldDataType_Bit), 0.0);
    EXPECT_EQ(largestOf(FieldDataType_Bit), 1.0);
    EXPECT_TRUE(std::isinf(static_cast<float>(2 * largestOf(FieldDataType_Float))));
    EXPECT_TRUE(std::isinf(static_cast<float>(2 * leastOf(FieldDataType_Float))));
    EXPECT_EQ(std::nextafter(largestOf(FieldDataType_Double), infinity), infinity);
    EXPECT_EQ(std::nextafter(leastOf(FieldDataType_Double), -infinity), -infinity);
}

TEST(ValueType, IsOfWholeNumbersWhereAHalfIsLost)
{
    for (FieldDataType_e const type : types) {
        EXPECT_EQ(isOfWholeNumbers(type), !holds(type, 0.5)) << type;
    }
}

TEST(ValueType, CommonToTwoHoldsBothAndIsTheNarrowestOfThose)
{
    for (FieldDataType_e const a : types) {
        for (FieldDataType_e const b : types) {
            FieldDataType_e const common = commonType(a, b);
            EXPECT_EQ(common, commonType(b, a));
            EXPECT_TRUE(holdsAllOf(common, a) && holdsAllOf(common, b)) << a << ' ' << b;
            for (FieldDataType_e const other : types) {
                bool const isNarrower = Buffer::bytesOf(other, 64) < Buffer::bytesOf(common, 64);
                EXPECT_FALSE(isNarrower && holdsAllOf(other, a) && holdsAllOf(other, b)) << a << ' ' << b;
            }
        }
    }
}

} // namespace veldraw::tests
