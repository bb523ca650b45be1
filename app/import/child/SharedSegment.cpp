#include "app/import/child/SharedSegment.h"

#include "app/handover/Nonsense.h"

#include <fcntl.h>
#include <new>
#include <sys/mman.h>
#include <sys/stat.h>

namespace veldraw::app {

namespace {

// Only memory without a name can be closed in this way, so that nothing else is taken for it.
bool isClosedAgainstChanges(Descriptor const& file)
{
    constexpr int wanted = F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_WRITE;
    int const seals = ::fcntl(file.number(), F_GET_SEALS);
    return seals >= 0 && (seals & wanted) == wanted;
}

} // namespace

SharedSegment SharedSegment::of(Descriptor const& file)
{
    struct stat status
    {
    };
    if (!file.isOpen() || !isClosedAgainstChanges(file) || ::fstat(file.number(), &status) != 0 || status.st_size <= 0)
        throw Nonsense("shared memory that could change");
    auto const bytes = static_cast<std::size_t>(status.st_size);
    // Without reserve: the pages that will be written are few.
    void* const memory = ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_NORESERVE, file.number(), 0);
    if (memory == MAP_FAILED)
        throw std::bad_alloc();
    return {std::shared_ptr<void>(memory, [bytes](void* first) { ::munmap(first, bytes); }), bytes};
}

} // namespace veldraw::app
