#pragma once

#include "app/plot/PickRay.h"
#include "kernel/base/Progress.h"

#include <cstdint>
#include <vector>

class vtkCellArray;
class vtkPolyData;

namespace veldraw::app {

/// A drawn cell that a ray meets.
struct PickHit
{
    double distance = -1.0; ///< along the ray; negative when nothing is met
    std::int64_t cell = -1; ///< number among the vertices, lines and polygons of the drawing, in this order

    bool isMiss() const { return distance < 0.0; }
};

/// Searches the cells of a drawing for the nearest one that a ray meets.
///
/// Points are projected along the ray: the ray itself is the origin of the two coordinates across it. Cells with a point that
/// is not a number are never met.
class PickSearch
{
public:
    using Bounds = std::array<double, 6>; ///< low and high end along each axis of the scene

    PickSearch(PickRay const& ray, vtkPolyData& drawing, double pixels);

    /// For a search on another thread than the one that draws. @param bounds of what is drawn, so that nobody need ask for them
    PickSearch(PickRay const& ray, vtkPolyData& drawing, double pixels, Bounds const& bounds);

    /// The nearest cell that is met. After an interrupt it may be any.
    PickHit nearest(kernel::Progress const& progress = {}) const;

private:
    struct Seen
    {
        double x;     ///< across the ray
        double y;     ///< across the ray
        double depth; ///< along it
    };

    template <typename Cell>
    PickHit nearestOf(vtkCellArray* cells, std::int64_t firstCell, kernel::Progress const& progress,
                      Cell const& cell) const;
    template <typename Id>
    double polygon(Id const* ids, std::int64_t count) const;
    template <typename Id>
    double lines(Id const* ids, std::int64_t count) const;
    template <typename Id>
    double vertices(Id const* ids, std::int64_t count) const;

    bool mayMeet() const;
    Seen see(std::int64_t point) const;
    double depthOnPlane(std::vector<Seen> const& corners) const;
    double reachAt(double depth) const;
    bool isInScene(double depth) const { return depth >= 0.0 && depth <= m_ray.m_length; }

    PickRay const& m_ray;
    vtkPolyData& m_drawing;
    float const* m_points;
    double m_pixels;
    Bounds m_bounds;
};

} // namespace veldraw::app
