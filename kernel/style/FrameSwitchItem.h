#pragma once

#include "kernel/frames/Frame.h"
#include "kernel/style/StyleItem.h"

namespace veldraw::kernel {

class Session;

/// Something that each frame has on or off, as 1 or 0. It lives in the frame itself and is part of a document: a write is a
/// step of the undo history.
class FrameSwitchItem : public StyleItem
{
public:
    using Setter = bool (Session::*)(UniqueId frame, bool on);

    /// @param setter of the session, which writes @p member and tells it with the event of @p path
    FrameSwitchItem(Session& session, StylePath path, bool Frame::*member, Setter setter);

    std::optional<StyleNumber> read(StyleAddress const& address) const override;
    std::string refusal(StyleAddress const& address, StyleNumber const& number) const override;
    SetValueReturnCode_e write(StyleAddress const& address, StyleNumber const& number) override;

private:
    std::shared_ptr<Frame> frameAt(StyleAddress const& address) const;

    Session& m_session;
    bool Frame::*m_member;
    Setter m_setter;
};

} // namespace veldraw::kernel
