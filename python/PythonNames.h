#pragma once

#include "operations/OperationEntry.h"

#include <string>
#include <vector>

namespace veldraw::python {

/// The name that Python has for an operation or a parameter: "mirror_zones" for "mirror-zones"; "from_" for "from".
std::string pythonName(std::string name);

/// A message of the command line with the names that Python has for an operation and its parameters. @param entry may be null
std::string inPythonNames(std::string message, operations::OperationEntry const* entry);

/// Operations that are functions of the module, made from their entries: all but those that the module has in another form, or cannot do.
std::vector<operations::OperationEntry> operationsOfModule();

/// The signature of an operation's function and its documentation, as Python's inspect module reads them.
std::string documentationOf(operations::OperationEntry const& entry);

} // namespace veldraw::python
