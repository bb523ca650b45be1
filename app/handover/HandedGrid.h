#pragma once

#include "app/handover/HandedArray.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace veldraw::app {

/// A list of cells: the points of cell n are those from offsets[n] to offsets[n + 1].
struct HandedCells
{
    HandedArray offsets;
    HandedArray points;
};

/// A grid that one process hands over to another. What was not asked for is empty.
struct HandedGrid
{
    enum class Kind : std::uint8_t
    {
        Image,
        Rectilinear,
        Structured,
        Mesh,
        Surface
    };

    Kind kind = Kind::Image;
    std::optional<double> time;
    std::vector<HandedArray> ofPoints;
    std::vector<HandedArray> ofCells;
    std::vector<HandedArray> ofGrid; ///< field data

    std::array<std::int32_t, 6> extent{}; ///< of ordered grids: first and last of I, J and K
    std::array<double, 3> origin{};       ///< of images, as the two that follow
    std::array<double, 3> spacing{};
    std::array<double, 9> direction{};

    std::vector<HandedArray> coordinates; ///< three of a rectilinear grid; one of others but images, or none
    std::vector<HandedCells> cells;       ///< one of a mesh; of a surface four: vertices, lines, polygons, strips
    std::vector<HandedArray> cellTypes;   ///< one of a mesh with cells
    std::vector<HandedArray> faces;       ///< two of a mesh with polyhedra: places in the list of faces, and that list
};

/// A grid, blocks, or something that is neither.
struct HandedBlock
{
    enum class Content : std::uint8_t
    {
        Nothing,
        Grid,
        Blocks,
        Other
    };

    Content content = Content::Nothing;
    std::optional<std::string> name;
    std::optional<HandedGrid> grid;
    std::vector<HandedBlock> blocks;
    std::vector<HandedArray> ofBlocks; ///< field data beside the blocks
    std::string kind;                  ///< of something else, in words
};

/// All that a file gave.
struct HandedData
{
    HandedBlock block;
    std::vector<std::string> remarks;  ///< sentences for the user
    std::vector<std::string> warnings; ///< of the library that read it
};

} // namespace veldraw::app
