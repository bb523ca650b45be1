#pragma once

#include "app/handover/ReadRequest.h"

#include <vtkCommand.h>
#include <vtkDataObject.h>
#include <vtkSmartPointer.h>

namespace veldraw::app {

/// Reads a case of EnSight as the request's text says: its parts are blocks with their names.
/// @param progress observes VTK's reader
vtkSmartPointer<vtkDataObject> readEnSight(ReadRequest const& request, vtkCommand& progress);

/// Reads one moment of an OpenFOAM case, whose time the request's text is, or the mesh of a case without any: the mesh inside and its patches are
/// blocks with their names.
/// @param progress observes VTK's reader
vtkSmartPointer<vtkDataObject> readOpenFoam(ReadRequest const& request, vtkCommand& progress);

} // namespace veldraw::app
