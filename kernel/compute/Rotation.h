#pragma once

#include <array>

namespace veldraw::kernel {

struct SineAndCosine
{
    long double sine;
    long double cosine;
};

/// Sine and cosine of a finite angle. The angle is reduced while it is in degrees, which is exact: multiples of 90 degrees give
/// exactly 0, 1 and -1, and 360 degrees give the same as 0.
SineAndCosine sineAndCosine(long double degrees);

/// A straight line in space about which points and vectors are rotated, right-handed.
struct RotationAxis
{
    std::array<double, 3> origin{};           ///< a point on it
    std::array<double, 3> direction{0, 0, 1}; ///< of any length

    /// Whether all numbers are finite and the direction is not zero.
    bool isValid() const;
};

/// A right-handed rotation in space by the formula of Rodrigues: a point p goes to o + R (p - o), with
/// R = k k^T + cos (I - k k^T) + sin [k]x for the unit vector k along the axis and a point o on it.
///
/// About a coordinate axis the entries are exactly the sine, the cosine, 0 and 1.
class Rotation
{
public:
    /// @param axis a valid one
    Rotation(RotationAxis const& axis, long double degrees);

    double entry(std::size_t row, std::size_t column) const { return static_cast<double>(m_matrix[row][column]); }

    /// Rounding error of entry(): what has to be added to it for the entry in extended precision.
    double entryRest(std::size_t row, std::size_t column) const
    {
        return static_cast<double>(m_matrix[row][column] - static_cast<long double>(entry(row, column)));
    }

    std::array<double, 3> const& origin() const { return m_origin; }

    /// Whether the rotation changes this component, or another one by it. No component is involved in a rotation by 360
    /// degrees; two are in a rotation about a coordinate axis.
    bool involves(std::size_t component) const;

    /// The same rotation for vectors, which have no position: about the same direction through the origin of coordinates.
    Rotation ofVectors() const;

private:
    std::array<std::array<long double, 3>, 3> m_matrix{};
    std::array<double, 3> m_origin;
};

} // namespace veldraw::kernel
