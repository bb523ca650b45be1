#pragma once

#include "app/handover/Channel.h"
#include "app/vtk/VtkErrorCapture.h"

#include <vtkDataObject.h>
#include <vtkSmartPointer.h>

#include <string>
#include <vector>

namespace veldraw::app {

/// Reads a legacy VTK file with VTK's own readers, and tells the progress.
/// @param errors  of VTK since the reader was started
/// @param remarks take sentences for the user
/// @throws ImportError also on each of those errors
vtkSmartPointer<vtkDataObject> readLegacy(std::string const& path, Channel& channel, VtkErrorCapture const& errors,
                                          std::vector<std::string>& remarks);

} // namespace veldraw::app
