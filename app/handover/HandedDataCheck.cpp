#include "app/handover/HandedDataCheck.h"

#include "app/handover/Nonsense.h"

#include <limits>

namespace veldraw::app {

namespace {

using Segments = std::vector<std::uint64_t>;
using Type = HandedArray::Type;

constexpr std::int64_t mostValues = std::int64_t{1} << 56;

void expect(bool holds, char const* otherwise)
{
    if (!holds)
        throw Nonsense(otherwise);
}

void checkTexts(HandedArray const& array)
{
    auto const count = static_cast<std::int64_t>(array.texts.size());
    expect(array.tuples <= count && array.tuples * array.components == count, "not as many texts as there should be");
}

void check(HandedArray const& array, Segments const& segments)
{
    expect(array.components >= 1 && array.components <= handover::mostComponents,
           "a number of components that is none");
    expect(array.tuples >= 0 && array.tuples <= mostValues / array.components, "a number of values that is none");
    expect(array.componentNames.size() <= static_cast<std::size_t>(array.components), "more names than components");
    if (array.type == Type::Text) {
        checkTexts(array);
        return;
    }
    expect(array.texts.empty(), "texts among numbers");
    std::uint64_t const bytes = bytesOf(array.type, static_cast<std::uint64_t>(array.tuples * array.components));
    if (bytes == 0)
        return;
    expect(array.segment < segments.size(), "a segment that there is not");
    std::uint64_t const room = segments[array.segment];
    expect(array.offset % sizeof(std::uint64_t) == 0, "values between the places of numbers");
    expect(array.offset <= room && bytes <= room - array.offset, "values beyond the end of the memory");
}

void check(std::vector<HandedArray> const& arrays, Segments const& segments)
{
    for (HandedArray const& array : arrays)
        check(array, segments);
}

void checkNumbers(std::vector<HandedArray> const& arrays, Segments const& segments)
{
    check(arrays, segments);
    for (HandedArray const& array : arrays)
        expect(array.type != Type::Text, "texts in the place of numbers");
}

void checkList(HandedArray const& array, Type type, Segments const& segments)
{
    check(array, segments);
    expect(array.type == type && array.components == 1, "cells of no kind that cells have");
}

bool isOrdered(HandedGrid const& grid)
{
    return grid.kind == HandedGrid::Kind::Image || grid.kind == HandedGrid::Kind::Rectilinear ||
           grid.kind == HandedGrid::Kind::Structured;
}

std::int64_t sizeAlong(HandedGrid const& grid, std::size_t axis)
{
    return std::int64_t{grid.extent[2 * axis + 1]} - grid.extent[2 * axis] + 1;
}

void checkExtent(HandedGrid const& grid)
{
    std::int64_t points = 1;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        std::int64_t const size = sizeAlong(grid, axis);
        expect(size >= 0 && size < std::numeric_limits<std::int32_t>::max(), "an extent that is none");
        expect(size == 0 || points <= mostValues / size, "an extent without end");
        points *= size;
    }
}

void checkCoordinates(HandedGrid const& grid, Segments const& segments)
{
    checkNumbers(grid.coordinates, segments);
    if (grid.kind == HandedGrid::Kind::Image) {
        expect(grid.coordinates.empty(), "an image with points");
        return;
    }
    if (grid.kind != HandedGrid::Kind::Rectilinear) {
        expect(grid.coordinates.size() <= 1, "points twice");
        expect(grid.coordinates.empty() || grid.coordinates.front().components == 3,
               "points without three coordinates");
        return;
    }
    expect(grid.coordinates.size() == 3, "a rectilinear grid without three coordinates");
    for (std::size_t axis = 0; axis < 3; ++axis)
        expect(grid.coordinates[axis].components == 1, "coordinates of several components");
}

void checkCells(HandedGrid const& grid, Segments const& segments)
{
    bool const isMesh = grid.kind == HandedGrid::Kind::Mesh;
    std::size_t const most = isMesh ? 1 : grid.kind == HandedGrid::Kind::Surface ? 4 : 0;
    expect(grid.cells.size() == most || (isMesh && grid.cells.empty()), "not the lists of cells that such a grid has");
    for (HandedCells const& list : grid.cells) {
        checkList(list.offsets, Type::Int64, segments);
        checkList(list.points, Type::Int64, segments);
        expect(list.offsets.tuples >= 1, "a list of cells without an end");
    }
    expect(grid.cellTypes.size() == (isMesh ? grid.cells.size() : 0), "cells without kinds, or kinds without cells");
    for (HandedArray const& types : grid.cellTypes) {
        checkList(types, Type::UInt8, segments);
        expect(types.tuples == grid.cells.front().offsets.tuples - 1, "not as many kinds as cells");
    }
    expect(grid.faces.empty() || (grid.faces.size() == 2 && grid.cells.size() == 1 && isMesh), "faces of no cells");
    for (HandedArray const& faces : grid.faces)
        checkList(faces, Type::Id, segments);
}

void check(HandedGrid const& grid, Segments const& segments)
{
    check(grid.ofPoints, segments);
    check(grid.ofCells, segments);
    check(grid.ofGrid, segments);
    if (isOrdered(grid))
        checkExtent(grid);
    checkCoordinates(grid, segments);
    checkCells(grid, segments);
}

void check(HandedBlock const& block, Segments const& segments)
{
    if (block.grid)
        check(*block.grid, segments);
    check(block.ofBlocks, segments);
    for (HandedBlock const& inner : block.blocks)
        check(inner, segments);
}

} // namespace

void checkHandedData(HandedData const& data, std::vector<std::uint64_t> const& bytesOfSegments)
{
    check(data.block, bytesOfSegments);
}

} // namespace veldraw::app
