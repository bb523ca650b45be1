#pragma once

#include "operations/Command.h"
#include "operations/Parameter.h"

#include <pybind11/pybind11.h>

namespace veldraw::python {

/// A value of Python's as an argument of a command. Zones and variables are numbers, texts as on the command line, objects of the module, or
/// several of these. @throws pybind11::type_error for a value of a type that the parameter does not take
operations::CommandArgument argumentOf(operations::Parameter const& parameter, pybind11::handle value);

/// A number without loss: what the text says is the same number.
std::string textOfNumber(pybind11::handle number);

} // namespace veldraw::python
