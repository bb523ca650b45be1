#pragma once

#include <string>

namespace veldraw::samples {

/// Flow through a duct with a throat in three structured blocks: velocity (m/s) and temperature (K) at the points, pressure (Pa)
/// in the cells. @throws std::runtime_error
void writeFlow(std::string const& path);

} // namespace veldraw::samples
