#include "kernel/operations/AddFrame.h"

#include "kernel/frames/FrameDefaults.h"
#include "kernel/frames/FrameListChange.h"
#include "kernel/frames/Page.h"
#include "kernel/frames/Pages.h"
#include "kernel/operations/FrameOperation.h"

#include <algorithm>

namespace veldraw::kernel {

std::shared_ptr<Frame> AddFrame::frameFor(Page const& page, std::shared_ptr<DataSet> dataSet)
{
    Rectangle const middle{page.paperWidth / 4, page.paperHeight / 4, page.paperWidth / 2, page.paperHeight / 2};
    auto frame = std::make_shared<Frame>("Frame " + std::to_string(page.frames.size() + 1), middle);
    frame->dataSet = std::move(dataSet);
    return frame;
}

std::string AddFrame::find(Pages const& pages)
{
    m_page = pages.activePage();
    m_isOnPage = std::any_of(m_frames.begin(), m_frames.end(),
                             [&pages](auto const& frame) { return frame && pages.pageOf(frame->id); });
    m_like = m_page ? likeFrame() : noLike;
    return m_page ? "" : "There is no page.";
}

int AddFrame::likeFrame() const
{
    if (m_frames.size() != 1 || !m_frames.front()) {
        return noLike;
    }
    auto const& frames = m_page->frames;
    std::shared_ptr<DataSet> const& data = m_frames.front()->dataSet;
    auto const found =
        std::find_if(frames.begin(), frames.end(), [&](auto const& frame) { return frame->dataSet == data; });
    return !data ? 0 : found == frames.end() ? noLike : static_cast<int>(found - frames.begin()) + 1;
}

std::string AddFrame::reasonAgainst() const
{
    bool const isMissing = std::count(m_frames.begin(), m_frames.end(), nullptr) > 0;
    if (m_frames.empty() || isMissing || m_isOnPage) {
        return "There is no frame to add.";
    }
    bool const havePlaces =
        std::all_of(m_frames.begin(), m_frames.end(), [](auto const& frame) { return frame->rectangle.isPlace(); });
    return havePlaces ? "" : "The frame's size is not allowed.";
}

std::shared_ptr<Change> AddFrame::makeChange(EventHub& events)
{
    std::vector<std::shared_ptr<Frame>> frames = m_page->frames;
    std::vector<StateChangeEvent> created;
    std::vector<StateChangeEvent> deleted;
    for (std::shared_ptr<Frame> const& frame : m_frames) {
        layOutIfFresh(*frame);
        frames.push_back(frame);
        created.push_back(frameEvent(StateChange_FrameCreated, frame->id));
        deleted.push_back(frameEvent(StateChange_FrameDeleted, frame->id));
    }
    std::reverse(deleted.begin(), deleted.end());
    std::vector<FramePlacement> places;
    if (m_place == Place::Tiled) {
        places = gridPlaces(*m_page, frames);
    }
    return std::make_shared<FrameListChange>(events, m_page, std::move(frames), m_frames.back()->id, std::move(places),
                                             std::move(created), std::move(deleted));
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
                                             std::vector{frameEvent(StateChange_FrameDeleted, m_frame)},
                                             std::vector{frameEvent(StateChange_FrameCreated, m_frame)});
}

CommandText DeleteFrame::command() const
{
    return CommandText("delete-frame");
}

CommandText AddFrame::command() const
{
    return m_like < 0 ? m_command : CommandText("new-frame").number("like", m_like);
}

} // namespace veldraw::kernel
