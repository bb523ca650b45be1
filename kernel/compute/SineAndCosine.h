#pragma once

namespace veldraw::kernel {

struct SineAndCosine
{
    long double sine;
    long double cosine;
};

/// Sine and cosine of a finite angle. The angle is reduced in degrees, where that is exact: multiples of 90 give 0, 1 and
/// -1 to the last bit, and a full turn gives what no turn gives.
SineAndCosine sineAndCosine(long double degrees);

} // namespace veldraw::kernel
