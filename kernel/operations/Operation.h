#pragma once

#include "kernel/base/Identifier.h"
#include "kernel/base/Progress.h"
#include "kernel/operations/CommandText.h"

#include <memory>
#include <string>

namespace veldraw::kernel {

class Change;
class DataSet;
class DeferredLoad;
class EventHub;
class Pages;

/// Something that a user does to data or pages: it is checked first, then carried out whole or not at all, as one step of
/// the history.
///
/// An operation is made from its parameters, given to Session::perform() once, and dropped:
///
///     bool const isDone = session.perform(DeleteVariables(dataSet, {3, 5}));
///
/// Only the session calls the members below: find() first, then the reasons against the operation, needs() and compute() where it
/// is long, makeChange(), and remark() when it has succeeded; name(), command(), run() and onlyLoads() at any time after find(). It also does what all operations have in
/// common: it runs one at a time, refuses one whose data set is locked, loads values, computes on a separate thread, stops after a
/// cancel, adds the step to the history and stores the reason of a refusal.
///
/// Derive a new operation from DataSetOperation or FrameOperation. Make none for what changes no data and no page, such as
/// a pick.
class Operation
{
public:
    Operation() = default;
    virtual ~Operation() = default;

    /// What the undo menu and the progress window call it, for instance "Delete Variable".
    virtual std::string name() const = 0;

    /// The operation as a command, by which it can be repeated on the same data; empty where no command stands for it. After find().
    /// @throws std::bad_alloc
    virtual CommandText command() const = 0;

    /// The frame or data set that it is about; 0 for the active one.
    virtual UniqueId subject() const { return 0; }

    /// Finds the data set, frame or page that the operation changes. @return why there is none, empty when it was found.
    /// @throws std::bad_alloc
    virtual std::string find(Pages const& pages) = 0;

    /// The data set that must not be locked for the operation; null when a lock does not matter, as for a new name.
    virtual DataSet const* lockable() const { return nullptr; }

    /// The data set that differs from its file when the step is done; null where nothing changes that a file holds, as in plots.
    virtual DataSet const* altered() const { return lockable(); }

    /// Why the operation cannot be carried out, as a sentence for a message box; empty when it can. @throws std::bad_alloc
    virtual std::string reasonAgainst() const { return {}; }

    /// Whether needs() and compute() are called: true for an operation that computes, or needs values that may not be loaded.
    virtual bool isLong() const { return false; }

    /// The values and dimensions that compute() reads. @return never null. @throws std::bad_alloc
    virtual std::shared_ptr<DeferredLoad> needs() { return nullptr; }

    /// Computes the results, without changing the data set, once all that needs() names has been loaded. It may run on any
    /// thread. When it throws std::bad_alloc, the session may free memory and call it again.
    /// @throws Interrupted, std::bad_alloc, std::exception with a reason
    virtual void compute(Progress& progress) { static_cast<void>(progress); }

    /// The step for the history; null when nothing changes. @param events takes the events of the step
    /// @throws std::bad_alloc
    virtual std::shared_ptr<Change> makeChange(EventHub& events) = 0;

    /// What the step goes on with, if the newest one is of the same run: many small ones, such as those of a drag, are one for whoever undoes.
    /// 0, as for most: a step of its own. Otherwise see History::performInRun().
    virtual UniqueId run() const { return 0; }

    /// Whether the operation does nothing but load: what was loaded stays, though there is no step for the history.
    virtual bool onlyLoads() const { return false; }

    /// Text for the message log on what an operation that succeeded did not do; empty when it did everything.
    virtual std::string remark() const { return {}; }

    Operation(Operation const&) = delete;
    Operation& operator=(Operation const&) = delete;
};

/// Carries out operations. The session implements it; code that needs no more of the session takes this.
class OperationPerformer
{
public:
    OperationPerformer() = default;
    virtual ~OperationPerformer() = default;

    /// @return false when the operation was refused or failed. Nothing has changed then, and lastError() gives the reason.
    virtual bool perform(Operation& operation) noexcept = 0;
    bool perform(Operation&& operation) noexcept { return perform(operation); }

    /// Why the last refused operation was refused, in words for the message log.
    virtual std::string const& lastError() const = 0;

    OperationPerformer(OperationPerformer const&) = delete;
    OperationPerformer& operator=(OperationPerformer const&) = delete;
};

} // namespace veldraw::kernel
