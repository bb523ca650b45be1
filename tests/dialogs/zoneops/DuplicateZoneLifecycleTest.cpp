#include "dialogs/zoneops/DuplicateZonePropertiesManager.h"
#include "tests/dialogs/support/DialogLifecycleTest.h"
#include "tests/dialogs/support/SharedMembers.h"
#include "tests/dialogs/zoneops/DuplicateZoneFixture.h"

namespace veldraw::tests {

INSTANTIATE_TEST_SUITE_P(DuplicateZone, DialogLifecycleTest, testing::Values(duplicateZone()));
INSTANTIATE_TEST_SUITE_P(DuplicateZone, DialogActionLifecycleTest, testing::Values(duplicateZone()));

namespace {

TEST(DuplicateZonePropertiesManager, StartsEmptyAndSharesItsMembers)
{
    using Manager = sdk::ui::propertymanager::DuplicateZonePropertiesManager;
    SampleSession const sample({"Wing", "Body"}, {"X"});
    expectStartsEmptyAndSharesItsMembers<Manager>(&Manager::sourceZones, &Manager::zonesListModel);
}

} // namespace
} // namespace veldraw::tests
