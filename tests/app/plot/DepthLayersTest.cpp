#include "app/plot/DepthLayers.h"

#include <gtest/gtest.h>
#include <numeric>
#include <random>

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

TEST(DepthLayers, AreTheOrderItselfWhereToCompareAllBoundsWouldTakeLong)
{
    std::vector<DepthLayers::Bounds> nested;
    for (int n = 0; n < 6000; ++n)
        nested.push_back(box(-1.0 - n, -1.0 - n, -1.0 - n, 2.0 + 2.0 * n, 2.0 + 2.0 * n, 2.0 + 2.0 * n));
    Layers all(nested.size());
    std::iota(all.begin(), all.end(), 0);
    EXPECT_EQ(DepthLayers::of(nested), all);
}

} // namespace veldraw::tests
