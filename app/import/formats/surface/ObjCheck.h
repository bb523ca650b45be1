#pragma once

#include "kernel/base/Progress.h"

#include <string>

namespace veldraw::app {

/// What stands in an OBJ file besides faces.
struct ObjContent
{
    bool hasLinesOrPoints = false;
    std::string leftOut; ///< kinds of elements that no reader knows, as the file calls them; empty for none
};

/// Goes through the text of an OBJ file.
/// @throws ImportError when it is no such text, as with object files of compilers; kernel::Interrupted
ObjContent checkObj(std::string const& path, kernel::Progress const& progress);

} // namespace veldraw::app
