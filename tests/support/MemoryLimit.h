#pragma once

#include <functional>

namespace veldraw::tests {

/// Has the kernel believe that the machine has this much memory available, however much of it is used, as long as the object lives.
class MemoryLimit
{
public:
    explicit MemoryLimit(double bytes);
    ~MemoryLimit();

    MemoryLimit(MemoryLimit const&) = delete;
    MemoryLimit& operator=(MemoryLimit const&) = delete;
};

/// The least whole number of bytes, up to @p most, as a limit below which something can be done.
double leastMemory(std::function<bool()> const& isDone, double most = 1e9);

} // namespace veldraw::tests
