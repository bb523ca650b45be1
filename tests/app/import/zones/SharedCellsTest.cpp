#include "app/import/zones/SharedCells.h"

#include <gtest/gtest.h>
#include <vector>

namespace veldraw::tests {

namespace {

using kernel::Connectivity;

struct Arrays
{
    std::vector<std::int64_t> offsets, indices, faceOffsets, faceStream;
    std::vector<Connectivity::Shape> shapes;
};

std::shared_ptr<Connectivity const> cellsOf(Arrays arrays)
{
    auto const owner = std::make_shared<Arrays>(std::move(arrays));
    auto cells = std::make_shared<Connectivity>();
    cells->cellCount = static_cast<std::int64_t>(owner->offsets.size()) - 1;
    cells->indexCount = static_cast<std::int64_t>(owner->indices.size());
    cells->faceStreamSize = static_cast<std::int64_t>(owner->faceStream.size());
    cells->offsets = owner->offsets.data();
    cells->indices = owner->indices.data();
    cells->shapes = owner->shapes.empty() ? nullptr : owner->shapes.data();
    cells->faceOffsets = owner->faceOffsets.empty() ? nullptr : owner->faceOffsets.data();
    cells->faceStream = owner->faceStream.empty() ? nullptr : owner->faceStream.data();
    cells->owner = owner;
    return cells;
}

Arrays const twoTriangles{{0, 3, 6}, {0, 1, 2, 1, 2, 3}, {}, {}, {}};

kernel::Zone zoneOf(Arrays const& arrays)
{
    kernel::Zone zone("z", ZoneType_FETriangle, 4, 2, 0);
    zone.connectivity = cellsOf(arrays);
    return zone;
}

class CellsOnDemand : public kernel::DimensionsLoader
{
public:
    explicit CellsOnDemand(Arrays arrays)
        : m_arrays(std::move(arrays))
    {
    }

    kernel::ZoneDimensions load(kernel::Progress&) override { return {4, 2, 0, cellsOf(m_arrays)}; }

private:
    Arrays m_arrays;
};

} // namespace

TEST(SharedCells, AreThereOnceWhereTheyAreEqual)
{
    app::SharedCells strand;
    kernel::Zone first = zoneOf(twoTriangles);
    kernel::Zone second = zoneOf(twoTriangles);
    strand.join(first);
    strand.join(second);
    EXPECT_EQ(first.connectivity, second.connectivity);
}

TEST(SharedCells, StayApartWhereAnythingDiffers)
{
    Arrays const base{{0, 3, 6},
                      {0, 1, 2, 1, 2, 3},
                      {0, -1},
                      {1, 3, 0, 1, 2},
                      {Connectivity::Shape::Polyhedron, Connectivity::Shape::Triangle}};
    std::vector<Arrays> others(8, base);
    others[0].offsets = {0, 2, 6};
    others[1].indices[5] = 0;
    others[2].faceOffsets[1] = 0;
    others[3].faceStream[4] = 3;
    others[4].shapes[1] = Connectivity::Shape::Quad;
    others[5].shapes.clear();
    others[6].offsets = {0, 3};
    others[7].faceStream.push_back(1);
    for (Arrays const& other : others) {
        app::SharedCells strand;
        kernel::Zone first = zoneOf(base);
        kernel::Zone second = zoneOf(other);
        kernel::Zone third = zoneOf(other);
        strand.join(first);
        strand.join(second);
        strand.join(third);
        EXPECT_NE(first.connectivity, second.connectivity) << &other - others.data();
        EXPECT_EQ(second.connectivity, third.connectivity) << &other - others.data();
    }
}

TEST(SharedCells, AreComparedWhenTheyAreLoaded)
{
    app::SharedCells strand;
    kernel::Zone first = zoneOf(twoTriangles);
    strand.join(first);
    kernel::Zone later("later", ZoneType_FETriangle, -1, -1, -1);
    later.dimensionsLoader = std::make_shared<CellsOnDemand>(twoTriangles);
    strand.join(later);
    EXPECT_TRUE(later.isDeferred());
    kernel::Progress unwatched;
    later.setDimensions(later.dimensionsLoader->load(unwatched));
    EXPECT_EQ(later.connectivity, first.connectivity);
    EXPECT_EQ(later.j, 2);
}

TEST(SharedCells, HoldNothingThatNobodyHasAnyMore)
{
    app::SharedCells strand;
    std::weak_ptr<Connectivity const> gone;
    {
        kernel::Zone first = zoneOf(twoTriangles);
        strand.join(first);
        gone = first.connectivity;
    }
    EXPECT_TRUE(gone.expired());
    kernel::Zone ordered("ordered", ZoneType_Ordered, 2, 2, 1);
    strand.join(ordered);
    EXPECT_EQ(ordered.connectivity, nullptr);
}

} // namespace veldraw::tests
