#include "kernel/compute/Rotation.h"

#include <algorithm>
#include <cmath>

namespace veldraw::kernel {

SineAndCosine sineAndCosine(long double degrees)
{
    constexpr long double pi = 3.141592653589793238462643383279502884L;
    int quarters = 0;
    long double const rest = std::remquo(degrees, 90.0L, &quarters); // exact, at most 45 degrees
    long double const sine = std::sin(rest * (pi / 180.0L));
    long double const cosine = std::cos(rest * (pi / 180.0L));
    switch (quarters & 3) {
    case 1:
        return {cosine, -sine};
    case 2:
        return {-sine, -cosine};
    case 3:
        return {-cosine, sine};
    default:
        return {sine, cosine};
    }
}

namespace {

bool isFinite(double value)
{
    return std::isfinite(value);
}

/// The direction with length 1; long double has room for the squares of all numbers that double has.
std::array<long double, 3> unitVector(std::array<double, 3> const& direction)
{
    std::array<long double, 3> unit{direction[0], direction[1], direction[2]};
    long double const length = std::sqrt(unit[0] * unit[0] + unit[1] * unit[1] + unit[2] * unit[2]);
    for (long double& component : unit) {
        component /= length;
    }
    return unit;
}

} // namespace

bool RotationAxis::isValid() const
{
    bool const isDirection = std::any_of(direction.begin(), direction.end(), [](double part) { return part != 0.0; });
    return isDirection && std::all_of(direction.begin(), direction.end(), isFinite) &&
           std::all_of(origin.begin(), origin.end(), isFinite);
}

Rotation::Rotation(RotationAxis const& axis, long double degrees)
    : m_origin(axis.origin)
{
    auto const [sine, cosine] = sineAndCosine(degrees);
    std::array<long double, 3> const k = unitVector(axis.direction);
    std::array<std::array<long double, 3>, 3> const cross{{{0, -k[2], k[1]}, {k[2], 0, -k[0]}, {-k[1], k[0], 0}}};
    bool const isRotated = sine != 0.0L || cosine != 1.0L;
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            long double const unity = row == column ? 1.0L : 0.0L;
            long double const along = k[row] * k[column];
            long double const rotated = along + cosine * (unity - along) + sine * cross[row][column];
            m_matrix[row][column] = isRotated ? rotated : unity;
        }
    }
}

bool Rotation::involves(std::size_t component) const
{
    for (std::size_t other = 0; other < 3; ++other) {
        double const unity = other == component ? 1.0 : 0.0;
        if (entry(component, other) != unity || entry(other, component) != unity) {
            return true;
        }
    }
    return false;
}

Rotation Rotation::ofVectors() const
{
    Rotation vectors = *this;
    vectors.m_origin = {};
    return vectors;
}

} // namespace veldraw::kernel
