#include "kernel/base/BlockMemory.h"

#include "tests/support/AllocationFailure.h"

#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>

namespace veldraw::tests {

using kernel::BlockMemory;

TEST(BlockMemory, GivesBlocksOfAnySizeThatDoNotOverlap)
{
    BlockMemory memory;
    std::vector<std::pair<unsigned char*, std::size_t>> blocks;
    for (std::size_t at = 0; at < 3000; ++at) {
        std::size_t const size = at == 1000 ? std::size_t{9} << 20U : 1 + at * 7 % 5000;
        blocks.emplace_back(static_cast<unsigned char*>(memory.take(size)), size);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(blocks.back().first) % alignof(std::max_align_t), 0U);
        std::memset(blocks.back().first, static_cast<int>(at % 251), size);
    }
    for (std::size_t at = 0; at < blocks.size(); ++at) {
        auto const [first, size] = blocks[at];
        EXPECT_TRUE(first[0] == at % 251 && std::memcmp(first, first + 1, size - 1) == 0) << at;
    }
}

TEST(BlockMemory, GivesEverythingBackAtItsEnd)
{
    std::int64_t const before = allocatedBytes();
    {
        BlockMemory memory;
        for (std::size_t size = 1; size < 200000; size *= 2) {
            memory.take(size);
        }
        EXPECT_GT(allocatedBytes(), before);
    }
    EXPECT_EQ(allocatedBytes(), before);
}

TEST(BlockMemory, UsesAChunkToItsEnd)
{
    BlockMemory memory;
    memory.take(1024);
    memory.take(512);
    memory.take(256); // from a chunk of 768, half of what was taken
    std::int64_t const before = allocatedBytes();
    memory.take(512);
    EXPECT_EQ(allocatedBytes(), before);
    memory.take(1);
    EXPECT_GT(allocatedBytes(), before);
}

TEST(BlockMemory, CanBeAskedAgainWhereThereWasNoMemory)
{
    BlockMemory memory;
    memory.take(100);
    for (int request = 1; request <= 2; ++request) {
        AllocationFailure const failure(request);
        EXPECT_THROW(memory.take(100000), std::bad_alloc);
    }
    std::memset(memory.take(100000), 1, 100000);
}

} // namespace veldraw::tests
