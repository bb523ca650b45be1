#pragma once

#include "kernel/data/DeferredLoad.h"
#include "kernel/events/EventHub.h"
#include "kernel/undo/Change.h"

namespace veldraw::kernel {

/// A change for which values had to be loaded. The first apply() also gives the loaded values to the data set; revert()
/// does not unload them.
class ChangeAfterLoad : public Change
{
public:
    /// @throws std::bad_alloc
    ChangeAfterLoad(EventHub& hub, std::shared_ptr<Change> change, std::shared_ptr<DeferredLoad> load)
        : m_hub(hub)
        , m_change(std::move(change))
        , m_load(std::move(load))
        , m_events(m_load->events())
    {
    }

    void apply() noexcept override
    {
        if (m_load) {
            m_load->commit();
            m_load.reset();
        }
        m_change->apply();
        std::vector<StateChangeEvent> const loaded = std::move(m_events);
        m_events.clear();
        for (StateChangeEvent const& event : loaded) {
            m_hub.emitEvent(event);
        }
    }

    void revert() noexcept override { m_change->revert(); }
    HeldMemory held() const noexcept override { return m_change->held(); }

private:
    EventHub& m_hub;
    std::shared_ptr<Change> m_change;
    std::shared_ptr<DeferredLoad> m_load;
    std::vector<StateChangeEvent> m_events;
};

} // namespace veldraw::kernel
