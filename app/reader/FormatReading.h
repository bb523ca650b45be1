#pragma once

#include "app/handover/Channel.h"
#include "app/handover/ReadRequest.h"
#include "app/vtk/VtkErrorCapture.h"

#include <vtkDataObject.h>
#include <vtkSmartPointer.h>

namespace veldraw::app {

/// Reads all of a file of a format that is not VTK's own, by the FormatModule, and tells the progress.
/// @param errors of VTK since the reader was started
/// @throws ImportError also on each of those errors, and when the module is not there
vtkSmartPointer<vtkDataObject> readFormat(ReadRequest const& request, Channel& channel, VtkErrorCapture const& errors);

} // namespace veldraw::app
