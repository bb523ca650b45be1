#pragma once

#include <string>

namespace veldraw::app {

/// Holds the counts in the header of a PLY file against its size, before a reader trusts them.
/// @return a sentence for the user on properties that are left out; empty for none
/// @throws ImportError when it is no PLY file, or cannot contain what it promises
std::string checkPly(std::string const& path);

} // namespace veldraw::app
