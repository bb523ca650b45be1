#pragma once

#include "kernel/frames/Session.h"

#include <exception>
#include <new>

namespace veldraw::kernel {

/// Runs something that either does its work or throws before it has changed anything. Nothing leaves it: what is
/// thrown becomes false, with the reason in the session.
template <typename Operation>
bool withoutThrowing(Session& session, Operation const& operation) noexcept
{
    try {
        return operation();
    } catch (std::bad_alloc const&) {
        return session.refuse("Out of memory.");
    } catch (std::exception const& error) {
        return session.refuse(error.what());
    } catch (...) {
        return session.refuse("The operation failed.");
    }
}

/// The same for what changes something: it is refused while another operation computes, and takes an old cancel back.
template <typename Operation>
bool guarded(Session& session, Operation const& operation) noexcept
{
    if (session.isBusy()) {
        return session.refuse("Another operation is running.");
    }
    return withoutThrowing(session, [&] {
        session.setInterrupted(false);
        return operation();
    });
}

} // namespace veldraw::kernel
