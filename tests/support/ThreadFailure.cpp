#include "tests/support/ThreadFailure.h"

#include <atomic>
#include <cerrno>
#include <dlfcn.h>
#include <pthread.h>

namespace {

std::atomic<bool> areRefused{false};
std::atomic<int> refusedThreads{0};

} // namespace

/// Stands in front of the system's function of this name.
extern "C" int pthread_create(pthread_t* thread, pthread_attr_t const* attributes, void* (*start)(void*),
                              void* argument) noexcept
{
    if (areRefused) {
        ++refusedThreads;
        return EAGAIN;
    }
    static auto const ofSystem = reinterpret_cast<decltype(&pthread_create)>(dlsym(RTLD_NEXT, "pthread_create"));
    return ofSystem(thread, attributes, start, argument);
}

namespace veldraw::tests {

ThreadFailure::ThreadFailure()
{
    refusedThreads = 0;
    areRefused = true;
}

ThreadFailure::~ThreadFailure()
{
    areRefused = false;
}

int ThreadFailure::refused() const
{
    return refusedThreads;
}

} // namespace veldraw::tests
