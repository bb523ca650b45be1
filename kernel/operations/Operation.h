#pragma once

#include "kernel/base/Progress.h"

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
/// The members below are called by the session alone, in the order in which they stand here. What all operations have in
/// common (one at a time, the data set's lock, loading, the thread that computes, cancel, history, the reason of a refusal) is
/// the session's work. Derive from DataSetOperation or FrameOperation. What changes no data and no page, such as a pick, is none.
class Operation
{
public:
    Operation() = default;
    virtual ~Operation() = default;

    /// What the undo menu and the progress window call it, for instance "Delete Variable".
    virtual std::string name() const = 0;

    /// Finds what the operation is about. @return why it is not there, empty when it is. @throws std::bad_alloc
    virtual std::string find(Pages const& pages) = 0;

    /// The data set whose lock forbids the operation; null when no lock does.
    virtual DataSet const* lockable() const { return nullptr; }

    /// Why it cannot be carried out, empty when it can. It may be told in a message box. @throws std::bad_alloc
    virtual std::string reasonAgainst() const { return {}; }

    /// Whether it needs values that may have to be loaded, or computes: then needs() and compute() are called.
    virtual bool isLong() const { return false; }

    /// The values and dimensions that compute() reads. @return never null. @throws std::bad_alloc
    virtual std::shared_ptr<DeferredLoad> needs() { return nullptr; }

    /// Computes aside, with all that is needed at hand and nothing changed. May be called on any thread, and again when memory
    /// was refused and room has been made. @throws Interrupted, std::bad_alloc, std::exception with a reason
    virtual void compute(Progress& progress) { static_cast<void>(progress); }

    /// The step for the history; null when nothing changes. @param events where the step tells of itself
    /// @throws std::bad_alloc
    virtual std::shared_ptr<Change> makeChange(EventHub& events) = 0;

    /// Whether what has been loaded stays also without a change. Loading alone is no step of the history.
    virtual bool onlyLoads() const { return false; }

    /// What an operation that has succeeded did not do, in words for the message log; empty when there is no such thing.
    virtual std::string remark() const { return {}; }

    Operation(Operation const&) = delete;
    Operation& operator=(Operation const&) = delete;
};

/// Who carries out operations: the session, for those who need no more of it.
class OperationPerformer
{
public:
    OperationPerformer() = default;
    virtual ~OperationPerformer() = default;

    /// @return false when it was refused or failed: nothing has changed then, and lastError() tells the reason
    virtual bool perform(Operation& operation) noexcept = 0;
    bool perform(Operation&& operation) noexcept { return perform(operation); }

    /// Why the last refused operation was refused, in words for the message log.
    virtual std::string const& lastError() const = 0;

    OperationPerformer(OperationPerformer const&) = delete;
    OperationPerformer& operator=(OperationPerformer const&) = delete;
};

} // namespace veldraw::kernel
