#pragma once

#include <cstddef>
#include <cstdint>

namespace veldraw::kernel {

/// A block of values that is to be rotated: points or vectors of @p Size components, their rotation, and room for the results.
template <std::size_t Size, typename Element>
struct BlockToRotate
{
    double const (*matrix)[Size];
    double const (*matrixRest)[Size]; ///< rounding errors of the entries of the matrix
    double const* origin;
    Element const* from[Size];
    Element* to[Size]; ///< overlaps nothing that is read
    std::int64_t count;
};

/// Rotates a block with vector instructions of the processor. The results are the same, to the last bit, on all processors.
///
/// Single-precision values are computed in double precision. For double-precision values the rounding errors of all steps
/// are computed as well and added (Ogita, Rump and Oishi 2005), so that the error is little more than that of rounding
/// the exact result once.
void rotateBlock(BlockToRotate<2, float> const& block);
void rotateBlock(BlockToRotate<2, double> const& block);
void rotateBlock(BlockToRotate<3, float> const& block);
void rotateBlock(BlockToRotate<3, double> const& block);

} // namespace veldraw::kernel
