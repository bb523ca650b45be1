// Pages and frames of the session.
#include "kernel/frames/FrameDefaults.h"
#include "kernel/frames/Page.h"
#include "kernel/operations/AddFrame.h"
#include "kernel/session/SessionGuard.h"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace veldraw::kernel {

/// @param laidOut what frames of @p pages become
void Session::replacePages(std::vector<std::shared_ptr<Page>> pages, std::vector<Frame> laidOut)
{
    static_assert(std::is_nothrow_move_assignable_v<Frame>, "once the pages are replaced, nothing can be refused");
    m_pages.replace(std::move(pages));
    for (Frame& frame : laidOut) {
        *m_pages.frame(frame.id) = std::move(frame);
    }
    m_history.clear();
    std::shared_ptr<Page> const page = activePage();
    m_events.emitEvent(frameEvent(StateChange_PageReplaced, 0));
    m_events.emitEvent(frameEvent(StateChange_NewActiveFrame, page ? page->activeFrame : 0));
}

bool Session::clear()
{
    return openPage({});
}

bool Session::removeAllPages()
{
    return guarded([&] {
        replacePages({}, {});
        return true;
    });
}

bool Session::openPage(std::vector<std::shared_ptr<Frame>> frames)
{
    return guarded([&] {
        frames.erase(std::remove(frames.begin(), frames.end(), nullptr), frames.end());
        std::vector<std::shared_ptr<Page>> pages{std::make_shared<Page>()};
        Page& page = *pages.front();
        std::vector<Rectangle> const places = gridOver(page, frames.size());
        std::vector<Frame> laidOut;
        laidOut.reserve(frames.size());
        for (std::size_t at = 0; at < frames.size(); ++at) {
            laidOut.push_back(*frames[at]); // a copy: memory may be short for the next one
            layOutIfFresh(laidOut.back());
            laidOut.back().rectangle = places[at];
        }
        page.frames = std::move(frames);
        page.activeFrame = page.frames.empty() ? 0 : page.frames.front()->id;
        replacePages(std::move(pages), std::move(laidOut));
        return true;
    });
}

std::shared_ptr<Frame> Session::createFrame(std::string const& name, Rectangle const& rectangle)
{
    std::shared_ptr<Frame> frame;
    bool const isMade = withoutThrowing([&] {
        frame = std::make_shared<Frame>(name, rectangle);
        return perform(AddFrame(frame, AddFrame::Place::AsItStands));
    });
    return isMade ? frame : nullptr;
}

bool Session::activateFrame(UniqueId frame)
{
    return guarded([&] {
        std::shared_ptr<Page> const page = m_pages.pageOf(frame);
        if (!page) {
            return refuse("There is no such frame.");
        }
        if (m_pages.activate(*page, frame)) {
            m_events.emitEvent(frameEvent(StateChange_NewActiveFrame, frame));
        }
        return true;
    });
}

void Session::tileFrames()
{
    guarded([&] {
        std::shared_ptr<Page> const page = activePage();
        if (!page) {
            return refuse("There is no page.");
        }
        std::vector<FramePlacement> const places = gridPlaces(*page, page->frames);
        for (auto const& place : places) {
            place.frame->rectangle = place.rectangle;
        }
        for (auto const& place : places) {
            m_events.emitEvent(frameEvent(StateChange_FrameMovedOrRenamed, place.frame->id));
        }
        return true;
    });
}

bool Session::setFrameDataSet(UniqueId frame, std::shared_ptr<DataSet> dataSet)
{
    return guarded([&] {
        std::shared_ptr<Frame> const found = this->frame(frame);
        if (!found || !dataSet) {
            return refuse(found ? "There is no such data set." : "There is no such frame.");
        }
        std::shared_ptr<Journal::Entry> const entry = m_journal.entryForData(frame, dataSet->id(), m_pages);
        std::shared_ptr<DataSet> const old = found->dataSet;
        Frame changed = *found;
        changed.dataSet = dataSet;
        layOut(changed);
        *found = std::move(changed);
        m_journal.add(entry);
        if (old && !m_pages.dataSet(old->id())) {
            m_history.clear(); // its steps belong to data that nobody sees any more
        }
        m_events.emitEvent(frameEvent(StateChange_FrameDataSet, frame));
        return true;
    });
}

void Session::setLock(DataSet& dataSet, std::string const& holder)
{
    guarded([&] {
        if (dataSet.lockHolder() != holder) {
            dataSet.setLockHolder(holder);
            m_events.emitEvent({StateChange_DataSetLock, {}, {}, {}, 0});
        }
        return true;
    });
}

bool Session::startFrameLoop()
{
    return withoutThrowing([&] { return m_pages.startLoop() || refuse("There is no frame."); });
}

} // namespace veldraw::kernel
