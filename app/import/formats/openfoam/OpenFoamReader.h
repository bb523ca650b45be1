#pragma once

#include "app/import/reading/Reader.h"

namespace veldraw::app {

/// Reads the OpenFOAM case in whose folder a ".foam" file stands, or a "system/controlDict": the mesh inside and each patch is a zone. Those of each
/// moment are zones of their own, in the strands of their names. Values of cells and patches are cell-centred, those of points nodal. All is read at once.
class OpenFoamReader : public Reader
{
public:
    std::vector<ImportedZone> read(std::string const& path, ImportContext const& context) override;
};

} // namespace veldraw::app
