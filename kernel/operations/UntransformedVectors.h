#pragma once

#include "kernel/data/DataSet.h"

namespace veldraw::kernel {

/// Names of the vectors and tensors that have values in some of @p zones and not all of whose components are in @p transformed.
///
/// These are arrays of a file with 2, 3, 6 or 9 components, colours left out, whatever has become of some of their components,
/// and variables that came one by one but are called as the components of a vector: u, v, w, or alike but for an x, y, z in front
/// or at the end, as "velocity_x [m/s]". The third may be missing.
/// @param transformed one-based numbers of the variables that an operation has rotated or mirrored, coordinates included
/// @param dimensions 3, or 2 in the plane, where the third component of a vector does not count
std::vector<std::string> untransformedVectors(DataSet const& dataSet, NumberSet const& zones,
                                              NumberSet const& transformed, std::size_t dimensions);

/// Text for the message log on the vectors and tensors that an operation did not transform; empty when there are none.
/// @param operation name of the operation
std::string remarkOnUntransformedVectors(std::string const& operation, DataSet const& dataSet, NumberSet const& zones,
                                         NumberSet const& transformed, std::size_t dimensions);

} // namespace veldraw::kernel
