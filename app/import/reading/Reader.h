#pragma once

#include "app/files/ImportError.h"
#include "app/import/reading/ImportContext.h"
#include "app/import/zones/ImportedZone.h"

#include <string>
#include <vector>

namespace veldraw::app {

/// Reads the files of one format.
class Reader
{
public:
    virtual ~Reader() = default;

    /// Reads a whole file, or notes in loaders what is left in it.
    /// @param path of a regular file with something in it, that can be read
    /// @return its zones with their points; none where it has no points
    /// @throws ImportError with the reason alone: who called names the file; kernel::Interrupted
    virtual std::vector<ImportedZone> read(std::string const& path, ImportContext const& context) = 0;
};

} // namespace veldraw::app
