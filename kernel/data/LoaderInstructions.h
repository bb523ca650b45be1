#pragma once

#include <string>
#include <vector>

namespace veldraw::kernel {

/// Where data of a data set came from: the loader's name and its words, for instance "FILENAME_" and a path.
struct LoaderInstructions
{
    std::string loaderName;
    std::vector<std::string> words;
};

} // namespace veldraw::kernel
