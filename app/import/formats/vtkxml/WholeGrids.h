#pragma once

#include "app/import/child/ReadingChild.h"
#include "app/import/reading/Reader.h"

#include <vtkDataObject.h>
#include <vtkSmartPointer.h>

#include <string>
#include <vector>

namespace veldraw::app {

/// Has the process that reads files read one as a whole; nothing is left in it for later.
/// @param remarks take what its reader has to say of the grids
/// @param progress gets the whole of its total
/// @throws ImportError, kernel::Interrupted
vtkSmartPointer<vtkDataObject> readWholeFile(ReadRequest const& request, ReaderLimits const& limits,
                                             ImportContext const& context, std::vector<std::string>& remarks);

/// Makes zones of what a file gave, each block one. @param remarks on each of them
/// @throws as readWholeFile()
std::vector<ImportedZone> zonesOfGrids(vtkDataObject* object, std::vector<std::string> const& remarks,
                                       ImportContext const& context);

/// Makes zones of a file that is read so.
/// @throws ImportError, kernel::Interrupted
std::vector<ImportedZone> zonesOfWholeFile(ReadRequest const& request, ImportContext const& context);

} // namespace veldraw::app
