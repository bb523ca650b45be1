#pragma once

#include "kernel/data/ValueBlanking.h"

#include <string>
#include <vector>

namespace veldraw::operations {

/// The constraints that a text such as "T < 300; 4 > 1e5 off" lists: a number or a name of a variable, the side of the limit that is left
/// out, the limit, and "off" for one that is not active. A text of blanks lists none.
/// @throws std::runtime_error with a sentence that says which constraint is wrong
std::vector<kernel::BlankingConstraint> constraintsOf(std::string const& text, kernel::DataSet const& dataSet);

} // namespace veldraw::operations
