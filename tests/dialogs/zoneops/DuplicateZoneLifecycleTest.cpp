#include "dialogs/zoneops/DuplicateZonePropertiesManager.h"
#include "tests/dialogs/support/DialogLifecycleTest.h"
#include "tests/dialogs/zoneops/DuplicateZoneFixture.h"

namespace veldraw::tests {

INSTANTIATE_TEST_SUITE_P(DuplicateZone, DialogLifecycleTest, testing::Values(duplicateZone()));
INSTANTIATE_TEST_SUITE_P(DuplicateZone, DialogActionLifecycleTest, testing::Values(duplicateZone()));

namespace {

TEST(DuplicateZonePropertiesManager, StartsEmptyAndSharesItsMembers)
{
    SampleSession const sample({"Wing", "Body"}, {"X"});
    boost::weak_ptr<Property<std::set<int>>> selection;
    boost::shared_ptr<sdk::ui::propertymanager::DuplicateZonePropertiesManager::ZonesListModel> model;
    {
        sdk::ui::propertymanager::DuplicateZonePropertiesManager const manager;
        EXPECT_TRUE(manager.sourceZones()->value().empty());
        EXPECT_EQ(manager.sourceZones(), manager.sourceZones());
        selection = manager.sourceZones();
        model = manager.zonesListModel();
        EXPECT_EQ(model->size(), 2);
        EXPECT_FALSE(model->isEditable());
    }
    EXPECT_TRUE(selection.expired());
    EXPECT_EQ(model->size(), 2) << "whoever shares the list keeps it alive";
}

} // namespace
} // namespace veldraw::tests
