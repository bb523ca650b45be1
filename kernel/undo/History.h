#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

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

    /// Adds a step that has just been done and forgets what could have been redone.
    /// Within a group the step becomes a part of the group's one step.
    void add(Step step);

    /// Steps between the outermost begin and end become one step called @p name; groups nest, the outermost names it.
    void beginGroup(std::string name);
    void endGroup();

    bool canUndo() const { return !m_done.empty(); }
    bool canRedo() const { return !m_undone.empty(); }
    std::string undoName() const; ///< name of the step that undo() would take back, else empty
    std::string redoName() const;

    /// @return false when there is nothing to take back, or while a group is open
    bool undo();
    bool redo();

    void clear();

    /// Marks the present state as saved; isClean() is true exactly while the history stands there.
    void setClean();
    bool isClean() const { return m_position == m_cleanPosition; }

    std::int64_t bytes() const { return m_bytes; }
    void setMemoryLimit(std::int64_t bytes);

    /// Called after each change of the history, for menus.
    void setListener(std::function<void()> listener) { m_listener = std::move(listener); }

private:
    void trim();
    void changed();

    std::deque<Step> m_done;
    std::vector<Step> m_undone;
    std::vector<Step> m_group;
    std::string m_groupName;
    int m_groupDepth = 0;
    std::int64_t m_bytes = 0;
    std::int64_t m_memoryLimit;
    std::int64_t m_position = 0;      // counts steps; grows and shrinks with do and undo
    std::int64_t m_cleanPosition = 0; // -1: the clean state cannot be reached any more
    std::function<void()> m_listener;
};

} // namespace veldraw::kernel
