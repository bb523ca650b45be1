#include "kernel/base/ZeroedArray.h"

#include "tests/support/AllocationFailure.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <new>

namespace veldraw::tests {

using namespace kernel;
using testing::Each;
using testing::ElementsAre;

namespace {

constexpr std::size_t onTheHeap = 1000;
constexpr std::size_t onHugePages = 1000003; // 8 MB

template <typename Element>
bool isZero(ZeroedArray<Element> const& array)
{
    return std::all_of(array.begin(), array.end(), [](Element const& element) { return element == Element{}; });
}

} // namespace

TEST(ZeroedArray, IsEmptyAtFirst)
{
    ZeroedArray<double> const array;
    EXPECT_TRUE(array.isEmpty());
    EXPECT_EQ(array.size(), 0U);
    EXPECT_EQ(array.begin(), array.end());
}

TEST(ZeroedArray, HoldsZerosAlsoWhereOtherNumbersWereBefore)
{
    for (std::size_t const size : {onTheHeap, onHugePages}) {
        for (int round = 0; round < 3; ++round) {
            ZeroedArray<double> array(size);
            ASSERT_EQ(array.size(), size);
            ASSERT_EQ(array.end() - array.begin(), static_cast<std::ptrdiff_t>(size));
            EXPECT_TRUE(isZero(array)) << size;
            std::fill(array.begin(), array.end(), -7.0);
        }
    }
}

TEST(ZeroedArray, KeepsWhatIsWrittenToIt)
{
    ZeroedArray<std::uint32_t> array(onHugePages);
    array[0] = 1;
    array[onHugePages - 1] = 2;
    *(array.begin() + 1) = 3;
    ZeroedArray<std::uint32_t> const& same = array;
    EXPECT_EQ(same[0], 1U);
    EXPECT_EQ(same[1], 3U);
    EXPECT_EQ(*(same.end() - 1), 2U);
    EXPECT_EQ(std::count(same.begin(), same.end(), 0U), static_cast<std::ptrdiff_t>(onHugePages - 3));
}

TEST(ZeroedArray, GivesItsElementsAwayAndIsEmptyThen)
{
    ZeroedArray<int> source(3);
    source[1] = 5;
    ZeroedArray<int> made(std::move(source));
    EXPECT_THAT(std::vector<int>(made.begin(), made.end()), ElementsAre(0, 5, 0));
    EXPECT_TRUE(source.isEmpty()); // NOLINT(bugprone-use-after-move): a promise
    EXPECT_EQ(source.begin(), source.end());
    ZeroedArray<int> assigned(7);
    assigned = std::move(made);
    EXPECT_THAT(std::vector<int>(assigned.begin(), assigned.end()), ElementsAre(0, 5, 0));
    EXPECT_TRUE(made.isEmpty()); // NOLINT(bugprone-use-after-move)
}

TEST(ZeroedArray, GivesItsMemoryBack)
{
    std::int64_t const before = allocatedBytes();
    {
        ZeroedArray<double> array(onTheHeap);
        EXPECT_GE(allocatedBytes() - before, static_cast<std::int64_t>(onTheHeap * sizeof(double)));
        array = ZeroedArray<double>(2 * onTheHeap);
        EXPECT_LT(allocatedBytes() - before, static_cast<std::int64_t>(3 * onTheHeap * sizeof(double)));
    }
    EXPECT_EQ(allocatedBytes(), before);
}

TEST(ZeroedArray, TellsThatThereIsNoMemory)
{
    AllocationFailure const failure(1);
    EXPECT_THROW(ZeroedArray<double>{onTheHeap}, std::bad_alloc);
}

TEST(ZeroedArray, TellsThatNoMachineHasSoMuchMemory)
{
    for (std::size_t const size :
         {std::size_t{1} << 58U, std::size_t{1} << 61U, std::numeric_limits<std::size_t>::max()}) {
        EXPECT_THROW(ZeroedArray<double>{size}, std::bad_alloc) << size;
    }
}

} // namespace veldraw::tests
