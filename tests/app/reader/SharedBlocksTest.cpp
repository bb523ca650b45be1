#include "app/reader/SharedBlocks.h"

#include <cstring>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace veldraw::tests {

namespace {

using app::SharedBlocks;

constexpr std::size_t blockSize = std::size_t{3} << 20;

class SharedBlocksTest : public ::testing::Test
{
protected:
    ~SharedBlocksTest() override { SharedBlocks::release(block); }

    char* bytes() const { return static_cast<char*>(block); }

    void* block = SharedBlocks::allocate(blockSize);
};

} // namespace

TEST_F(SharedBlocksTest, AreMemoryOfZeros)
{
    ASSERT_NE(block, nullptr);
    EXPECT_TRUE(SharedBlocks::has(block));
    EXPECT_FALSE(SharedBlocks::has(bytes() + 4096));
    EXPECT_FALSE(SharedBlocks::has(nullptr));
    EXPECT_EQ(bytes()[0], 0);
    EXPECT_EQ(bytes()[blockSize - 1], 0);
}

TEST_F(SharedBlocksTest, KeepTheirBytesWhenTheyGrowOrShrink)
{
    std::memset(block, 7, blockSize);
    block = SharedBlocks::resize(block, 4 * blockSize);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(bytes()[blockSize - 1], 7);
    EXPECT_EQ(bytes()[blockSize], 0);
    std::memset(block, 8, 4 * blockSize);
    block = SharedBlocks::resize(block, blockSize / 2);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(bytes()[blockSize / 2 - 1], 8);
    int other = 0;
    EXPECT_EQ(SharedBlocks::resize(&other, blockSize), nullptr);
}

TEST_F(SharedBlocksTest, AreGivenAwayClosedAgainstChanges)
{
    std::memset(block, 7, blockSize);
    app::Descriptor const file = SharedBlocks::take(block);
    ASSERT_TRUE(file.isOpen());
    char last = 0;
    EXPECT_EQ(::pread(file.number(), &last, 1, blockSize - 1), 1);
    EXPECT_EQ(last, 7);
    EXPECT_EQ(::pwrite(file.number(), &last, 1, 0), -1);
    EXPECT_NE(::ftruncate(file.number(), 1), 0);
    EXPECT_NE(::ftruncate(file.number(), 2 * blockSize), 0);
    EXPECT_EQ(::mmap(nullptr, blockSize, PROT_READ | PROT_WRITE, MAP_SHARED, file.number(), 0), MAP_FAILED);
    EXPECT_FALSE(SharedBlocks::take(block).isOpen()) << "a second time";
}

TEST_F(SharedBlocksTest, KeepTheirAddressWhenTheyAreGivenAwayUntilTheyAreReleased)
{
    app::Descriptor const file = SharedBlocks::take(block);
    for (int n = 0; n < 20; ++n) {
        void* const another = SharedBlocks::allocate(blockSize);
        EXPECT_NE(another, block);
        EXPECT_TRUE(SharedBlocks::release(another));
    }
    EXPECT_TRUE(SharedBlocks::release(block));
    EXPECT_FALSE(SharedBlocks::release(block));
}

TEST_F(SharedBlocksTest, CloseTheirFilesWhenTheyAreReleased)
{
    int const next = ::open("/dev/null", O_RDONLY);
    ::close(next);
    EXPECT_TRUE(SharedBlocks::release(SharedBlocks::allocate(blockSize)));
    int const again = ::open("/dev/null", O_RDONLY);
    ::close(again);
    EXPECT_EQ(again, next);
}

// Small arrays need a file for all of them.
TEST_F(SharedBlocksTest, LeaveSomeOpenFilesForOthers)
{
    rlimit before{};
    ::getrlimit(RLIMIT_NOFILE, &before);
    rlimit const few{64, before.rlim_max};
    ::setrlimit(RLIMIT_NOFILE, &few);
    std::vector<void*> blocks;
    for (void* more = SharedBlocks::allocate(4096); more; more = SharedBlocks::allocate(4096))
        blocks.push_back(more);
    app::Descriptor const another(::memfd_create("test", MFD_CLOEXEC));
    ::setrlimit(RLIMIT_NOFILE, &before);
    for (void* const one : blocks)
        SharedBlocks::release(one);
    EXPECT_GT(blocks.size(), 10U);
    EXPECT_TRUE(another.isOpen());
}

} // namespace veldraw::tests
