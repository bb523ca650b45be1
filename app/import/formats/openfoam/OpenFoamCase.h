#pragma once

#include "kernel/base/Progress.h"

#include <string>
#include <vector>

namespace veldraw::app {

/// The folder of an OpenFOAM case: which moments it has, and the files that are read for them.
struct OpenFoamCase
{
    /// Looks into the folder. @param path of a ".foam" file in it, or of its "system/controlDict"
    /// @throws ImportError where there is no mesh, or that of several processors; kernel::Interrupted
    static OpenFoamCase of(std::string const& path, kernel::Progress const& progress);

    /// Names that the files include, relative to the folder, each once. VTK's reader follows them wherever they lead.
    /// @throws ImportError where that depends on more than the files; kernel::Interrupted
    std::vector<std::string> includedFiles(kernel::Progress const& progress) const;

    /// What all files take. @throws ImportError
    double bytes() const;

    /// Whether some of the files are compressed.
    bool isPacked() const;

    /// A path of which the folder is that of the case.
    std::string pathInside() const { return folder + "/case"; }

    std::string folder;        ///< absolute
    std::vector<double> times; ///< in order, each once
    std::vector<std::string>
        needed; ///< names of the files that have to be there, relative to the folder, as those below
    std::vector<std::string> present; ///< all that are read
};

} // namespace veldraw::app
