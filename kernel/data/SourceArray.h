#pragma once

#include <string>
#include <vector>

namespace veldraw::kernel {

/// An array as a file had it, whose components have become variables; a saver can put them together again.
struct SourceArray
{
    std::string name;
    std::vector<std::string> variables;      ///< names that the variables were given, one a component
    std::vector<std::string> componentNames; ///< as the file had them, one a component; empty where it had none
};

} // namespace veldraw::kernel
