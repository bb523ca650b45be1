#include "kernel/frames/FrameListChange.h"

namespace veldraw::kernel {

FrameListChange::FrameListChange(EventHub& hub, std::shared_ptr<Page> page, std::vector<std::shared_ptr<Frame>> frames,
                                 UniqueId active, std::vector<Placement> placements, StateChangeEvent applied,
                                 StateChangeEvent reverted)
    : m_hub(hub)
    , m_page(std::move(page))
    , m_otherFrames(std::move(frames))
    , m_otherActive(active)
    , m_otherPlaces(std::move(placements))
    , m_applied(std::move(applied))
    , m_reverted(std::move(reverted))
{
}

void FrameListChange::apply() noexcept
{
    exchange(m_applied);
}

void FrameListChange::revert() noexcept
{
    exchange(m_reverted);
}

void FrameListChange::exchange(StateChangeEvent const& event) noexcept
{
    m_page->frames.swap(m_otherFrames);
    std::swap(m_page->activeFrame, m_otherActive);
    for (Placement& place : m_otherPlaces) {
        std::swap(place.frame->rectangle, place.rectangle);
    }
    m_hub.emitEvent(event);
    m_hub.emitEvent({StateChange_NewActiveFrame, {}, {}, {}, m_page->activeFrame});
}

} // namespace veldraw::kernel
