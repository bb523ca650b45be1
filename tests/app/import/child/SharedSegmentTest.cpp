#include "app/import/child/SharedSegment.h"

#include "app/handover/Nonsense.h"

#include <cstring>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

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

} // namespace veldraw::tests
