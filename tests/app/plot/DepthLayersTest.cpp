#include "app/plot/DepthLayers.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>
#include <random>
#include <sys/resource.h>

namespace veldraw::tests {

using app::DepthLayers;
using Layers = std::vector<int>;

namespace {

DepthLayers::Bounds box(double x, double y, double z, double width, double height, double depth)
{
    return {x, x + width, y, y + height, z, z + depth};
}

} // namespace

TEST(DepthLayers, LieOverOneAnotherInTheirOrderWhereBoundsAreEqual)
{
    auto const sheet = box(0, 0, 0, 1, 1, 0);
    EXPECT_EQ(DepthLayers::of({sheet, sheet, sheet}), (Layers{0, 1, 2}));
    EXPECT_EQ(DepthLayers::of({}), Layers());
}

TEST(DepthLayers, AreOneForTilesSideBySideAndForBlocksThatTouch)
{
    EXPECT_EQ(DepthLayers::of({box(0, 0, 0, 1, 1, 0), box(1, 0, 0, 1, 1, 0), box(1, 1, 0, 1, 1, 0)}),
              (Layers{0, 0, 0}));
    EXPECT_EQ(DepthLayers::of({box(0, 0, 0, 1, 1, 1), box(1, 0, 0, 1, 1, 1), box(0, 0, 1, 1, 1, 1)}),
              (Layers{0, 0, 0}));
}

TEST(DepthLayers, PutASmallPatchOverAPlateAndASheetOverTheSideOfABlock)
{
    EXPECT_EQ(DepthLayers::of({box(0, 0, 0, 1, 1, 0), box(0.2, 0.2, 0, 0.1, 0.1, 0), box(0.6, 0.6, 0, 0.1, 0.1, 0)}),
              (Layers{0, 1, 1}));
    EXPECT_EQ(DepthLayers::of({box(0, 0, 0, 1, 1, 1), box(1, 0.2, 0.2, 0, 0.5, 0.5)}), (Layers{0, 1}));
}

TEST(DepthLayers, LeaveOutWhatHasNoBounds)
{
    DepthLayers::Bounds const nothing = {1, -1, 1, -1, 1, -1};
    auto const sheet = box(-1, -1, 0, 2, 2, 0);
    EXPECT_EQ(DepthLayers::of({sheet, nothing, sheet, nothing}), (Layers{0, 0, 1, 0}));
}

TEST(DepthLayers, AreInTheOrderOfTheDrawingsWhereverBoundsShareRoom)
{
    std::mt19937 random(20261122);
    std::uniform_real_distribution<double> place(0.0, 1.0);
    std::uniform_real_distribution<double> width(0.01, 0.2);
    std::vector<DepthLayers::Bounds> bounds;
    for (int n = 0; n < 1500; ++n)
        bounds.push_back(box(place(random), place(random), place(random), width(random), width(random), width(random)));
    Layers const layers = DepthLayers::of(bounds);
    int sharing = 0;
    for (std::size_t a = 0; a < bounds.size(); ++a) {
        int lowest = 0;
        for (std::size_t b = 0; b < a; ++b) {
            bool shares = true;
            for (std::size_t axis = 0; axis < 6; axis += 2)
                shares = shares && bounds[a][axis] < bounds[b][axis + 1] && bounds[b][axis] < bounds[a][axis + 1];
            if (shares)
                lowest = std::max(lowest, layers[b] + 1);
            sharing += shares ? 1 : 0;
        }
        ASSERT_EQ(layers[a], lowest) << a;
    }
    EXPECT_GT(sharing, 1000);
}

namespace {

/// Boxes around boxes.
std::vector<DepthLayers::Bounds> shells(int count)
{
    std::vector<DepthLayers::Bounds> nested;
    for (int n = 0; n < count; ++n)
        nested.push_back(box(-1.0 - n, -1.0 - n, -1.0 - n, 2.0 + 2.0 * n, 2.0 + 2.0 * n, 2.0 + 2.0 * n));
    return nested;
}

long mostMemory()
{
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024; // from kibibytes
}

} // namespace

TEST(DepthLayers, AreTheOrderItselfWhereToCompareAllBoundsWouldTakeLong)
{
    for (int const count : {3000, 50000}) {
        std::vector<DepthLayers::Bounds> bounds = shells(count);
        bounds.push_back(box(1e6, 0, 0, 1, 1, 1)); // which would share a layer with the first if they were compared
        Layers all(bounds.size());
        std::iota(all.begin(), all.end(), 0);
        long const before = mostMemory();
        EXPECT_EQ(DepthLayers::of(bounds), all);
        EXPECT_LT(mostMemory() - before, 400) << "MiB";
    }
}

TEST(DepthLayers, AreComparedForThousandsOfBlocksSideBySide)
{
    std::vector<DepthLayers::Bounds> bounds;
    for (int n = 0; n < 18 * 18 * 18; ++n)
        bounds.push_back(box(n % 18 / 18.0, n / 18 % 18 / 18.0, n / (18 * 18) / 18.0, 1 / 18.0, 1 / 18.0, 1 / 18.0));
    bounds.push_back(bounds.front());
    Layers const layers = DepthLayers::of(bounds);
    EXPECT_EQ(std::count(layers.begin(), layers.end(), 0), 18 * 18 * 18);
    EXPECT_EQ(layers.back(), 1);
}

} // namespace veldraw::tests
