#include "app/plot/PlaceOnRay.h"

#include <vtkCellArray.h>
#include <vtkIdList.h>
#include <vtkNew.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace veldraw::app {

namespace {

using Place = std::array<double, 3>;

// Twice the area of a triangle with a corner on the ray, as the ray sees it.
double doubleArea(Place const& a, Place const& b)
{
    return a[0] * b[1] - b[0] * a[1];
}

Place between(Place const& a, Place const& b, double share)
{
    return {a[0] + share * (b[0] - a[0]), a[1] + share * (b[1] - a[1]), a[2] + share * (b[2] - a[2])};
}

// The shares of the corners of a triangle where the ray goes through. Rounding may bring it beside the triangle: then the nearest of
// the shares that are none below 0, and how far they were below.
struct InTriangle
{
    std::array<double, 3> shares;
    double outside;
};

InTriangle inTriangle(Place const& a, Place const& b, Place const& c)
{
    std::array<double, 3> shares{doubleArea(b, c), doubleArea(c, a), doubleArea(a, b)};
    double const whole = shares[0] + shares[1] + shares[2];
    if (whole == 0.0)
        return {{1.0, 0.0, 0.0}, std::numeric_limits<double>::infinity()};
    double outside = 0.0;
    double sum = 0.0;
    for (double& share : shares) {
        share /= whole;
        outside = std::max(outside, -share);
        share = std::max(share, 0.0);
        sum += share;
    }
    for (double& share : shares)
        share /= sum;
    return {shares, outside};
}

kernel::ZoneCells cellsOf(kernel::Zone const& zone, std::array<int, 3> const& axes)
{
    kernel::ZoneCells::Coordinates coordinates;
    for (std::size_t axis = 0; axis < axes.size(); ++axis)
        if (axes[axis] > 0) {
            auto const& group = zone.fields[static_cast<std::size_t>(axes[axis]) - 1].group();
            coordinates[axis] = group ? group->buffer() : nullptr;
        }
    return {zone.type, {zone.i, zone.j, zone.k, zone.connectivity, zone.blanking}, std::move(coordinates)};
}

} // namespace

PlaceOnRay::PlaceOnRay(PickRay const& ray, ZoneGeometry const& geometry, kernel::Zone const& zone,
                       std::array<int, 3> const& axes)
    : m_ray(ray)
    , m_geometry(geometry)
    , m_zone(zone)
    , m_axes(axes)
{
}

std::optional<ZonePlace> PlaceOnRay::in(std::int64_t cell) const
{
    bool isPolygon = false;
    Corners const corners = cornersOf(cell, isPolygon);
    if (corners.empty())
        return std::nullopt;
    auto const& slots = m_geometry.cells();
    ZonePlace place{m_zone.id, slots.empty() ? cell : slots[static_cast<std::size_t>(cell)], {}};
    Shares const shares = isPolygon ? sharesInPolygon(corners) : sharesOnLine(corners);
    for (std::size_t n = 0; n < corners.size(); ++n)
        for (kernel::WeightedPoint const& point : corners[n].points)
            place.points.push_back({point.point, shares[n] * point.weight});
    if (!m_geometry.mixes().empty())
        refine(place);
    return place;
}

PlaceOnRay::Corners PlaceOnRay::cornersOf(std::int64_t cell, bool& isPolygon) const
{
    vtkPolyData& drawing = m_geometry.drawing();
    vtkNew<vtkIdList> ids;
    std::int64_t left = cell;
    for (vtkCellArray* const cells : {drawing.GetVerts(), drawing.GetLines(), drawing.GetPolys()}) {
        std::int64_t const count = cells ? cells->GetNumberOfCells() : 0;
        if (left >= 0 && left < count) {
            cells->GetCellAtId(left, ids);
            isPolygon = cells == drawing.GetPolys();
        }
        left -= count;
    }
    Corners corners;
    for (vtkIdType n = 0; n < ids->GetNumberOfIds(); ++n)
        corners.push_back(cornerOf(ids->GetId(n)));
    return corners;
}

