#pragma once

#include <string>
#include <vector>

namespace veldraw::app {

/// One piece that a multi-block file (.vtm) names.
struct MultiBlockPiece
{
    std::string path; ///< absolute, or relative to the current folder
    std::string file; ///< as the file spells it, for messages
    std::string name; ///< of the block; that of the block around it where it has none, else empty
};

/// The pieces in the file's order; blocks without a file are left out.
/// @throws ImportError when it is no multi-block file
std::vector<MultiBlockPiece> multiBlockPieces(std::string const& path);

} // namespace veldraw::app
