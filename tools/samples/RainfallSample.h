#pragma once

#include <string>

namespace veldraw::samples {

/// Rainfall (mm) on a plain of 10 by 8 km, to interpolate between its zones: gauges that are scattered over it, a coarse forecast,
/// and a fine, turned map that reaches beyond both and has no values yet. @throws std::runtime_error
void writeRainfall(std::string const& path);

} // namespace veldraw::samples
