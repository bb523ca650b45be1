#include "dialogs/property/BoundedValueValidator.h"
#include "dialogs/property/Property.h"
#include "tests/dialogs/property/AllocationCounter.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>
#include <string>

namespace veldraw::tests {
namespace {

std::size_t allocationsOfSetting(Property<int>& property, int value)
{
    std::size_t const before = allocationCount();
    property.setValue(value);
    return allocationCount() - before;
}

TEST(PropertyMemory, IsCountedByThisTest)
{
    std::size_t const before = allocationCount();
    std::string const text(1000, 'x');
    EXPECT_EQ(allocationCount() - before, 1u) << text.size();
}

TEST(PropertyMemory, IsNotAllocatedBySettingAValue)
{
    using Bounds = BoundedValueValidator<int>;
    Property<int> property(0, boost::make_shared<Bounds>(0, 100, Bounds::LowerInclusive, Bounds::UpperInclusive));
    int heard = 0;
    EXPECT_EQ(allocationsOfSetting(property, 1), 0u);
    property.connectValueChanged([&](int v) { heard += v; });
    EXPECT_EQ(allocationsOfSetting(property, 2), 0u);
    property.connectPropertyChanged([&] { ++heard; });
    property.connectValueChanged([&](int v) { heard += v; });
    EXPECT_EQ(allocationsOfSetting(property, 3), 0u);
    EXPECT_EQ(heard, 2 + 3 + 1 + 3);
}

} // namespace
} // namespace veldraw::tests
