#include "app/import/child/SharedSegment.h"

#include "app/handover/Nonsense.h"

#include <cstring>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

namespace veldraw::tests {

namespace {

app::Descriptor memoryWith(std::string const& text, int seals)
{
    app::Descriptor file(::memfd_create("test", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    EXPECT_EQ(::write(file.number(), text.data(), text.size()), static_cast<ssize_t>(text.size()));
    EXPECT_EQ(::fcntl(file.number(), F_ADD_SEALS, seals), 0);
    return file;
}

constexpr int allSeals = F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_WRITE;

} // namespace

TEST(SharedSegment, ShowsWhatAnotherProcessHasWritten)
{
    app::Descriptor file = memoryWith("values", allSeals);
    app::SharedSegment const segment = app::SharedSegment::of(file);
    file.reset();
    EXPECT_EQ(segment.bytes, 6U);
    EXPECT_EQ(std::memcmp(segment.memory.get(), "values", 6), 0);
}

TEST(SharedSegment, KeepsToItselfWhatIsWrittenToIt)
{
    app::Descriptor const file = memoryWith("values", allSeals);
    app::SharedSegment const segment = app::SharedSegment::of(file);
    static_cast<char*>(segment.memory.get())[0] = 'V';
    char first = 0;
    EXPECT_EQ(::pread(file.number(), &first, 1, 0), 1);
    EXPECT_EQ(first, 'v');
}

TEST(SharedSegment, IsRefusedAsLongAsSomebodyCouldAlterIt)
{
    for (int const seals : {0, F_SEAL_SHRINK, F_SEAL_SHRINK | F_SEAL_GROW, F_SEAL_GROW | F_SEAL_WRITE})
        EXPECT_THROW(app::SharedSegment::of(memoryWith("values", seals)), app::Nonsense) << seals;
}

TEST(SharedSegment, IsRefusedWhereItIsNoMemory)
{
    EXPECT_THROW(app::SharedSegment::of(app::Descriptor()), app::Nonsense);
    EXPECT_THROW(app::SharedSegment::of(app::Descriptor(::open("/dev/zero", O_RDONLY | O_CLOEXEC))), app::Nonsense);
    EXPECT_THROW(app::SharedSegment::of(app::Descriptor(::open("/proc/self/exe", O_RDONLY | O_CLOEXEC))),
                 app::Nonsense);
    EXPECT_THROW(app::SharedSegment::of(memoryWith("", allSeals)), app::Nonsense);
}

// Which could be closed against changes as others, and ends who looks at it when the system has none of them.
TEST(SharedSegment, IsRefusedWhereItHasHugePages)
{
    app::Descriptor const file(::memfd_create("test", MFD_CLOEXEC | MFD_ALLOW_SEALING | MFD_HUGETLB));
    bool const isThere = file.isOpen() && ::ftruncate(file.number(), off_t{1} << 30) == 0 &&
                         ::fcntl(file.number(), F_ADD_SEALS, allSeals) == 0;
    EXPECT_THROW(app::SharedSegment::of(file), app::Nonsense) << (isThere ? "huge pages" : "no such memory here");
}

#if !defined(__SANITIZE_ADDRESS__) &&                                                                                  \
    !defined(__SANITIZE_THREAD__) // which maps memory itself, and ends where it gets none
TEST(SharedSegment, IsCopiedWhereTheSystemMapsNoMorePieces)
{
    app::Descriptor const file = memoryWith("values", allSeals);
    std::vector<void*> pieces;
    std::size_t const page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    pieces.reserve(200000);
    for (void* piece = nullptr; pieces.size() < 200000; pieces.push_back(piece)) {
        int const rights = pieces.size() % 2 == 0 ? PROT_READ : PROT_NONE; // neighbours alike would become one piece
        piece = ::mmap(nullptr, page, rights, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (piece == MAP_FAILED)
            break;
    }
    bool const isFull = ::mmap(nullptr, page, PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0) == MAP_FAILED;
    std::string seen;
    try {
        app::SharedSegment const segment = app::SharedSegment::of(file);
        seen.assign(static_cast<char const*>(segment.memory.get()), segment.bytes);
    } catch (std::bad_alloc const&) {
        seen = "no memory";
    }
    for (void* const piece : pieces)
        ::munmap(piece, page);
    EXPECT_TRUE(isFull) << pieces.size();
    EXPECT_EQ(seen, "values");
}
#endif

} // namespace veldraw::tests
