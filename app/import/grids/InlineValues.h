#pragma once

#include <vtkXMLDataElement.h>

#include <istream>

namespace veldraw::app {

/// Tells the elements of a VTK XML file where the values stand that follow their tags. VTK looks for the first '>', also where
/// that is part of an array's name, which its own writers put into a file as it is.
/// @param root of the elements that VTK's parser has made of the @p file
void locateInlineValues(vtkXMLDataElement& root, std::istream& file);

} // namespace veldraw::app
