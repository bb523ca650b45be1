#include "dialogs/variableops/LoadVariablesPropertiesManager.h"
#include "tests/dialogs/support/DialogLifecycleTest.h"
#include "tests/dialogs/variableops/LoadVariablesFixture.h"

namespace veldraw::tests {

INSTANTIATE_TEST_SUITE_P(LoadVariables, DialogLifecycleTest, testing::Values(loadVariables()));
INSTANTIATE_TEST_SUITE_P(LoadVariables, DialogActionLifecycleTest, testing::Values(loadVariables()));

namespace {

TEST(LoadVariablesPropertiesManager, BeginsWithItsZoneAndNothingSelected)
{
    SampleSession const sample({"Wing", "Body"}, {"X", "Y"});
    dialogs::data::LoadVariablesPropertiesManager const manager(2);
    EXPECT_EQ(manager.zone()->value(), 2);
    EXPECT_TRUE(manager.selectedVariables()->value().empty());
    EXPECT_FALSE(manager.hasSelection()->isRelevant());
    EXPECT_EQ(manager.zonesListModel()->size(), 2);
    EXPECT_FALSE(manager.zonesListModel()->isEditable());
    EXPECT_FALSE(manager.variablesListModel()->isEditable());
    EXPECT_EQ(manager.variablesListModel()->size(), 0) << "what has no values needs no loading";
    manager.selectedVariables()->setValue({1});
    EXPECT_TRUE(manager.hasSelection()->isRelevant());
}

} // namespace
} // namespace veldraw::tests
