#include "dialogs/variableops/DeleteVariablePropertiesManager.h"
#include "tests/dialogs/support/DialogLifecycleTest.h"
#include "tests/dialogs/variableops/DeleteVariableFixture.h"

namespace veldraw::tests {

INSTANTIATE_TEST_SUITE_P(DeleteVariable, DialogLifecycleTest, testing::Values(deleteVariable()));
INSTANTIATE_TEST_SUITE_P(DeleteVariable, DialogActionLifecycleTest, testing::Values(deleteVariable()));

namespace {

TEST(DeleteVariablePropertiesManager, StartsEmptyAndSharesItsMembers)
{
    SampleSession const sample({"Wing"}, {"X", "Y"});
    boost::weak_ptr<Property<std::set<int>>> selection;
    boost::shared_ptr<sdk::ui::propertymanager::DeleteVariablePropertiesManager::VariablesListModel> model;
    {
        sdk::ui::propertymanager::DeleteVariablePropertiesManager const manager;
        EXPECT_TRUE(manager.selectedVariables()->value().empty());
        EXPECT_EQ(manager.selectedVariables(), manager.selectedVariables());
        selection = manager.selectedVariables();
        model = manager.variablesListModel();
        EXPECT_EQ(model->size(), 2);
        EXPECT_FALSE(model->isEditable());
    }
    EXPECT_TRUE(selection.expired());
    EXPECT_EQ(model->size(), 2) << "whoever shares the list keeps it alive";
}

} // namespace
} // namespace veldraw::tests
