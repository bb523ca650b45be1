#pragma once

#include "tests/app/support/FileMutation.h"

#include <vtkPolyData.h>
#include <vtkSmartPointer.h>

#include <string>
#include <vector>

namespace veldraw::tests {

/// A sphere of triangles.
vtkSmartPointer<vtkPolyData> sphere(int around, int down);

/// The same surface with coordinates that are multiples of 1 / @p parts, which stand in any text as they are.
vtkSmartPointer<vtkPolyData> roundedTo(vtkPolyData& surface, double parts);

/// Writes a surface by VTK's writer. @return path
std::string writeStl(vtkPolyData& surface, std::string const& path, bool binary);
std::string writePly(vtkPolyData& surface, std::string const& path, bool binary);
std::string writeObj(vtkPolyData& surface, std::string const& path);

/// An STL file of two solids, "Bow Ü 1" and "stern", of one and two triangles.
std::string textOfSolids();

/// A PLY file of two triangles with properties of all kinds.
std::string textOfPolygons();

/// Small files of each kind of surfaces, as text and as bytes.
std::vector<SoundFile> soundSurfaces();

} // namespace veldraw::tests
