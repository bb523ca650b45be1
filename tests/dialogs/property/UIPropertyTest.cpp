#include "dialogs/property/UIProperty.h"

#include "dialogs/property/BooleanPropertyDependentRelevance.h"
#include "dialogs/property/Property.h"
#include "dialogs/property/SimpleBooleanRelevance.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::propertymanager;

class UIPropertyTest : public testing::Test
{
protected:
    UIPropertyTest()
    {
        property.connectVisibilityChanged([this] { ++visibilitySignals; });
        property.connectSensitivityChanged([this] { ++sensitivitySignals; });
    }

    UIProperty property;
    int visibilitySignals = 0;
    int sensitivitySignals = 0;
};

TEST_F(UIPropertyTest, IsVisibleAndSensitiveAtFirst)
{
    EXPECT_TRUE(property.isVisible());
    EXPECT_TRUE(property.isSensitive());
}

TEST_F(UIPropertyTest, KeepsVisibilityAndSensitivityApart)
{
    property.setVisible(false);
    EXPECT_FALSE(property.isVisible());
    EXPECT_TRUE(property.isSensitive());
    EXPECT_EQ(visibilitySignals, 1);
    EXPECT_EQ(sensitivitySignals, 0);
    property.setSensitive(false);
    EXPECT_FALSE(property.isSensitive());
    EXPECT_EQ(visibilitySignals, 1);
    EXPECT_EQ(sensitivitySignals, 1);
}

TEST_F(UIPropertyTest, SignalsAFlagOnlyWhenTheAnswerChanges)
{
    property.setVisible(true);
    EXPECT_EQ(visibilitySignals, 0);
    property.setVisibilityRelevance(boost::make_shared<SimpleBooleanRelevance>(false));
    EXPECT_EQ(visibilitySignals, 1);
    property.setVisible(false);
    EXPECT_EQ(visibilitySignals, 1) << "the rule says no, whatever the flag says";
}

TEST_F(UIPropertyTest, NeedsBothFlagAndRule)
{
    auto const value = boost::make_shared<Property<bool>>(true);
    property.setSensitivityRelevance(boost::make_shared<BooleanPropertyDependentRelevance>(value));
    EXPECT_TRUE(property.isSensitive());
    value->setValue(false);
    EXPECT_FALSE(property.isSensitive());
    EXPECT_EQ(sensitivitySignals, 1);
    value->setValue(true);
    property.setSensitive(false);
    EXPECT_FALSE(property.isSensitive());
}

TEST_F(UIPropertyTest, LetsGoOfARuleThatIsTakenAway)
{
    auto const value = boost::make_shared<Property<bool>>(false);
    property.setVisibilityRelevance(boost::make_shared<BooleanPropertyDependentRelevance>(value));
    EXPECT_FALSE(property.isVisible());
    property.setVisibilityRelevance(nullptr);
    EXPECT_TRUE(property.isVisible());
    EXPECT_EQ(visibilitySignals, 2);
    EXPECT_EQ(value.use_count(), 1) << "the rule is gone";
    value->setValue(true);
    EXPECT_EQ(visibilitySignals, 2);
}

TEST_F(UIPropertyTest, NoLongerHearsARuleThatIsTakenAwayThoughOthersHoldIt)
{
    auto const value = boost::make_shared<Property<bool>>(false);
    auto const rule = boost::make_shared<BooleanPropertyDependentRelevance>(value);
    property.setVisibilityRelevance(rule);
    property.setVisibilityRelevance(nullptr);
    EXPECT_EQ(visibilitySignals, 2);
    value->setValue(true);
    EXPECT_EQ(visibilitySignals, 2);
}

TEST(UIProperty, LeavesNothingBehindOnASharedRule)
{
    auto const value = boost::make_shared<Property<bool>>(true);
    auto const rule = boost::make_shared<BooleanPropertyDependentRelevance>(value);
    {
        UIProperty property;
        property.setVisibilityRelevance(rule);
        property.setSensitivityRelevance(rule);
    }
    value->setValue(false);
    EXPECT_EQ(rule.use_count(), 1);
}

} // namespace
} // namespace veldraw::tests
