#pragma once

#include "kernel/base/Identifier.h"

#include <string>
#include <vector>

namespace veldraw::kernel {

/// Names from the top level of the style tree down to a value.
using StylePath = std::vector<std::string>;

/// The names with ", " between them.
std::string textOf(StylePath const& path);

/// Where a style value is: its path, the frame that it is in if it is in one, and its place in collections.
struct StyleAddress
{
    static constexpr long long noOffset = -1;

    StylePath path;
    UniqueId frame = 0;           ///< 0: the active frame
    long long offset1 = noOffset; ///< one-based number in the first collection of the path
    long long offset2 = noOffset; ///< the same for the second; no value of the tree has one at present

    bool hasOffsets() const { return offset1 != noOffset || offset2 != noOffset; }
};

} // namespace veldraw::kernel
