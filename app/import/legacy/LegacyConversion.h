#pragma once

#include "app/import/files/ScratchFolder.h"
#include "kernel/compute/Progress.h"

#include <string>
#include <vector>

namespace veldraw::app {

/// A legacy VTK file turned into VTK XML by a child process, because VTK's legacy readers do not survive damaged files.
///
/// The child is the program veldraw_legacy_reader beside the running one; it has a time and a memory limit. What it writes
/// stands in a temporary folder that goes away with this object.
class LegacyConversion
{
public:
    /// @param remarks takes the reader's warnings
    /// @throws ImportError what the child complains about, or that it died; kernel::Interrupted
    LegacyConversion(std::string const& path, kernel::Progress& progress, std::vector<std::string>& remarks);

    /// The XML file.
    std::string outputFile() const;

private:
    ScratchFolder m_folder;
};

} // namespace veldraw::app
