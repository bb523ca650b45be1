#pragma once

namespace veldraw::kernel {

/// A number as style writes and reads carry it: as a whole number and with a fraction, side by side. Whole values look
/// at the first and stay exact beyond 2^53, the others look at the second.
struct StyleNumber
{
    static StyleNumber ofWhole(long long whole);

    /// The whole part is cut off towards zero, and 0 for not a number.
    static StyleNumber ofReal(double real);

    /// False when the two sides tell different numbers, for instance 2 and 2.5.
    bool isWhole() const;

    long long whole = 0;
    double real = 0.0;
};

} // namespace veldraw::kernel
