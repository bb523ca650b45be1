#pragma once

#include "kernel/base/Progress.h"
#include "kernel/compute/PlaneGeometry.h"

#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

namespace veldraw::kernel {

/// The Delaunay triangulation of points in the plane, constrained by lines. Built with CGAL, whose predicates are exact: no
/// triangle overlaps another, however near points are to each other.
///
///     PlaneTriangulation triangulation(progress);
///     triangulation.insertPoints(places, order, part);
///     triangulation.insertLine(line, numbers, true);
///     triangulation.joinLines(firstNewNumber);
///     triangulation.cutOutside();
///     triangulation.removeSlivers(0.25);
///     triangulation.writeTriangles(corners, progress);
///
/// Points have numbers, which the caller chooses. Nothing depends on the number of threads: one does the work.
class PlaneTriangulation
{
public:
    using Number = std::uint32_t;

    /// Points and their shares in a value, whose sum is 1.
    struct Mix
    {
        std::array<Number, 3> points;
        std::array<double, 3> shares;
    };

    /// A point at which lines cross and which was none before.
    struct Crossing
    {
        PlanePlace place;
        Number from; ///< the ends of the first of the edges that cross here
        Number to;
        double share; ///< of the way between them
    };

    /// @param progress is asked for a cancel while anything goes on, and lives as long as the object
    /// @throws std::bad_alloc, as all that follows
    explicit PlaneTriangulation(Progress const& progress);
    ~PlaneTriangulation();

    /// Inserts points that are all different, before anything else. Quick when those near each other in space are near each
    /// other in the order.
    /// @param places of which @p order has indices, which become the numbers of the points
    /// @return false when the points make no triangle, since they are on one line or fewer than three; nothing is inserted then
    /// @throws Interrupted, as all that follows
    bool insertPoints(PlanePlace const* places, std::vector<Number> const& order, Progress& progress);

    /// What makes up a value at a place: the corners of the triangle that contains it. Outside it is the value of the
    /// nearest place on the rim. For use before lines are inserted.
    Mix mixAt(PlanePlace const& place);

    /// Inserts the points of a line, as @p numbers but for those where a point is already.
    /// @param isOfLoop the line closes by itself, or together with others for which this is stated as well
    /// @return number of points that were there already, earlier ones of the line among them
    std::int64_t insertLine(std::vector<PlanePlace> const& places, std::vector<Number> const& numbers, bool isOfLoop);

    /// Makes the edges of all lines edges of triangles. @param firstNew number of the first of the crossings()
    void joinLines(Number firstNew);

    /// The points that joinLines() has made.
    std::vector<Crossing> const& crossings() const;

    /// Takes the triangles away that are not within an odd number of loops. Does nothing when there is no loop.
    /// @return their number
    std::int64_t cutOutside();

    /// Takes triangles away, from the rim inwards, whose inradius is less than @p keepFactor of their circumradius (0.5 for
    /// one with equal sides); never through an edge of a line.
    /// @return their number
    std::int64_t removeSlivers(double keepFactor);

    /// Number of triangles that are left.
    std::int64_t triangleCount() const;

    /// Writes the numbers of the corners of all triangles that are left, three a triangle, against the clock's sense.
    void writeTriangles(std::int64_t* corners, Progress& progress) const;

    PlaneTriangulation(PlaneTriangulation const&) = delete;
    PlaneTriangulation& operator=(PlaneTriangulation const&) = delete;

private:
    class Implementation;
    std::unique_ptr<Implementation> m_implementation;
};

} // namespace veldraw::kernel
