#pragma once

#include "app/plot/PickRay.h"
#include "app/plot/ZoneGeometry.h"
#include "app/plot/ZonePlace.h"

#include <optional>

class vtkIdList;

namespace veldraw::app {

/// Finds where in a zone a ray meets a cell that is drawn of it.
///
/// What is drawn is in single precision; the place is found among the coordinates of the zone. Quadrilaterals are met where their
/// values are bilinear, polygons with more corners consist of triangles around the mean of these. On a slice or an iso-surface the
/// place is then one in the cell that is cut.
class PlaceOnRay
{
public:
    /// @param geometry of the zone as it is now, or of a cut through it; @param axes one-based numbers of the variables on the axes
    PlaceOnRay(PickRay const& ray, ZoneGeometry const& geometry, kernel::Zone const& zone,
               std::array<int, 3> const& axes);

    /// @param cell zero-based number among the drawn cells, which the ray meets. @return none when there is no such cell
    std::optional<ZonePlace> in(std::int64_t cell) const;

private:
    struct Corner
    {
        std::vector<kernel::WeightedPoint> points;
        std::array<double, 3> seen; ///< along the ray, see PickRay::seen()
    };
    using Corners = std::vector<Corner>;
    using Shares = std::vector<double>; ///< of the corners

    Corners cornersOf(std::int64_t cell, bool& isPolygon) const;
    Corner cornerOf(std::int64_t drawnPoint) const;
    std::array<double, 3> inScene(std::vector<kernel::WeightedPoint> const& points) const;
    void refine(ZonePlace& place) const;

    static Shares sharesInPolygon(Corners const& corners);
    static Shares sharesInFan(Corners const& corners);
    static Shares sharesOnLine(Corners const& corners);

    PickRay const& m_ray;
    ZoneGeometry const& m_geometry;
    kernel::Zone const& m_zone;
    std::array<int, 3> m_axes;
};

} // namespace veldraw::app
