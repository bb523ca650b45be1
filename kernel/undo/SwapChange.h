#pragma once

#include "kernel/events/EventHub.h"
#include "kernel/undo/Change.h"

#include <memory>
#include <utility>
#include <vector>

namespace veldraw::kernel {

/// Swaps a value with another one. Applying and reverting are the same swap and send the same events.
template <typename Value>
class SwapChange : public Change
{
public:
    /// @param owner  keeps @p target alive
    /// @param events sent after each swap, in this order
    SwapChange(EventHub& hub, std::shared_ptr<void> owner, Value& target, Value other,
               std::vector<StateChangeEvent> events)
        : m_hub(hub)
        , m_owner(std::move(owner))
        , m_target(target)
        , m_other(std::move(other))
        , m_events(std::move(events))
    {
    }

    void apply() noexcept override
    {
        std::swap(m_target, m_other);
        for (StateChangeEvent const& event : m_events) {
            m_hub.emitEvent(event);
        }
    }

    void revert() noexcept override { apply(); }

    HeldMemory held() const noexcept override
    {
        HeldMemory held;
        for (StateChangeEvent const& event : m_events) {
            held.notes += bytesOfLists(event);
        }
        return held;
    }

private:
    EventHub& m_hub;
    std::shared_ptr<void> m_owner;
    Value& m_target;
    Value m_other;
    std::vector<StateChangeEvent> m_events;
};

/// The step that gives @p target another value and sends @p event after each way; null when it has the value already.
/// @param owner keeps @p target alive
/// @throws std::bad_alloc
template <typename Value>
std::shared_ptr<Change> changeTo(EventHub& hub, std::shared_ptr<void> owner, Value& target, Value value,
                                 StateChangeEvent event)
{
    if (target == value) {
        return nullptr;
    }
    std::vector<StateChangeEvent> events{std::move(event)};
    return std::make_shared<SwapChange<Value>>(hub, std::move(owner), target, std::move(value), std::move(events));
}

} // namespace veldraw::kernel
