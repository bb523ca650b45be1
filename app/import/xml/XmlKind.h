#pragma once

#include "kernel/base/Progress.h"

#include <string>

namespace veldraw::app {

/// What the first tag of a VTK XML file says.
struct XmlKind
{
    /// @throws ImportError, kernel::Interrupted
    static XmlKind of(std::string const& path, kernel::Progress const& progress);

    /// Whether it is of the kind that an extension stands for. @param extension lower case, without the dot
    bool isOf(std::string const& extension) const;

    std::string type; ///< of the data; empty when it is no VTK XML file
    bool isCompressed = false;
};

} // namespace veldraw::app
