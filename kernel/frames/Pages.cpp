#include "kernel/frames/Pages.h"

#include <algorithm>
#include <utility>

namespace veldraw::kernel {

Pages::Pages()
    : m_layout(std::make_shared<Layout>())
    , m_pages{std::make_shared<Page>()}
    , m_activePage(m_pages.front()->id)
{
}

std::shared_ptr<Page> Pages::activePage() const
{
    auto const found =
        std::find_if(m_pages.begin(), m_pages.end(), [this](auto const& page) { return page->id == m_activePage; });
    return found == m_pages.end() ? nullptr : *found;
}

std::shared_ptr<Frame> Pages::activeFrame() const
{
    if (m_loop.position < m_loop.frames.size()) {
        std::shared_ptr<Frame> walked = m_loop.frames[m_loop.position].lock();
        if (walked && pageOf(walked->id)) {
            return walked;
        }
    }
    for (auto const& page :
         m_pages) { // not activePage(): this is asked again and again, and counting its holders takes longer
        if (page->id == m_activePage) {
            return frame(page->activeFrame);
        }
    }
    return nullptr;
}

std::shared_ptr<DataSet> Pages::activeDataSet() const
{
    std::shared_ptr<Frame> const active = activeFrame();
    return active ? active->dataSet : nullptr;
}

std::shared_ptr<Frame> Pages::frame(UniqueId id) const
{
    for (auto const& page : m_pages) {
        for (auto const& each : page->frames) {
            if (each->id == id) {
                return each;
            }
        }
    }
    return nullptr;
}

std::shared_ptr<Page> Pages::pageOf(UniqueId frame) const
{
    for (auto const& page : m_pages) {
        auto const& frames = page->frames;
        if (std::any_of(frames.begin(), frames.end(), [frame](auto const& each) { return each->id == frame; })) {
            return page;
        }
    }
    return nullptr;
}

std::shared_ptr<DataSet> Pages::dataSet(UniqueId id) const
{
    for (auto const& page : m_pages) {
        for (auto const& each : page->frames) {
            if (each->dataSet && each->dataSet->id() == id) {
                return each->dataSet;
            }
        }
    }
    return nullptr;
}

std::vector<std::shared_ptr<Frame>> Pages::framesOf(DataSet const& dataSet) const
{
    std::vector<std::shared_ptr<Frame>> frames;
    for (auto const& page : m_pages) {
        std::copy_if(page->frames.begin(), page->frames.end(), std::back_inserter(frames),
                     [&](auto const& each) { return each->dataSet.get() == &dataSet; });
    }
    return frames;
}

std::vector<std::shared_ptr<DataSet>> Pages::dataSets() const
{
    std::vector<std::shared_ptr<DataSet>> dataSets;
    for (auto const& page : m_pages) {
        for (auto const& each : page->frames) {
            bool const isNew = std::find(dataSets.begin(), dataSets.end(), each->dataSet) == dataSets.end();
            if (each->dataSet && isNew) {
                dataSets.push_back(each->dataSet);
            }
        }
    }
    return dataSets;
}

void Pages::replace(std::vector<std::shared_ptr<Page>> pages)
{
    m_layout = std::make_shared<Layout>();
    endLoop();
    m_pages = std::move(pages);
    m_activePage = m_pages.empty() ? 0 : m_pages.front()->id;
}

bool Pages::activate(Page& page, UniqueId frame) noexcept
{
    if (page.id == m_activePage && page.activeFrame == frame) {
        return false;
    }
    m_activePage = page.id;
    page.activeFrame = frame;
    return true;
}

bool Pages::startLoop()
{
    std::shared_ptr<Page> const page = activePage();
    endLoop();
    if (!page || page->frames.empty()) {
        return false;
    }
    m_loop.frames.assign(page->frames.begin(), page->frames.end());
    return true;
}

bool Pages::nextInLoop()
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

FrameLoop Pages::exchangeLoop(FrameLoop loop) noexcept
{
    return std::exchange(m_loop, std::move(loop));
}

} // namespace veldraw::kernel
