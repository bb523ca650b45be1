#pragma once

#include "kernel/events/StateChangeEvent.h"

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
    void emitEvent(StateChangeEvent const& event) noexcept;
    int listenerCount() const { return static_cast<int>(m_listeners.size()); }

private:
    std::map<Subscription, std::shared_ptr<Listener>> m_listeners;
    Subscription m_next = 1;
};

} // namespace veldraw::kernel
