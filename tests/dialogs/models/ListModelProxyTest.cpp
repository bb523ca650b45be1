#include "dialogs/models/ListModelProxy.h"

#include "tests/dialogs/models/ListLog.h"
#include "tests/dialogs/models/Rows.h"
#include "tests/dialogs/models/ScriptedList.h"

#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>

#include <gtest/gtest.h>

namespace veldraw::test {
namespace {

using namespace sdk::ui::dialogs::propertybindings::models;

/// Keeps what it is told to set.
class SettableList : public ScriptedList
{
public:
    using ScriptedList::ScriptedList;
    void set(int value, int index) override { lastSet = std::to_string(index) + "=" + std::to_string(value); }
    std::string lastSet;
};

class ListModelProxyTest : public ::testing::Test
{
protected:
    boost::shared_ptr<SettableList> const first = boost::make_shared<SettableList>(
        std::vector<ScriptedList::Item>{{0, "Heading", true}, {4, "four"}, {6, "six"}});
    boost::shared_ptr<SettableList> const second = boost::make_shared<SettableList>(ScriptedList::numbered(2));
};

TEST_F(ListModelProxyTest, ShowsTheInnerList)
{
    ListModelProxy<int> proxy(first);
    EXPECT_EQ(rows(proxy), "0=Heading | 4=four | 6=six");
    EXPECT_TRUE(proxy.isHeader(0));
    EXPECT_FALSE(proxy.isHeader(1));
    EXPECT_EQ(proxy.indexOf(6), 2);
    proxy.set(9, 1);
    EXPECT_EQ(first->lastSet, "1=9");
}

TEST_F(ListModelProxyTest, IsNeverEditableWhateverTheInnerListSays)
{
    first->editable = true;
    ListModelProxy<int> const proxy(first);
    EXPECT_FALSE(proxy.isEditable());
    EXPECT_FALSE(proxy.setEditedItem("new", 1));
    EXPECT_TRUE(first->edits.empty());
    EXPECT_EQ(proxy.getStrForEdit(1), "four");
}

TEST_F(ListModelProxyTest, PassesAllFiveSignalsOn)
{
    ListModelProxy<int> const proxy(second);
    ListLog log(proxy);
    second->reset(ScriptedList::numbered(4));
    second->change(2, {3, "three"});
    second->insert(1, {{8, "eight"}, {9, "nine"}});
    second->remove(0, 1);
    EXPECT_EQ(log.take(), "data; item 2; inserted 1-2; removing 0-1; removed");
    EXPECT_EQ(rows(proxy), "9=nine | 2=2 | 3=three | 4=4");
}

TEST_F(ListModelProxyTest, TellsAReplacementOnceAndHearsTheNewListOnly)
{
    ListModelProxy<int> const proxy(first);
    ListLog log(proxy);
    proxy.setModel(second);
    EXPECT_EQ(log.take(), "data");
    EXPECT_EQ(rows(proxy), "1=1 | 2=2");
    first->claimDataChanged();
    first->claimChanged(0);
    first->claimInserted(0, 0);
    first->announceRemoval(0, 0);
    first->claimRemoved();
    EXPECT_EQ(log.take(), "");
    second->claimDataChanged();
    EXPECT_EQ(log.take(), "data");
}

TEST_F(ListModelProxyTest, ConnectsAnewAndTellsOnceWhenTheSameListIsSet)
{
    ListModelProxy<int> const proxy(first);
    ListLog log(proxy);
    proxy.setModel(first);
    EXPECT_EQ(log.take(), "data");
    first->claimChanged(1);
    EXPECT_EQ(log.take(), "item 1");
}

TEST_F(ListModelProxyTest, CallsTheConnectionHooksAgainWhenTheSameListIsSet)
{
    class HookedList : public ScriptedList
    {
    public:
        mutable int hooks = 0;

    private:
        void signalDataChangedConnected() const override { ++hooks; }
        void signalItemChangedConnected() const override { ++hooks; }
        void signalItemsInsertedConnected() const override { ++hooks; }
        void signalItemsAboutToBeRemovedConnected() const override { ++hooks; }
        void signalItemsRemovedConnected() const override { ++hooks; }
    };
    auto const list = boost::make_shared<HookedList>();
    ListModelProxy<int> const proxy(list);
    EXPECT_EQ(list->hooks, 5);
    proxy.setModel(list);
    EXPECT_EQ(list->hooks, 10);
}

TEST_F(ListModelProxyTest, KeepsTheInnerListAliveAndLetsTheOldOneGo)
{
    auto list = boost::make_shared<ScriptedList>(ScriptedList::numbered(1));
    boost::weak_ptr<ScriptedList> const watch = list;
    ListModelProxy<int> const proxy(list);
    list.reset();
    ASSERT_FALSE(watch.expired());
    EXPECT_EQ(rows(proxy), "1=1");
    proxy.setModel(second);
    EXPECT_TRUE(watch.expired());
}

TEST_F(ListModelProxyTest, DropsOutOfItsListWhenItGoes)
{
    int heard = 0;
    {
        ListModelProxy<int> const proxy(first);
        proxy.connectDataChanged([&heard] { ++heard; });
        first->claimDataChanged();
    }
    first->claimDataChanged();
    EXPECT_EQ(heard, 1);
}

TEST_F(ListModelProxyTest, CanBeReplacedFromWithinItsOwnSignal)
{
    ListModelProxy<int> const proxy(first);
    bool replaced = false;
    proxy.connectDataChanged([&] {
        if (!std::exchange(replaced, true))
            proxy.setModel(second);
    });
    ListLog log(proxy);
    first->claimDataChanged();
    EXPECT_EQ(rows(proxy), "1=1 | 2=2");
    EXPECT_EQ(log.take(), "data; data");
    first->claimDataChanged();
    EXPECT_EQ(log.take(), "");
}

} // namespace
} // namespace veldraw::test
