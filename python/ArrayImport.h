#pragma once

#include "kernel/data/DataSet.h"

#include <pybind11/pybind11.h>

namespace veldraw::python {

/// A data set of arrays, which are copied.
///
/// The shape of a zone's first array is that of its points: one dimension where the zone has cells, otherwise up to three. The others have the
/// same shape, or that of the cells. Types that the kernel has are kept; others become the next wider one where no value changes.
/// @param zones names of zones with their arrays, by the names of variables
/// @param cells names of zones with what their cells are and an array of their points, from 0 on; none for ordered zones
/// @throws Failure, pybind11::type_error
std::shared_ptr<kernel::DataSet> dataSetOfArrays(pybind11::dict const& zones, pybind11::dict const& cells,
                                                 std::string const& title);

} // namespace veldraw::python
