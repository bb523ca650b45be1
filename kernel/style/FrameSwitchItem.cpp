#include "kernel/style/FrameSwitchItem.h"

#include "kernel/frames/Session.h"
#include "kernel/style/StyleRange.h"

namespace veldraw::kernel {

namespace {

} // namespace

FrameSwitchItem::FrameSwitchItem(Session& session, StylePath path, bool Frame::*member, Setter setter)
    : StyleItem(std::move(path))
    , m_session(session)
    , m_member(member)
    , m_setter(setter)
{
}

std::shared_ptr<Frame> FrameSwitchItem::frameAt(StyleAddress const& address) const
{
    return address.frame == 0 ? m_session.activeFrame() : m_session.frame(address.frame);
}

std::optional<StyleNumber> FrameSwitchItem::read(StyleAddress const& address) const
{
    std::shared_ptr<Frame> const frame = frameAt(address);
    if (!frame || address.hasOffsets()) {
        return std::nullopt;
    }
    return StyleNumber::ofWhole((*frame).*m_member ? 1 : 0);
}

std::string FrameSwitchItem::refusal(StyleAddress const& address, StyleNumber const& number) const
{
    if (!frameAt(address)) {
        return "There is no such frame for " + textOf(path()) + ".";
    }
    if (address.hasOffsets()) {
        return textOf(path()) + " exists once in a frame and takes no offset.";
    }
    return refusalBy(StyleRange::onOff(), number);
}

SetValueReturnCode_e FrameSwitchItem::write(StyleAddress const& address, StyleNumber const& number)
{
    std::shared_ptr<Frame> const frame = frameAt(address);
    bool const on = number.whole != 0;
    if ((*frame).*m_member == on) {
        return SetValueReturnCode_Duplicate;
    }
    return (m_session.*m_setter)(frame->id, on) ? SetValueReturnCode_Ok : SetValueReturnCode_Refused;
}

} // namespace veldraw::kernel
