#pragma once

#include "app/import/DeferredArray.h"
#include "app/import/LoadingPlan.h"

#include <vtkDataObject.h>
#include <vtkSmartPointer.h>

#include <functional>
#include <string>
#include <vector>

namespace veldraw::app {

/// Reads one VTK XML file with VTK's reader for the extension. Multi-block files: see MultiBlockFile; legacy: LegacyConversion.
/// @param extension lower case, without the dot
/// @param remarks   takes the reader's warnings
/// @param plan      decides which arrays are left out for later; null: none
/// @param deferred  takes those
/// @return null when the header says that there are no points
/// @throws ImportError     anything that the reader complains about, counts that the file cannot hold, too little memory
/// @throws ImportCancelled progress() answered false
vtkSmartPointer<vtkDataObject> readVtkFile(std::string const& path, std::string const& extension,
                                           std::function<bool(double)> const& progress,
                                           std::vector<std::string>& remarks, LoadingPlan* plan,
                                           DeferredArrays& deferred);

/// Reads the grid of a file with one of its arrays only, without looking at the header first.
/// @throws as readVtkFile()
vtkSmartPointer<vtkDataObject> readVtkArray(std::string const& path, std::string const& extension,
                                            std::string const& name, bool inCells,
                                            std::function<bool(double)> const& progress);

} // namespace veldraw::app
