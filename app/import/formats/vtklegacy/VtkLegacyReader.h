#pragma once

#include "app/import/reading/Reader.h"

namespace veldraw::app {

/// Reads legacy VTK files (.vtk), as VtkXmlReader reads others.
///
/// VTK's legacy readers do not survive damaged files. So a child process, the program veldraw_legacy_reader beside the running one,
/// turns the file into VTK XML in a temporary folder, with a time and a memory limit. Nothing is left in the file for later.
class VtkLegacyReader : public Reader
{
public:
    std::vector<ImportedZone> read(std::string const& path, ImportContext const& context) override;
};

} // namespace veldraw::app
