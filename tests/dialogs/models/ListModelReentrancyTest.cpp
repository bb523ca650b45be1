#include "dialogs/models/ListModelProxy.h"
#include "tests/dialogs/models/ScriptedList.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace veldraw::test {
namespace {

using sdk::ui::dialogs::propertybindings::models::ListModelInterface;
using sdk::ui::dialogs::propertybindings::models::ListModelProxy;

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

} // namespace
} // namespace veldraw::test
