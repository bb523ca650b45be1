#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <string>

namespace veldraw::kernel {

/// Steps that can be taken back and done again, bounded by the memory that they hold; the oldest goes first.
class History
{
public:
    /// One change and its reverse. Both run with the data in exactly the state they left it in, so they need no checks;
    /// they send their own events. They must not throw: what they need is allocated when the step is made.
    struct Step
    {
        std::string name; ///< what the user saw, for instance "Delete Variable"
        std::function<void()> undo;
        std::function<void()> redo;
        std::int64_t bytes = 0; ///< memory that only the history holds
    };

    explicit History(std::int64_t memoryLimit);

    /// Adds a step and forgets what could have been redone. Within a group the step becomes a part of the group's one step.
    /// Either the step is in, or std::bad_alloc is thrown and the history is as it was: add the step first, then change.
    void add(Step step);

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

    std::int64_t bytes() const { return m_bytes; }
    void setMemoryLimit(std::int64_t bytes);

    /// Called after each change of the history, for menus. What it throws is swallowed.
    void setListener(std::function<void()> listener) { m_listener = std::move(listener); }

private:
    using Steps = std::list<Step>; // steps move between the lists without memory being asked for

    struct Group;

    void commit(Steps& step);
    void run(std::function<void()> const& way);
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
    std::int64_t m_bytes = 0;
    std::int64_t m_memoryLimit;
    std::int64_t m_position = 0;      // counts steps; grows and shrinks with do and undo
    std::int64_t m_cleanPosition = 0; // -1: the clean state cannot be reached any more
    std::function<void()> m_listener;
};

} // namespace veldraw::kernel
