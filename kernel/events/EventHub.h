#pragma once

#include "kernel/events/StateChangeEvent.h"

#include <functional>
#include <map>
#include <memory>

namespace veldraw::kernel {

/// Delivers events synchronously on the calling thread, in order of subscription, after the data is consistent.
///
/// Listeners may subscribe and unsubscribe during a delivery: who left is not called any more, who came is not called
/// yet. An exception of one listener does not keep the others from hearing the event; it is swallowed, since the change
/// stands.
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
