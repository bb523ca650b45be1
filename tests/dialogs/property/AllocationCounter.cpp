#include "tests/dialogs/property/AllocationCounter.h"

#include <cstdlib>
#include <new>

namespace {

thread_local std::size_t count = 0;

} // namespace

void* operator new(std::size_t size)
{
    ++count;
    if (void* const memory = std::malloc(size ? size : 1))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace veldraw::tests {

std::size_t allocationCount()
{
    return count;
}

} // namespace veldraw::tests
