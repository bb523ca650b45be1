#include "kernel/style/SessionStyleItem.h"

namespace veldraw::kernel {

SessionStyleItem::SessionStyleItem(EventHub& events, StylePath path, StyleRange range, StyleNumber initial)
    : StyleItem(std::move(path))
    , m_events(events)
    , m_range(range)
    , m_number(initial)
{
}

std::optional<StyleNumber> SessionStyleItem::read(StyleAddress const& address) const
{
    return address.hasOffsets() ? std::nullopt : std::optional(m_number);
}

std::string SessionStyleItem::refusal(StyleAddress const& address, StyleNumber const& number) const
{
    return address.hasOffsets() ? textOf(path()) + " exists once and takes no offset." : refusalBy(m_range, number);
}

SetValueReturnCode_e SessionStyleItem::write(StyleAddress const&, StyleNumber const& number)
{
    if (m_range.areEqual(m_number, number)) {
        return SetValueReturnCode_Duplicate;
    }
    StateChangeEvent event;
    event.kind = StateChange_Style;
    event.styleNames = path();
    m_number = number;
    m_events.emitEvent(event);
    return SetValueReturnCode_Ok;
}

} // namespace veldraw::kernel
