#include "kernel/events/EventHub.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace veldraw::tests {

using namespace kernel;

namespace {

StateChangeEvent const event{StateChange_Style, {}, {}, {}, 0};

} // namespace

TEST(EventHub, CallsListenersInOrderOfSubscription)
{
    EventHub hub;
    std::string calls;
    hub.subscribe([&](auto const&) { calls += 'a'; });
    auto const second = hub.subscribe([&](auto const&) { calls += 'b'; });
    hub.subscribe([&](auto const&) { calls += 'c'; });
    hub.emitEvent(event);
    hub.unsubscribe(second);
    hub.unsubscribe(second);
    hub.emitEvent(event);
    EXPECT_EQ(calls, "abcac");
    EXPECT_EQ(hub.listenerCount(), 2);
}

TEST(EventHub, DoesNotCallWhoLeftDuringTheDelivery)
{
    EventHub hub;
    int calls = 0;
    EventHub::Subscription later = 0;
    hub.subscribe([&](auto const&) { hub.unsubscribe(later); });
    later = hub.subscribe([&](auto const&) { ++calls; });
    hub.emitEvent(event);
    EXPECT_EQ(calls, 0);
}

TEST(EventHub, LetsAListenerLeaveWhileItIsBeingCalled)
{
    EventHub hub;
    EventHub::Subscription self = 0;
    std::string const text(100, 'x');
    std::string seen;
    self = hub.subscribe([&hub, &self, &seen, text](auto const&) {
        hub.unsubscribe(self);
        seen = text; // what the listener owns is still there
    });
    hub.emitEvent(event);
    hub.emitEvent(event);
    EXPECT_EQ(seen, text);
    EXPECT_EQ(hub.listenerCount(), 0);
}

TEST(EventHub, CallsNewcomersFromTheNextEventOn)
{
    EventHub hub;
    int calls = 0;
    hub.subscribe([&](auto const&) {
        if (hub.listenerCount() == 1) {
            hub.subscribe([&](auto const&) { ++calls; });
        }
    });
    hub.emitEvent(event);
    EXPECT_EQ(calls, 0);
    hub.emitEvent(event);
    EXPECT_EQ(calls, 1);
}

TEST(EventHub, LetsTheOthersHearWhenOneThrows)
{
    EventHub hub;
    int calls = 0;
    hub.subscribe([](auto const&) { throw std::runtime_error("no"); });
    hub.subscribe([](auto const&) { throw 1; });
    hub.subscribe([&](auto const&) { ++calls; });
    hub.emitEvent(event);
    EXPECT_EQ(calls, 1);
}

TEST(EventHub, DeliversAnEventThatAListenerSends)
{
    EventHub hub;
    std::string kinds;
    hub.subscribe([&](StateChangeEvent const& heard) {
        if (heard.kind == StateChange_Style) {
            hub.emitEvent({StateChange_PickList, {}, {}, {}, 0});
        }
    });
    hub.subscribe([&](StateChangeEvent const& heard) { kinds += std::to_string(heard.kind) + ' '; });
    hub.emitEvent(event);
    EXPECT_EQ(kinds, "25 7 ");
}

TEST(EventHub, CountsAnEventBeforeAnybodyHearsOfIt)
{
    EventHub hub;
    std::vector<std::int64_t> counts;
    hub.subscribe([&](auto const&) { counts.push_back(hub.eventCount()); });
    EXPECT_EQ(hub.eventCount(), 0);
    hub.emitEvent(event);
    hub.emitEvent({StateChange_ZonesAdded, {1}, {}, {}, 0});
    EXPECT_EQ(counts, (std::vector<std::int64_t>{1, 2, 3}));
    EXPECT_EQ(hub.eventCount(), 3);
}

TEST(EventHub, NamesNoFrameWithTheNewsThatOwnersAreOthers)
{
    EventHub hub;
    std::vector<UniqueId> frames;
    hub.subscribe([&](StateChangeEvent const& heard) { frames.push_back(heard.frame); });
    hub.emitEvent(frameEvent(StateChange_NewActiveFrame, 5));
    EXPECT_EQ(frames, (std::vector<UniqueId>{5, 0})) << "it may be about anything";
}

TEST(EventHub, TellsAfterWhateverRenumbersOwnersOfAuxiliaryDataThatTheyAreOthers)
{
    EventHub hub;
    std::string kinds;
    hub.subscribe([&](StateChangeEvent const& heard) { kinds += std::to_string(heard.kind) + ' '; });
    hub.subscribe([&](StateChangeEvent const& heard) { kinds += std::to_string(heard.kind) + ' '; });
    for (StateChange_e const kind :
         {StateChange_VariablesAdded, StateChange_VariablesDeleted, StateChange_ZonesAdded, StateChange_ZonesDeleted,
          StateChange_NewActiveFrame, StateChange_FrameDataSet, StateChange_LineMaps}) {
        kinds.clear();
        hub.emitEvent({kind, {}, {}, {}, 0});
        std::string const text = std::to_string(kind);
        EXPECT_EQ(kinds, text + ' ' + text + " 51 51 ") << "all have heard of it before";
    }
    for (StateChange_e const kind : {StateChange_ValuesAltered, StateChange_Style, StateChange_StateRestored,
                                     StateChange_AuxDataAltered, StateChange_AuxDataOwnersReplaced}) {
        kinds.clear();
        hub.emitEvent({kind, {}, {}, {}, 0});
        std::string const text = std::to_string(kind);
        EXPECT_EQ(kinds, text + ' ' + text + ' ');
    }
}

} // namespace veldraw::tests
