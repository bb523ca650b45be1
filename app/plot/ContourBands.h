#pragma once

namespace veldraw::app {

/// Round steps for a contour flood in bands: all values between two of them have one colour.
struct ContourBands
{
    double min = 0.0;
    double max = 0.0;
    int count = 0; ///< of equal width from min to max; 0: the limits are one value, which has no bands

    /// Bands that reach over @p min and @p max to the next round numbers, about ten of them.
    static ContourBands over(double min, double max);

    /// Bands of logarithms that reach over @p min and @p max to the next power of ten: one power each, or several where there would be
    /// more than twelve.
    static ContourBands ofPowers(double min, double max);
};

} // namespace veldraw::app
