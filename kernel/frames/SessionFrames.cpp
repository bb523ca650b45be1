// Pages and frames of the session.
#include "kernel/frames/FrameDefaults.h"
#include "kernel/frames/FrameListChange.h"
#include "kernel/frames/PageLayout.h"
#include "kernel/frames/RefusalReasons.h"
#include "kernel/frames/SessionChange.h"
#include "kernel/frames/SessionGuard.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace veldraw::kernel {

namespace {

constexpr char noPage[] = "There is no page.";

bool isAllowed(Rectangle const& place)
{
    bool const finite =
        std::isfinite(place.x) && std::isfinite(place.y) && std::isfinite(place.width) && std::isfinite(place.height);
    return finite && place.width >= 0.0 && place.height >= 0.0;
}

StateChangeEvent frameEvent(StateChange_e kind, UniqueId frame)
{
    return {kind, {}, {}, {}, frame};
}

/// Lays out a frame that shows data and that nobody has laid out yet.
void layOutIfFresh(Frame& frame)
{
    if (frame.plotType == PlotType_Sketch && frame.axes3D == decltype(frame.axes3D){}) {
        layOut(frame);
    }
}

std::vector<FrameListChange::Placement> gridPlaces(Page const& page, std::vector<std::shared_ptr<Frame>> const& frames)
{
    std::vector<Rectangle> const places = gridOver(page, frames.size());
    std::vector<FrameListChange::Placement> placements;
    for (std::size_t at = 0; at < frames.size(); ++at) {
        placements.push_back({frames[at], places[at]});
    }
    return placements;
}

} // namespace

void Session::emitActiveFrame(StateChange_e before)
{
    std::shared_ptr<Page> const page = activePage();
    m_events.emitEvent(frameEvent(before, 0));
    m_events.emitEvent(frameEvent(StateChange_NewActiveFrame, page ? page->activeFrame : 0));
}

void Session::clear()
{
    openPage({});
}

void Session::removeAllPages()
{
    guarded(*this, [&] {
        endFrameLoop();
        m_pages.clear();
        m_activePage = 0;
        m_history.clear();
        emitActiveFrame(StateChange_PageReplaced);
        return true;
    });
}

void Session::openPage(std::vector<std::shared_ptr<Frame>> frames)
{
    guarded(*this, [&] {
        frames.erase(std::remove(frames.begin(), frames.end(), nullptr), frames.end());
        std::vector<std::shared_ptr<Page>> pages{std::make_shared<Page>()};
        Page& page = *pages.front();
        std::vector<Rectangle> const places = gridOver(page, frames.size());
        for (std::size_t at = 0; at < frames.size(); ++at) {
            layOutIfFresh(*frames[at]);
            frames[at]->rectangle = places[at];
        }
        page.frames = std::move(frames);
        page.activeFrame = page.frames.empty() ? 0 : page.frames.front()->id;
        endFrameLoop();
        m_pages.swap(pages);
        m_activePage = page.id;
        m_history.clear();
        emitActiveFrame(StateChange_PageReplaced);
        return true;
    });
}

std::shared_ptr<Frame> Session::createFrame(std::string const& name, Rectangle const& rectangle)
{
    std::shared_ptr<Frame> created;
    guarded(*this, [&] {
        std::shared_ptr<Page> const page = activePage();
        if (!page) {
            return refuse(noPage);
        }
        if (!isAllowed(rectangle)) {
            return refuse("The frame's size is not allowed.");
        }
        auto frame = std::make_shared<Frame>(name, rectangle);
        insertFrame(page, frame, false);
        created = std::move(frame);
        return true;
    });
    return created;
}

bool Session::addFrame(std::shared_ptr<Frame> frame)
{
    return guarded(*this, [&] {
        std::shared_ptr<Page> const page = activePage();
        if (!page) {
            return refuse(noPage);
        }
        if (!frame || pageOf(frame->id)) {
            return refuse("There is no frame to add.");
        }
        layOutIfFresh(*frame);
        insertFrame(page, frame, true);
        return true;
    });
}

void Session::insertFrame(std::shared_ptr<Page> const& page, std::shared_ptr<Frame> frame, bool tile)
{
    UniqueId const id = frame->id;
    std::vector<std::shared_ptr<Frame>> frames = page->frames;
    frames.push_back(std::move(frame));
    std::vector<FrameListChange::Placement> places;
    if (tile) {
        places = gridPlaces(*page, frames);
    }
    m_history.perform("New Frame",
                      std::make_shared<FrameListChange>(m_events, page, std::move(frames), id, std::move(places),
                                                        frameEvent(StateChange_FrameCreated, id),
                                                        frameEvent(StateChange_FrameDeleted, id)));
}

