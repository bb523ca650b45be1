#include "dialogs/models/ListModelProxy.h"
#include "dialogs/models/NamedNumbersListModelAbstract.h"
#include "dialogs/models/ZoneListModelGroupableByStrand.h"
#include "tests/dialogs/models/ListLog.h"
#include "tests/dialogs/models/Rows.h"
#include "tests/dialogs/models/SampleSession.h"
#include "tests/dialogs/models/ScriptedList.h"
#include "tests/support/FakeStateChange.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace veldraw::tests {
namespace {

using sdk::ui::dialogs::propertybindings::models::ListModelInterface;
using sdk::ui::dialogs::propertybindings::models::ListModelProxy;
using sdk::ui::dialogs::propertybindings::models::NamedNumbersListModelAbstract;
using sdk::ui::dialogs::propertybindings::models::ZoneListModelGroupableByStrand;

/// Writes a letter at each change of a list, for as long as it lives.
class Listener
{
public:
    Listener(ListModelInterface<int> const& list, std::string& order, char letter)
        : m_connection(list.connectDataChanged([&order, letter] { order += letter; }))
    {
    }

private:
    boost::signals2::scoped_connection m_connection;
};

TEST(ListModelInItsSignal, DoesNotCallAListenerThatWasJustDestroyed)
{
    ScriptedList list(ScriptedList::numbered(3));
    std::string order;
    std::unique_ptr<Listener> second;
    boost::signals2::scoped_connection const first = list.connectDataChanged([&second] { second.reset(); });
    second = std::make_unique<Listener>(list, order, 'b');
    Listener const third(list, order, 'c');
    list.reset(ScriptedList::numbered(2));
    EXPECT_EQ(order, "c");
}

TEST(ListModelInItsSignal, LetsAListenerDestroyItself)
{
    ScriptedList list(ScriptedList::numbered(3));
    std::string order;
    auto self = std::make_unique<boost::signals2::scoped_connection>();
    *self = list.connectDataChanged([&order, &self] {
        order += 'a';
        self.reset();
    });
    Listener const other(list, order, 'b');
    list.reset(ScriptedList::numbered(2));
    list.reset(ScriptedList::numbered(1));
    EXPECT_EQ(order, "abb");
}

TEST(ListModelInItsSignal, MayBeGivenUpByAProxyThatIsDestroyed)
{
    auto const list = boost::make_shared<ScriptedList>(ScriptedList::numbered(3));
    std::string order;
    std::unique_ptr<ListModelProxy<int>> proxy;
    boost::signals2::scoped_connection const first = list->connectDataChanged([&proxy] { proxy.reset(); });
    proxy = std::make_unique<ListModelProxy<int>>(list);
    Listener const behindTheProxy(*proxy, order, 'p');
    Listener const last(*list, order, 'l');
    list->reset(ScriptedList::numbered(2));
    EXPECT_EQ(order, "l");
}

/// Two names that change together.
class TwoNames : public NamedNumbersListModelAbstract
{
public:
    explicit TwoNames(bool& isAlive)
        : m_isAlive(isAlive)
    {
        m_isAlive = true;
        call("a", "b");
    }
    ~TwoNames() override { m_isAlive = false; }

    void call(std::string const& first, std::string const& second) const { show({{1, 2}, {first, second}}); }

private:
    bool& m_isAlive;
};

TEST(ListModelInItsSignal, LivesUntilItHasToldEverybodyWhenAListenerGivesItUp)
{
    bool isAlive = false;
    std::string told;
    auto list = boost::make_shared<TwoNames>(isAlive);
    TwoNames const& watched = *list;
    boost::signals2::scoped_connection const first = watched.connectItemChanged([&](int row) {
        list.reset();
        told += std::to_string(row) + (isAlive ? " alive; " : " gone; ");
    });
    watched.call("c", "d");
    EXPECT_EQ(told, "0 alive; 1 alive; ");
    EXPECT_FALSE(isAlive);
}

TEST(ListModelInItsSignal, MayBeReplacedByAnotherGroupingWhileItTellsSeveralNames)
{
    SampleSession const sample({"Wing", "Body", "Tail"}, {"X"});
    ZoneListModelGroupableByStrand const zones;
    ListLog log(zones);
    boost::signals2::scoped_connection const connection =
        zones.connectItemChanged([&zones](int) { zones.groupByTimeStrand()->setValue(true); });
    for (int zone = 1; zone <= 3; ++zone)
        sample.dataSet().zone(zone)->name += " (old)";
    FakeStateChange(StateChange_ZonesRenamed).send();
    EXPECT_EQ(log.take(), "item 0; data");
    EXPECT_EQ(rows(zones), "1=1: Wing (old) | 2=2: Body (old) | 3=3: Tail (old)");
}

} // namespace
} // namespace veldraw::tests
