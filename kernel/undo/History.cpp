#include "kernel/undo/History.h"

#include <algorithm>
#include <iterator>

namespace veldraw::kernel {

/// Several changes as one.
class History::Group : public Change
{
public:
    void apply() noexcept override
    {
        std::for_each(parts.begin(), parts.end(), [](Step& part) { part.change->apply(); });
    }

    void revert() noexcept override
    {
        std::for_each(parts.rbegin(), parts.rend(), [](Step& part) { part.change->revert(); });
    }

    HeldMemory held() const noexcept override
    {
        HeldMemory sum;
        for (Step const& part : parts) {
            sum += part.change->held();
            sum.notes += bytesOfStep;
        }
        return sum;
    }

    Steps parts;
};

History::History(std::int64_t memoryLimit)
    : m_memoryLimit(memoryLimit)
{
}

void History::perform(std::string name, std::shared_ptr<Change> const& change, UniqueId altered,
                      std::shared_ptr<StepNote> note)
{
    Steps added;
    added.push_back({std::move(name), change, {}, ++m_lastNumber, {}, 0});
    if (altered != 0) {
        m_states[altered];
        Step& step = m_groupDepth > 0 ? m_open.front() : added.front();
        step.dataSets.insert(altered);
        step.number = m_lastNumber;
    }
    performStep(added, std::move(note));
}

/// @param added the one step
void History::performStep(Steps& added, std::shared_ptr<StepNote> note)
{
    if (note) {
        Step& step = m_groupDepth > 0 ? m_open.front() : added.front();
        step.notes.push_back(std::move(note));
    }
    std::shared_ptr<Change> const change = added.front().change;
    m_addedWhileRunning = m_isRunning;
    if (m_groupDepth > 0) {
        m_group->parts.splice(m_group->parts.end(), added);
        forgetUndone();
    } else {
        add(added);
    }
    change->apply();
    countStepOf(*change);
    changed();
}

void History::performInRun(std::string name, std::shared_ptr<Change> const& change, UniqueId run,
                           std::shared_ptr<StepNote> note)
{
    bool const isPlain = m_groupDepth == 0 && !m_isRunning;
    if (isPlain && !m_done.empty() && m_done.back().run == run) {
        forgetUndone();
        change->apply();
        changed();
        return;
    }
    Steps added;
    added.push_back({std::move(name), change, {}, ++m_lastNumber, {}, isPlain ? run : 0});
    performStep(added, std::move(note));
}

void History::add(Steps& step)
{
    forgetUndone();
    m_done.splice(m_done.end(), step);
}

/// Counts the step of a change that has just happened. Listeners may have added others since, or cleared all.
void History::countStepOf(Change const& change)
{
    if (m_groupDepth > 0) {
        return; // the group is counted as a whole
    }
    auto const found = std::find_if(m_done.rbegin(), m_done.rend(),
                                    [&change](Step const& step) { return step.change.get() == &change; });
    if (found != m_done.rend()) {
        count(*found);
        trim();
    }
}

void History::count(Step& step)
{
    m_held -= step.held;
    step.held = step.change->held();
    step.held.notes += bytesOfStep;
    m_held += step.held;
}

void History::beginGroup(std::string name)
{
    if (m_groupDepth == 0) {
        auto group = std::make_shared<Group>();
        m_open.push_back({std::move(name), group, {}, 0, {}, 0});
        m_group = std::move(group);
    }
    ++m_groupDepth;
}

void History::endGroup()
{
    if (m_groupDepth == 0 || --m_groupDepth > 0) {
        return;
    }
    std::shared_ptr<Group> const group = std::move(m_group);
    Steps step;
    step.splice(step.end(), m_open);
    if (!group->parts.empty()) {
        add(step);
        countStepOf(*group);
        changed();
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
    run(running.front(), &Change::revert);
    setUndone(running.front(), true);
    if (m_addedWhileRunning || m_clearedWhileRunning) {
        drop(running, running.begin()); // redoing it is impossible after the steps that a listener added
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
    run(running.front(), &Change::apply);
    setUndone(running.front(), false);
    if (m_clearedWhileRunning) {
        dropDone(running, running.begin());
    } else {
        m_done.splice(std::next(m_done.begin(), stepsBefore), running); // before what a listener added
    }
    trim();
    changed();
    return true;
}

void History::run(Step& step, void (Change::*way)())
{
    m_addedWhileRunning = false;
    m_clearedWhileRunning = false;
    m_isRunning = true;
    (*step.change.*way)();
    m_isRunning = false;
    count(step);
}

void History::setUndone(Step const& step, bool isUndone)
{
    for (std::shared_ptr<StepNote> const& note : step.notes) {
        note->isUndone = isUndone;
    }
}

void History::clear()
{
    m_clearedWhileRunning = m_isRunning;
    while (!m_done.empty()) {
        dropDone(m_done, m_done.begin());
    }
    forgetUndone();
    if (m_group) {
        keepStatesOf(m_open.front());
        m_open.front().dataSets.clear();
        m_group->parts.clear();
    }
    changed();
}

void History::setClean(UniqueId dataSet)
{
    auto const states = m_states.find(dataSet);
    if (states != m_states.end()) {
        states->second.saved = stateOf(dataSet);
        changed();
    }
}

bool History::isClean(UniqueId dataSet) const
{
    auto const states = m_states.find(dataSet);
    return states == m_states.end() || states->second.saved == stateOf(dataSet);
}

void History::setClean()
{
    for (auto& [dataSet, states] : m_states) {
        states.saved = stateOf(dataSet);
    }
    changed();
}

bool History::isClean() const
{
    return std::all_of(m_states.begin(), m_states.end(), [this](auto const& entry) { return isClean(entry.first); });
}

std::int64_t History::stateOf(UniqueId dataSet) const
{
    auto const changes = [dataSet](Step const& step) { return step.dataSets.count(dataSet) != 0; };
    if (std::any_of(m_open.begin(), m_open.end(), changes)) {
        return m_open.front().number;
    }
    auto const newest = std::find_if(m_done.rbegin(), m_done.rend(), changes);
    return newest != m_done.rend() ? newest->number : m_states.at(dataSet).dropped;
}

void History::setMemoryLimit(std::int64_t bytes)
{
    m_memoryLimit = bytes;
    trim();
    changed();
}

void History::forgetUndone()
{
    while (!m_undone.empty()) {
        drop(m_undone, m_undone.begin());
    }
}

void History::trim()
{
    if (m_isRunning) {
        return; // redo() counts on the steps before the running one; this is made up for when it has ended
    }
    while (bytes() > m_memoryLimit && !m_done.empty()) {
        dropDone(m_done, m_done.begin());
    }
    while (bytes() > m_memoryLimit && !m_undone.empty()) {
        drop(m_undone, std::prev(m_undone.end()));
    }
}

/// Drops a step whose change stays.
void History::dropDone(Steps& steps, Steps::iterator step)
{
    keepStatesOf(*step);
    drop(steps, step);
}

void History::keepStatesOf(Step const& step)
{
    for (UniqueId const dataSet : step.dataSets) {
        m_states.at(dataSet).dropped = step.number;
    }
}

void History::drop(Steps& steps, Steps::iterator step)
{
    m_held -= step->held;
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
        // The step has been carried out; that a menu could not follow does not matter.
    }
}

} // namespace veldraw::kernel
