#pragma once

#include "app/import/formats/vtkxml/DeferredArray.h"
#include "app/import/reading/Reader.h"
#include "kernel/base/Progress.h"

#include <vtkDataObject.h>
#include <vtkSmartPointer.h>

#include <string>

namespace veldraw::app {

/// Reads one VTK XML file that is no multi-block file.
/// @param deferred takes the arrays that the plan leaves for later
/// @return null when the header says that there are no points
/// @throws ImportError anything that the reader complains about, counts that the file cannot hold, too little memory
/// @throws kernel::Interrupted
vtkSmartPointer<vtkDataObject> readVtkFile(std::string const& path, ImportContext const& context,
                                           DeferredArrays& deferred);

/// Reads the field data that stand in a multi-block file, beside its pieces.
/// @return an object that has them and nothing else
/// @throws as readVtkFile()
vtkSmartPointer<vtkDataObject> readVtkFieldData(std::string const& path, ImportContext const& context);

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
