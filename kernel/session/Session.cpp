#include "kernel/session/Session.h"

#include "kernel/frames/Display.h"
#include "kernel/session/SessionGuard.h"
#include "kernel/style/StyleTree.h"

#include <algorithm>
#include <unistd.h>

namespace veldraw::kernel {

namespace {

/// A part of the machine's memory, at least 1 GiB.
std::int64_t partOfMemory(std::int64_t divisor)
{
    std::int64_t const gibibyte = std::int64_t{1} << 30;
    std::int64_t const memory = static_cast<std::int64_t>(sysconf(_SC_PHYS_PAGES)) * sysconf(_SC_PAGESIZE);
    return std::max(memory / divisor, gibibyte);
}

} // namespace

Session& Session::instance()
{
    static auto* const session = new Session; // never destroyed: static objects of others may still call the kernel
    return *session;
}

Session::Session()
    : m_history(partOfMemory(4))
    , m_loadedValues(*this, partOfMemory(2))
    , m_mouseMode(static_cast<int>(MouseMode::Select))
    , m_style(std::make_unique<StyleTree>(m_pages, m_events, *this))
{
    // Before anybody else hears of it and asks. Without taking memory, since it must not fail.
    m_events.subscribe([this](StateChangeEvent const& event) {
        for (auto const& page : m_pages.all()) {
            for (auto const& frame : page->frames) {
                if (frame->dataSet) {
                    frame->dataSet->ranges().follow(event);
                }
            }
        }
    });
}

Session::~Session() = default;

bool Session::undo()
{
    return guarded([&] {
        if (!m_history.undo()) {
            return refuse("There is nothing to undo.");
        }
        m_events.emitEvent({StateChange_StateRestored, {}, {}, {}, 0});
        return true;
    });
}

bool Session::redo()
{
    return guarded([&] {
        if (!m_history.redo()) {
            return refuse("There is nothing to redo.");
        }
        m_events.emitEvent({StateChange_StateRestored, {}, {}, {}, 0});
        return true;
    });
}

bool Session::refuse(char const* reason) noexcept
{
    try {
        m_lastError = reason;
    } catch (...) {
        m_lastError = "Out of memory."; // so short a text needs none
    }
    return false;
}

bool Session::refuse(std::string reason) noexcept
{
    m_lastError = std::move(reason);
    return false;
}

void Session::setPicks(std::vector<Pick> picks)
{
    m_picks = std::move(picks);
    m_events.emitEvent({StateChange_PickList, {}, {}, {}, 0});
}

bool Session::isMouseMode(int mode)
{
    return mode >= static_cast<int>(MouseMode::Select) && mode <= static_cast<int>(MouseMode::Zoom);
}

bool Session::setMouseMode(int mode)
{
    if (!isMouseMode(mode)) {
        return refuse("There is no such mouse mode.");
    }
    if (mode != m_mouseMode) {
        m_mouseMode = mode;
        m_events.emitEvent({StateChange_MouseMode, {}, {}, {}, 0});
    }
    return true;
}

void Session::setDrawing(bool on)
{
    bool const resumes = on && !m_isDrawing;
    m_isDrawing = on;
    if (resumes && m_display != nullptr) {
        m_display->redraw();
    }
}

bool Session::fitData()
{
    std::shared_ptr<Frame> const active = activeFrame();
    if (!active || !active->dataSet) {
        return refuse("There is no data to fit the view to.");
    }
    return m_display == nullptr || m_display->fitData(*active);
}

bool Session::fitAllFrames()
{
    if (!activePage()) {
        return refuse("There is no page.");
    }
    return m_display == nullptr || m_display->fitAllFrames();
}

void Session::goDown()
{
    m_events.emitEvent({StateChange_KernelGoesDown, {}, {}, {}, 0});
}

} // namespace veldraw::kernel
