#pragma once

#include "kernel/events/EventHub.h"
#include "kernel/frames/Page.h"
#include "kernel/undo/Change.h"

namespace veldraw::kernel {

/// Adds frames to a page or removes some, with the active frame and the places of the other frames afterwards.
class FrameListChange : public Change
{
public:
    /// @param frames   the page's frames afterwards
    /// @param active   its active frame afterwards
    /// @param placements places of frames afterwards; frames that are not named stay where they are
    /// @param applied  events of apply(), sent before the one of the new active frame
    /// @param reverted the same for revert()
    FrameListChange(EventHub& hub, std::shared_ptr<Page> page, std::vector<std::shared_ptr<Frame>> frames,
                    UniqueId active, std::vector<FramePlacement> placements, std::vector<StateChangeEvent> applied,
                    std::vector<StateChangeEvent> reverted);

    void apply() noexcept override;
    void revert() noexcept override;
    HeldMemory held() const noexcept override;

private:
    void exchange(std::vector<StateChangeEvent> const& events) noexcept;

    EventHub& m_hub;
    std::shared_ptr<Page> m_page;
    std::vector<std::shared_ptr<Frame>> m_otherFrames;
    UniqueId m_otherActive;
    std::vector<FramePlacement> m_otherPlaces;
    std::vector<StateChangeEvent> m_applied;
    std::vector<StateChangeEvent> m_reverted;
};

} // namespace veldraw::kernel
