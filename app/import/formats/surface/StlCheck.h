#pragma once

#include <string>

namespace veldraw::app {

/// Holds an STL file against what it says of itself: a binary one has room for all its triangles, and one of text begins and ends as such files do.
/// @throws ImportError
void checkStl(std::string const& path);

} // namespace veldraw::app
