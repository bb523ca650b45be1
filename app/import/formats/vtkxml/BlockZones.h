#pragma once

#include "app/import/formats/vtkxml/DeferredArray.h"
#include "app/import/zones/ImportedZone.h"
#include "kernel/base/Progress.h"

#include <vtkDataObject.h>

#include <string>
#include <vector>

class vtkFieldData;

namespace veldraw::app {

/// Makes a zone of a grid, or one of each block that has points.
/// @param object   null for one without points
/// @param name     of the zone, unless the grid's field data name it; of a block without a name, followed by a number
/// @param deferred arrays that are not in the grid, because they are to be loaded later
/// @param remarks  take sentences for the user
/// @param progress whose interrupt ends the work; it advances no further
/// @throws ImportError damaged blocks, blocks of other kinds; kernel::Interrupted
void addZonesOf(vtkDataObject* object, std::string const& name, DeferredArrays const& deferred,
                std::vector<std::string>& remarks, std::vector<ImportedZone>& zones, kernel::Progress& progress);

/// Gives a zone the auxiliary data of its data set that stand beside the blocks.
void addNotesOnDataSet(vtkFieldData& fieldData, std::vector<std::string>& remarks, ImportedZone& zone);

} // namespace veldraw::app