bool Session::deleteFrame(UniqueId frame)
{
    return guarded(*this, [&] {
        std::shared_ptr<Page> const page = pageOf(frame);
        if (!page) {
            return refuse(noFrame);
        }
        std::vector<std::shared_ptr<Frame>> frames;
        std::copy_if(page->frames.begin(), page->frames.end(), std::back_inserter(frames),
                     [frame](auto const& each) { return each->id != frame; });
        UniqueId const front = frames.empty() ? 0 : frames.back()->id;
        UniqueId const active = page->activeFrame == frame ? front : page->activeFrame;
        m_history.perform("Delete Frame",
                          std::make_shared<FrameListChange>(m_events, page, std::move(frames), active,
                                                            std::vector<FrameListChange::Placement>(),
                                                            frameEvent(StateChange_FrameDeleted, frame),
                                                            frameEvent(StateChange_FrameCreated, frame)));
        return true;
    });
}

bool Session::activateFrame(UniqueId frame)
{
    return guarded(*this, [&] {
        std::shared_ptr<Page> const page = pageOf(frame);
        if (!page) {
            return refuse(noFrame);
        }
        if (page->id != m_activePage || page->activeFrame != frame) {
            m_activePage = page->id;
            page->activeFrame = frame;
            m_events.emitEvent(frameEvent(StateChange_NewActiveFrame, frame));
        }
        return true;
    });
}

void Session::tileFrames()
{
    guarded(*this, [&] {
        std::shared_ptr<Page> const page = activePage();
        if (!page) {
            return refuse(noPage);
        }
        std::vector<FrameListChange::Placement> const places = gridPlaces(*page, page->frames);
        for (auto const& place : places) {
            place.frame->rectangle = place.rectangle;
        }
        for (auto const& place : places) {
            m_events.emitEvent(frameEvent(StateChange_FrameMovedOrRenamed, place.frame->id));
        }
        return true;
    });
}

bool Session::setFrameRectangle(UniqueId frame, Rectangle const& rectangle)
{
    return guarded(*this, [&] {
        std::shared_ptr<Frame> const found = this->frame(frame);
        if (!found || !isAllowed(rectangle)) {
            return refuse(found ? "The frame's size is not allowed." : noFrame);
        }
        change("Move Frame", found, found->rectangle, rectangle, frameEvent(StateChange_FrameMovedOrRenamed, frame));
        return true;
    });
}

bool Session::setFrameDataSet(UniqueId frame, std::shared_ptr<DataSet> dataSet)
{
    return guarded(*this, [&] {
        std::shared_ptr<Frame> const found = this->frame(frame);
        if (!found || !dataSet) {
            return refuse(found ? "There is no such data set." : noFrame);
        }
        std::shared_ptr<DataSet> const old = found->dataSet;
        Frame changed = *found;
        changed.dataSet = dataSet;
        layOut(changed);
        *found = std::move(changed);
        if (old && !owned(*old)) {
            m_history.clear(); // its steps belong to data that nobody sees any more
        }
        m_events.emitEvent(frameEvent(StateChange_FrameDataSet, frame));
        return true;
    });
}

bool Session::startFrameLoop()
{
    return withoutThrowing(*this, [&] {
        std::shared_ptr<Page> const page = activePage();
        endFrameLoop();
        if (!page || page->frames.empty()) {
            return refuse("There is no frame.");
        }
        m_loop.frames.assign(page->frames.begin(), page->frames.end());
        return true;
    });
}

bool Session::nextFrameInLoop()
{
    for (std::size_t next = m_loop.position + 1; next < m_loop.frames.size(); ++next) {
        std::shared_ptr<Frame> const candidate = m_loop.frames[next].lock();
        if (candidate && pageOf(candidate->id)) {
            m_loop.position = next;
            return true;
        }
    }
    return false;
}

void Session::endFrameLoop()
{
    m_loop = {};
}

FrameLoop Session::exchangeFrameLoop(FrameLoop loop)
{
    return std::exchange(m_loop, std::move(loop));
}

} // namespace veldraw::kernel
