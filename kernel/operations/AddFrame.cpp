#include "kernel/operations/AddFrame.h"

#include "kernel/frames/FrameDefaults.h"
#include "kernel/frames/FrameListChange.h"
#include "kernel/frames/Page.h"
#include "kernel/frames/Pages.h"
#include "kernel/operations/FrameOperation.h"

#include <algorithm>

namespace veldraw::kernel {

std::string AddFrame::find(Pages const& pages)
{
    m_page = pages.activePage();
    m_isOnPage = m_frame && pages.pageOf(m_frame->id);
    return m_page ? "" : "There is no page.";
}

std::string AddFrame::reasonAgainst() const
{
    if (!m_frame || m_isOnPage) {
        return "There is no frame to add.";
    }
    return m_frame->rectangle.isPlace() ? "" : "The frame's size is not allowed.";
}

std::shared_ptr<Change> AddFrame::makeChange(EventHub& events)
{
    layOutIfFresh(*m_frame);
    UniqueId const id = m_frame->id;
    std::vector<std::shared_ptr<Frame>> frames = m_page->frames;
    frames.push_back(m_frame);
    std::vector<FramePlacement> places;
    if (m_place == Place::Tiled) {
        places = gridPlaces(*m_page, frames);
    }
    return std::make_shared<FrameListChange>(events, m_page, std::move(frames), id, std::move(places),
                                             frameEvent(StateChange_FrameCreated, id),
                                             frameEvent(StateChange_FrameDeleted, id));
}

std::string DeleteFrame::find(Pages const& pages)
{
    m_page = pages.pageOf(m_frame);
    return m_page ? "" : noFrame;
}

std::shared_ptr<Change> DeleteFrame::makeChange(EventHub& events)
{
    std::vector<std::shared_ptr<Frame>> frames;
    std::copy_if(m_page->frames.begin(), m_page->frames.end(), std::back_inserter(frames),
                 [this](auto const& each) { return each->id != m_frame; });
    UniqueId const front = frames.empty() ? 0 : frames.back()->id;
    UniqueId const active = m_page->activeFrame == m_frame ? front : m_page->activeFrame;
    return std::make_shared<FrameListChange>(events, m_page, std::move(frames), active, std::vector<FramePlacement>(),
                                             frameEvent(StateChange_FrameDeleted, m_frame),
                                             frameEvent(StateChange_FrameCreated, m_frame));
}

} // namespace veldraw::kernel
