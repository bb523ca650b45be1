#pragma once

#include "app/plot/PickRay.h"

#include <cstdint>
#include <vector>

class vtkCellArray;
class vtkPolyData;

namespace veldraw::app {

/// Searches the cells of a drawing for the nearest one that a ray meets.
///
/// Points are projected along the ray: the ray itself is the origin of the two coordinates across it. Cells with a point that
/// is not a number are never met.
class PickSearch
{
public:
    PickSearch(PickRay const& ray, vtkPolyData& drawing, double pixels);

    /// Distance along the ray, negative when nothing is met.
    double nearest() const;

private:
    struct Seen
    {
        double x;     ///< across the ray
        double y;     ///< across the ray
        double depth; ///< along it
    };

    template <typename Cell>
    double nearestOf(vtkCellArray* cells, Cell const& cell) const;
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
};

} // namespace veldraw::app
