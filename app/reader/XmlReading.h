#pragma once

#include "app/handover/Channel.h"
#include "app/handover/ReadRequest.h"
#include "app/vtk/VtkErrorCapture.h"

#include <vtkDataObject.h>
#include <vtkSmartPointer.h>

namespace veldraw::app {

/// Reads one grid of a VTK XML file with VTK's own reader for its extension: tells which arrays there are, waits for the choice, reads
/// these, and tells the progress.
/// @param errors of VTK since the reader was started
/// @throws ImportError also on each of those errors
vtkSmartPointer<vtkDataObject> readXmlGrid(ReadRequest const& request, Channel& channel, VtkErrorCapture const& errors);

/// Reads the field data that stand in a multi-block file, beside its pieces, in the same way; there is nothing to choose.
/// @return an object that has them and nothing else
/// @throws ImportError
vtkSmartPointer<vtkDataObject> readXmlFieldData(ReadRequest const& request, Channel& channel,
                                                VtkErrorCapture const& errors);

} // namespace veldraw::app
