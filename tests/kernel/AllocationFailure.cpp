#include "AllocationFailure.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

thread_local int requestsUntilFailure = 0; // 0: none fails

bool failsNow()
{
    return requestsUntilFailure > 0 && --requestsUntilFailure == 0;
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
    return memory;
}

} // namespace

AllocationFailure::AllocationFailure(int request)
{
    requestsUntilFailure = request;
}

AllocationFailure::~AllocationFailure()
{
    requestsUntilFailure = 0;
}

bool AllocationFailure::hasHappened() const
{
    return requestsUntilFailure == 0;
}

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

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::align_val_t) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t, std::align_val_t) noexcept
{
    std::free(memory);
}
