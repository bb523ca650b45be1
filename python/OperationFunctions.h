#pragma once

#include <pybind11/pybind11.h>

namespace veldraw::python {

/// Adds a function for each operation: keyword arguments, signature and documentation come from the registry.
void addOperations(pybind11::module_& module);

} // namespace veldraw::python
