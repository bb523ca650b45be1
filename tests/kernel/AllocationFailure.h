#pragma once

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
