#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace veldraw::app {

/// The numbers that the binary values of an array start with in a VTK XML file: their size in bytes, or where they are
/// compressed the number of blocks, the size of a block, and that of the last one if it is another.
struct XmlArrayPrefix
{
    /// How a file writes such numbers.
    struct Format
    {
        int bytesOfNumber = 4; ///< or 8
        bool isBigEndian = false;
        bool isBase64 = false;
    };

    /// @param position of the first byte, or of the first letter or blanks before it. What is missing in the file counts as 0
    static XmlArrayPrefix read(std::string const& path, std::int64_t position, Format const& format);

    std::array<double, 3> numbers{};
};

} // namespace veldraw::app
