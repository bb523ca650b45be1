#pragma once

#include "kernel/session/Session.h"

#include <exception>
#include <new>

namespace veldraw::kernel {

/// Runs work that throws only before it has changed anything. An exception becomes the result false, with its reason in
/// lastError().
template <typename Work>
bool Session::withoutThrowing(Work const& work) noexcept
{
    try {
        return work();
    } catch (std::bad_alloc const&) {
        return refuse("Out of memory.");
    } catch (std::exception const& error) {
        return refuse(error.what());
    } catch (...) {
        return refuse("The operation failed.");
    }
}

/// The same for work that changes something: it is refused while an operation computes, and it resets an old cancel.
template <typename Work>
bool Session::guarded(Work const& work) noexcept
{
    if (isBusy()) {
        return refuse("Another operation is running.");
    }
    return withoutThrowing([&] {
        setInterrupted(false);
        return work();
    });
}

} // namespace veldraw::kernel
