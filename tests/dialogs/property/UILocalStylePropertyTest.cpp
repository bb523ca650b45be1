#include "dialogs/property/UILocalStyleProperty.h"

#include "dialogs/property/BooleanPropertyDependentRelevance.h"
#include "dialogs/property/BoundedValueValidator.h"
#include "dialogs/property/Property.h"
#include "platform/exception/InvalidPropertyValueException.h"

#include <boost/make_shared.hpp>

#include <gmock/gmock.h>
#include <vector>

namespace veldraw::tests {

using sdk::ui::propertymanager::BooleanPropertyDependentRelevance;
using sdk::ui::propertymanager::UILocalStyleProperty;
using sdk::ui::propertymanager::UIPropertyInterface;
using testing::ElementsAre;

TEST(UILocalStyleProperty, HoldsAValue)
{
    UILocalStyleProperty<int> property;
    std::vector<int> heard;
    property.connectValueChanged([&heard](int value) { heard.push_back(value); });
    EXPECT_EQ(property.value(), 0);
    property.setValue(4);
    property.setValue(4);
    EXPECT_EQ(property.value(), 4);
    EXPECT_THAT(heard, ElementsAre(4));
}

TEST(UILocalStyleProperty, StartsWithItsInitialValueAndChecksLaterOnes)
{
    using Limits = BoundedValueValidator<double>;
    UILocalStyleProperty<double> property(
        7.0, boost::make_shared<Limits>(0.0, 1.0, Limits::LowerInclusive, Limits::UpperInclusive));
    EXPECT_EQ(property.value(), 7.0);
    EXPECT_THROW(property.setValue(2.0), InvalidPropertyValueException);
    EXPECT_EQ(property.value(), 7.0);
    EXPECT_EQ(UILocalStyleProperty<std::string>("text").value(), "text");
    EXPECT_EQ(UILocalStyleProperty<std::set<int>>(std::set<int>{1, 2}).value(), (std::set<int>{1, 2}));
    EXPECT_EQ(UILocalStyleProperty<bool>().value(), false);
    EXPECT_EQ(UILocalStyleProperty<AuxDataLocation_e>(AuxDataLocation_Frame).value(), AuxDataLocation_Frame);
    EXPECT_EQ(UILocalStyleProperty<VarStatus_e>().value(), VarStatus_NotLoaded);
}

TEST(UILocalStyleProperty, IsVisibleAndSensitiveAtFirst)
{
    UILocalStyleProperty<int> const property;
    EXPECT_TRUE(property.isVisible());
    EXPECT_TRUE(property.isSensitive());
}

TEST(UILocalStyleProperty, TellsChangesOfItsStateByItsOwnSignals)
{
    UILocalStyleProperty<int> property;
    UIPropertyInterface& state = property;
    int visibilityChanges = 0, sensitivityChanges = 0;
    state.connectVisibilityChanged([&visibilityChanges] { ++visibilityChanges; });
    state.connectSensitivityChanged([&sensitivityChanges] { ++sensitivityChanges; });
    state.setVisible(false);
    EXPECT_FALSE(property.isVisible());
    EXPECT_TRUE(property.isSensitive());
    EXPECT_EQ(visibilityChanges, 1);
    EXPECT_EQ(sensitivityChanges, 0);
    state.setSensitive(false);
    state.setSensitive(false);
    EXPECT_FALSE(property.isSensitive());
    EXPECT_EQ(visibilityChanges, 1);
    EXPECT_EQ(sensitivityChanges, 1);
}

TEST(UILocalStyleProperty, FollowsRules)
{
    auto const flag = boost::make_shared<Property<bool>>(true);
    auto const rule = boost::make_shared<BooleanPropertyDependentRelevance>(flag);
    UILocalStyleProperty<int> property;
    int changes = 0;
    property.connectSensitivityChanged([&changes] { ++changes; });
    property.connectVisibilityChanged([&changes] { ++changes; });
    property.setSensitivityRelevance(rule);
    property.setVisibilityRelevance(rule);
    EXPECT_EQ(changes, 0);
    flag->setValue(false);
    EXPECT_FALSE(property.isSensitive());
    EXPECT_FALSE(property.isVisible());
    EXPECT_EQ(changes, 2);
    property.setSensitivityRelevance({});
    EXPECT_TRUE(property.isSensitive());
}

TEST(UILocalStyleProperty, TakesTheValueOnlyWhenAssigned)
{
    UILocalStyleProperty<int> left(1);
    UILocalStyleProperty<int> right(2);
    right.setVisible(false);
    left = right;
    EXPECT_EQ(left.value(), 2);
    EXPECT_TRUE(left.isVisible());
}

} // namespace veldraw::tests
