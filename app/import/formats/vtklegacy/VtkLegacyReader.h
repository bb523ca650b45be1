#pragma once

#include "app/import/reading/Reader.h"

namespace veldraw::app {

/// Reads legacy VTK files (.vtk) as VtkXmlReader reads others, but whole: nothing is left in the file for later.
class VtkLegacyReader : public Reader
{
public:
    std::vector<ImportedZone> read(std::string const& path, ImportContext const& context) override;
};

} // namespace veldraw::app
