#pragma once

#include <cstddef>
#include <cstdint>

namespace veldraw::kernel {

/// A rotation of @p Size components, and a block of values that it takes from one place to another.
template <std::size_t Size, typename Element>
struct BlockToRotate
{
    double const (*matrix)[Size];
    double const (*matrixRest)[Size]; ///< what the matrix lacks of the better known one
    double const* origin;
    Element const* from[Size];
    Element* to[Size]; ///< apart from all that is read
    std::int64_t count;
};

/// Rotates a block without a branch, on as many values side by side as the processor takes. The results are the same to the
/// last bit on all of them.
///
/// Values of single precision are computed in double. For those of double precision the rounding errors of all steps are
/// computed as well and added (Ogita, Rump and Oishi 2005), so that what is lost is little more than the one rounding of
/// the result.
void rotateBlock(BlockToRotate<2, float> const& block);
void rotateBlock(BlockToRotate<2, double> const& block);
void rotateBlock(BlockToRotate<3, float> const& block);
void rotateBlock(BlockToRotate<3, double> const& block);

} // namespace veldraw::kernel
