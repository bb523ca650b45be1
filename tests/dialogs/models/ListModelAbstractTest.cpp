#include "dialogs/models/ListModelAbstract.h"

#include "platform/signals/SignalConnectionCollection.h"
#include "tests/dialogs/models/ListLog.h"
#include "tests/dialogs/models/Rows.h"
#include "tests/dialogs/models/ScriptedList.h"

#include <gtest/gtest.h>
#include <limits>
#include <stdexcept>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings::models;

/// Gives the three operations that a list must have, and nothing else.
template <typename T>
class PlainList : public ListModelAbstract<T>
{
public:
    explicit PlainList(std::vector<T> listValues)
        : values(std::move(listValues))
    {
    }
    int size() const override
    {
        ++sizeCalls;
        return static_cast<int>(values.size());
    }
    T get(int index) const override
    {
        ++getCalls;
        T const value = values.at(static_cast<std::size_t>(index));
        if (shrinksTo >= 0)
            values.resize(static_cast<std::size_t>(shrinksTo));
        return value;
    }
    std::string getStr(int index) const override { return "row " + std::to_string(index); }

    mutable std::vector<T> values;
    mutable int sizeCalls = 0;
    mutable int getCalls = 0;
    int shrinksTo = -1;
};

/// Counts the hooks, and what was connected when they ran.
class HookedList : public PlainList<int>
{
public:
    HookedList()
        : PlainList<int>({})
    {
    }
    mutable std::string hooks;

private:
    void signalDataChangedConnected() const override { note("data", signalDataChanged.num_slots()); }
    void signalItemChangedConnected() const override { note("item", signalItemChanged.num_slots()); }
    void signalItemsInsertedConnected() const override { note("inserted", signalItemsInserted.num_slots()); }
    void signalItemsAboutToBeRemovedConnected() const override
    {
        note("removing", signalItemsAboutToBeRemoved.num_slots());
    }
    void signalItemsRemovedConnected() const override { note("removed", signalItemsRemoved.num_slots()); }

    void note(char const* signal, std::size_t slots) const
    {
        hooks += std::string(signal) + std::to_string(slots) + " ";
    }
};

TEST(ListModel, IsReadOnlyAndWithoutHeadingsByDefault)
{
    PlainList<int> list({7, 8});
    EXPECT_FALSE(list.isEditable());
    EXPECT_FALSE(list.isHeader(0));
    EXPECT_EQ(list.getStrForEdit(1), "row 1");
    EXPECT_FALSE(list.setEditedItem("new", 0));
    list.set(99, 0);
    EXPECT_EQ(rows(list), "7=row 0 | 8=row 1");
}

TEST(ListModel, FindsNothingInAnEmptyListWithoutAskingForAnItem)
{
    PlainList<int> const list({});
    EXPECT_EQ(list.indexOf(1), -1);
    EXPECT_EQ(list.getCalls, 0);
}

TEST(ListModel, FindsTheLowestOfEqualValues)
{
    PlainList<int> const list({5, 3, 9, 3});
    EXPECT_EQ(list.indexOf(3), 1);
    EXPECT_EQ(list.indexOf(9), 2);
    EXPECT_EQ(list.indexOf(4), -1);
}

TEST(ListModel, ComparesNumbersExactly)
{
    PlainList<double> const list({0.1 + 0.2, 0.3, std::numeric_limits<double>::quiet_NaN()});
    EXPECT_EQ(list.indexOf(0.3), 1);
    EXPECT_EQ(list.indexOf(std::numeric_limits<double>::quiet_NaN()), -1);
}

TEST(ListModel, EndsTheSearchAtTheNewSizeOfAListThatShrinksMeanwhile)
{
    PlainList<int> list({1, 2, 3, 4});
    list.shrinksTo = 2;
    EXPECT_EQ(list.indexOf(4), -1);
    EXPECT_EQ(list.getCalls, 2);
}

TEST(ListModel, AsksForItsSizeOnEveryRoundOfASearch)
{
    PlainList<int> const list({1, 2, 3});
    EXPECT_EQ(list.indexOf(3), 2);
    EXPECT_EQ(list.sizeCalls, 3);
}

TEST(ListModel, RunsTheHookOfEachSignalAfterTheConnection)
{
    HookedList const list;
    list.connectDataChanged([] {});
    list.connectItemChanged([](int) {});
    list.connectItemsInserted([](int, int) {});
    list.connectItemsAboutToBeRemoved([](int, int) {});
    list.connectItemsRemoved([] {});
    list.connectDataChanged([] {});
    EXPECT_EQ(list.hooks, "data1 item1 inserted1 removing1 removed1 data2 ");
}

TEST(ListModel, CallsListenersInTheOrderOfTheirConnection)
{
    ScriptedList list;
    std::string order;
    SignalConnectionCollection connections;
    for (char const name : {'a', 'b', 'c'})
        connections.add(list.connectDataChanged([&order, name] { order += name; }));
    list.claimDataChanged();
    EXPECT_EQ(order, "abc");
}

TEST(ListModel, CallsWhoConnectsDuringASignalFromTheNextOneOn)
{
    ScriptedList list;
    std::string order;
    SignalConnectionCollection connections;
    connections.add(list.connectDataChanged([&] {
        order += 'a';
        connections.add(list.connectDataChanged([&order] { order += 'n'; }));
    }));
    list.claimDataChanged();
    EXPECT_EQ(order, "a");
    connections.clear();
}

TEST(ListModel, SkipsWhoDisconnectsDuringASignal)
{
    ScriptedList list;
    std::string order;
    boost::signals2::connection second;
    SignalConnectionCollection connections;
    connections.add(list.connectDataChanged([&] {
        order += 'a';
        second.disconnect();
    }));
    second = list.connectDataChanged([&order] { order += 'b'; });
    connections.add(list.connectDataChanged([&order] { order += 'c'; }));
    list.claimDataChanged();
    EXPECT_EQ(order, "ac");
}

TEST(ListModel, EndsTheRunAtAListenerThatThrowsAndStaysUsable)
{
    ScriptedList list(ScriptedList::numbered(1));
    bool fails = true;
    int heard = 0;
    SignalConnectionCollection connections;
    connections.add(list.connectDataChanged([&fails] {
        if (fails)
            throw std::runtime_error("listener");
    }));
    connections.add(list.connectDataChanged([&heard] { ++heard; }));
    EXPECT_THROW(list.reset(ScriptedList::numbered(3)), std::runtime_error);
    EXPECT_EQ(heard, 0);
    EXPECT_EQ(list.size(), 3);
    fails = false;
    list.reset(ScriptedList::numbered(2));
    EXPECT_EQ(heard, 1);
}

TEST(ListModel, TellsAChangeFromWithinASignalAtOnce)
{
    ScriptedList list(ScriptedList::numbered(5));
    std::string sizes;
    SignalConnectionCollection connections;
    connections.add(list.connectDataChanged([&list] {
        if (list.size() > 2)
            list.reset(ScriptedList::numbered(list.size() - 1));
    }));
    connections.add(list.connectDataChanged([&] { sizes += std::to_string(list.size()) + " "; }));
    list.reset(ScriptedList::numbered(4));
    EXPECT_EQ(sizes, "2 2 2 ");
}

} // namespace
} // namespace veldraw::tests
