#include "kernel/base/SystemMemory.h"

#include <cstdio>
#include <cstring>
#include <limits>
#include <malloc.h>
#include <memory>
#include <new>
#include <sys/mman.h>

namespace veldraw::kernel {

double availableMemory()
{
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> const file(std::fopen("/proc/meminfo", "r"), &std::fclose);
    double kibibytes = 0;
    bool isKnown = false;
    char line[128];
    while (file && std::fgets(line, sizeof line, file.get()) != nullptr) {
        double amount = 0;
        if (std::sscanf(line, "MemAvailable: %lf", &amount) == 1 || std::sscanf(line, "SwapFree: %lf", &amount) == 1) {
            kibibytes += amount;
            isKnown = true;
        }
    }
    return isKnown ? kibibytes * 1024 : std::numeric_limits<double>::infinity();
}

void requireMemory(double bytes, double available)
{
    if (bytes > available) {
        throw NotEnoughMemory(bytes - available);
    }
}

void returnFreedMemory() noexcept
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

namespace {

constexpr std::size_t alignment = 64;
constexpr std::size_t hugePage = std::size_t{2} << 20U;
constexpr std::size_t worthAHugePage = hugePage / 4 * 3; // of the last one of an array

std::shared_ptr<void> allocateOnHugePages(std::size_t bytes)
{
    std::size_t const rest = bytes % hugePage;
    std::size_t const advised = rest < worthAHugePage ? bytes : bytes - rest + hugePage;
    std::size_t const length = advised + hugePage; // room to begin at a huge page's border
    void* const mapped = mmap(nullptr, length, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED) {
        throw std::bad_alloc();
    }
    std::shared_ptr<void> const mapping(mapped, [length](void* memory) { munmap(memory, length); });
    std::size_t const misfit = reinterpret_cast<std::uintptr_t>(mapped) % hugePage;
    void* const begin = static_cast<char*>(mapped) + (misfit == 0 ? 0 : hugePage - misfit);
    madvise(begin, advised, MADV_HUGEPAGE); // a hint: where the system has none, small pages do
    return {mapping, begin};
}

std::shared_ptr<void> allocateOnHeap(std::size_t bytes)
{
    void* const memory = ::operator new (bytes, std::align_val_t{alignment});
    std::memset(memory, 0, bytes);
    return {memory, [](void* old) { ::operator delete (old, std::align_val_t{alignment}); }};
}

} // namespace

std::shared_ptr<void> allocateZeroed(std::int64_t bytes)
{
    std::size_t const size = bytes < 1 ? 1 : static_cast<std::size_t>(bytes);
    return size >= hugePage + worthAHugePage ? allocateOnHugePages(size) : allocateOnHeap(size);
}

} // namespace veldraw::kernel
