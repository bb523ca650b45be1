#include "dialogs/datasetinfo/AuxDataPropertiesManager.h"

#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/LineMapOperation.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/models/SampleSession.h"
#include "tests/support/FakeStateChange.h"

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using sdk::ui::common::IdleDispatcher;
using sdk::ui::dialogs::propertybindings::models::ModelIndex;
using sdk::ui::propertymanager::AuxDataPropertiesManager;
using testing::ElementsAre;
using testing::IsEmpty;
using toolbox::AuxData;

/// Owners whose auxiliary data say whose they are.
class AuxDataPropertiesManagerTest : public testing::Test
{
protected:
    AuxDataPropertiesManagerTest()
    {
        for (int const number : {1, 2, 3}) {
            mark(AuxDataLocation_Zone, number, "zone " + std::to_string(number));
            mark(AuxDataLocation_Var, number, "variable " + std::to_string(number));
        }
        EXPECT_TRUE(sample.session().perform(kernel::CreateLineMap(sample.frame()->id)));
        mark(AuxDataLocation_LineMap, 1, "map 1");
        mark(AuxDataLocation_LineMap, 2, "map 2");
        mark(AuxDataLocation_DataSet, 1, "data set");
        mark(AuxDataLocation_Frame, 1, "frame");
        mark(AuxDataLocation_Page, 1, "page");
        sample.session().history().clear();
        manager = std::make_unique<AuxDataPropertiesManager>();
    }

    static void mark(AuxDataLocation_e location, int object, std::string const& owner)
    {
        EXPECT_TRUE(AuxData(location, object).setText("Owner", owner, true)) << owner;
    }
    void go(AuxDataLocation_e location) { manager->auxDataLocation()->setValue(location); }
    void choose(int object) { manager->auxDataObject()->setValue(object); }
    int object() const { return manager->auxDataObject()->value(); }

    /// Whose data a view shows, empty for nobody's.
    std::string shownOwner() const
    {
        auto const& table = *manager->auxDataTableProxy();
        return table.rowCount() == 0 ? "" : table.getStr(ModelIndex(0, 1));
    }
    std::vector<std::string> choices() const
    {
        std::vector<std::string> texts;
        for (int row = 0; row < manager->auxDataObjectList()->size(); ++row)
            texts.push_back(manager->auxDataObjectList()->getStr(row));
        return texts;
    }

    SampleSession sample{{"Wing", "Body", "Tail"}, {"X", "Y", "P"}};
    std::unique_ptr<AuxDataPropertiesManager> manager;
};

TEST_F(AuxDataPropertiesManagerTest, BeginsWithTheFirstZone)
{
    EXPECT_EQ(manager->auxDataLocation()->value(), AuxDataLocation_Zone);
    EXPECT_EQ(object(), 1);
    EXPECT_THAT(choices(), ElementsAre("1: Wing", "2: Body", "3: Tail"));
    EXPECT_EQ(shownOwner(), "zone 1");
}

TEST_F(AuxDataPropertiesManagerTest, OffersSevenKindsOfOwners)
{
    std::vector<std::string> kinds;
    for (int row = 0; row < manager->auxDataLocationList()->size(); ++row) {
        EXPECT_EQ(static_cast<int>(manager->auxDataLocationList()->get(row)), row);
        kinds.push_back(manager->auxDataLocationList()->getStr(row));
    }
    EXPECT_THAT(kinds, ElementsAre("Zone", "Data set", "Frame", "Variable", "Line map", "Page", "Layout"));
}

TEST_F(AuxDataPropertiesManagerTest, ReplacesTheTableForAnotherZone)
{
    auto const before = manager->auxDataModel();
    choose(2);
    EXPECT_NE(manager->auxDataModel(), before);
    EXPECT_EQ(shownOwner(), "zone 2");
}

TEST_F(AuxDataPropertiesManagerTest, ShowsEachKindOfOwner)
{
    go(AuxDataLocation_DataSet);
    EXPECT_EQ(shownOwner(), "data set");
    go(AuxDataLocation_Frame);
    EXPECT_EQ(shownOwner(), "frame");
    go(AuxDataLocation_Var);
    EXPECT_EQ(shownOwner(), "variable 1");
    go(AuxDataLocation_LineMap);
    EXPECT_EQ(shownOwner(), "map 1");
    go(AuxDataLocation_Page);
    EXPECT_EQ(shownOwner(), "page");
}

TEST_F(AuxDataPropertiesManagerTest, ListsTheOwnersOfAKindThatHasSeveral)
{
    go(AuxDataLocation_Var);
    EXPECT_THAT(choices(), ElementsAre("1: X", "2: Y", "3: P"));
    EXPECT_TRUE(manager->auxDataObjectRelevance()->isRelevant());
    go(AuxDataLocation_LineMap);
    EXPECT_THAT(choices(), ElementsAre("1: Map 1", "2: Map 2"));
    EXPECT_TRUE(manager->auxDataObjectRelevance()->isRelevant());
}

