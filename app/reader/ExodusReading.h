#pragma once

#include "app/handover/ReadRequest.h"

#include <vtkCommand.h>
#include <vtkDataObject.h>
#include <vtkSmartPointer.h>

namespace veldraw::app {

/// Reads one moment of an Exodus II file, of which the request's text is the number from 0: each block is a block with its name. Without a text, what the
/// file has: no blocks, but field data "Times", and "LeftOut" with the names of what is not read.
/// @param progress observes VTK's reader
vtkSmartPointer<vtkDataObject> readExodus(ReadRequest const& request, vtkCommand& progress);

} // namespace veldraw::app
