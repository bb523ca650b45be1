#include "kernel/compute/RotateBlock.h"

#include "kernel/compute/WideLanes.h"

#include <cmath>

// std::fma rounds in the same way everywhere, so all processors give the same results.

namespace veldraw::kernel {

namespace {

/// A sum and its rounding error.
struct ExactSum
{
    double value;
    double rest;

    [[gnu::always_inline]] inline void add(double term)
    {
        double const sum = value + term;
        double const part = sum - value;
        rest += (value - (sum - part)) + (term - part);
        value = sum;
    }

    [[gnu::always_inline]] inline void addProduct(double factor, double factorRest, ExactSum const& term)
    {
        double const product = factor * term.value;
        rest += std::fma(factor, term.value, -product) + (factorRest * term.value + factor * term.rest);
        add(product);
    }
};

/// A row of the matrix, copied to local variables: the compiler would load it again for each value through the pointer.
template <std::size_t Size>
struct Row
{
    double factors[Size];
    double rests[Size];
    double origin;

    template <typename Element>
    explicit Row(BlockToRotate<Size, Element> const& block, std::size_t row)
        : origin(block.origin[row])
    {
        for (std::size_t column = 0; column < Size; ++column) {
            factors[column] = block.matrix[row][column];
            rests[column] = block.matrixRest[row][column];
        }
    }

    // The distances are separate arguments: the compiler would keep an array of three in memory instead of registers.
    template <typename... Distances>
    [[gnu::always_inline]] inline double rotated(double distance, Distances... more) const
    {
        double sum = factors[0] * distance;
        std::size_t column = 0;
        ((sum += factors[++column] * more), ...);
        return origin + sum;
    }

    template <typename... Distances>
    [[gnu::always_inline]] inline double rotated(ExactSum const& distance, Distances const&... more) const
    {
        ExactSum sum{origin, 0.0};
        std::size_t column = 0;
        sum.addProduct(factors[0], rests[0], distance);
        ((++column, sum.addProduct(factors[column], rests[column], more)), ...);
        return sum.value + sum.rest;
    }
};

[[gnu::always_inline]] inline void setDistance(double& distance, float value, double origin)
{
    distance = static_cast<double>(value) - origin;
}

[[gnu::always_inline]] inline void setDistance(ExactSum& distance, double value, double origin)
{
    distance = {value, 0.0};
    distance.add(-origin);
}

// The results overlap nothing that is read. Without the pragma the compiler does not use vector instructions for three
// components, since it would have to check too many pairs of arrays for overlap.
template <typename Distance, typename Element>
[[gnu::always_inline]] inline void rotatePlane(BlockToRotate<2, Element> const& block)
{
    Row<2> const first(block, 0);
    Row<2> const second(block, 1);
    Element const* const x = block.from[0];
    Element const* const y = block.from[1];
    Element* const p = block.to[0];
    Element* const q = block.to[1];
    std::int64_t const count = block.count;
#pragma GCC ivdep
    for (std::int64_t at = 0; at < count; ++at) {
        Distance dx;
        Distance dy;
        setDistance(dx, x[at], first.origin);
        setDistance(dy, y[at], second.origin);
        p[at] = static_cast<Element>(first.rotated(dx, dy));
        q[at] = static_cast<Element>(second.rotated(dx, dy));
    }
}

template <typename Distance, typename Element>
[[gnu::always_inline]] inline void rotateSpace(BlockToRotate<3, Element> const& block)
{
    Row<3> const first(block, 0);
    Row<3> const second(block, 1);
    Row<3> const third(block, 2);
    Element const* const x = block.from[0];
    Element const* const y = block.from[1];
    Element const* const z = block.from[2];
    Element* const p = block.to[0];
    Element* const q = block.to[1];
    Element* const r = block.to[2];
    std::int64_t const count = block.count;
#pragma GCC ivdep
    for (std::int64_t at = 0; at < count; ++at) {
        Distance dx;
        Distance dy;
        Distance dz;
        setDistance(dx, x[at], first.origin);
        setDistance(dy, y[at], second.origin);
        setDistance(dz, z[at], third.origin);
        p[at] = static_cast<Element>(first.rotated(dx, dy, dz));
        q[at] = static_cast<Element>(second.rotated(dx, dy, dz));
        r[at] = static_cast<Element>(third.rotated(dx, dy, dz));
    }
}

} // namespace

VELDRAW_WIDE_LANES("fma") void rotateBlock(BlockToRotate<2, float> const& block)
{
    rotatePlane<double>(block);
}

VELDRAW_WIDE_LANES("fma") void rotateBlock(BlockToRotate<2, double> const& block)
{
    rotatePlane<ExactSum>(block);
}

VELDRAW_WIDE_LANES("fma") void rotateBlock(BlockToRotate<3, float> const& block)
{
    rotateSpace<double>(block);
}

VELDRAW_WIDE_LANES("fma") void rotateBlock(BlockToRotate<3, double> const& block)
{
    rotateSpace<ExactSum>(block);
}

} // namespace veldraw::kernel
