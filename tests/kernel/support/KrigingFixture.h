#pragma once

#include "kernel/operations/Krige.h"
#include "tests/kernel/support/InterpolationFixture.h"
#include "tests/kernel/support/ReferenceKriging.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace veldraw::tests {

/// Zones of scattered points to krige between.
class KrigingFixture : public InterpolationFixture
{
protected:
    static constexpr kernel::NeighborChoice nearest16{PtSelection_NearestN, 16};
    static constexpr kernel::NeighborChoice octant16{PtSelection_Octant, 16};
    static constexpr kernel::NeighborChoice everyPoint{PtSelection_All, 1};

    bool krige(kernel::NumberSet const& sources, int destination, kernel::NeighborChoice choice,
               kernel::Krige::Model model, kernel::NumberSet const& variables = {P})
    {
        return session.perform(kernel::Krige(frame->id, sources, destination, variables, choice, model));
    }

    std::vector<double> kriged(int from, int to, kernel::NeighborChoice choice, kernel::Krige::Model model)
    {
        EXPECT_TRUE(krige({from}, to, choice, model)) << session.lastError();
        return valuesOf(to, P);
    }

    static ReferenceKriging::Place placeOf(ScatteredPoints const& points, std::size_t point)
    {
        ReferenceKriging::Place place{};
        std::copy_n(points.at(point), points.dimensions(), place.begin());
        return place;
    }

    static double diagonal(ScatteredPoints const& points)
    {
        double square = 0.0;
        for (int axis = 0; axis < points.dimensions(); ++axis) {
            double low = points.at(0)[axis];
            double high = low;
            for (std::size_t point = 0; point < points.count(); ++point) {
                low = std::min(low, points.at(point)[axis]);
                high = std::max(high, points.at(point)[axis]);
            }
            square += (high - low) * (high - low);
        }
        return std::sqrt(square);
    }

    static std::vector<std::uint32_t> nearestPoints(ScatteredPoints const& points, double const* target,
                                                    std::size_t count)
    {
        std::vector<std::uint32_t> numbers = points.numbers();
        std::sort(numbers.begin(), numbers.end(), [&](std::uint32_t a, std::uint32_t b) {
            return points.squaredDistance(a, target) < points.squaredDistance(b, target);
        });
        numbers.resize(std::min(count, numbers.size()));
        return numbers;
    }

    /// The estimate from some points by the reference.
    static double estimateByHand(ScatteredPoints const& points, std::vector<std::uint32_t> const& chosen,
                                 ReferenceKriging::Place const& target, kernel::Krige::Model const& model,
                                 std::vector<double> const& values)
    {
        std::vector<ReferenceKriging::Place> places;
        for (std::uint32_t const point : chosen) {
            places.push_back(placeOf(points, point));
        }
        ReferenceKriging const reference(places, static_cast<std::size_t>(points.dimensions()), model.drift,
                                         model.range * diagonal(points), model.zeroValue);
        std::vector<double> const weights = reference.weights(target);
        double sum = 0.0;
        for (std::size_t at = 0; at < chosen.size(); ++at) {
            sum += weights[at] * values[chosen[at]];
        }
        return sum;
    }

    static double maximalDifference(std::vector<double> const& a, std::vector<double> const& b)
    {
        double most = 0.0;
        for (std::size_t at = 0; at < a.size(); ++at) {
            most = std::max(most, std::abs(a[at] - b[at]));
            most = std::isnan(a[at]) ? std::numeric_limits<double>::infinity() : most;
        }
        return most;
    }
};

} // namespace veldraw::tests
