#pragma once

#include "kernel/compute/Progress.h"

#include <functional>
#include <string>

namespace veldraw::kernel {

class Waiter;

/// Runs @p work to its end: on a thread of its own while @p waiter waits for it on this one, or here when there is no
/// waiter.
/// @throws what the work throws, or what the waiter throws, which interrupts the work and is told when it has ended
void runInBackground(Waiter* waiter, std::string const& name, Progress& progress,
                     std::function<void(Progress&)> const& work);

} // namespace veldraw::kernel
