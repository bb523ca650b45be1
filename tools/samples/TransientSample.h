#pragma once

#include <string>

namespace veldraw::samples {

/// A warm spot that travels over a plate and cools, in six time steps of two strands: the plate (an IJ-ordered zone with heat
/// flux vectors) and a row of probes across it (line segments). @throws std::runtime_error
void writeTransient(std::string const& path);

} // namespace veldraw::samples
