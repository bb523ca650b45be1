#pragma once

#include "kernel/events/StateChangeEvent.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>

namespace veldraw::kernel {

/// Delivers events synchronously on the calling thread, in order of subscription, after the data is consistent.
///
/// Listeners may subscribe and unsubscribe during a delivery: one that has unsubscribed is not called any more, a new one is
/// called from the next event on. An exception of a listener is ignored, since the change has been made; the other listeners
/// still get the event.
class EventHub
{
public:
    using Listener = std::function<void(StateChangeEvent const&)>;
    using Subscription = int;

    Subscription subscribe(Listener listener);
    void unsubscribe(Subscription subscription);

    /// Delivers an event, and after one that replaces owners of auxiliary data (see replacesOwners()) event 51.
    void emitEvent(StateChangeEvent const& event) noexcept;

    /// Events so far, counted before they are delivered: what was found out in the kernel holds as long as there is none more.
    std::int64_t eventCount() const { return m_events; }

    int listenerCount() const { return static_cast<int>(m_listeners.size()); }

private:
    void deliver(StateChangeEvent const& event) noexcept;

    std::map<Subscription, std::shared_ptr<Listener>> m_listeners;
    Subscription m_next = 1;
    std::int64_t m_events = 0;
};

} // namespace veldraw::kernel
