#include "kernel/base/ExactMemory.h"

#include "tests/support/AllocationFailure.h"

#include <algorithm>
#include <cstdint>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace veldraw::tests {

using kernel::ExactMemory;

namespace {

/// A piece of memory, each byte of which has a value of its own piece.
struct Piece
{
    unsigned char* memory;
    std::size_t bytes;
    unsigned char value;

    bool isWhole() const
    {
        return std::all_of(memory, memory + bytes, [this](unsigned char byte) { return byte == value; });
    }
};

/// Takes, resizes and gives back pieces at random, with at most @p most of them at the same time.
void useMemory(int steps, std::size_t most)
{
    std::mt19937 random(5);
    std::vector<Piece> pieces;
    pieces.reserve(most);
    for (int step = 0; step < steps; ++step) {
        std::size_t const bytes = 8 + random() % 300;
        if (pieces.size() < most) {
            auto* const memory = static_cast<unsigned char*>(ExactMemory::take(bytes));
            ASSERT_EQ(reinterpret_cast<std::uintptr_t>(memory) % alignof(std::max_align_t), 0U);
            auto const value = static_cast<unsigned char>(step);
            std::fill_n(memory, bytes, value);
            pieces.push_back({memory, bytes, value});
            continue;
        }
        std::size_t const at = random() % pieces.size();
        Piece& piece = pieces[at];
        std::size_t const kept = std::min(bytes, piece.bytes);
        piece.memory = static_cast<unsigned char*>(ExactMemory::resize(piece.memory, piece.bytes, bytes));
        piece.bytes = kept;
        ASSERT_TRUE(piece.isWhole()) << step;
        piece.bytes = bytes;
        std::fill_n(piece.memory, bytes, piece.value);
        if (step % 40 == 39) {
            for (Piece const& old : pieces) {
                ASSERT_TRUE(old.isWhole()) << step;
                ExactMemory::release(old.memory, old.bytes);
            }
            pieces.clear();
        }
    }
    for (Piece const& piece : pieces) {
        ExactMemory::release(piece.memory, piece.bytes);
    }
}

} // namespace

TEST(ExactMemory, ComesFromTheSystemAsLongAsThatHasSome)
{
    std::int64_t const before = ExactMemory::timesReserveWasUsed();
    std::int64_t const bytesBefore = allocatedBytes();
    useMemory(20000, 10);
    EXPECT_EQ(allocatedBytes(), bytesBefore);
    EXPECT_EQ(ExactMemory::timesReserveWasUsed(), before);
}

TEST(ExactMemory, ComesFromTheReserveOverAndOverWhenTheSystemHasNone)
{
    std::int64_t const before = ExactMemory::timesReserveWasUsed();
    {
        AllocationFailure const failure(2, AllocationFailure::Lasting::FromThenOn); // the first is for the test itself
        useMemory(20000, 10);
    }
    EXPECT_GE(ExactMemory::timesReserveWasUsed(), 20000);
    EXPECT_GT(ExactMemory::timesReserveWasUsed(), before);
}

TEST(ExactMemory, MayBeTakenFromBothAtTheSameTime)
{
    for (int request = 1; request < 60; ++request) {
        AllocationFailure const failure(request);
        try {
            useMemory(50, 5);
        } catch (std::bad_alloc const&) {
            EXPECT_EQ(request, 1) << "the test's own";
        }
    }
}

} // namespace veldraw::tests
