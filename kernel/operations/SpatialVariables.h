#pragma once

#include <array>

namespace veldraw::kernel {

/// The variables that place points and their vectors, by one-based numbers.
struct SpatialVariables
{
    std::array<int, 3> coordinates{}; ///< X, Y, Z; the third does not count in the plane
    std::array<int, 3> vector{};      ///< U, V, W, likewise; none of them counts without a vector
    bool isThreeD = true;
    bool hasVector = false;

    /// Number of coordinates, and of components of a vector.
    std::size_t dimensions() const { return isThreeD ? 3 : 2; }
};

} // namespace veldraw::kernel
