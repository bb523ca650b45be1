#include "dialogs/models/ListModelProxy.h"
#include "platform/exception/InvalidPropertyValueException.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/bindings/ComboBoxFixture.h"

#include <QSignalSpy>
#include <QTest>

#include <random>

namespace veldraw::tests {
namespace {

using sdk::ui::common::IdleDispatcher;
using sdk::ui::dialogs::propertybindings::models::ListModelProxy;

class ComboBoxListChangeTest : public ComboBoxFixture
{
protected:
    /// The value of the current row by the list's own word; 0 if there is no row.
    int shownValue() const { return comboBox->currentIndex() < 0 ? 0 : list->get(comboBox->currentIndex()); }
};

// ---- changes of the whole -----------------------------------------------------------------------------------------

TEST_F(ComboBoxListChangeTest, KeepsAValueThatIsStillInTheList)
{
    bind();
    list->reset({{9, "9"}, {4, "4"}, {3, "3"}});
    EXPECT_EQ(property->stores, "");
    IdleDispatcher::flush();
    EXPECT_EQ(look(), "9 4 [3]");
    EXPECT_EQ(property->stores, "");
}

TEST_F(ComboBoxListChangeTest, MovesAValueThatFellOutToTheFirstItem)
{
    bind();
    list->reset({{8, "8"}, {9, "9"}});
    EXPECT_EQ(property->stores, "8 ");
    IdleDispatcher::flush();
    EXPECT_EQ(look(), "[8] 9");
    EXPECT_EQ(property->stores, "8 ");
}

TEST_F(ComboBoxListChangeTest, MovesPastTheSelectedRowOfAListThatShrinks)
{
    property->setValue(5);
    bind();
    property->stores.clear();
    list->reset(ScriptedList::numbered(2));
    IdleDispatcher::flush();
    EXPECT_EQ(property->stores, "1 ");
    EXPECT_EQ(look(), "[1] 2");
}

TEST_F(ComboBoxListChangeTest, SkipsHeadingsWhenItLooksForTheFirstItem)
{
    bind();
    list->reset({{0, "Zones", true}, {1, "Maps", true}, {8, "8"}, {9, "9"}});
    IdleDispatcher::flush();
    EXPECT_EQ(property->stores, "8 ");
    EXPECT_EQ(look(), "Zones Maps [8] 9");
}

TEST_F(ComboBoxListChangeTest, KeepsTheValueWhenAllItemsAreHeadings)
{
    bind();
    list->reset({{0, "Zones", true}, {1, "Maps", true}});
    EXPECT_EQ(property->stores, "");
    IdleDispatcher::flush();
    EXPECT_EQ(property->stores, "");
    list->reset(ScriptedList::numbered(4));
    IdleDispatcher::flush();
    EXPECT_EQ(property->stores, "");
    EXPECT_EQ(look(), "1 2 [3] 4");
}

TEST_F(ComboBoxListChangeTest, KeepsTheValueWhenRowsGoUntilOnlyHeadingsAreLeft)
{
    list->reset({{0, "Zones", true}, {3, "3"}, {4, "4"}});
    bind();
    list->remove(1, 2);
    IdleDispatcher::flush();
    EXPECT_EQ(property->stores, "");
}

TEST_F(ComboBoxListChangeTest, KeepsAWaitingValueOverAListThatStartsWithAHeading)
{
    property = boost::make_shared<NotedProperty>(7);
    bind();
    list->reset({{0, "Zones", true}, {8, "8"}});
    IdleDispatcher::flush();
    EXPECT_EQ(property->stores, "");
}

TEST_F(ComboBoxListChangeTest, KeepsTheValueOverAnEmptyListAndShowsItWhenItIsBack)
{
    bind();
    list->reset({});
    IdleDispatcher::flush();
    EXPECT_EQ(comboBox->currentIndex(), -1);
    EXPECT_EQ(property->stores, "");
    list->reset(ScriptedList::numbered(4));
    IdleDispatcher::flush();
    EXPECT_EQ(look(), "1 2 [3] 4");
    EXPECT_EQ(property->stores, "");
}

TEST_F(ComboBoxListChangeTest, MovesTheValueWhenAnotherListFollowsAnEmptyOne)
{
    bind();
    list->reset({});
    list->reset({{8, "8"}});
    EXPECT_EQ(property->stores, "8 ");
}

TEST_F(ComboBoxListChangeTest, LeavesAValueAloneThatWaitsForItsItem)
{
    property = boost::make_shared<NotedProperty>(7);
    bind();
    list->reset(ScriptedList::numbered(6));
    IdleDispatcher::flush();
    EXPECT_EQ(property->stores, "");
    EXPECT_EQ(look(), "[1] 2 3 4 5 6");
    list->reset(ScriptedList::numbered(7));
    IdleDispatcher::flush();
    EXPECT_EQ(property->stores, "");
    EXPECT_EQ(look(), "1 2 3 4 5 6 [7]");
}

TEST_F(ComboBoxListChangeTest, ShowsTheOnlyItemWhileAValueWaits)
{
    property = boost::make_shared<NotedProperty>(7);
    bind();
    list->reset({{8, "8"}});
    IdleDispatcher::flush();
    EXPECT_EQ(look(), "[8]");
    EXPECT_EQ(property->stores, "");
}

TEST_F(ComboBoxListChangeTest, LeavesAValueAloneThatWasSetAheadOfItsList)
{
    bind();
    property->setValue(7);
    list->reset(ScriptedList::numbered(6));
    EXPECT_EQ(property->stores, "7 ");
    list->reset(ScriptedList::numbered(7));
    IdleDispatcher::flush();
    EXPECT_EQ(property->stores, "7 ");
    EXPECT_EQ(look(), "1 2 3 4 5 6 [7]");
}

TEST_F(ComboBoxListChangeTest, CountsAValueAsOneOfTheListWhenItIsSetNotWhenTheListBringsIt)
{
    property = boost::make_shared<NotedProperty>(7);
    bind();
    list->reset(ScriptedList::numbered(7));
    IdleDispatcher::flush();
    list->reset(ScriptedList::numbered(2)); // nobody has set 7 while it was there
    EXPECT_EQ(property->stores, "");
    property->setValue(2);
    list->reset({{8, "8"}});
    EXPECT_EQ(property->stores, "2 8 ");
}

TEST_F(ComboBoxListChangeTest, TellsThePropertyNothingOfTheRowsThatQtPassesThrough)
{
    bind();
    QSignalSpy const moves(comboBox.get(), QOverload<int>::of(&QComboBox::currentIndexChanged));
    list->reset({{9, "9"}, {3, "3"}});
    EXPECT_EQ(moves.count(), 1); // Qt moves to the first row
    EXPECT_EQ(comboBox->currentIndex(), 0);
    EXPECT_EQ(property->stores, "");
}

TEST_F(ComboBoxListChangeTest, ListensToThePersonAgainRightAfterAChangeOfTheList)
{
    bind();
    list->reset(ScriptedList::numbered(4));
    driver->press(Qt::Key_End);
    EXPECT_EQ(property->stores, "4 ");
    IdleDispatcher::flush();
    EXPECT_EQ(look(), "1 2 3 [4]");
}

TEST_F(ComboBoxListChangeTest, WritesTheBoxOnceForManyChangesOfOneTurn)
{
    bind();
    for (int turn = 0; turn < 10; ++turn)
        list->reset(ScriptedList::numbered(3 + turn));
    QSignalSpy const moves(comboBox.get(), QOverload<int>::of(&QComboBox::currentIndexChanged));
    IdleDispatcher::flush();
    EXPECT_EQ(moves.count(), 1);
    EXPECT_EQ(look(), "1 2 [3] 4 5 6 7 8 9 10 11 12");
}

TEST_F(ComboBoxListChangeTest, ReachesWhoChangedTheListWithARefusalAndWorksOn)
{
    bind();
    property->refusal = [](int) { throw InvalidPropertyValueException("Not this one."); };
    EXPECT_THROW(list->reset({{8, "8"}}), InvalidPropertyValueException);
    property->refusal = nullptr;
    list->reset({{8, "8"}, {9, "9"}});
    EXPECT_EQ(property->stores, "8 ");
    driver->press(Qt::Key_End);
    EXPECT_EQ(property->stores, "8 9 ");
}

TEST_F(ComboBoxListChangeTest, TakesAChoiceFromAListThatChangedWhileItWasOpen)
{
    bind();
    driver->open();
    list->reset({{3, "3"}, {8, "8"}, {9, "9"}});
    IdleDispatcher::flush();
    QCoreApplication::processEvents();
    driver->clickRow(1);
    EXPECT_EQ(property->stores, "8 ");
}

// ---- changes of rows ----------------------------------------------------------------------------------------------

TEST_F(ComboBoxListChangeTest, ShowsANewTextWithoutMoving)
{
    bind();
    QSignalSpy const resets(comboBox->model(), &QAbstractItemModel::modelReset);
    list->change(2, {3, "three"});
    IdleDispatcher::flush();
    EXPECT_EQ(look(), "1 2 [three] 4 5");
    EXPECT_EQ(resets.count(), 0);
    EXPECT_EQ(property->stores, "");
}

TEST_F(ComboBoxListChangeTest, FollowsAnItemThatChangedItsRow)
{
    bind();
    list->change(2, {30, "30"});
    list->change(0, {3, "3"});
    IdleDispatcher::flush();
    EXPECT_EQ(look(), "[3] 2 30 4 5");
    EXPECT_EQ(property->stores, "");
}

TEST_F(ComboBoxListChangeTest, StaysOnItsItemWhenRowsAreInserted)
{
    bind();
    list->insert(0, {{8, "8"}, {9, "9"}});
    IdleDispatcher::flush();
    EXPECT_EQ(look(), "8 9 1 2 [3] 4 5");
    EXPECT_EQ(property->stores, "");
}

TEST_F(ComboBoxListChangeTest, ShowsAnItemThatItsValueWaitedFor)
{
    property = boost::make_shared<NotedProperty>(7);
    bind();
    list->insert(5, {{7, "7"}});
    IdleDispatcher::flush();
    EXPECT_EQ(look(), "1 2 3 4 5 [7]");
    EXPECT_EQ(property->stores, "");
}

TEST_F(ComboBoxListChangeTest, StaysOnItsItemWhenOthersAreRemoved)
{
    bind();
    list->remove(0, 1);
    IdleDispatcher::flush();
    EXPECT_EQ(look(), "[3] 4 5");
    EXPECT_EQ(property->stores, "");
}

TEST_F(ComboBoxListChangeTest, ShowsItsValueAgainAfterARemoval)
{
    bind();
    comboBox->setCurrentIndex(-1);
    list->remove(0, 0);
    IdleDispatcher::flush();
    EXPECT_EQ(look(), "2 [3] 4 5");
    EXPECT_EQ(property->stores, "");
}

TEST_F(ComboBoxListChangeTest, TakesTheRowThatQtMovesToWhenItsOwnIsRemoved)
{
    bind();
    list->remove(2, 2);
    IdleDispatcher::flush();
    EXPECT_EQ(look(), "1 2 [4] 5");
    EXPECT_EQ(property->stores, "4 ");
}

// ---- changes inside changes ---------------------------------------------------------------------------------------

TEST_F(ComboBoxListChangeTest, StandsAListThatShrinksInsideItsOwnSignal)
{
    bool shrunk = false;
    boost::signals2::scoped_connection const shrinker = list->connectDataChanged([&] {
        if (!shrunk) {
            shrunk = true;
            list->reset(ScriptedList::numbered(1));
        }
    });
    bind();
    list->reset(ScriptedList::numbered(9));
    EXPECT_EQ(property->stores, "1 ");
    IdleDispatcher::flush();
    EXPECT_EQ(look(), "[1]");
}

TEST_F(ComboBoxListChangeTest, StandsAListThatShrinksAfterTheBoxHasHeard)
{
    bind();
    bool shrunk = false;
    boost::signals2::scoped_connection const shrinker = list->connectDataChanged([&] {
        if (!shrunk) {
            shrunk = true;
            list->reset(ScriptedList::numbered(2));
        }
    });
    list->reset(ScriptedList::numbered(9));
    EXPECT_EQ(property->stores, "1 ");
    IdleDispatcher::flush();
    EXPECT_EQ(look(), "[1] 2");
    driver->press(Qt::Key_Down);
    EXPECT_EQ(property->stores, "1 2 ");
}

TEST_F(ComboBoxListChangeTest, StandsAListThatChangesWhenThePropertyIsMoved)
{
    bind();
    boost::signals2::scoped_connection const follower = property->connectValueChanged([this](int value) {
        if (value == 8)
            list->reset({{20, "20"}, {21, "21"}});
    });
    list->reset({{8, "8"}, {9, "9"}});
    IdleDispatcher::flush();
    EXPECT_EQ(property->stores, "8 20 ");
    EXPECT_EQ(look(), "[20] 21");
    driver->press(Qt::Key_Down);
    EXPECT_EQ(property->stores, "8 20 21 ");
}

TEST_F(ComboBoxListChangeTest, HearsAChoiceThatIsMadeWhileItsValueMoves)
{
    bind();
    boost::signals2::scoped_connection const follower = property->connectValueChanged([this](int value) {
        if (value == 8)
            comboBox->setCurrentIndex(2);
    });
    list->reset({{8, "8"}, {9, "9"}, {10, "10"}});
    IdleDispatcher::flush();
    EXPECT_EQ(property->stores, "8 10 ");
    EXPECT_EQ(look(), "8 9 [10]");
}

TEST_F(ComboBoxListChangeTest, MayGoWhileItsValueMoves)
{
    bind();
    boost::signals2::scoped_connection const closing = property->connectValueChanged([this](int) {
        tester.reset();
        binding.reset();
    });
    list->reset({{8, "8"}, {9, "9"}});
    IdleDispatcher::flush();
    EXPECT_EQ(property->stores, "8 ");
    EXPECT_EQ(comboBox->count(), 0);
    list->reset(ScriptedList::numbered(2));
    EXPECT_EQ(property->stores, "8 ");
}

TEST_F(ComboBoxListChangeTest, StandsAListThatChangesWhenARowIsChosen)
{
    bind();
    boost::signals2::scoped_connection const follower =
        property->connectValueChanged([this](int value) { list->reset(ScriptedList::numbered(value)); });
    driver->press(Qt::Key_Down);
    IdleDispatcher::flush();
    EXPECT_EQ(property->stores, "4 ");
    EXPECT_EQ(look(), "1 2 3 [4]");
}

TEST_F(ComboBoxListChangeTest, MayGoInsideTheSignalOfItsList)
{
    bind();
    bool gone = false;
    boost::shared_ptr<ScriptedList> const kept = list;
    boost::signals2::scoped_connection const closing = kept->connectDataChanged([&] {
        tester.reset();
        binding.reset();
        gone = true;
    });
    kept->reset(ScriptedList::numbered(4));
    EXPECT_TRUE(gone);
    IdleDispatcher::flush();
    EXPECT_EQ(comboBox->count(), 0);
    EXPECT_EQ(property->stores, "");
}

TEST_F(ComboBoxListChangeTest, FollowsAListThatIsReplacedBehindAProxy)
{
    auto const proxy = boost::make_shared<ListModelProxy<int>>(list);
    Binding const bound(comboBox.get(), proxy, property, BindingInterface::ModelUpdateUndeferred);
    auto const other = boost::make_shared<ScriptedList>(std::vector<ScriptedList::Item>{{9, "nine"}, {3, "three"}});
    proxy->setModel(other);
    IdleDispatcher::flush();
    EXPECT_EQ(look(), "nine [three]");
    EXPECT_EQ(property->stores, "");
    list->reset({});
    EXPECT_EQ(look(), "nine [three]");
    other->reset({{9, "nine"}});
    EXPECT_EQ(property->stores, "9 ");
}

// ---- storms -------------------------------------------------------------------------------------------------------

class ComboBoxStormTest : public ComboBoxListChangeTest, public ::testing::WithParamInterface<unsigned>
{
protected:
    int random(int below) { return std::uniform_int_distribution<int>(0, below - 1)(m_engine); }

