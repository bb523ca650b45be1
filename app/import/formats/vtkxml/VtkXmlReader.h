#pragma once

#include "app/import/reading/Reader.h"

namespace veldraw::app {

/// Reads VTK XML files: those with one grid (.vti .vtr .vts .vtu .vtp), those that name others as their blocks (.vtm), and those that
/// name the pieces that the processes of a parallel program have written (.pvti .pvtr .pvts .pvtu .pvtp).
///
/// One zone a block or piece, named as the block, or as the file where it has no blocks. Coordinates become the variables X, Y and Z; a
/// vector "v" becomes v_X, v_Y, v_Z, an array of more than three components v_1, v_2 and so on; a name that is taken gets " (2)".
/// Point data are nodal, cell data cell-centred. An array of bytes called vtkGhostType is no variable, but says which points or
/// cells are hidden (kernel::Blanking). Field data of a block that mean something are those of BlockFacts; a single text or number
/// is an item of auxiliary data of its zone, and of the data set where it stands beside the blocks (FieldDataItems).
class VtkXmlReader : public Reader
{
public:
    std::vector<ImportedZone> read(std::string const& path, ImportContext const& context) override;
};

} // namespace veldraw::app
