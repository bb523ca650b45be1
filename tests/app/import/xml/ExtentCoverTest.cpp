#include "app/import/xml/ExtentCover.h"

#include "app/files/ImportError.h"

#include <algorithm>
#include <cstdio>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace veldraw::tests {

using Box = app::ExtentCover::Box;

namespace {

constexpr unsigned int seed = 20261123;

bool isComplete(Box const& whole, std::vector<Box> const& pieces)
{
    app::ExtentCover cover(whole);
    for (Box const& piece : pieces)
        cover.add(piece);
    return cover.isComplete();
}

// Place by place.
bool isCompleteByCount(Box const& whole, std::vector<Box> const& pieces)
{
    for (std::int64_t k = whole[4]; k < whole[5]; ++k) {
        for (std::int64_t j = whole[2]; j < whole[3]; ++j) {
            for (std::int64_t i = whole[0]; i < whole[1]; ++i) {
                bool isThere = false;
                for (Box const& p : pieces)
                    isThere = isThere || (i >= p[0] && i < p[1] && j >= p[2] && j < p[3] && k >= p[4] && k < p[5]);
                if (!isThere)
                    return false;
            }
        }
    }
    return true;
}

} // namespace

TEST(ExtentCover, IsCompleteWhenEachPlaceIsInAPiece)
{
    EXPECT_TRUE(isComplete({0, 4, 0, 4, 0, 4}, {{0, 4, 0, 4, 0, 4}}));
    EXPECT_TRUE(isComplete({-2, 2, 0, 4, 0, 4}, {{-2, 0, 0, 4, 0, 4}, {0, 9, -5, 4, 0, 4}}));
    EXPECT_FALSE(isComplete({0, 4, 0, 4, 0, 4}, {}));
    EXPECT_FALSE(isComplete({0, 4, 0, 4, 0, 4}, {{0, 4, 0, 4, 0, 3}, {0, 4, 0, 4, 3, 3}}));
    EXPECT_TRUE(isComplete({0, 4, 3, 3, 0, 4}, {})) << "nothing is there to be covered";
}

TEST(ExtentCover, IsWhatCountingPlaceByPlaceGives)
{
    std::mt19937 random(seed);
    std::printf("seed %u\n", seed);
    auto const number = [&random](int below) {
        return static_cast<std::int64_t>(random() % static_cast<unsigned>(below));
    };
    int complete = 0;
    for (int n = 0; n < 4000; ++n) {
        Box const whole{0, 1 + number(4), 0, 1 + number(4), 0, 1 + number(3)};
        std::vector<Box> pieces;
        for (auto left = number(9); left > 0; --left) {
            Box piece{};
            for (std::size_t axis = 0; axis < 3; ++axis) {
                piece[2 * axis] = number(3) - 1;
                piece[2 * axis + 1] = piece[2 * axis] + number(6);
            }
            pieces.push_back(piece);
        }
        ASSERT_EQ(isComplete(whole, pieces), isCompleteByCount(whole, pieces)) << n;
        complete += isComplete(whole, pieces) ? 1 : 0;
    }
    EXPECT_GT(complete, 400);
    EXPECT_LT(complete, 3600);
}

TEST(ExtentCover, TakesThousandsOfPiecesInAnyOrder)
{
    std::vector<Box> pieces;
    for (std::int64_t k = 0; k < 10; ++k) {
        for (std::int64_t j = 0; j < 20; ++j) {
            for (std::int64_t i = 0; i < 20; ++i)
                pieces.push_back({10 * i, 10 * i + 10, 10 * j, 10 * j + 10, 10 * k, 10 * k + 10});
        }
    }
    Box const whole{0, 200, 0, 200, 0, 100};
    EXPECT_TRUE(isComplete(whole, pieces));
    std::shuffle(pieces.begin(), pieces.end(), std::mt19937(seed));
    EXPECT_TRUE(isComplete(whole, pieces));
    pieces.pop_back();
    EXPECT_FALSE(isComplete(whole, pieces));
}

TEST(ExtentCover, RefusesPiecesThatWouldTakeForEver)
{
    app::ExtentCover cover({0, 1 << 20, 0, 1 << 20, 0, 1});
    auto const addAll = [&cover] {
        for (std::int64_t n = 0; n < 200000; ++n)
            cover.add({4 * n, 4 * n + 1, 4 * n, 4 * n + 1, 0, 1});
    };
    EXPECT_THROW(addAll(), app::ImportError);
}

} // namespace veldraw::tests
