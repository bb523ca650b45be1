#pragma once

#include "app/export/writing/PiecesSave.h"

#include <string>

namespace veldraw::app {

/// The comment by which a multi-block file says that its pieces are its own: made with it, and to be removed with it.
constexpr char const* markOfOwnPieces =
    " Veldraw made the files below with this one, and removes them when it replaces it. ";

/// Reads what a multi-block file names. One that is damaged names what stands before the damage. @throws ExportError it cannot be read
NamedPieces namedPieces(std::string const& path);

} // namespace veldraw::app
