#include "dialogs/property/Property.h"
#include "platform/signals/SignalConnectionCollection.h"
#include "tests/dialogs/property/IgnoredSignals.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;

void refuseValue(int)
{
    throw std::runtime_error("no");
}

void refuseSignal()
{
    throw std::runtime_error("no");
}

// Listens for its whole life, in both ways.
class Listener
{
public:
    Listener(Property<int> const& property, std::vector<std::string>& heard)
    {
        m_connections.add(property.connectValueChanged([&heard](int v) { heard.push_back(std::to_string(v)); }));
        m_connections.add(property.connectPropertyChanged([&heard] { heard.emplace_back("untyped"); }));
    }

private:
    SignalConnectionCollection m_connections;
};

TEST(PropertyInItsSignal, MayBeSetAgainAndTellsTheNewerValueFirst)
{
    Property<int> property;
    std::vector<std::string> heard;
    property.connectValueChanged([&](int v) {
        heard.push_back("first " + std::to_string(v));
        property.setValue(2);
    });
    property.connectValueChanged(
        [&](int v) { heard.push_back("second " + std::to_string(v) + ", holds " + std::to_string(property.value())); });
    property.setValue(1);
    EXPECT_THAT(heard, ElementsAre("first 1", "first 2", "second 2, holds 2", "second 1, holds 2"));
    EXPECT_EQ(property.value(), 2);
}

TEST(PropertyInItsSignal, CallsANewSlotFromTheNextSignalOn)
{
    Property<int> property;
    std::vector<int> heard;
    bool isConnected = false;
    property.connectValueChanged([&](int) {
        if (!isConnected)
            property.connectValueChanged([&](int v) { heard.push_back(v); });
        isConnected = true;
    });
    property.setValue(1);
    EXPECT_TRUE(heard.empty());
    property.setValue(2);
    EXPECT_THAT(heard, ElementsAre(2));
}

TEST(PropertyInItsSignal, DoesNotCallASlotThatHasJustLeft)
{
    Property<int> property;
    int calls = 0;
    boost::signals2::connection later;
    property.connectValueChanged([&](int) { later.disconnect(); });
    later = property.connectValueChanged([&](int) { ++calls; });
    property.setValue(1);
    EXPECT_EQ(calls, 0);
}

TEST(PropertyInItsSignal, LetsASlotDisconnectItself)
{
    Property<int> property;
    int calls = 0;
    boost::signals2::connection own;
    own = property.connectValueChanged([&](int) {
        ++calls;
        own.disconnect();
    });
    property.setValue(1);
    property.setValue(2);
    EXPECT_EQ(calls, 1);
}

TEST(PropertyInItsSignal, LetsASlotDestroyAnotherListener)
{
    Property<int> property;
    std::vector<std::string> heard;
    std::unique_ptr<Listener> victim;
    property.connectPropertyChanged([&] { victim.reset(); });
    victim = std::make_unique<Listener>(property, heard);
    property.setValue(1);
    EXPECT_TRUE(heard.empty());
    EXPECT_EQ(property.value(), 1);
}

TEST(PropertyInItsSignal, LetsAListenerDestroyItself)
{
    Property<int> property;
    struct SelfDestroying
    {
        SelfDestroying(Property<int> const& source, std::unique_ptr<SelfDestroying>& owner)
        {
            connections.add(source.connectValueChanged([&owner](int) { owner.reset(); }));
        }
        SignalConnectionCollection connections;
    };
    std::unique_ptr<SelfDestroying> listener;
    listener = std::make_unique<SelfDestroying>(property, listener);
    property.setValue(1);
    EXPECT_EQ(listener, nullptr);
    property.setValue(2);
    EXPECT_EQ(property.value(), 2);
}

TEST(PropertyInItsSignal, HandsOnWhatASlotThrowsAndKeepsTheNewValue)
{
    Property<int> property;
    std::vector<std::string> heard;
    property.connectValueChanged([&](int) { heard.emplace_back("before"); });
    auto const thrower = property.connectValueChanged(&refuseValue);
    property.connectValueChanged([&](int) { heard.emplace_back("after"); });
    EXPECT_THROW(property.setValue(1), std::runtime_error);
    EXPECT_EQ(property.value(), 1);
    EXPECT_THAT(heard, ElementsAre("before"));

    thrower.disconnect();
    property.setValue(2);
    EXPECT_THAT(heard, ElementsAre("before", "before", "after"));
}

TEST(PropertyInItsSignal, HandsOnWhatAnUntypedSlotThrowsBeforeAnyValueListenerHears)
{
    Property<int> property;
    int calls = 0;
    property.connectPropertyChanged(&refuseSignal);
    property.connectValueChanged([&](int) { ++calls; });
    EXPECT_THROW(property.setValue(1), std::runtime_error);
    EXPECT_EQ(property.value(), 1);
    EXPECT_EQ(calls, 0);
}

TEST(PropertyListeners, HearNothingMoreOnceTheirConnectionsAreCleared)
{
    Property<int> property;
    int calls = 0;
    SignalConnectionCollection connections;
    connections.add(property.connectValueChanged([&](int) { ++calls; }));
    {
        SignalConnectionCollection::ConnectionBlocker const blocker(connections);
        property.setValue(1);
    }
    EXPECT_EQ(calls, 0);
    property.setValue(2);
    EXPECT_EQ(calls, 1);
    connections.clear();
    property.setValue(3);
    EXPECT_EQ(calls, 1);
}

TEST(PropertyListeners, MayOutliveTheProperty)
{
    SignalConnectionCollection connections;
    {
        Property<int> const property;
        connections.add(property.connectValueChanged(&ignoreValue));
    }
    connections.clear();
}

} // namespace
} // namespace veldraw::tests
