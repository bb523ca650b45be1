#include "app/handover/HandedDataCheck.h"

#include "app/handover/Nonsense.h"
#include "tests/app/handover/HandedSample.h"

#include <functional>
#include <gtest/gtest.h>
#include <limits>

namespace veldraw::tests {

namespace {

using Type = app::HandedArray::Type;
using Grid = app::HandedGrid;
using Alter = std::function<void(Grid&)>;

void check(Grid const& grid)
{
    app::HandedData data;
    data.block.content = app::HandedBlock::Content::Grid;
    data.block.grid = grid;
    app::checkHandedData(data, {4096, 4096});
}

void expectRefused(Grid grid, char const* what, Alter const& alter)
{
    EXPECT_NO_THROW(check(grid)) << what;
    alter(grid);
    EXPECT_THROW(check(grid), app::Nonsense) << what;
}

Grid gridOfBlock(std::size_t number)
{
    return *handedBlocks().block.blocks[number].grid;
}

} // namespace

TEST(HandedDataCheck, RefusesValuesOutsideOfTheirMemory)
{
    expectRefused(handedMesh(), "a segment too far", [](Grid& g) { g.ofPoints[0].segment = 2; });
    expectRefused(handedMesh(), "beyond the end", [](Grid& g) { g.ofPoints[0].offset = 4096 - 88; });
    expectRefused(handedMesh(), "far beyond", [](Grid& g) { g.ofPoints[0].offset = ~std::uint64_t{7}; });
    expectRefused(handedMesh(), "between numbers", [](Grid& g) { g.ofPoints[0].offset = 4; });
    expectRefused(handedMesh(), "too many", [](Grid& g) { g.ofPoints[0].tuples = 171; });
    expectRefused(handedMesh(), "so many that the bytes come round again",
                  [](Grid& g) { g.ofPoints[0].tuples = std::int64_t{1} << 61; });
    expectRefused(handedMesh(), "too many bits", [](Grid& g) { g.ofPoints[1].tuples = 65; });
    Grid full = handedMesh();
    full.ofPoints[1].tuples = 64;
    full.ofPoints[0].tuples = 170;
    EXPECT_NO_THROW(check(full)) << "up to the end";
}

TEST(HandedDataCheck, RefusesCountsThatAreNone)
{
    expectRefused(handedMesh(), "negative", [](Grid& g) { g.ofCells[0].tuples = -1; });
    expectRefused(handedMesh(), "no component", [](Grid& g) { g.ofCells[0].components = 0; });
    expectRefused(handedMesh(), "components without end", [](Grid& g) {
        g.ofCells[0].components = std::numeric_limits<std::int32_t>::max();
        g.ofCells[0].tuples = 0;
    });
    expectRefused(handedMesh(), "names of other components", [](Grid& g) { g.ofCells[0].componentNames = {"a", "b"}; });
    expectRefused(handedMesh(), "a text too few", [](Grid& g) { g.ofGrid[0].tuples = 2; });
    expectRefused(handedMesh(), "texts of numbers", [](Grid& g) { g.ofCells[0].texts = {"a"}; });
}

TEST(HandedDataCheck, RefusesPointsWithoutThreeCoordinates)
{
    expectRefused(handedMesh(), "two", [](Grid& g) { g.coordinates[0].components = 2; });
    expectRefused(handedMesh(), "texts", [](Grid& g) { g.coordinates[0] = g.ofGrid[0]; });
    expectRefused(handedMesh(), "twice", [](Grid& g) { g.coordinates.push_back(g.coordinates[0]); });
    expectRefused(gridOfBlock(1), "of an image", [](Grid& g) { g.coordinates = handedMesh().coordinates; });
    expectRefused(gridOfBlock(2), "two axes", [](Grid& g) { g.coordinates.pop_back(); });
    expectRefused(gridOfBlock(2), "axes of vectors", [](Grid& g) { g.coordinates[1].components = 3; });
}

TEST(HandedDataCheck, RefusesCellsThatAreNone)
{
    expectRefused(handedMesh(), "without an end", [](Grid& g) { g.cells[0].offsets.tuples = 0; });
    expectRefused(handedMesh(), "in real numbers", [](Grid& g) { g.cells[0].points.type = Type::Float64; });
    expectRefused(handedMesh(), "in pairs", [](Grid& g) { g.cells[0].points.components = 2; });
    expectRefused(handedMesh(), "without kinds", [](Grid& g) { g.cellTypes.clear(); });
    expectRefused(handedMesh(), "of more kinds than cells", [](Grid& g) { g.cellTypes[0].tuples = 2; });
    expectRefused(handedMesh(), "with half their faces", [](Grid& g) { g.faces.pop_back(); });
    expectRefused(handedMesh(), "twice", [](Grid& g) { g.cells.push_back(g.cells[0]); });
    expectRefused(gridOfBlock(4), "three lists", [](Grid& g) { g.cells.pop_back(); });
    expectRefused(gridOfBlock(1), "of an image", [](Grid& g) { g.cells = handedMesh().cells; });
}

TEST(HandedDataCheck, RefusesExtentsThatAreNone)
{
    expectRefused(gridOfBlock(1), "backwards", [](Grid& g) { g.extent = {5, 0, 0, 0, 0, 0}; });
    expectRefused(gridOfBlock(1), "too wide for a number of points along an index", [](Grid& g) {
        g.extent = {std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), 0, 0, 0, 0};
    });
    expectRefused(gridOfBlock(1), "more points than there can be",
                  [](Grid& g) { g.extent = {0, 2000000000, 0, 2000000000, 0, 2000000000}; });
}

// Else a small message could ask for more memory and time than there is.
TEST(HandedDataCheck, RefusesMoreThanCouldBeStood)
{
    expectRefused(handedMesh(), "arrays within each other", [](Grid& g) {
        for (int n = 0; n < 1000; ++n)
            g.ofPoints.push_back(g.ofPoints[0]);
    });
    Grid sharing = handedMesh();
    for (int n = 0; n < 100; ++n)
        sharing.ofCells.push_back(sharing.ofCells[0]);
    EXPECT_NO_THROW(check(sharing)) << "a few values are worth nothing";
    expectRefused(handedMesh(), "arrays beyond number",
                  [](Grid& g) { g.ofPoints.resize(20001, handedArray("", Type::Int8, 0, 0, 0)); });
    expectRefused(handedMesh(), "components beyond number",
                  [](Grid& g) { g.ofCells.resize(5, handedArray("", Type::Int8, 0, 0, 0, 1000000)); });
}

TEST(HandedDataCheck, LooksIntoBlocksWithinBlocks)
{
    app::HandedData data;
    data.block.content = app::HandedBlock::Content::Blocks;
    data.block.blocks = {handedBlocks().block};
    EXPECT_NO_THROW(app::checkHandedData(data, {4096, 4096}));
    EXPECT_THROW(app::checkHandedData(data, {4096}), app::Nonsense);
}

} // namespace veldraw::tests
