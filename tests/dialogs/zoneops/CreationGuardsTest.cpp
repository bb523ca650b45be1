// How the dialogs that create zones hold the application while they work and while they tell.
#include "tests/dialogs/support/RecordedGuards.h"
#include "tests/dialogs/zoneops/CreateMirrorZoneFixture.h"
#include "tests/dialogs/zoneops/DuplicateZoneFixture.h"

#include <boost/signals2/connection.hpp>

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using Guards = RecordedGuards::Guards; // depths of lock and wait state

template <typename Fixture>
class CreationGuardsTest : public Fixture
{
protected:
    CreationGuardsTest() { this->launched(); }

    RecordedGuards told;
};

using Fixtures = testing::Types<CreateMirrorZoneFixture, DuplicateZoneFixture>;
TYPED_TEST_SUITE(CreationGuardsTest, Fixtures);

TYPED_TEST(CreationGuardsTest, LocksTheApplicationWhileItTellsARefusal)
{
    this->clickAction();
    EXPECT_EQ(this->told.guards(), (Guards{{1, 0}}));
    EXPECT_EQ(sdk::AppLock::depth(), 0);
}

TYPED_TEST(CreationGuardsTest, IsBusyAndLocksTheApplicationUntilTheOutcomeHasBeenTold)
{
    this->clickRow(0);
    this->clickAction();
    EXPECT_EQ(this->told.guards(), (Guards{{1, 1}}));
    EXPECT_EQ(sdk::AppLock::depth(), 0);
    EXPECT_EQ(sdk::WaitState::depth(), 0);
}

TYPED_TEST(CreationGuardsTest, IsNoLongerBusyBeforeItReleasesItsLock)
{
    std::vector<int> depths;
    boost::signals2::scoped_connection const listening =
        sdk::WaitState::connectBusyChanged([&depths](bool) { depths.push_back(sdk::AppLock::depth()); });
    this->clickRow(0);
    this->clickAction();
    EXPECT_THAT(depths, ElementsAre(1, 1));
}

} // namespace
} // namespace veldraw::tests