TEST_F(AuxDataPropertiesManagerTest, KeepsTheListForAKindThatHasOneOwner)
{
    choose(2);
    for (AuxDataLocation_e const location :
         {AuxDataLocation_DataSet, AuxDataLocation_Frame, AuxDataLocation_Page, AuxDataLocation_Layout}) {
        go(location);
        EXPECT_THAT(choices(), ElementsAre("1: Wing", "2: Body", "3: Tail")) << location;
        EXPECT_FALSE(manager->auxDataObjectRelevance()->isRelevant()) << location;
        EXPECT_EQ(object(), 2) << location;
    }
    go(AuxDataLocation_Zone);
    EXPECT_EQ(shownOwner(), "zone 2");
}

TEST_F(AuxDataPropertiesManagerTest, GoesToTheFirstOwnerWhereTheKindHasNoneOfTheNumber)
{
    choose(3);
    go(AuxDataLocation_LineMap);
    EXPECT_EQ(object(), 1);
    EXPECT_EQ(shownOwner(), "map 1");
}

TEST_F(AuxDataPropertiesManagerTest, BeginsWithAZoneThatIsOffered)
{
    sample.session().perform(kernel::EnableZone(sample.dataSet(), 1, false));
    AuxDataPropertiesManager const another;
    EXPECT_EQ(another.auxDataObject()->value(), 2);
    EXPECT_EQ(another.auxDataTableProxy()->getStr(ModelIndex(0, 1)), "zone 2");
}

TEST_F(AuxDataPropertiesManagerTest, LeavesAnOwnerThatIsOfferedNoMore)
{
    choose(3);
    sample.session().perform(kernel::EnableZone(sample.dataSet(), 3, false));
    EXPECT_EQ(object(), 1);
    EXPECT_EQ(shownOwner(), "zone 1");
}

TEST_F(AuxDataPropertiesManagerTest, ShowsNobodysDataWhereNoOwnerIsOffered)
{
    for (int const zone : {1, 2, 3})
        sample.session().perform(kernel::EnableZone(sample.dataSet(), zone, false));
    IdleDispatcher::flush();
    EXPECT_THAT(choices(), IsEmpty());
    EXPECT_EQ(shownOwner(), "");
    sample.session().perform(kernel::EnableZone(sample.dataSet(), 2, true));
    IdleDispatcher::flush();
    EXPECT_EQ(object(), 2);
    EXPECT_EQ(shownOwner(), "zone 2");
}

TEST_F(AuxDataPropertiesManagerTest, ShowsWhoeverHasTheNumberNow)
{
    go(AuxDataLocation_Var);
    choose(2);
    sample.session().perform(kernel::DeleteVariables(sample.dataSet(), {1}));
    IdleDispatcher::flush();
    EXPECT_EQ(object(), 2);
    EXPECT_EQ(shownOwner(), "variable 3");
    sample.session().undo();
    IdleDispatcher::flush();
    EXPECT_EQ(shownOwner(), "variable 2");
}

TEST_F(AuxDataPropertiesManagerTest, FollowsTheActiveFrame)
{
    sample.session().createFrame("Empty", kernel::Rectangle{0.0, 0.0, 1.0, 1.0});
    IdleDispatcher::flush();
    EXPECT_EQ(shownOwner(), "");
    EXPECT_THAT(choices(), IsEmpty());
    go(AuxDataLocation_Frame);
    EXPECT_EQ(shownOwner(), "");
    sample.session().activateFrame(sample.frame()->id);
    IdleDispatcher::flush();
    EXPECT_EQ(shownOwner(), "frame");
}

TEST_F(AuxDataPropertiesManagerTest, MakesOneTableAfterAStorm)
{
    auto const first = manager->auxDataModel();
    for (int event = 0; event < 1000; ++event)
        FakeStateChange(StateChange_ZonesAdded).send();
    EXPECT_EQ(manager->auxDataModel(), first);
    IdleDispatcher::flush();
    auto const second = manager->auxDataModel();
    EXPECT_NE(second, first);
    IdleDispatcher::flush();
    EXPECT_EQ(manager->auxDataModel(), second);
}

TEST_F(AuxDataPropertiesManagerTest, LetsGoOfTheTableItReplaces)
{
    boost::weak_ptr<AuxDataPropertiesManager::AuxDataModel> const before = manager->auxDataModel();
    go(AuxDataLocation_Var);
    EXPECT_TRUE(before.expired());
}

} // namespace
} // namespace veldraw::tests
