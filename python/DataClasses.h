#pragma once

#include <pybind11/pybind11.h>

namespace veldraw::python {

/// The module's classes for data sets, zones and variables.
void addDataClasses(pybind11::module_& module);

} // namespace veldraw::python
