#include "app/plot/PageDisplay.h"

#include "app/plot/PageView.h"

namespace veldraw::app {

PageDisplay::PageDisplay(kernel::Session& session, PageView& view)
    : m_session(session)
    , m_view(view)
{
    if (m_session.display() == nullptr)
        m_session.setDisplay(this);
}

PageDisplay::~PageDisplay()
{
    if (m_session.display() == this)
        m_session.setDisplay(nullptr);
}

void PageDisplay::redraw()
{
    m_view.scheduleRefresh();
}

bool PageDisplay::fitData(kernel::Frame const& frame)
{
    m_view.fitFrame(frame.id);
    return true;
}

bool PageDisplay::fitAllFrames()
{
    m_view.scheduleRefresh();
    return true;
}

} // namespace veldraw::app
