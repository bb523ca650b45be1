#include "app/handover/HandedDataCheck.h"

#include "app/handover/Nonsense.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace veldraw::app {

namespace {

using Type = HandedArray::Type;

constexpr std::int64_t mostValues = std::int64_t{1} << 56;

// The memory that came with the data, and what arrays have been given so far.
struct Room
{
    explicit Room(std::vector<std::uint64_t> const& bytesOfSegments)
        : segments(bytesOfSegments)
        , left(std::accumulate(segments.begin(), segments.end(), std::uint64_t{0}))
    {
    }

    std::vector<std::uint64_t> const& segments;
    std::uint64_t left; // bytes
    std::int64_t fields = 0;
};

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

// Many arrays over one piece of memory would become copies beyond all limits. A few values may be shared, such as the offsets of no cells.
void takeRoom(std::uint64_t bytes, Room& room)
{
    std::uint64_t const taken = bytes - std::min(bytes, handover::alignment);
    expect(taken <= room.left, "arrays within each other");
    room.left -= taken;
}

void check(HandedArray const& array, Room& room)
{
    expect(array.components >= 1 && array.components <= handover::mostComponents,
           "a number of components that is none");
    expect(array.tuples >= 0 && array.tuples <= mostValues / array.components, "a number of values that is none");
    expect(array.componentNames.size() <= static_cast<std::size_t>(array.components), "more names than components");
    room.fields += array.components;
    expect(room.fields <= handover::mostFields, "more components than can be shown");
    if (array.type == Type::Text) {
        checkTexts(array);
        return;
    }
    expect(array.texts.empty(), "texts among numbers");
    std::uint64_t const bytes = bytesOf(array.type, static_cast<std::uint64_t>(array.tuples * array.components));
    if (bytes == 0)
        return;
    expect(array.segment < room.segments.size(), "a segment that there is not");
    std::uint64_t const size = room.segments[array.segment];
    expect(array.offset % sizeof(std::uint64_t) == 0, "values between the places of numbers");
    expect(array.offset <= size && bytes <= size - array.offset, "values beyond the end of the memory");
    takeRoom(bytes, room);
}

void check(std::vector<HandedArray> const& arrays, Room& room)
{
    expect(arrays.size() <= handover::mostArrays, "more arrays than can be told apart");
    for (HandedArray const& array : arrays)
        check(array, room);
}

void checkNumbers(std::vector<HandedArray> const& arrays, Room& room)
{
    check(arrays, room);
    for (HandedArray const& array : arrays)
        expect(array.type != Type::Text, "texts in the place of numbers");
}

void checkList(HandedArray const& array, Type type, Room& room)
{
    check(array, room);
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

void checkCoordinates(HandedGrid const& grid, Room& room)
{
    checkNumbers(grid.coordinates, room);
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

void checkCells(HandedGrid const& grid, Room& room)
{
    bool const isMesh = grid.kind == HandedGrid::Kind::Mesh;
    std::size_t const most = isMesh ? 1 : grid.kind == HandedGrid::Kind::Surface ? 4 : 0;
    expect(grid.cells.size() == most || (isMesh && grid.cells.empty()), "not the lists of cells that such a grid has");
    for (HandedCells const& list : grid.cells) {
        checkList(list.offsets, Type::Int64, room);
        checkList(list.points, Type::Int64, room);
        expect(list.offsets.tuples >= 1, "a list of cells without an end");
    }
    expect(grid.cellTypes.size() == (isMesh ? grid.cells.size() : 0), "cells without kinds, or kinds without cells");
    for (HandedArray const& types : grid.cellTypes) {
        checkList(types, Type::UInt8, room);
        expect(types.tuples == grid.cells.front().offsets.tuples - 1, "not as many kinds as cells");
    }
    expect(grid.faces.empty() || (grid.faces.size() == 2 && grid.cells.size() == 1 && isMesh), "faces of no cells");
    for (HandedArray const& faces : grid.faces)
        checkList(faces, Type::Id, room);
}

void check(HandedGrid const& grid, Room& room)
{
    check(grid.ofPoints, room);
    check(grid.ofCells, room);
    check(grid.ofGrid, room);
    if (isOrdered(grid))
        checkExtent(grid);
    checkCoordinates(grid, room);
    checkCells(grid, room);
}

void check(HandedBlock const& block, Room& room)
{
    if (block.grid)
        check(*block.grid, room);
    check(block.ofBlocks, room);
    for (HandedBlock const& inner : block.blocks)
        check(inner, room);
}

} // namespace

void checkHandedData(HandedData const& data, std::vector<std::uint64_t> const& bytesOfSegments)
{
    Room room(bytesOfSegments);
    check(data.block, room);
}

} // namespace veldraw::app
