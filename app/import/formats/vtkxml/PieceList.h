#pragma once

#include "app/import/reading/Reader.h"

#include <string>
#include <vector>

namespace veldraw::app {

/// One file with a grid that another file names.
struct GridPiece
{
    std::string path; ///< absolute, or relative to the current folder
    std::string file; ///< as the file spells it, for messages
    std::string name; ///< of the zone; may be empty
};

/// What a file of pieces has.
struct PieceList
{
    std::vector<GridPiece> pieces; ///< in the file's order
    bool hasFieldData = false;     ///< beside the pieces
};

/// Of a multi-block file (.vtm). A piece has the name of its block, or of the block around it where it has none; blocks without a file are left out.
/// @throws ImportError, kernel::Interrupted
PieceList multiBlockPieces(std::string const& path, kernel::Progress const& progress);

/// Of a file that a parallel program has written (.pvti and others). A piece has the name of the whole and its number, from 1.
/// @throws ImportError also where a piece is of another kind than the whole; kernel::Interrupted
PieceList parallelPieces(std::string const& path, ImportContext const& context);

} // namespace veldraw::app
