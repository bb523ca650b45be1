#pragma once

#include "kernel/compute/PlaneTriangulation.h"

#include <algorithm>

namespace veldraw::kernel {

/// The points of the zone that a triangulation makes, and where their values come from.
///
/// Points have numbers: first those of the source zones, then those of the boundary zones, then the crossings of boundaries.
struct TriangulatedPoints
{
    using Number = PlaneTriangulation::Number;

    /// The points of a zone.
    struct Part
    {
        int zone; ///< one-based number
        bool isBoundary;
        Number first;
        Number end;
    };

    Part const& partOf(Number point) const
    {
        auto const isBefore = [](Number number, Part const& part) { return number < part.first; };
        return *(std::upper_bound(parts.begin(), parts.end(), point, isBefore) - 1);
    }

    Number firstCrossing() const { return parts.back().end; }

    /// Number of the first point of a boundary; that of the first crossing when there is no boundary.
    Number firstBoundary() const
    {
        auto const first = std::find_if(parts.begin(), parts.end(), [](Part const& part) { return part.isBoundary; });
        return first == parts.end() ? firstCrossing() : first->first;
    }

    std::vector<Part> parts;
    std::vector<PlaneTriangulation::Mix> mixes; ///< of source points: for each point from firstBoundary() on, if needed
    std::vector<PlaneTriangulation::Crossing> crossings;
    std::vector<Number> points; ///< those of the new zone, in ascending order
};

} // namespace veldraw::kernel
