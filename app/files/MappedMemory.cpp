#include "app/files/MappedMemory.h"

#include "app/files/ImportError.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <mutex>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace veldraw::app {

namespace {

// The mappings that there are, for the signal handler: it may use nothing but atomic numbers.
struct Range
{
    std::atomic<std::uintptr_t> first{0}; // 0: not used
    std::atomic<std::uintptr_t> last{0};
};

constexpr std::size_t mostRanges = 4096;

std::array<Range, mostRanges> ranges;
std::atomic<int> missingPages{0};
std::mutex rangesMutex;
std::uintptr_t pageSize = 4096;
struct sigaction previous;

bool isMapped(std::uintptr_t address)
{
    for (Range const& range : ranges) {
        std::uintptr_t const first = range.first.load();
        if (first != 0 && address >= first && address < range.last.load())
            return true;
    }
    return false;
}

// Puts a page of zeros where the file has no bytes any more; faults of anybody else go where they went before.
void handleBusError(int, siginfo_t* info, void*)
{
    auto const address = reinterpret_cast<std::uintptr_t>(info->si_addr);
    auto* const page = reinterpret_cast<void*>(address / pageSize * pageSize);
    if (isMapped(address) &&
        ::mmap(page, pageSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED, -1, 0) != MAP_FAILED) {
        ++missingPages;
        return;
    }
    ::sigaction(SIGBUS, &previous, nullptr); // the same instruction faults again
}

void installHandler()
{
    pageSize = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    struct sigaction action
    {
    };
    action.sa_sigaction = handleBusError;
    action.sa_flags = SA_SIGINFO;
    ::sigemptyset(&action.sa_mask);
    ::sigaction(SIGBUS, &action, &previous);
}

// @return null when there are too many
Range* claimRange(std::uintptr_t first, std::uintptr_t last)
{
    static std::once_flag once;
    std::call_once(once, installHandler);
    std::lock_guard<std::mutex> const lock(rangesMutex);
    for (Range& range : ranges) {
        if (range.first.load() == 0) {
            range.last = last;
            range.first = first;
            return &range;
        }
    }
    return nullptr;
}

void checkSize(int descriptor, std::int64_t needed, std::string const& path)
{
    struct stat status
    {
    };
    if (::fstat(descriptor, &status) != 0)
        throw ImportError("\"" + path + "\": " + std::strerror(errno));
    if (status.st_size < needed)
        throw ImportError("\"" + path + "\" has " + std::to_string(status.st_size) + " bytes where " +
                          std::to_string(needed) + " are needed");
}

} // namespace

std::shared_ptr<void> mapFile(int descriptor, std::int64_t offset, std::int64_t bytes, std::string const& path)
{
    checkSize(descriptor, offset + bytes, path);
    std::int64_t const start = offset / ::sysconf(_SC_PAGESIZE) * ::sysconf(_SC_PAGESIZE);
    auto const length = static_cast<std::size_t>(offset + bytes - start);
    // Without reserve: the pages that will be written are few, whatever the size of the file.
    void* const memory =
        ::mmap(nullptr, length, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_NORESERVE, descriptor, start);
    if (memory == MAP_FAILED)
        throw ImportError("\"" + path + "\" cannot be mapped: " + std::strerror(errno));
    auto const address = reinterpret_cast<std::uintptr_t>(memory);
    Range* const range = claimRange(address, address + length);
    std::shared_ptr<void> const mapping(memory, [length, range](void* first) {
        if (range)
            range->first = 0;
        ::munmap(first, length);
    });
    if (!range)
        throw ImportError("too many files are mapped");
    return {mapping, static_cast<char*>(memory) + (offset - start)};
}

int missingMappedPages()
{
    return missingPages;
}

} // namespace veldraw::app
