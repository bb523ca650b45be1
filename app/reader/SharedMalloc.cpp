// Lets the large arrays that a library reads stand in memory that can be given to another process: stands before the system's malloc() in the
// program that this is linked into. The sanitizers have their own; there, arrays are copied once.

#include "app/reader/SharedBlocks.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <malloc.h>

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)

// The system's own functions, by the names that its manual gives to those that stand before them.
extern "C" void* __libc_malloc(std::size_t bytes);
extern "C" void* __libc_calloc(std::size_t count, std::size_t bytes);
extern "C" void* __libc_realloc(void* memory, std::size_t bytes);
extern "C" void __libc_free(void* memory);

using veldraw::app::SharedBlocks;

namespace {

void* copiedToBlock(void* memory, std::size_t bytes) noexcept
{
    void* const block = SharedBlocks::allocate(bytes);
    if (block && memory) {
        std::memcpy(block, memory, std::min(bytes, ::malloc_usable_size(memory)));
        __libc_free(memory);
    }
    return block;
}

} // namespace

extern "C" void* malloc(std::size_t bytes) noexcept
{
    void* const block = bytes < SharedBlocks::smallest ? nullptr : SharedBlocks::allocate(bytes);
    return block ? block : __libc_malloc(bytes);
}

extern "C" void* calloc(std::size_t count, std::size_t bytes) noexcept
{
    std::size_t whole = 0;
    bool const fits = !__builtin_mul_overflow(count, bytes, &whole);
    void* const block = fits && whole >= SharedBlocks::smallest ? SharedBlocks::allocate(whole) : nullptr;
    return block ? block : __libc_calloc(count, bytes);
}

extern "C" void free(void* memory) noexcept
{
    if (!SharedBlocks::release(memory))
        __libc_free(memory);
}

extern "C" void* realloc(void* memory, std::size_t bytes) noexcept
{
    if (SharedBlocks::has(memory)) {
        if (bytes == 0) {
            SharedBlocks::release(memory);
            return nullptr;
        }
        void* const block = SharedBlocks::resize(memory, bytes);
        if (!block)
            errno = ENOMEM;
        return block;
    }
    void* const block = bytes < SharedBlocks::smallest ? nullptr : copiedToBlock(memory, bytes);
    return block ? block : __libc_realloc(memory, bytes);
}

#else

// Lack of memory is told there too, instead of ending the process; what is left when that ends is of no interest.
extern "C" char const* __asan_default_options()
{
    return "allocator_may_return_null=1:detect_leaks=0";
}

#endif
