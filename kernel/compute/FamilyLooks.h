#pragma once

#include "kernel/compute/SearchTree.h"
#include "kernel/compute/WideLanes.h"

#include <array>
#include <limits>

namespace veldraw::kernel {

/// Which boxes and points lie on which sides of a target: a bit for each octant.
template <std::size_t Axes>
struct Sides
{
    static constexpr unsigned all = (1U << (1U << Axes)) - 1U;
};

/// The octants in which the coordinate along an axis is not negative.
inline constexpr std::array<unsigned, 3> upperOctants{0xaaU, 0xccU, 0xf0U};

/// Squared distances from a target to the eight boxes of a family, and the octants that each box reaches into.
template <std::size_t Axes, bool NeedsOctants>
VELDRAW_INLINE void measureBoxes(double const* family, double const* target, double* squares, unsigned* octants)
{
    for (std::size_t child = 0; child < familyWidth; ++child) {
        squares[child] = 0.0;
        octants[child] = Sides<Axes>::all;
    }
    for (std::size_t axis = 0; axis < Axes; ++axis) {
        double const* const low = family + 2 * axis * familyWidth;
        double const* const high = low + familyWidth;
        double const at = target[axis];
        for (std::size_t child = 0; child < familyWidth; ++child) {
            double const below = low[child] - at;
            double const above = at - high[child];
            double const positive = below > above ? below : above;
            double const distance = positive > 0.0 ? positive : 0.0;
            squares[child] += distance * distance;
        }
        if constexpr (NeedsOctants) {
            for (std::size_t child = 0; child < familyWidth; ++child) {
                unsigned const reached =
                    (high[child] >= at ? upperOctants[axis] : 0U) | (low[child] < at ? ~upperOctants[axis] : 0U);
                octants[child] &= reached;
            }
        }
    }
}

/// Squared distances from a target to the eight points of a leaf.
template <std::size_t Axes>
VELDRAW_INLINE void measurePoints(double const* leaf, double const* target, double* squares)
{
    for (std::size_t point = 0; point < familyWidth; ++point) {
        squares[point] = 0.0;
    }
    for (std::size_t axis = 0; axis < Axes; ++axis) {
        for (std::size_t point = 0; point < familyWidth; ++point) {
            double const difference = leaf[axis * familyWidth + point] - target[axis];
            squares[point] += difference * difference;
        }
    }
}

/// A bit for each square that is finite and not above a limit: most are, so that looking at them one by one would be slow.
VELDRAW_INLINE unsigned hits(double const* squares, double limit)
{
    // Vectors of the compiler's, as it does not see that the bits of a loop could be found side by side; of four, since it takes
    // those that the processor does not have apart number by number.
    typedef double Squares __attribute__((vector_size(4 * sizeof(double)), aligned(alignof(double)), may_alias));
    typedef long long Bits __attribute__((vector_size(4 * sizeof(long long))));
    constexpr double largest = std::numeric_limits<double>::max();
    double const bound = limit < largest ? limit : largest;
    Bits const low = (*reinterpret_cast<Squares const*>(squares) <= bound) & Bits{1, 2, 4, 8};
    Bits const high = (*reinterpret_cast<Squares const*>(squares + 4) <= bound) & Bits{16, 32, 64, 128};
    Bits const bits = low | high;
    return static_cast<unsigned>(bits[0] | bits[1] | bits[2] | bits[3]);
}

} // namespace veldraw::kernel
