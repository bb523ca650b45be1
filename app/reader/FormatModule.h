#pragma once

#include "app/handover/ReadRequest.h"

#include <vtkCommand.h>
#include <vtkDataObject.h>

namespace veldraw::app {

/// The readers of formats that are not VTK's own stand in a module beside the reader: their libraries take longer to start than most files to
/// read, so that they are loaded when such a file comes.
///
/// Reads all of a file, of which the request tells the path and the extension.
/// @param progress observes VTK's readers
/// @return the data, with a reference that is the caller's; null for none. What is wrong with the file is said to VTK's output window
using ReadFormat = vtkDataObject*(ReadRequest const& request, vtkCommand& progress);

/// The file of the module, and the name of the function in it.
constexpr char const* formatModuleFile = "veldraw_reader_formats.so";
constexpr char const* readFormatName = "veldrawReadFormat";

} // namespace veldraw::app
