#pragma once

#include "platform/vdsdkbase/VelUtilTypes.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace veldraw::kernel {

/// How values at two points belong together, by their distance, and what they have in common everywhere.
///
/// Spherical variogram with a sill of 1 (A. G. Journel, C. J. Huijbregts: Mining Geostatistics, 1978). The nugget is the variance
/// of each value's own error: results are smoothed by it, also at a source point itself; with no nugget they are exact there.
struct KrigingModel
{
    double range = 0.0;  ///< distance from which on values have nothing in common but the drift, at least 0
    double nugget = 0.0; ///< 0 to 1
    Drift_e drift = Drift_None;

    /// Covariance of the values, without their own errors, at two points.
    double covariance(double distance) const
    {
        double const share = distance / range; // not a number at distance 0 where the range is 0
        bool const isBeyond = distance > 0.0 && !(share < 1.0);
        double const fraction = distance > 0.0 ? share : 0.0;
        return isBeyond ? 0.0 : (1.0 - nugget) * (1.0 - fraction * (1.5 - 0.5 * fraction * fraction));
    }
};

constexpr std::size_t mostDriftTerms = 10;

/// Number of terms of a drift: 1, the coordinates, their squares and products.
inline std::size_t driftTermCount(Drift_e drift, std::size_t axes)
{
    std::size_t const linear = drift == Drift_None ? 1 : 1 + axes;
    return drift == Drift_Quadratic ? linear + axes * (axes + 1) / 2 : linear;
}

/// The next lower drift: quadratic, linear, none.
inline Drift_e lowerDrift(Drift_e drift)
{
    return drift == Drift_Quadratic ? Drift_Linear : Drift_None;
}

/// The terms of the quadratic drift at a place; those of lower drifts stand first.
template <typename Number>
inline void setDriftTerms(Number const* place, std::size_t axes, Number* terms)
{
    std::size_t term = 0;
    terms[term++] = Number{} + 1.0;
    for (std::size_t axis = 0; axis < axes; ++axis) {
        terms[term++] = place[axis];
    }
    for (std::size_t a = 0; a < axes; ++a) {
        for (std::size_t b = a; b < axes; ++b) {
            terms[term++] = place[a] * place[b];
        }
    }
}

/// How far a drift's term must differ from the terms before it to count, as a fraction of the constant term, where coordinates are
/// scaled to the extent of the points. Points in a plane or on a line tell of what is off it no more than the rounding errors of
/// single-precision coordinates do.
constexpr double leastRest = 1e-5;

} // namespace veldraw::kernel
