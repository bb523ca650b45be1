#pragma once

#include "kernel/events/EventHub.h"
#include "kernel/style/StyleItem.h"
#include "kernel/style/StyleRange.h"

namespace veldraw::kernel {

/// A setting that exists once in a session and lives in the style tree itself. It is no part of a document, so its
/// changes are not in the undo history.
class SessionStyleItem : public StyleItem
{
public:
    /// @param initial start value, within @p range
    SessionStyleItem(EventHub& events, StylePath path, StyleRange range, StyleNumber initial);

    std::optional<StyleNumber> read(StyleAddress const& address) const override;
    std::string refusal(StyleAddress const& address, StyleNumber const& number) const override;
    SetValueReturnCode_e write(StyleAddress const& address, StyleNumber const& number) override;

private:
    EventHub& m_events;
    StyleRange m_range;
    StyleNumber m_number;
};

} // namespace veldraw::kernel
