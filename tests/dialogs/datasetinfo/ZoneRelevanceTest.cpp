#include "dialogs/datasetinfo/NoItemSelectedRelevance.h"
#include "dialogs/datasetinfo/TransientZoneRelevance.h"
#include "dialogs/datasetinfo/ZoneKDimensionRelevance.h"
#include "dialogs/datasetinfo/ZoneMetricDeferredRelevance.h"
#include "dialogs/property/Property.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/LoadVariables.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/datasetinfo/ZoneVarStage.h"
#include "tests/support/FakeStateChange.h"
#include "tests/support/KernelSpy.h"

#include <boost/make_shared.hpp>

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::propertymanager;
using sdk::ui::common::IdleDispatcher;
using testing::ElementsAre;
using Stage = ZoneVarStage;

class ZoneRelevanceTest : public testing::Test
{
protected:
    Stage stage;
    boost::shared_ptr<Property<std::set<int>>> const zones = boost::make_shared<Property<std::set<int>>>();
};

TEST_F(ZoneRelevanceTest, FindsAThirdDimensionInOrderedZonesAndThoseWithFaces)
{
    ZoneKDimensionRelevance const rule(zones);
    zones->setValue({Stage::Skin});
    std::set<int> types;
    for (int type = ZoneType_Ordered; type <= ZoneType_FEMixed; ++type) {
        stage.zone(Stage::Skin).type = static_cast<ZoneType_e>(type);
        if (rule.isRelevant())
            types.insert(type);
    }
    EXPECT_THAT(types, ElementsAre(0, 6, 7));
}

TEST_F(ZoneRelevanceTest, KnowsTheNumbersOfStrands)
{
    TransientZoneRelevance const rule(zones);
    zones->setValue({Stage::Skin});
    std::set<int> strands;
    for (int const strand : {-2, -1, 0, 1, 2147483645, 2147483646, 2147483647}) {
        stage.zone(Stage::Skin).strand = strand;
        if (rule.isRelevant())
            strands.insert(strand);
    }
    EXPECT_THAT(strands, ElementsAre(0, 1, 2147483645));
}

// Which answers 0, the number of a strand.
TEST_F(ZoneRelevanceTest, KnowsTheNumbersOfStrandsThoughAQuestionFails)
{
    TransientZoneRelevance const rule(zones);
    zones->setValue({Stage::Skin});
    for (int const strand : {0, 1, 2147483646}) {
        stage.zone(Stage::Skin).strand = strand;
        KernelSpy spy;
        spy.failNext("VelUtilZoneGetStrandID");
        EXPECT_EQ(rule.isRelevant(), strand < 2) << strand;
    }
}

TEST_F(ZoneRelevanceTest, WaitsForDimensionsThatAZoneHas)
{
    ZoneMetricDeferredRelevance const first(zones, 0);
    ZoneMetricDeferredRelevance const third(zones, 2);
    zones->setValue({Stage::Wing});
    EXPECT_FALSE(first.isRelevant());
    zones->setValue({Stage::Later});
    EXPECT_TRUE(first.isRelevant());
    EXPECT_TRUE(third.isRelevant());
    stage.zone(Stage::Later).type = ZoneType_FEBrick;
    EXPECT_TRUE(first.isRelevant());
    EXPECT_FALSE(third.isRelevant());
    EXPECT_EQ(stage.deferred.timesLoaded(), 0);
    ASSERT_TRUE(stage.session().perform(kernel::LoadDimensions(*stage.dataSet, Stage::Later)));
    EXPECT_FALSE(first.isRelevant());
}

TEST_F(ZoneRelevanceTest, IsFalseWithoutAZoneThatIsEnabled)
{
    ZoneKDimensionRelevance const hasThird(zones);
    TransientZoneRelevance const isTransient(zones);
    for (std::set<int> const& selection : {std::set<int>{}, std::set<int>{99}, std::set<int>{Stage::Cells}}) {
        zones->setValue(selection);
        stage.session().perform(kernel::EnableZone(*stage.dataSet, Stage::Cells, false));
        EXPECT_FALSE(hasThird.isRelevant());
        EXPECT_FALSE(isTransient.isRelevant());
    }
    stage.session().perform(kernel::EnableZone(*stage.dataSet, Stage::Cells, true));
    EXPECT_TRUE(hasThird.isRelevant());
    EXPECT_TRUE(isTransient.isRelevant());
    stage.session().removeAllPages();
    EXPECT_FALSE(hasThird.isRelevant());
}

TEST_F(ZoneRelevanceTest, TellsOfASelectionAtOnceAndOfManyEventsOnce)
{
    TransientZoneRelevance const rule(zones);
    int times = 0;
    boost::signals2::scoped_connection const listening = rule.connectRelevanceChanged([&times] { ++times; });
    zones->setValue({Stage::Wing});
    EXPECT_EQ(times, 1);
    for (int count = 0; count < 1000; ++count)
        FakeStateChange(StateChange_ZonesEnabled).send();
    EXPECT_EQ(times, 1);
    IdleDispatcher::flush();
    EXPECT_EQ(times, 2);
    FakeStateChange(StateChange_PickList).send();
    IdleDispatcher::flush();
    EXPECT_EQ(times, 2);
}

TEST_F(ZoneRelevanceTest, KnowsAnEmptySelection)
{
    NoItemSelectedRelevance const rule(zones);
    EXPECT_TRUE(rule.isRelevant());
    zones->setValue({99});
    EXPECT_FALSE(rule.isRelevant());
}

} // namespace
} // namespace veldraw::tests
