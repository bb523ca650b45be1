#include "dialogs/variableops/DeleteVariablePropertiesManager.h"
#include "tests/dialogs/support/DialogLifecycleTest.h"
#include "tests/dialogs/support/SharedMembers.h"
#include "tests/dialogs/variableops/DeleteVariableFixture.h"

namespace veldraw::tests {

INSTANTIATE_TEST_SUITE_P(DeleteVariable, DialogLifecycleTest, testing::Values(deleteVariable()));
INSTANTIATE_TEST_SUITE_P(DeleteVariable, DialogActionLifecycleTest, testing::Values(deleteVariable()));

namespace {

TEST(DeleteVariablePropertiesManager, StartsEmptyAndSharesItsMembers)
{
    using Manager = sdk::ui::propertymanager::DeleteVariablePropertiesManager;
    SampleSession const sample({"Wing"}, {"X", "Y"});
    expectStartsEmptyAndSharesItsMembers<Manager>(&Manager::selectedVariables, &Manager::variablesListModel);
}

} // namespace
} // namespace veldraw::tests
