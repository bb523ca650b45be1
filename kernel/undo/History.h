#pragma once

#include "kernel/undo/Change.h"

#include <functional>
#include <list>
#include <memory>
#include <string>

namespace veldraw::kernel {

/// Steps that can be taken back and done again, bounded by the memory that they hold; the oldest goes first.
class History
{
public:
    /// What each step takes beside what its change tells: its place here, the change itself and short lists of numbers.
    static constexpr std::int64_t bytesOfStep = 768;

    explicit History(std::int64_t memoryLimit);

    /// Puts @p change in as the newest step, forgets what could have been redone, and applies the change. Within a group the
    /// step becomes a part of the group's one step.
    /// @param name what the user sees, for instance "Delete Variable"
    /// @throws std::bad_alloc before anything has changed
    void perform(std::string name, std::shared_ptr<Change> const& change);

    /// Steps between the outermost begin and end become one step called @p name; groups nest, the outermost names it.
    void beginGroup(std::string name);
    void endGroup();

    bool canUndo() const { return !m_done.empty(); }
    bool canRedo() const { return !m_undone.empty(); }
    std::string undoName() const; ///< name of the step that undo() would take back, else empty
    std::string redoName() const;

    /// @return false when there is nothing to take back, while a group is open, or while another step is running
    bool undo();
    bool redo();

    /// Forgets all steps, also those of an open group, which then goes on with what comes after.
    void clear();

    /// Marks the present state as saved; isClean() is true exactly while the history stands there.
    void setClean();
    bool isClean() const;

    /// Memory that the steps hold, those that can be redone included. Each is counted whenever it has run; the limit is for
    /// all of it.
    std::int64_t bytes() const { return m_held.sum(); }
    void setMemoryLimit(std::int64_t bytes);

    /// The part of it that holds values of fields.
    std::int64_t valueBytes() const { return m_held.values; }

    /// Called after each change of the history, for menus. What it throws is swallowed.
    void setListener(std::function<void()> listener) { m_listener = std::move(listener); }

private:
    struct Step
    {
        std::string name;
        std::shared_ptr<Change> change;
        HeldMemory held;
    };
    using Steps = std::list<Step>; // steps move between the lists without memory being asked for

    class Group;

    void add(Steps& step);
    void run(Step& step, void (Change::*way)());
    void countStepOf(Change const& change);
    void count(Step& step);
    void forgetUndone();
    void trim();
    void changed();
    void drop(Steps& steps, Steps::iterator step);

    Steps m_done;   // oldest first
    Steps m_undone; // the one to be done again next first
    Steps m_open;   // the step that the open group becomes, made when the group was opened
    std::shared_ptr<Group> m_group;
    int m_groupDepth = 0;
    bool m_isRunning = false; // a step is being taken back or done again
    bool m_addedWhileRunning = false;
    bool m_clearedWhileRunning = false;
    HeldMemory m_held;
    std::int64_t m_memoryLimit;
    std::int64_t m_position = 0;      // counts steps; grows and shrinks with do and undo
    std::int64_t m_cleanPosition = 0; // -1: the clean state cannot be reached any more
    std::function<void()> m_listener;
};

} // namespace veldraw::kernel
