#pragma once

#include "kernel/compute/PlaneTriangulation.h"
#include "kernel/data/Zone.h"

#include <map>
#include <set>

namespace veldraw::tests {

/// Triangles in the plane, looked at with exact arithmetic.
class PlaneTriangles
{
public:
    using Place = kernel::PlanePlace;
    using Edge = std::pair<std::size_t, std::size_t>; ///< the lower number first

    struct Triangle
    {
        std::array<std::size_t, 3> corners;
    };

    PlaneTriangles() = default;

    /// Those of a zone of triangles whose first two variables are X and Y.
    explicit PlaneTriangles(kernel::Zone const& zone);

    std::vector<Place> places;
    std::vector<Triangle> triangles;

    /// Whether each triangle turns against the clock's sense.
    bool areAllForward() const;

    /// Number of triangles at each edge.
    std::map<Edge, int> edges() const;

    /// Number of edges with a neighbour beyond the circumcircle of whose triangle the other corner is not, of all that are not in
    /// @p lines. A triangulation without one is a Delaunay triangulation.
    int nonDelaunayCount(std::set<Edge> const& lines = {}) const;

    /// Points without triangles count too.
    int eulerCharacteristic() const;

    /// Twice the area, rounded once.
    double doubleArea() const;

    /// The corners of each triangle, the lowest first, in order.
    std::set<std::array<std::size_t, 3>> sorted() const;
};

/// Twice the area of the convex hull of some places, computed exactly and rounded once.
double doubleAreaOfHull(std::vector<kernel::PlanePlace> places);

/// Twice the area of a polygon, likewise; positive against the clock's sense.
double doubleAreaOf(std::vector<kernel::PlanePlace> const& polygon);

} // namespace veldraw::tests
