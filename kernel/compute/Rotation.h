#pragma once

#include <array>

namespace veldraw::kernel {

struct SineAndCosine
{
    long double sine;
    long double cosine;
};

/// Sine and cosine of a finite angle. The angle is reduced in degrees, where that is exact: multiples of 90 give 0, 1 and
/// -1 to the last bit, and a full turn gives what no turn gives.
SineAndCosine sineAndCosine(long double degrees);

/// A straight line in space about which things turn, right-handed.
struct RotationAxis
{
    std::array<double, 3> origin{};           ///< a point on it
    std::array<double, 3> direction{0, 0, 1}; ///< of any length

    /// Whether all numbers are finite and the direction is one.
    bool isValid() const;
};

/// A right-handed rotation in space by the formula of Rodrigues: a point p goes to o + R (p - o), with
/// R = k k^T + cos (I - k k^T) + sin [k]x for the unit vector k along the axis and a point o on it.
///
/// About a coordinate axis the entries are the very sine and cosine, 0 and 1.
class Rotation
{
public:
    /// @param axis a valid one
    Rotation(RotationAxis const& axis, long double degrees);

    double entry(std::size_t row, std::size_t column) const { return static_cast<double>(m_matrix[row][column]); }

    /// What the entry lacks of the better known one.
    double entryRest(std::size_t row, std::size_t column) const
    {
        return static_cast<double>(m_matrix[row][column] - static_cast<long double>(entry(row, column)));
    }

    std::array<double, 3> const& origin() const { return m_origin; }

    /// Whether the component takes part: it is turned, or turns another one. None does in a full turn, two do about a
    /// coordinate axis.
    bool involves(std::size_t component) const;

    /// The same rotation of vectors, which have no place.
    Rotation ofVectors() const;

private:
    std::array<std::array<long double, 3>, 3> m_matrix{};
    std::array<double, 3> m_origin;
};

} // namespace veldraw::kernel
