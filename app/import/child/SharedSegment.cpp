#include "app/import/child/SharedSegment.h"

#include "app/handover/Nonsense.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <linux/magic.h>
#include <new>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace veldraw::app {

namespace {

// Only memory without a name can be closed in this way, so that nothing else is taken for it.
bool isClosedAgainstChanges(Descriptor const& file)
{
    constexpr int wanted = F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_WRITE;
    int const seals = ::fcntl(file.number(), F_GET_SEALS);
    return seals >= 0 && (seals & wanted) == wanted;
}

// Huge pages, which cannot be changed either, end whoever looks at them when there are none left.
bool isOfUsualPages(Descriptor const& file)
{
    struct statfs system
    {
    };
    return ::fstatfs(file.number(), &system) == 0 && system.f_type == TMPFS_MAGIC;
}

// For when the system maps no more pieces, though it has memory for them.
std::shared_ptr<void> copied(Descriptor const& file, std::size_t bytes)
{
    std::shared_ptr<void> memory(std::malloc(bytes), std::free);
    for (std::size_t done = 0; memory && done < bytes;) {
        ssize_t const count =
            ::pread(file.number(), static_cast<char*>(memory.get()) + done, bytes - done, static_cast<off_t>(done));
        if (count == 0 || (count < 0 && errno != EINTR))
            memory.reset();
        done += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

} // namespace

SharedSegment SharedSegment::of(Descriptor const& file)
{
    struct stat status
    {
    };
    if (!file.isOpen() || !isClosedAgainstChanges(file) || !isOfUsualPages(file) ||
        ::fstat(file.number(), &status) != 0 || status.st_size <= 0)
        throw Nonsense("shared memory that could change");
    auto const bytes = static_cast<std::size_t>(status.st_size);
    // Without reserve: the pages that will be written are few.
    void* const memory = ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_NORESERVE, file.number(), 0);
    if (memory == MAP_FAILED)
        return {copied(file, bytes), bytes};
    return {std::shared_ptr<void>(memory, [bytes](void* first) { ::munmap(first, bytes); }), bytes};
}

} // namespace veldraw::app
