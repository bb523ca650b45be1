#pragma once

#include "kernel/session/Session.h"

#include <cstdint>

namespace veldraw::tests {

/// Makes the n-th request for memory fail, and as long as the object lives perhaps all after it.
class AllocationFailure
{
public:
    /// How long the lack of memory lasts.
    enum class Lasting
    {
        Once,
        FromThenOn
    };

    /// Whose requests count: with those of other threads the order of requests may differ from one time to the next.
    enum class Threads
    {
        ThisOne,
        All
    };

    explicit AllocationFailure(int request, Lasting lasting = Lasting::Once, Threads threads = Threads::ThisOne);
    ~AllocationFailure();

    /// Whether the request that was to fail has come.
    bool hasHappened() const;

    AllocationFailure(AllocationFailure const&) = delete;
    AllocationFailure& operator=(AllocationFailure const&) = delete;
};

/// What @p operation answers; refused, as by the C functions, when there is no memory even to make the operation.
template <typename Operation>
bool refusedWithoutMemory(kernel::Session& session, Operation const& operation)
{
    try {
        return operation();
    } catch (std::bad_alloc const&) {
        return session.refuse("Out of memory.");
    }
}

/// Memory that this thread has taken by new and not given back. Large buffers do not come that way.
std::int64_t allocatedBytes();

} // namespace veldraw::tests
