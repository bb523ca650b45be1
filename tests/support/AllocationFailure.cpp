#include "tests/support/AllocationFailure.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <malloc.h>
#include <new>

namespace {

/// Counts requests, and tells which are to fail.
class RequestCount
{
public:
    void arm(int request, bool fromThenOn)
    {
        m_seen = 0;
        m_fromThenOn = fromThenOn;
        m_failing = request;
    }

    void disarm() { m_failing = 0; }

    bool failsNow()
    {
        int const failing = m_failing;
        if (failing == 0) {
            return false;
        }
        int const request = ++m_seen;
        return request == failing || (request > failing && m_fromThenOn);
    }

    bool hasFailed() const { return m_seen >= m_failing; }

private:
    std::atomic<int> m_failing{0}; // 0: none
    std::atomic<int> m_seen{0};
    std::atomic<bool> m_fromThenOn{false};
};

thread_local RequestCount ofThisThread;
RequestCount ofAllThreads;
RequestCount* armed = nullptr;
thread_local std::int64_t bytesTaken = 0;

bool failsNow()
{
    bool const failsHere = ofThisThread.failsNow();
    return ofAllThreads.failsNow() || failsHere;
}

void* request(std::size_t bytes, std::size_t alignment)
{
    if (failsNow()) {
        throw std::bad_alloc();
    }
    std::size_t const size = (bytes + alignment - 1) / alignment * alignment;
    void* const memory = std::aligned_alloc(alignment, size == 0 ? alignment : size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    bytesTaken += static_cast<std::int64_t>(malloc_usable_size(memory));
    return memory;
}

void* requestOrNull(std::size_t bytes) noexcept
{
    try {
        return request(bytes, alignof(std::max_align_t));
    } catch (std::bad_alloc const&) {
        return nullptr;
    }
}

void release(void* memory) noexcept
{
    bytesTaken -= static_cast<std::int64_t>(malloc_usable_size(memory));
    std::free(memory);
}

} // namespace

namespace veldraw::tests {

std::int64_t allocatedBytes()
{
    return bytesTaken;
}

AllocationFailure::AllocationFailure(int request, Lasting lasting, Threads threads)
{
    armed = threads == Threads::All ? &ofAllThreads : &ofThisThread;
    armed->arm(request, lasting == Lasting::FromThenOn);
}

AllocationFailure::~AllocationFailure()
{
    armed->disarm();
}

bool AllocationFailure::hasHappened() const
{
    return armed->hasFailed();
}

} // namespace veldraw::tests

void* operator new(std::size_t bytes)
{
    return request(bytes, alignof(std::max_align_t));
}

void* operator new[](std::size_t bytes)
{
    return request(bytes, alignof(std::max_align_t));
}

void* operator new(std::size_t bytes, std::align_val_t alignment)
{
    return request(bytes, static_cast<std::size_t>(alignment));
}

// std::stable_sort asks this way for its buffer. Its memory comes back through the same delete.
void* operator new(std::size_t bytes, std::nothrow_t const&) noexcept
{
    return requestOrNull(bytes);
}

void* operator new[](std::size_t bytes, std::nothrow_t const&) noexcept
{
    return requestOrNull(bytes);
}

void operator delete(void* memory) noexcept
{
    release(memory);
}

void operator delete[](void* memory) noexcept
{
    release(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    release(memory);
}

void operator delete[](void* memory, std::size_t) noexcept
{
    release(memory);
}

void operator delete(void* memory, std::align_val_t) noexcept
{
    release(memory);
}

void operator delete(void* memory, std::size_t, std::align_val_t) noexcept
{
    release(memory);
}
