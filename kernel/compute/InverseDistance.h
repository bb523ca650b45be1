#pragma once

#include "kernel/compute/NeighborSearch.h"
#include "kernel/compute/PointColumns.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <vector>

namespace veldraw::kernel {

/// Weights by inverse distance (D. Shepard, 1968): max(distance, minimum distance)^-exponent, divided by the sum of all.
///
/// Where points coincide with the target and the minimum distance is 0, they alone have weights, equal ones. Distances are
/// divided by the smallest one before they are raised to the power, so no weight overflows and the largest are exact.
class InverseDistance
{
public:
    /// @param minimumDistance at least 0; @param exponent above 0
    InverseDistance(double minimumDistance, double exponent)
        : m_minimumSquare(std::min(minimumDistance * minimumDistance, std::numeric_limits<double>::max()))
        , m_exponent(0.5 * exponent)
    {
    }

    /// The weights of neighbours, in their order; those of each target add up to 1.
    void weigh(Neighborhoods const& neighborhoods, std::vector<double>& weights) const;

    /// Copies the values of a variable of @p count points from @p first on to @p values.
    using ReadValues = std::function<void(std::size_t variable, std::size_t first, std::size_t count, double* values)>;

    /// Means of the values of all points, weighted for each of a few targets.
    /// @param points at least one; @param targets their coordinates, one target after the other
    /// @param means receives a number for each target and variable, those of a target side by side
    /// @throws Interrupted
    void average(PointColumns const& points, std::vector<double> const& targets, std::size_t variables,
                 ReadValues const& read, std::vector<double>& means, Progress const& progress) const;

private:
    void makeFractions(double smallest, double* squares, std::size_t count) const;

    double m_minimumSquare;
    double m_exponent; ///< of squared distances
};

} // namespace veldraw::kernel
