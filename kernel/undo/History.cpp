#include "kernel/undo/History.h"

#include <algorithm>
#include <iterator>

namespace veldraw::kernel {

/// The steps of an open group; the group's one step shares it.
struct History::Group
{
    Steps parts;

    void undo()
    {
        std::for_each(parts.rbegin(), parts.rend(), [](Step& part) { part.undo(); });
    }

    void redo()
    {
        std::for_each(parts.begin(), parts.end(), [](Step& part) { part.redo(); });
    }
};

History::History(std::int64_t memoryLimit)
    : m_memoryLimit(memoryLimit)
{
}

void History::add(Step step)
{
    Steps added;
    added.push_back(std::move(step));
    m_addedWhileRunning = m_isRunning;
    if (m_groupDepth > 0) {
        m_open.front().bytes += added.front().bytes;
        m_group->parts.splice(m_group->parts.end(), added);
        forgetUndone();
        changed();
        return;
    }
    commit(added);
}

void History::commit(Steps& step)
{
    forgetUndone();
    m_bytes += step.front().bytes;
    m_done.splice(m_done.end(), step);
    ++m_position;
    trim();
    changed();
}

void History::beginGroup(std::string name)
{
    if (m_groupDepth == 0) {
        auto group = std::make_shared<Group>();
        m_open.push_back({std::move(name), [group] { group->undo(); }, [group] { group->redo(); }, 0});
        m_group = std::move(group);
    }
    ++m_groupDepth;
}

void History::endGroup()
{
    if (m_groupDepth == 0 || --m_groupDepth > 0) {
        return;
    }
    bool const isEmpty = m_group->parts.empty();
    m_group.reset();
    Steps step;
    step.splice(step.end(), m_open);
    if (!isEmpty) {
        commit(step);
    }
}

std::string History::undoName() const
{
    return m_done.empty() ? std::string() : m_done.back().name;
}

std::string History::redoName() const
{
    return m_undone.empty() ? std::string() : m_undone.front().name;
}

bool History::undo()
{
    if (m_done.empty() || m_groupDepth > 0 || m_isRunning) {
        return false;
    }
    Steps running;
    running.splice(running.end(), m_done, std::prev(m_done.end()));
    --m_position;
    run(running.front().undo);
    if (m_addedWhileRunning || m_clearedWhileRunning) {
        drop(running, running.begin()); // what a listener did since then stands in the way of doing it again
    }
    m_undone.splice(m_undone.begin(), running);
    trim();
    changed();
    return true;
}

bool History::redo()
{
    if (m_undone.empty() || m_groupDepth > 0 || m_isRunning) {
        return false;
    }
    auto const stepsBefore = static_cast<std::ptrdiff_t>(m_done.size());
    Steps running;
    running.splice(running.end(), m_undone, m_undone.begin());
    ++m_position;
    run(running.front().redo);
    if (m_clearedWhileRunning) {
        drop(running, running.begin());
    } else {
        m_done.splice(std::next(m_done.begin(), stepsBefore), running); // before what a listener added
    }
    trim();
    changed();
    return true;
}

void History::run(std::function<void()> const& way)
{
    m_addedWhileRunning = false;
    m_clearedWhileRunning = false;
    m_isRunning = true;
    way();
    m_isRunning = false;
}

void History::clear()
{
    bool const wasClean = isClean();
    m_clearedWhileRunning = m_isRunning;
    while (!m_done.empty()) {
        drop(m_done, m_done.begin());
    }
    forgetUndone();
    if (m_group) {
        m_group->parts.clear();
        m_open.front().bytes = 0;
    }
    m_cleanPosition = wasClean ? m_position : -1;
    changed();
}

void History::setClean()
{
    m_cleanPosition = m_position;
    changed();
}

bool History::isClean() const
{
    return m_position == m_cleanPosition && (!m_group || m_group->parts.empty());
}

void History::setMemoryLimit(std::int64_t bytes)
{
    m_memoryLimit = bytes;
    trim();
    changed();
}

void History::forgetUndone()
{
    if (m_cleanPosition > m_position) {
        m_cleanPosition = -1;
    }
    while (!m_undone.empty()) {
        drop(m_undone, m_undone.begin());
    }
}

void History::trim()
{
    if (m_isRunning) {
        return; // the running step may be among them; it is done when the step has ended
    }
    while (m_bytes > m_memoryLimit && !m_done.empty()) {
        drop(m_done, m_done.begin());
    }
    while (m_bytes > m_memoryLimit && !m_undone.empty()) {
        drop(m_undone, std::prev(m_undone.end()));
    }
}

void History::drop(Steps& steps, Steps::iterator step)
{
    m_bytes -= step->bytes;
    steps.erase(step);
}

void History::changed()
{
    if (!m_listener) {
        return;
    }
    try {
        m_listener();
    } catch (...) {
        // A menu that fails to follow must not undo what has happened.
    }
}

} // namespace veldraw::kernel
