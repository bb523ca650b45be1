#pragma once

#include <vtkDataObject.h>
#include <vtkDataSet.h>
#include <vtkFloatArray.h>
#include <vtkSmartPointer.h>

#include <string>

namespace veldraw::samples {

/// Writes the grid as VTK XML with raw appended values. @throws std::runtime_error
void writeGrid(vtkDataSet& grid, std::string const& path);

/// Writes a vtkMultiBlockDataSet as .vtm, its pieces in a folder beside it. @throws std::runtime_error
void writeBlocks(vtkDataObject& blocks, std::string const& path);

/// A named array of floats for @p tuples values.
vtkSmartPointer<vtkFloatArray> floats(char const* name, int components, vtkIdType tuples);

} // namespace veldraw::samples
