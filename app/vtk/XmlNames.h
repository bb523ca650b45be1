#pragma once

#include <vtkDataSet.h>
#include <vtkFieldData.h>

#include <string>

namespace veldraw::app {

/// @p text as the value of an XML attribute. Bytes that are no UTF-8 are taken as Latin-1.
std::string xmlEscaped(std::string const& text);

/// Escapes the names of all arrays of @p grid and of their components, which VTK's XML writers put into their files as they stand.
void escapeArrayNames(vtkDataSet& grid);

/// Those of field data alone.
void escapeArrayNames(vtkFieldData& data);

} // namespace veldraw::app
