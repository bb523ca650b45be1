#include "kernel/frames/FrameListChange.h"

#include <algorithm>

namespace veldraw::kernel {

namespace {

/// Memory of a field's values, shared out evenly among the fields on it. What a file stands for takes none.
std::int64_t shareOfValues(Field const& field) noexcept
{
    return field.isPassive() ? 0 : field.group()->bytesInMemory() / field.shareCount();
}

std::int64_t bytesOfValues(DataSet const& dataSet) noexcept
{
    std::int64_t bytes = 0;
    for (auto const& zone : dataSet.zones()) {
        for (Field const& field : zone->fields) {
            bytes += shareOfValues(field);
        }
    }
    return bytes;
}

} // namespace

FrameListChange::FrameListChange(EventHub& hub, std::shared_ptr<Page> page, std::vector<std::shared_ptr<Frame>> frames,
                                 UniqueId active, std::vector<FramePlacement> placements,
                                 std::vector<StateChangeEvent> applied, std::vector<StateChangeEvent> reverted)
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

void FrameListChange::exchange(std::vector<StateChangeEvent> const& events) noexcept
{
    m_page->frames.swap(m_otherFrames);
    std::swap(m_page->activeFrame, m_otherActive);
    for (FramePlacement& place : m_otherPlaces) {
        std::swap(place.frame->rectangle, place.rectangle);
    }
    for (StateChangeEvent const& event : events) {
        m_hub.emitEvent(event);
    }
    m_hub.emitEvent({StateChange_NewActiveFrame, {}, {}, {}, m_page->activeFrame});
}

/// A data set goes with the last frame that shows it.
HeldMemory FrameListChange::held() const noexcept
{
    HeldMemory held;
    for (auto const& frame : m_otherFrames) {
        bool const isShown = std::any_of(m_page->frames.begin(), m_page->frames.end(),
                                         [&](auto const& shown) { return shown->dataSet == frame->dataSet; });
        if (!isShown && frame->dataSet) {
            held.values += bytesOfValues(*frame->dataSet);
        }
    }
    return held;
}

} // namespace veldraw::kernel
