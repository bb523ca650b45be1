#pragma once

#include <vtkDataSet.h>
#include <vtkSmartPointer.h>

#include <string>

namespace veldraw::tests {

/// What VTK's own reader for the extension finds in a file.
vtkSmartPointer<vtkDataSet> readByVtk(std::string const& path);

/// Two grids have the same arrays at points and cells: names, order aside, types, names of components, and every value bit by
/// bit.
void expectSameArrays(vtkDataSet& expected, vtkDataSet& found);

} // namespace veldraw::tests
