#pragma once

#include <vtkDataObject.h>
#include <vtkSmartPointer.h>

#include <functional>
#include <string>
#include <vector>

namespace veldraw::app {

/// Reads one VTK XML file with VTK's reader for the extension. Multi-block files: see MultiBlockFile; legacy: LegacyConversion.
/// @param extension lower case, without the dot
/// @param remarks   takes the reader's warnings
/// @return null when the header says that there are no points
/// @throws ImportError     anything that the reader complains about, counts that the file cannot hold, too little memory
/// @throws ImportCancelled progress() answered false
vtkSmartPointer<vtkDataObject> readVtkFile(std::string const& path, std::string const& extension,
                                           std::function<bool(double)> const& progress,
                                           std::vector<std::string>& remarks);

} // namespace veldraw::app
