#pragma once

#include "kernel/events/EventHub.h"
#include "kernel/frames/Page.h"
#include "kernel/undo/Change.h"

namespace veldraw::kernel {

/// Puts a frame on a page or takes one off, with the frame that is active afterwards and the places of the others.
class FrameListChange : public Change
{
public:
    /// @param frames   the page's frames afterwards
    /// @param active   its active frame afterwards
    /// @param applied  what is told, before the new active frame, when the change happens
    /// @param reverted the same for taking it back
    FrameListChange(EventHub& hub, std::shared_ptr<Page> page, std::vector<std::shared_ptr<Frame>> frames,
                    UniqueId active, std::vector<FramePlacement> placements, StateChangeEvent applied,
                    StateChangeEvent reverted);

    void apply() noexcept override;
    void revert() noexcept override;
    HeldMemory held() const noexcept override;

private:
    void exchange(StateChangeEvent const& event) noexcept;

    EventHub& m_hub;
    std::shared_ptr<Page> m_page;
    std::vector<std::shared_ptr<Frame>> m_otherFrames;
    UniqueId m_otherActive;
    std::vector<FramePlacement> m_otherPlaces;
    StateChangeEvent m_applied;
    StateChangeEvent m_reverted;
};

} // namespace veldraw::kernel
