#include "dialogs/models/ListModelProxy.h"

#include "tests/dialogs/models/ListLog.h"
#include "tests/dialogs/models/Rows.h"
#include "tests/dialogs/models/ScriptedList.h"

#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <type_traits>
#include <utility>

namespace veldraw::tests {
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
    class CountingList : public ScriptedList
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
    auto const list = boost::make_shared<CountingList>();
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

/// Lets a test connect to the signals of a list in other groups than listeners are put into.
template <typename List>
class OpenList : public List
{
public:
    using List::List;
    using List::signalDataChanged;
    using List::signalItemChanged;
    using List::signalItemsAboutToBeRemoved;
    using List::signalItemsInserted;
    using List::signalItemsRemoved;
};

/// Who hears a signal, in order, when "front" and "back" have no group and "0" and "2" are in groups of these numbers.
template <typename Signal, typename Connect>
std::string orderAround(Signal& signal, Connect const& connectListener)
{
    std::string order;
    auto const note = [&order](char const* who) { return [&order, who](auto&&...) { order += who; }; };
    signal.connect(note("back"), boost::signals2::at_back);
    signal.connect(2, note("2 "));
    connectListener(note("first "));
    connectListener(note("second "));
    signal.connect(0, note("0 "));
    signal.connect(note("front "), boost::signals2::at_front);
    if constexpr (std::is_same_v<Signal, boost::signals2::signal<void(int)>>)
        signal(1);
    else if constexpr (std::is_same_v<Signal, boost::signals2::signal<void(int, int)>>)
        signal(0, 1);
    else
        signal();
    return order;
}

template <typename List>
void expectListenersInGroupOne(List const& list)
{
    std::string const expected = "front 0 first second 2 back";
    EXPECT_EQ(orderAround(list.signalDataChanged, [&](auto const& slot) { list.connectDataChanged(slot); }), expected);
    EXPECT_EQ(orderAround(list.signalItemChanged, [&](auto const& slot) { list.connectItemChanged(slot); }), expected);
    EXPECT_EQ(orderAround(list.signalItemsInserted, [&](auto const& slot) { list.connectItemsInserted(slot); }),
              expected);
    EXPECT_EQ(orderAround(list.signalItemsAboutToBeRemoved,
                          [&](auto const& slot) { list.connectItemsAboutToBeRemoved(slot); }),
              expected);
    EXPECT_EQ(orderAround(list.signalItemsRemoved, [&](auto const& slot) { list.connectItemsRemoved(slot); }),
              expected);
}

TEST_F(ListModelProxyTest, PutsItsListenersIntoTheFirstGroupInTheOrderOfTheirConnection)
{
    expectListenersInGroupOne(OpenList<ListModelProxy<int>>(first));
    expectListenersInGroupOne(OpenList<ScriptedList>(ScriptedList::numbered(2)));
}

TEST_F(ListModelProxyTest, HearsItsListInTheFirstGroup)
{
    auto const list = boost::make_shared<OpenList<ScriptedList>>(ScriptedList::numbered(2));
    std::string order;
    list->signalDataChanged.connect([&order] { order += "back"; });
    list->signalDataChanged.connect(2, [&order] { order += "2 "; });
    list->signalDataChanged.connect(0, [&order] { order += "0 "; });
    ListModelProxy<int> const proxy(list);
    proxy.connectDataChanged([&order] { order += "proxy "; });
    list->claimDataChanged();
    EXPECT_EQ(order, "0 proxy 2 back");
}

/// Notes when somebody has connected to which of its signals.
class NotingList : public ScriptedList
{
public:
    NotingList(std::string& notes, std::function<void()> connected)
        : ScriptedList(numbered(7))
        , m_notes(notes)
        , m_connected(std::move(connected))
    {
    }

private:
    void note(char const* what) const
    {
        m_notes += what;
        m_connected();
    }
    void signalDataChangedConnected() const override { note("data "); }
    void signalItemChangedConnected() const override { note("item "); }
    void signalItemsInsertedConnected() const override { note("inserted "); }
    void signalItemsAboutToBeRemovedConnected() const override { note("removing "); }
    void signalItemsRemovedConnected() const override { note("removed "); }

    std::string& m_notes;
    std::function<void()> const m_connected;
};

TEST_F(ListModelProxyTest, ShowsTheNewListAndLeavesTheOldOneBeforeItConnectsInTurnAndTells)
{
    ListModelProxy<int> const proxy(first);
    std::string notes;
    proxy.connectDataChanged([&notes] { notes += "told "; });
    proxy.connectItemChanged([&notes](int) { notes += "item of the old list "; });
    auto const list = boost::make_shared<NotingList>(notes, [&] {
        EXPECT_EQ(proxy.size(), 7) << notes;
        first->claimDataChanged();
        first->claimChanged(0);
    });
    proxy.setModel(list);
    EXPECT_EQ(notes, "data item inserted removing removed told ");
}

} // namespace
} // namespace veldraw::tests
