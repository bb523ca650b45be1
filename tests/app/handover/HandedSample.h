#pragma once

#include "app/handover/HandedGrid.h"

namespace veldraw::tests {

inline app::HandedArray handedArray(std::string const& name, app::HandedArray::Type type, std::int64_t tuples,
                                    std::uint32_t segment, std::uint64_t offset, int components = 1)
{
    app::HandedArray array;
    array.name = name;
    array.type = type;
    array.tuples = tuples;
    array.components = components;
    array.segment = segment;
    array.offset = offset;
    return array;
}

/// A mesh of one tetrahedron with values of all sorts, over two segments of 4096 bytes.
inline app::HandedGrid handedMesh()
{
    using Type = app::HandedArray::Type;
    app::HandedGrid grid;
    grid.kind = app::HandedGrid::Kind::Mesh;
    grid.time = 2.5;
    grid.coordinates = {handedArray("Points", Type::Float32, 4, 0, 0, 3)};
    grid.cells = {{handedArray("", Type::Int64, 2, 0, 64), handedArray("", Type::Int64, 4, 0, 128)}};
    grid.cellTypes = {handedArray("", Type::UInt8, 1, 0, 192)};
    grid.faces = {handedArray("", Type::Id, 1, 0, 256), handedArray("", Type::Id, 17, 0, 320)};
    grid.ofPoints = {handedArray("v", Type::Float64, 4, 1, 0, 3), handedArray("bits", Type::Bit, 4, 1, 4088)};
    grid.ofPoints.front().componentNames = {"a", "b", "c"};
    grid.ofPoints.front().purposes = 2;
    grid.ofCells = {handedArray("c", Type::Int16, 1, 1, 128)};
    app::HandedArray texts;
    texts.name = "ZoneName";
    texts.type = Type::Text;
    texts.tuples = 1;
    texts.texts = {"Wing"};
    grid.ofGrid = {texts};
    return grid;
}

/// A grid of each kind among blocks.
inline app::HandedData handedBlocks()
{
    using Type = app::HandedArray::Type;
    app::HandedData data;
    data.block.content = app::HandedBlock::Content::Blocks;
    data.remarks = {"something was left out"};
    data.warnings = {"careful"};
    auto const add = [&data](app::HandedGrid const& grid) {
        app::HandedBlock block;
        block.content = app::HandedBlock::Content::Grid;
        block.name = "block " + std::to_string(data.block.blocks.size());
        block.grid = grid;
        data.block.blocks.push_back(block);
    };
    add(handedMesh());
    app::HandedGrid grid;
    grid.extent = {0, 1, 0, 2, 3, 3};
    grid.spacing = {1, 2, 3};
    grid.direction = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    add(grid);
    grid.kind = app::HandedGrid::Kind::Rectilinear;
    grid.coordinates = {handedArray("x", Type::Float32, 2, 0, 0), handedArray("y", Type::Float64, 3, 0, 64),
                        handedArray("z", Type::Float64, 1, 0, 128)};
    add(grid);
    grid.kind = app::HandedGrid::Kind::Structured;
    grid.coordinates = {handedArray("Points", Type::Float64, 6, 1, 0, 3)};
    add(grid);
    app::HandedGrid surface;
    surface.kind = app::HandedGrid::Kind::Surface;
    surface.coordinates = grid.coordinates;
    surface.cells.assign(4, {handedArray("", Type::Int64, 1, 0, 0), handedArray("", Type::Int64, 0, 0, 0)});
    add(surface);
    data.block.blocks.emplace_back(); // an empty one
    return data;
}

} // namespace veldraw::tests
