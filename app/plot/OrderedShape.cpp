#include "app/plot/OrderedShape.h"

#include "app/plot/VisibleFaces.h"

#include <array>

namespace veldraw::app {

namespace {

using Index = std::int64_t;

// A plane of points of the zone: point (a, b) is first + a * stepA + b * stepB.
struct Plane
{
    Index countA;
    Index countB;
    Index stepA;
    Index stepB;
    Index first;
    Index firstCell; ///< value slot of cell (0, 0), which steps as the points do
};

// @param isWhole the plane is all of the zone, so its points stand in the zone's order
void addPlane(ZoneShape& shape, Plane const& plane, bool isWhole)
{
    Index const start = shape.pointCount;
    if (!isWhole)
        for (Index b = 0; b < plane.countB; ++b)
            for (Index a = 0; a < plane.countA; ++a)
                shape.points.push_back(plane.first + a * plane.stepA + b * plane.stepB);
    shape.pointCount += plane.countA * plane.countB;

    for (Index b = 0; b + 1 < plane.countB; ++b)
        for (Index a = 0; a + 1 < plane.countA; ++a) {
            Index const corner = start + a + b * plane.countA;
            shape.polygons->InsertNextCell({corner, corner + 1, corner + 1 + plane.countA, corner + plane.countA});
            shape.cells.push_back(plane.firstCell + a * plane.stepA + b * plane.stepB);
        }
}

void addLine(ZoneShape& shape, kernel::Zone const& zone)
{
    Index const count = zone.pointCount();
    bool const hasHidden = zone.hidden(ValueLocation_CellCentered) != nullptr;
    shape.pointCount = count;
    shape.lines = vtkSmartPointer<vtkCellArray>::New();
    shape.lines->Use64BitStorage();
    for (Index n = 0; n + 1 < count; ++n) {
        if (zone.isHidden(ValueLocation_CellCentered, n))
            continue;
        shape.lines->InsertNextCell({n, n + 1});
        if (hasHidden)
            shape.cells.push_back(n);
    }
}

void addPoints(ZoneShape& shape, Index count)
{
    shape.pointCount = count;
    shape.vertices = vtkSmartPointer<vtkCellArray>::New();
    for (Index n = 0; n < count; ++n)
        shape.vertices->InsertNextCell({n});
}

// The planes of a zone with at least two dimensions above 1: one for a surface, six for a volume.
std::vector<Plane> outerPlanes(kernel::Zone const& zone)
{
    std::array<Index, 3> const counts = {zone.i, zone.j, zone.k};
    std::array<Index, 3> const steps = {1, zone.i, zone.i * zone.j};
    std::vector<Plane> planes;
    for (std::size_t normal = 0; normal < 3; ++normal) {
        std::size_t const a = normal == 0 ? 1 : 0;
        std::size_t const b = normal == 2 ? 1 : 2;
        if (counts[a] < 2 || counts[b] < 2)
            continue;
        planes.push_back({counts[a], counts[b], steps[a], steps[b], 0, 0});
        if (counts[normal] > 1) {
            Index const last = (counts[normal] - 1) * steps[normal];
            planes.push_back({counts[a], counts[b], steps[a], steps[b], last, last - steps[normal]});
        }
    }
    return planes;
}

} // namespace

ZoneShape OrderedShape::create(kernel::Zone const& zone, bool asPoints, kernel::Progress const& progress)
{
    ZoneShape shape;
    std::vector<Plane> const planes = outerPlanes(zone);
    if (planes.empty()) {
        Index const count = zone.pointCount();
        if (count > 1 && !asPoints)
            addLine(shape, zone);
        else
            addPoints(shape, count);
        return shape;
    }
    if (zone.hidden(ValueLocation_CellCentered))
        return VisibleFaces::create(zone, progress);

    Index points = 0;
    Index cells = 0;
    for (Plane const& plane : planes) {
        points += plane.countA * plane.countB;
        cells += (plane.countA - 1) * (plane.countB - 1);
    }
    if (planes.size() > 1)
        shape.points.reserve(static_cast<std::size_t>(points));
    shape.cells.reserve(static_cast<std::size_t>(cells));
    shape.polygons = vtkSmartPointer<vtkCellArray>::New();
    if (points < VTK_INT_MAX / 4)
        shape.polygons->Use32BitStorage();
    shape.polygons->AllocateExact(cells, 4 * cells);
    for (Plane const& plane : planes)
        addPlane(shape, plane, planes.size() == 1);
    return shape;
}

} // namespace veldraw::app
