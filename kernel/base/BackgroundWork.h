#pragma once

#include "kernel/base/Progress.h"

#include <functional>
#include <future>
#include <string>

namespace veldraw::kernel {

/// Waits on the user-interface thread while worker threads compute. An application installs a waiter to keep its window
/// responsive, to show progress and to let the user cancel.
class Waiter
{
public:
    virtual ~Waiter() = default;

    /// Returns when @p work is ready, never before, and does not take its result. It may run an event loop in the
    /// meantime, in which nothing may start another operation, and may interrupt @p progress.
    /// @param name of the operation, as the user will see it in the undo menu
    virtual void wait(std::string const& name, Progress& progress, std::shared_future<void> const& work) = 0;
};

/// Runs @p work to its end: on a thread of its own while @p waiter waits for it on this one, or here when there is no
/// waiter, or no thread to be had.
/// @throws what the work throws. An exception of the waiter interrupts the work and is rethrown when the work has ended.
void runInBackground(Waiter* waiter, std::string const& name, Progress& progress,
                     std::function<void(Progress&)> const& work);

} // namespace veldraw::kernel