PlaceOnRay::Corner PlaceOnRay::cornerOf(std::int64_t drawnPoint) const
{
    auto const at = static_cast<std::size_t>(drawnPoint);
    auto const& mixes = m_geometry.mixes();
    auto const& points = m_geometry.points();
    Corner corner;
    if (!mixes.empty())
        corner.points = {{mixes[at].first, 1.0 - mixes[at].share}, {mixes[at].second, mixes[at].share}};
    else
        corner.points = {{points.empty() ? drawnPoint : points[at], 1.0}};
    corner.seen = m_ray.seen(inScene(corner.points));
    return corner;
}

std::array<double, 3> PlaceOnRay::inScene(std::vector<kernel::WeightedPoint> const& points) const
{
    PlotSpace const& space = m_geometry.key().space;
    Place place = positionOf(m_zone, {m_zone.id, -1, points}, m_axes);
    for (int axis = 0; axis < 3; ++axis) {
        auto const n = static_cast<std::size_t>(axis);
        place[n] = m_axes[n] > 0 ? space.toScene(axis, place[n]) : 0.0;
    }
    return place;
}

// Values on a cut are those in the cell, which need not be linear along its edges.
void PlaceOnRay::refine(ZonePlace& place) const
{
    kernel::ZoneCells const cells = cellsOf(m_zone, m_axes);
    if (place.cell < 0 || place.cell >= cells.slotCount())
        return;
    kernel::ZoneCells::Corners room{};
    kernel::Cell const cell = cells.cell(place.cell, room);
    if (cell.cornerCount == 0 || !cells.box(cell.corners, cell.cornerCount))
        return;
    kernel::CellGeometry geometry;
    geometry.read(cells, cell);
    if (auto const found = geometry.locate(positionOf(m_zone, place, m_axes)))
        geometry.weigh(*found, place.points);
}

PlaceOnRay::Shares PlaceOnRay::sharesInPolygon(Corners const& corners)
{
    if (corners.size() == 3) {
        auto const shares = inTriangle(corners[0].seen, corners[1].seen, corners[2].seen).shares;
        return {shares.begin(), shares.end()};
    }
    if (corners.size() == 4) {
        std::array<Place, 4> flat;
        for (std::size_t n = 0; n < 4; ++n)
            flat[n] = {corners[n].seen[0], corners[n].seen[1], 0.0};
        kernel::CellMap map;
        map.set(kernel::CellMap::Shape::Quad, flat.data());
        if (auto const reference = map.locate({0.0, 0.0, 0.0})) {
            Shares shares(4);
            map.weigh(*reference, shares.data());
            return shares;
        }
    }
    return sharesInFan(corners);
}

PlaceOnRay::Shares PlaceOnRay::sharesInFan(Corners const& corners)
{
    auto const count = static_cast<double>(corners.size());
    Place middle{};
    for (Corner const& corner : corners)
        for (std::size_t n = 0; n < 3; ++n)
            middle[n] += corner.seen[n] / count;
    Shares best(corners.size(), 1.0 / count);
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t n = 0; n < corners.size(); ++n) {
        std::size_t const next = (n + 1) % corners.size();
        InTriangle const found = inTriangle(middle, corners[n].seen, corners[next].seen);
        if (!(found.outside < least))
            continue;
        least = found.outside;
        best.assign(corners.size(), found.shares[0] / count);
        best[n] += found.shares[1];
        best[next] += found.shares[2];
    }
    return best;
}

// Of a point alone, or between two points of a line: where the line is nearest to the ray.
PlaceOnRay::Shares PlaceOnRay::sharesOnLine(Corners const& corners)
{
    Shares best(corners.size(), 0.0);
    best.front() = 1.0;
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t n = 0; n + 1 < corners.size(); ++n) {
        Place const& a = corners[n].seen;
        Place const& b = corners[n + 1].seen;
        double const x = b[0] - a[0];
        double const y = b[1] - a[1];
        double const squared = x * x + y * y;
        double const share = squared > 0.0 ? std::clamp(-(a[0] * x + a[1] * y) / squared, 0.0, 1.0) : 0.0;
        Place const nearest = between(a, b, share);
        if (!(std::hypot(nearest[0], nearest[1]) < least))
            continue;
        least = std::hypot(nearest[0], nearest[1]);
        best.assign(corners.size(), 0.0);
        best[n] = 1.0 - share;
        best[n + 1] = share;
    }
    return best;
}

} // namespace veldraw::app
