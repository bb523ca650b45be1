#include "app/reader/SharedBlocks.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <unistd.h>

namespace veldraw::app {

namespace {

constexpr std::uintptr_t bytesOfPage = 4096;
constexpr std::size_t mostBlocks = 4096;
constexpr rlim_t filesForOthers = 16;

struct Block
{
    void* address;
    std::size_t bytes;
    int descriptor; // -1 once it has been taken
};

// Ready before any constructor runs: memory is asked for long before main().
std::array<Block, mostBlocks> blocks{};
std::size_t used = 0; // of blocks; those beyond have never been
std::atomic_flag busy = ATOMIC_FLAG_INIT;

// A mutex could take memory.
class Lock
{
public:
    Lock() noexcept
    {
        while (busy.test_and_set(std::memory_order_acquire)) {
        }
    }
    ~Lock() { busy.clear(std::memory_order_release); }

    Lock(Lock const&) = delete;
    Lock& operator=(Lock const&) = delete;
};

Block* find(void const* address) noexcept
{
    for (std::size_t n = 0; n < used; ++n) {
        if (blocks[n].address == address)
            return &blocks[n];
    }
    return nullptr;
}

Block* findUnused() noexcept
{
    if (Block* const unused = find(nullptr))
        return unused;
    return used < mostBlocks ? &blocks[used++] : nullptr;
}

// Most addresses are no block's, and known by their lowest bits not to be.
bool mayBeBlock(void const* address) noexcept
{
    return address && reinterpret_cast<std::uintptr_t>(address) % bytesOfPage == 0;
}

// Some files are left for everything else that needs one.
bool isAmongTheLast(int descriptor) noexcept
{
    rlimit limits{};
    return ::getrlimit(RLIMIT_NOFILE, &limits) == 0 &&
           static_cast<rlim_t>(descriptor) + filesForOthers >= limits.rlim_cur;
}

bool fill(Block& block, std::size_t bytes) noexcept
{
    int const descriptor = ::memfd_create("values", MFD_CLOEXEC | MFD_ALLOW_SEALING);
    if (descriptor < 0)
        return false;
    if (isAmongTheLast(descriptor)) {
        ::close(descriptor);
        return false;
    }
    void* const memory = ::ftruncate(descriptor, static_cast<off_t>(bytes)) == 0
                             ? ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_NORESERVE, descriptor, 0)
                             : MAP_FAILED;
    if (memory == MAP_FAILED) {
        ::close(descriptor);
        return false;
    }
    block = {memory, bytes, descriptor};
    return true;
}

} // namespace

void* SharedBlocks::allocate(std::size_t bytes) noexcept
{
    Lock const lock;
    Block* const block = findUnused();
    return block && fill(*block, bytes) ? block->address : nullptr;
}

bool SharedBlocks::has(void const* address) noexcept
{
    if (!mayBeBlock(address))
        return false;
    Lock const lock;
    return find(address) != nullptr;
}

void* SharedBlocks::resize(void* block, std::size_t bytes) noexcept
{
    Lock const lock;
    Block* const found = find(block);
    if (!found || found->descriptor < 0 || bytes == 0)
        return nullptr;
    if (bytes > found->bytes && ::ftruncate(found->descriptor, static_cast<off_t>(bytes)) != 0)
        return nullptr;
    void* const memory = ::mremap(found->address, found->bytes, bytes, MREMAP_MAYMOVE);
    if (memory == MAP_FAILED)
        return nullptr;
    if (bytes < found->bytes && ::ftruncate(found->descriptor, static_cast<off_t>(bytes)) != 0)
        errno = 0; // it keeps what it has
    *found = {memory, bytes, found->descriptor};
    return memory;
}

bool SharedBlocks::release(void* address) noexcept
{
    if (!mayBeBlock(address))
        return false;
    Lock const lock;
    Block* const block = find(address);
    if (!block)
        return false;
    ::munmap(block->address, block->bytes);
    if (block->descriptor >= 0)
        ::close(block->descriptor);
    *block = {};
    return true;
}

// The address stays taken as long as the block is not released: else another one could come to stand there.
Descriptor SharedBlocks::take(void const* block) noexcept
{
    Lock const lock;
    Block* const found = find(block);
    if (!found || found->descriptor < 0)
        return Descriptor();
    if (::mmap(found->address, found->bytes, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE | MAP_FIXED, -1,
               0) == MAP_FAILED)
        return Descriptor();
    Descriptor result(found->descriptor);
    found->descriptor = -1;
    return sealed(result.number()) ? std::move(result) : Descriptor();
}

bool sealed(int descriptor) noexcept
{
    return ::fcntl(descriptor, F_ADD_SEALS, F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_WRITE | F_SEAL_SEAL) == 0;
}

} // namespace veldraw::app
