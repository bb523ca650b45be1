#pragma once

#include <vtkDataSet.h>
#include <vtkPolyData.h>
#include <vtkSmartPointer.h>
#include <vtkStructuredGrid.h>
#include <vtkUnstructuredGrid.h>

#include <string>
#include <utility>
#include <vector>

namespace veldraw::tests {

/// Adds an array of doubles to the points or cells.
void addPointValues(vtkDataSet& grid, std::string const& name, std::vector<double> const& values, int components = 1);
void addCellValues(vtkDataSet& grid, std::string const& name, std::vector<double> const& values, int components = 1);

/// A one-number field array such as TimeValue.
void addFact(vtkDataSet& grid, std::string const& name, double value);

/// I x J x K points at (i, 10 j, 100 k), in float.
vtkSmartPointer<vtkStructuredGrid> structuredGrid(int i, int j, int k);

/// @p points points at (n, n * n, 0.5 n) and cells given as VTK type and points.
vtkSmartPointer<vtkUnstructuredGrid> unstructuredGrid(int points,
                                                      std::vector<std::pair<int, std::vector<vtkIdType>>> const& cells);

/// Two tetrahedra as polyhedra that share a face.
vtkSmartPointer<vtkUnstructuredGrid> polyhedra();

enum class Mode
{
    Ascii,
    Base64,
    Base64Compressed,
    Raw,
    RawCompressed
};

constexpr Mode allModes[] = {Mode::Ascii, Mode::Base64, Mode::Base64Compressed, Mode::Raw, Mode::RawCompressed};

/// Writes VTK XML for the grid's kind. @return path
std::string writeXml(vtkDataSet& grid, std::string const& path, Mode mode = Mode::Raw);

/// Writes a legacy file, binary or not. @return path
std::string writeLegacy(vtkDataSet& grid, std::string const& path, bool binary);

} // namespace veldraw::tests
