#pragma once

#include <vtkCommand.h>
#include <vtkDataObject.h>
#include <vtkSmartPointer.h>

#include <string>

namespace veldraw::app {

/// Reads a stereolithography file: triangles, whose equal corners become one point. The solids of a file with several are blocks with their names.
/// @param progress observes VTK's readers, as below
vtkSmartPointer<vtkDataObject> readStl(std::string const& path, vtkCommand& progress);

/// Reads a polygon file: faces, with normals, texture coordinates, colours and intensities. Channels of colours are named by their colours.
vtkSmartPointer<vtkDataObject> readPly(std::string const& path, vtkCommand& progress);

/// Reads a Wavefront object file: faces, lines and points, with normals and texture coordinates; cells have the numbers of their groups.
vtkSmartPointer<vtkDataObject> readObj(std::string const& path, vtkCommand& progress);

} // namespace veldraw::app