    std::vector<ScriptedList::Item> someItems(int atMost)
    {
        std::vector<ScriptedList::Item> items;
        for (int count = random(atMost + 1); count > 0; --count) {
            int const value = 1 + random(12);
            items.push_back({value, std::to_string(value), random(5) == 0});
        }
        return items;
    }

    void changeTheList()
    {
        int const size = list->size();
        switch (random(4)) {
        case 0:
            list->reset(someItems(8));
            break;
        case 1:
            if (size > 0)
                list->change(random(size), {1 + random(12), "changed"});
            break;
        case 2: {
            std::vector<ScriptedList::Item> const items = someItems(3);
            if (!items.empty())
                list->insert(random(size + 1), items);
            break;
        }
        default:
            if (size > 0) {
                int const first = random(size);
                list->remove(first, first + random(size - first));
            }
        }
    }

    void step()
    {
        switch (random(5)) {
        case 0:
            property->setValue(1 + random(12));
            break;
        case 1:
            driver->press(random(2) ? Qt::Key_Down : Qt::Key_Up);
            break;
        case 2:
            IdleDispatcher::flush();
            break;
        default:
            changeTheList();
        }
    }

private:
    std::mt19937 m_engine{GetParam()};
};

TEST_P(ComboBoxStormTest, ShowsTheValueThatThePropertyHasWheneverTheListHasIt)
{
    bind();
    for (int turn = 0; turn < 2000; ++turn) {
        step();
        if (turn % 10 != 0)
            continue;
        IdleDispatcher::flush();
        ASSERT_EQ(comboBox->count(), list->size()) << "turn " << turn;
        if (list->indexOf(property->value()) != -1) {
            ASSERT_EQ(shownValue(), property->value()) << "turn " << turn;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, ComboBoxStormTest, ::testing::Values(1u, 2u, 3u, 20261121u));

} // namespace
} // namespace veldraw::tests
