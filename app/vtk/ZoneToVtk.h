#pragma once

#include "kernel/data/DataSet.h"

#include <vtkDataArray.h>
#include <vtkDataSet.h>
#include <vtkSmartPointer.h>

#include <array>
#include <string>
#include <vector>

namespace veldraw::app {

/// A zone as VTK sees it: a vtkStructuredGrid for an ordered zone, a vtkUnstructuredGrid for a finite-element zone.
///
/// Memory is shared wherever its layout allows it: contiguous fields are wrapped; three axes that are the interleaved
/// components of one array become the points as they are; separate axes of one type are put side by side without a
/// copy. Strided fields, axes of different types and the cell-centred values of ordered zones are copied. What is
/// shared is held as immutable buffers, so a later change of the zone never shows through, and the result may outlive
/// the data set.
///
/// @param zone      one-based
/// @param axes      variable numbers for X, Y and Z. 0, a cell-centred or a passive variable stand for a coordinate of
/// 0.
/// @param variables numbers of the variables that become point or cell arrays, named as the variable ("p (2)" for the
/// second
///                  one of the same name). A passive field becomes zeros. Numbers that do not exist are left out.
/// @return null when there is no such zone
/// @throws std::bad_alloc
vtkSmartPointer<vtkDataSet> vtkDataSetOfZone(kernel::DataSet const& dataSet, int zone, std::array<int, 3> const& axes,
                                             std::vector<int> const& variables);

/// The values of fields as the components of a VTK array called @p name: a tuple a point or a cell, without unused slots. Memory is
/// shared as joinedArray() does it; where types differ the array has the one that holds all values, and the others are copied.
/// @param fields at least one, all of one location; a passive one stands for zeros
/// @throws std::bad_alloc
vtkSmartPointer<vtkDataArray>
vtkArrayOfFields(kernel::Zone const& zone, std::vector<kernel::Field const*> const& fields, std::string const& name);

/// The values of one field as a VTK array called @p name: a value a point or a cell, without unused slots.
/// Contiguous values are wrapped and kept alive by the array. @throws std::bad_alloc
vtkSmartPointer<vtkDataArray> vtkArrayOfField(kernel::Zone const& zone, kernel::Field const& field,
                                              std::string const& name);

} // namespace veldraw::app
