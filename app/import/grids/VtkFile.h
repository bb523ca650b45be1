#pragma once

#include "app/import/LoadingPlan.h"
#include "app/import/grids/DeferredArray.h"
#include "kernel/compute/Progress.h"

#include <vtkDataObject.h>
#include <vtkSmartPointer.h>

#include <string>
#include <vector>

namespace veldraw::app {

/// Reads one VTK XML file with VTK's reader for the extension. Multi-block files: see MultiBlockFile; legacy: LegacyConversion.
/// @param extension lower case, without the dot
/// @param remarks   takes the reader's warnings
/// @param plan      decides which arrays are left out for later; null: none
/// @param deferred  takes those
/// @return null when the header says that there are no points
/// @throws ImportError anything that the reader complains about, counts that the file cannot hold, too little memory
/// @throws kernel::Interrupted
vtkSmartPointer<vtkDataObject> readVtkFile(std::string const& path, std::string const& extension,
                                           kernel::Progress& progress, std::vector<std::string>& remarks,
                                           LoadingPlan* plan, DeferredArrays& deferred);

/// Where an array stands.
enum class XmlSection
{
    PointData,
    CellData,
    Points ///< the coordinates of a grid that stores them
};

/// Reads one array of a file, without looking at the header first.
/// @param name of the array; of no importance for points
/// @return a grid with this array; it need not have points or cells
/// @throws as readVtkFile()
vtkSmartPointer<vtkDataObject> readVtkArray(std::string const& path, std::string const& extension, XmlSection section,
                                            std::string const& name, kernel::Progress& progress);

/// Reads the cells of a .vtu file, without its points and arrays, without looking at the header first.
/// @throws as readVtkFile()
vtkSmartPointer<vtkDataObject> readVtkCells(std::string const& path, kernel::Progress& progress);

} // namespace veldraw::app
