#include "kernel/session/Journal.h"

#include "kernel/frames/Page.h"
#include "kernel/frames/Pages.h"
#include "kernel/operations/Operation.h"

#include <algorithm>

namespace veldraw::kernel {

namespace {

/// One-based number on the active page of the first frame that fits, 0 when none does.
template <typename Fits>
int numberOfFrame(Pages const& pages, Fits const& fits)
{
    std::shared_ptr<Page> const page = pages.activePage();
    if (!page) {
        return 0;
    }
    auto const found = std::find_if(page->frames.begin(), page->frames.end(), fits);
    return found == page->frames.end() ? 0 : static_cast<int>(found - page->frames.begin()) + 1;
}

int numberOfActiveFrame(Pages const& pages)
{
    return numberOfFrame(pages, [active = pages.activeFrame()](auto const& frame) { return frame == active; });
}

/// The frame in which a command is about a frame or data set: the active one if it can be that.
int numberOfFrameFor(UniqueId subject, Pages const& pages)
{
    auto const isAbout = [subject](auto const& frame) {
        return frame->id == subject || (frame->dataSet && frame->dataSet->id() == subject);
    };
    std::shared_ptr<Frame> const active = pages.activeFrame();
    int const number = !active || subject == 0 || isAbout(active) ? 0 : numberOfFrame(pages, isAbout);
    return number != 0 ? number : numberOfActiveFrame(pages);
}

int frameCount(Pages const& pages)
{
    std::shared_ptr<Page> const page = pages.activePage();
    return page ? static_cast<int>(page->frames.size()) : 0;
}

} // namespace

std::shared_ptr<Journal::Entry> Journal::entryFor(Operation const& operation, Pages const& pages)
{
    if (!isRecording()) {
        return nullptr;
    }
    makeRoom();
    auto entry = std::make_shared<Entry>();
    CommandText const command = operation.command();
    entry->isCommand = !command.isEmpty();
    entry->text = entry->isCommand ? command.text() : "# " + operation.name();
    entry->altersData = operation.altered() != nullptr;
    entry->frame = numberOfFrameFor(operation.subject(), pages);
    entry->frameAfterwards = frameCount(pages); // until complete()
    entry->run = operation.run();
    return entry;
}

std::shared_ptr<Journal::Entry> Journal::entryForData(UniqueId frame, UniqueId dataSet, Pages const& pages)
{
    int const like = numberOfFrame(
        pages, [dataSet](auto const& other) { return other->dataSet && other->dataSet->id() == dataSet; });
    if (!isRecording() || like == 0) {
        return nullptr;
    }
    makeRoom();
    auto entry = std::make_shared<Entry>();
    entry->text = CommandText("set-frame-data").number("like", like).text();
    entry->frame = entry->frameAfterwards = numberOfFrameFor(frame, pages);
    return entry;
}

void Journal::add(std::shared_ptr<Entry> const& entry) noexcept
{
    if (!entry) {
        return;
    }
    if (m_newest && m_newest->run != 0 && m_newest->run == entry->run && !m_newest->isUndone) {
        m_newest->text.swap(entry->text);
    } else {
        m_entries.push_back(entry); // there is room
        m_newest = entry;
    }
    changed();
}

void Journal::withdraw(std::shared_ptr<Entry> const& entry) noexcept
{
    auto const found = std::find(m_entries.begin(), m_entries.end(), entry);
    if (found != m_entries.end()) {
        m_entries.erase(found);
        m_newest.reset();
        changed();
    }
}

void Journal::add(std::string command, Pages const& pages)
{
    if (!isRecording()) {
        return;
    }
    auto entry = std::make_shared<Entry>();
    entry->text = std::move(command);
    entry->frame = entry->frameAfterwards = numberOfActiveFrame(pages);
    makeRoom();
    add(entry);
}

/// A frame that was added, or the one that came to the front, is active then.
void Journal::complete(Entry& entry, Pages const& pages)
{
    int const count = frameCount(pages);
    entry.frameAfterwards = count == entry.frameAfterwards ? entry.frame : count;
}

void Journal::makeRoom()
{
    if (m_entries.size() == m_entries.capacity()) {
        m_entries.reserve(2 * m_entries.size() + 1);
    }
}

void Journal::clear()
{
    m_entries.clear();
    m_newest.reset();
    changed();
}

std::string Journal::script() const
{
    std::string text;
    int active = 1;
    for (auto const& entry : m_entries) {
        if (entry->isUndone) {
            continue;
        }
        if (entry->isCommand && entry->frame != 0 && entry->frame != active) {
            text += "activate-frame frame=" + std::to_string(entry->frame) + '\n';
        }
        text += entry->text + '\n';
        active = entry->isCommand && entry->frameAfterwards != 0 ? entry->frameAfterwards : active;
    }
    return text;
}

int Journal::addListener(std::function<void()> listener)
{
    m_listeners.emplace(++m_lastListener, std::move(listener));
    return m_lastListener;
}

void Journal::changed() const noexcept
{
    for (auto const& [number, listener] : m_listeners) {
        try {
            listener();
        } catch (...) {
            // What was done was done; that a list could not follow does not matter.
        }
    }
}

} // namespace veldraw::kernel
