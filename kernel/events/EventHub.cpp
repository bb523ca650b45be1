#include "kernel/events/EventHub.h"

namespace veldraw::kernel {

EventHub::Subscription EventHub::subscribe(Listener listener)
{
    m_listeners.emplace(m_next, std::make_shared<Listener>(std::move(listener)));
    return m_next++;
}

void EventHub::unsubscribe(Subscription subscription)
{
    m_listeners.erase(subscription);
}

void EventHub::emitEvent(StateChangeEvent const& event) noexcept
{
    bool const replaces = replacesOwners(event.kind);
    deliver(event);
    if (replaces) {
        deliver({StateChange_AuxDataOwnersReplaced, {}, {}, {}, 0});
    }
}

void EventHub::deliver(StateChangeEvent const& event) noexcept
{
    ++m_events;
    Subscription const firstNewcomer = m_next;
    for (auto at = m_listeners.begin(); at != m_listeners.end() && at->first < firstNewcomer;) {
        Subscription const current = at->first;
        std::shared_ptr<Listener> const listener = at->second; // survives its own unsubscription
        try {
            (*listener)(event);
        } catch (...) {
            // The change stands, and the other listeners are to hear of it.
        }
        at = m_listeners.upper_bound(current);
    }
}

} // namespace veldraw::kernel
