#pragma once

#include <string>
#include <vector>

namespace veldraw::operations {

/// The name that is nearest to one that is not known, as a sentence with a blank before it: " Did you mean \"mirror-zones\"?"
/// Empty when none is near.
std::string suggestion(std::string const& unknown, std::vector<std::string> const& names);

} // namespace veldraw::operations
