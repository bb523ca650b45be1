#pragma once

#include "kernel/frames/Display.h"
#include "kernel/session/Session.h"

namespace veldraw::app {

class PageView;

/// The screen that the kernel sees: hands its wishes on to a page view for as long as both live.
class PageDisplay : public kernel::Display
{
public:
    /// Registers with the session, unless something else draws there already.
    PageDisplay(kernel::Session& session, PageView& view);
    ~PageDisplay() override;

    void redraw() override;
    bool fitData(kernel::Frame const& frame) override;

    /// The view always shows the whole paper and whatever lies beside it, so there is nothing to move.
    bool fitAllFrames() override;

    PageDisplay(PageDisplay const&) = delete;
    PageDisplay& operator=(PageDisplay const&) = delete;

private:
    kernel::Session& m_session;
    PageView& m_view;
};

} // namespace veldraw::app
