#pragma once

#include "operations/Arguments.h"

#include <optional>

namespace veldraw::operations {

/// The zones or variables that a value names: numbers, ranges such as 1:9 or 1:9:2 with a step, names, in which * stands for any
/// letters, and * for all. What stands in quotes is a name as it is.
/// @param dataSet null to check the form alone
/// @return the numbers, or one number for a parameter that takes one; nothing without a data set
/// @throws CommandError for what is not there, and for a name that several have where one is wanted
std::optional<Arguments::Value> numbersOf(Parameter const& parameter, CommandArgument const& argument,
                                          kernel::DataSet const* dataSet);

/// The numbers of a value that knows no names: numbers and ranges. @throws CommandError for anything else, and for more than a million
Arguments::Value plainNumbersOf(Parameter const& parameter, CommandArgument const& argument);

} // namespace veldraw::operations
