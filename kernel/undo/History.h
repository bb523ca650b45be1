#pragma once

#include "kernel/base/Identifier.h"
#include "kernel/undo/Change.h"
#include "kernel/undo/StepNote.h"

#include <functional>
#include <list>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace veldraw::kernel {

/// Steps that can be undone and redone. When they hold more memory than the limit, the oldest are dropped.
///
/// A step is a name and a Change. The session adds the changes of its operations; a group makes one step of several:
///
///     session.history().beginGroup("Assign Axes");
///     session.perform(AssignVariable(frame, 'X', 1));
///     session.perform(AssignVariable(frame, 'Y', 2));
///     session.history().endGroup(); // undo() takes both back
class History
{
public:
    /// Memory that is counted for each step beyond Change::held(): its list entry, the change object, short lists and its note.
    static constexpr std::int64_t bytesOfStep = 1024;

    explicit History(std::int64_t memoryLimit);

    /// Adds @p change as the newest step, drops the steps that could be redone, and applies the change. Within a group the
    /// change becomes a part of the group's step.
    /// @param name what the user sees, for instance "Delete Variable"
    /// @param altered the data set that differs from its file by the change; 0 when nothing changes that a file holds
    /// @param note    told whenever the step is taken back or done again; may be null
    /// @throws std::bad_alloc before anything has changed
    void perform(std::string name, std::shared_ptr<Change> const& change, UniqueId altered = 0,
                 std::shared_ptr<StepNote> note = nullptr);

    /// Applies a change that goes on with the newest step, if that is of the same run and no group is open; else the same as perform().
    /// However long a run is, it holds one change: its first one, which swaps what the run changes with what was there before it.
    /// @param change one that a SwapChange of the same member has begun, and no data of a file
    /// @param run    of no other steps, not 0
    /// @param note   of the newest step, if it begins with this change; may be null
    /// @throws std::bad_alloc before anything has changed
    void performInRun(std::string name, std::shared_ptr<Change> const& change, UniqueId run,
                      std::shared_ptr<StepNote> note = nullptr);

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

    /// Drops all steps, also those of an open group; the group stays open.
    void clear();

    /// Marks the present state of a data set as saved. isClean() is true in this state, also when undo or redo comes back to it. A
    /// data set that no step has changed is clean.
    void setClean(UniqueId dataSet);
    bool isClean(UniqueId dataSet) const;

    /// The same for all data sets.
    void setClean();
    bool isClean() const;

    /// Memory that all steps hold, including those that can be redone. The limit is for this sum. A step is counted anew
    /// whenever it has run.
    std::int64_t bytes() const { return m_held.sum(); }
    void setMemoryLimit(std::int64_t bytes);

    /// The part of bytes() that is values of fields.
    std::int64_t valueBytes() const { return m_held.values; }

    /// Sets the function that is called after each change of the history, for menus. Its exceptions are ignored.
    void setListener(std::function<void()> listener) { m_listener = std::move(listener); }

private:
    struct Step
    {
        std::string name;
        std::shared_ptr<Change> change;
        HeldMemory held;
        std::int64_t number = 0;     // of no other step
        std::set<UniqueId> dataSets; // that differ from their files by it
        UniqueId run = 0;            // that it stands for, see performInRun()
        std::vector<std::shared_ptr<StepNote>> notes = {};
    };

    // The state of a data set is the number of the newest step that has changed it.
    struct States
    {
        std::int64_t saved = 0;
        std::int64_t dropped = 0; // when all its steps that are left are undone
    };
    using Steps = std::list<Step>; // steps move between the lists without memory being asked for

    class Group;

    void performStep(Steps& added, std::shared_ptr<StepNote> note);
    static void setUndone(Step const& step, bool isUndone);
    void add(Steps& step);
    void run(Step& step, void (Change::*way)());
    void countStepOf(Change const& change);
    void count(Step& step);
    void forgetUndone();
    void trim();
    void changed();
    void drop(Steps& steps, Steps::iterator step);
    void dropDone(Steps& steps, Steps::iterator step);
    void keepStatesOf(Step const& step);
    std::int64_t stateOf(UniqueId dataSet) const;

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
    std::int64_t m_lastNumber = 0;
    std::map<UniqueId, States> m_states; // of data sets that steps have changed
    std::function<void()> m_listener;
};

} // namespace veldraw::kernel
