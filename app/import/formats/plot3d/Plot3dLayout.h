#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace veldraw::app {

/// Where the values of a PLOT3D file stand. Nothing in such a file tells its form: it is the one with which the counts at its start add up to its size.
struct Plot3dLayout
{
    enum class Content
    {
        Grid,     ///< X, Y and Z of each point, and a mark where there are any
        Solution, ///< density, momentum and energy, behind four numbers
        Function  ///< any variables
    };

    struct Form
    {
        bool isFortran = false; ///< each record between two counts of its bytes
        bool isBigEndian = false;
        bool isSeveral = false; ///< the number of blocks comes first
        bool isPlanar = false;  ///< two dimensions
        bool isDouble = false;
        bool hasMarks = false; ///< of a grid
    };

    struct Block
    {
        std::array<std::int64_t, 3> size{{1, 1, 1}};
        int variables = 0;
        std::int64_t offset = 0;            ///< of the first value, from the start of the file
        std::array<double, 4> conditions{}; ///< of a solution: Mach number, angle, Reynolds number, time

        std::int64_t points() const { return size[0] * size[1] * size[2]; }
    };

    /// @param grid that the file goes with, which is to have the same blocks; null for a grid itself
    /// @return none where no form fits @throws ImportError when the file cannot be read
    static std::optional<Plot3dLayout> of(std::string const& path, Content content, Plot3dLayout const* grid = nullptr);

    int bytesOfNumber() const { return form.isDouble ? 8 : 4; }

    Form form;
    std::vector<Block> blocks;
};

} // namespace veldraw::app
