#include "platform/vdsdkcommon/StateChangeEventObservable.h"

#include "host/MessageLog.h"
#include "platform/vdtoolbox/StateChangeListenerInterface.h"
#include "tests/support/FakeStateChange.h"

#include <boost/make_shared.hpp>

#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

namespace veldraw::tests {

using sdk::integration::StateChangeEventObservable;

namespace {

class Listener : public toolbox::StateChangeListenerInterface
{
public:
    explicit Listener(std::function<void()> action)
        : m_action(std::move(action))
    {
        StateChangeEventObservable::getInstance().addListener(this);
    }
    ~Listener() override { StateChangeEventObservable::getInstance().removeListener(this); }
    void stateChanged(toolbox::StateChangeEventInterface const&) override { m_action(); }

private:
    std::function<void()> m_action;
};

} // namespace

class Observable : public ::testing::Test
{
protected:
    void SetUp() override { m_before = observable().listenerCount(); }
    void TearDown() override { EXPECT_EQ(observable().listenerCount(), m_before); }

    static StateChangeEventObservable& observable() { return StateChangeEventObservable::getInstance(); }
    std::function<void()> write(char letter)
    {
        return [this, letter] { m_text += letter; };
    }

    std::string m_text;
    int m_before = 0;
};

TEST_F(Observable, CallsListenersInOrderAndThenTheSlots)
{
    boost::signals2::scoped_connection const slot = observable().connectStateChanged(std::bind(write('s')));
    Listener const first(write('a'));
    Listener const second(write('b'));
    observable().notify(FakeStateChange(4));
    EXPECT_EQ(m_text, "abs");
}

TEST_F(Observable, HandsTheEventOn)
{
    int kind = -1;
    boost::signals2::scoped_connection const slot = observable().connectStateChanged(
        [&kind](toolbox::StateChangeEventInterface const& event) { kind = event.kind(); });
    observable().notify(FakeStateChange(41));
    EXPECT_EQ(kind, 41);
}

TEST_F(Observable, KnowsItsListeners)
{
    Listener listener(write('a'));
    EXPECT_TRUE(observable().hasListener(&listener));
    observable().removeListener(&listener);
    EXPECT_FALSE(observable().hasListener(&listener));
    observable().notify(FakeStateChange(4));
    EXPECT_EQ(m_text, "");
}

TEST_F(Observable, CallsAListenerOnceHoweverOftenItWasAdded)
{
    Listener listener(write('a'));
    observable().addListener(&listener);
    observable().addListener(nullptr);
    observable().notify(FakeStateChange(4));
    EXPECT_EQ(m_text, "a");
}

TEST_F(Observable, DoesNotCallWhoIsRemovedDuringADelivery)
{
    std::unique_ptr<Listener> victim;
    Listener const killer([&] {
        m_text += 'k';
        victim.reset();
    });
    victim = std::make_unique<Listener>(write('v'));
    Listener const last(write('z'));
    observable().notify(FakeStateChange(4));
    EXPECT_EQ(m_text, "kz");
}

TEST_F(Observable, DoesNotCallWhoIsAddedDuringADelivery)
{
    std::unique_ptr<Listener> child;
    Listener const parent([&] {
        m_text += 'p';
        if (!child)
            child = std::make_unique<Listener>(write('c'));
    });
    observable().notify(FakeStateChange(4));
    EXPECT_EQ(m_text, "p");
    observable().notify(FakeStateChange(4));
    EXPECT_EQ(m_text, "ppc");
}

TEST_F(Observable, DoesNotTakeANewListenerForOneThatStoodInItsPlace)
{
    std::unique_ptr<Listener> first;
    Listener const replacer([&] { observable().removeListener(first.get()), observable().addListener(first.get()); });
    first = std::make_unique<Listener>(write('a'));
    observable().notify(FakeStateChange(4));
    EXPECT_EQ(m_text, "");
}

TEST_F(Observable, LetsAListenerRemoveItself)
{
    std::unique_ptr<Listener> once;
    once = std::make_unique<Listener>([&] {
        m_text += 'o';
        observable().removeListener(once.get());
    });
    observable().notify(FakeStateChange(4));
    observable().notify(FakeStateChange(4));
    EXPECT_EQ(m_text, "o");
}

TEST_F(Observable, TellsTheOthersWhenAListenerOrASlotThrows)
{
    host::MessageLog::instance().clear();
    Listener const thrower([] { throw std::runtime_error("listener failed"); });
    Listener const other(write('a'));
    boost::signals2::scoped_connection const throwingSlot =
        observable().connectStateChanged([](auto const&) { throw std::runtime_error("slot failed"); });
    boost::signals2::scoped_connection const slot = observable().connectStateChanged(std::bind(write('s')));
    EXPECT_NO_THROW(observable().notify(FakeStateChange(4)));
    EXPECT_EQ(m_text, "as");
    ASSERT_EQ(host::MessageLog::instance().entries().size(), 2U);
    EXPECT_EQ(host::MessageLog::instance().entries()[0].text, "listener failed");
    EXPECT_EQ(host::MessageLog::instance().entries()[1].text, "slot failed");
}

TEST_F(Observable, SkipsSlotsWhoseTrackedOwnerHasGone)
{
    host::MessageLog::instance().clear();
    auto owner = boost::make_shared<int>(0);
    StateChangeEventObservable::StateChangeSignal::slot_type slot(std::bind(write('t')));
    boost::signals2::scoped_connection const tracked = observable().connectStateChanged(slot.track(owner));
    boost::signals2::scoped_connection const other = observable().connectStateChanged(std::bind(write('o')));
    owner.reset();
    observable().notify(FakeStateChange(4));
    EXPECT_EQ(m_text, "o");
    EXPECT_TRUE(host::MessageLog::instance().entries().empty());
}

TEST_F(Observable, DeliversAnEventWithinAnEvent)
{
    bool nested = false;
    Listener const nester([&] {
        m_text += '(';
        if (!nested) {
            nested = true;
            observable().notify(FakeStateChange(5));
        }
        m_text += ')';
    });
    Listener const other(write('a'));
    observable().notify(FakeStateChange(4));
    EXPECT_EQ(m_text, "(()a)a");
}

} // namespace veldraw::tests
