#pragma once

#include "kernel/session/Session.h"

#include <exception>
#include <new>

namespace veldraw::kernel {

/// Runs something that either does its work or throws before it has changed anything. Nothing leaves it: what is
/// thrown becomes false, with the reason in the session.
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

/// The same for what changes something: it is refused while an operation computes, and takes an old cancel back.
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
