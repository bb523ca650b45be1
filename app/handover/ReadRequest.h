#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace veldraw::app {

/// What a process is to read.
struct ReadRequest
{
    enum class What : std::uint8_t
    {
        XmlGrid,      ///< one grid of a VTK XML file, as a ReadChoice says
        XmlFieldData, ///< what stands beside the pieces of a multi-block file
        Legacy,       ///< all of a legacy VTK file
        Format        ///< all of a file of another format, which the extension tells
    };

    What what = What::XmlGrid;
    std::string path;                   ///< absolute
    std::string extension;              ///< lower case, without the dot; of no importance for legacy files
    std::vector<std::string> fieldData; ///< names of those that are read however many others there are
    std::string text{}; ///< of a format whose files name others: read in the place of the file's own text

    static constexpr char folderMark = '\1'; ///< in that text, before names of files in the folder of the path
    static constexpr std::size_t longestText = std::size_t{1} << 24;

    std::string asBytes() const;
    /// @throws Nonsense, as those below
    static ReadRequest fromBytes(std::string_view bytes);
};

/// The arrays that the reader has found in the header of a file, to choose from.
struct FoundArrays
{
    std::vector<std::string> ofPoints; ///< in the file's order, each name once
    std::vector<std::string> ofCells;
    std::int32_t unreadFieldData = 0;

    std::string asBytes() const;
    static FoundArrays fromBytes(std::string_view bytes);
};

/// What of a grid is to be read.
struct ReadChoice
{
    std::vector<std::string> ofPoints; ///< arrays by their names
    std::vector<std::string> ofCells;
    bool points = true; ///< of grids that store them
    bool cells = true;  ///< of meshes

    std::string asBytes() const;
    static ReadChoice fromBytes(std::string_view bytes);
};

/// Why nothing was read.
struct Refusal
{
    bool isForMemory = false; ///< there was too little
    std::string reason;       ///< else; in words that go on after the file's name

    std::string asBytes() const;
    static Refusal fromBytes(std::string_view bytes);
};

} // namespace veldraw::app
