#pragma once

#include <cstdint>

/// Makes the n-th request for memory by this thread fail, and all others succeed.
class AllocationFailure
{
public:
    explicit AllocationFailure(int request);
    ~AllocationFailure();

    /// Whether the request that was to fail has come.
    bool hasHappened() const;

    AllocationFailure(AllocationFailure const&) = delete;
    AllocationFailure& operator=(AllocationFailure const&) = delete;
};

/// Memory that this thread has taken by new and not given back. Large buffers do not come that way.
std::int64_t allocatedBytes();
