#include "app/plot/OuterFaces.h"

#include "app/plot/CellFaces.h"
#include "app/plot/FaceSearch.h"
#include "app/plot/PointNumbering.h"
#include "kernel/base/Parallel.h"

#include <vtkTypeInt64Array.h>

#include <algorithm>
#include <iterator>
#include <limits>

namespace veldraw::app {

namespace {

using kernel::Zone;

constexpr std::int64_t placesOfCell = FaceSearch::placesOfCell;

// The drawn cells; each is a cell of the zone or a face of one.
class DrawnCells
{
public:
    DrawnCells(CellFaces const& cells, std::vector<std::int64_t> places)
        : m_cells(cells)
        , m_places(std::move(places))
    {
    }

    std::int64_t count() const { return static_cast<std::int64_t>(m_places.size()); }

    void wantPoints(PointNumbering& numbering) const
    {
        forEach([&numbering](std::int64_t, int, std::int64_t point) { numbering.want(point); });
    }

    vtkSmartPointer<vtkCellArray> create(PointNumbering const& numbering) const
    {
        if (m_places.empty())
            return nullptr;
        vtkNew<vtkTypeInt64Array> offsets;
        offsets->SetNumberOfValues(count() + 1);
        auto* const starts = offsets->GetPointer(0);
        starts[0] = 0;
        for (std::int64_t n = 0; n < count(); ++n)
            starts[n + 1] = starts[n] + cornerCount(m_places[static_cast<std::size_t>(n)]);
        vtkNew<vtkTypeInt64Array> corners;
        corners->SetNumberOfValues(starts[count()]);
        auto* const numbers = corners->GetPointer(0);
        forEach([&](std::int64_t n, int corner, std::int64_t point) {
            numbers[starts[n] + corner] = numbering.numberOf(point);
        });
        auto array = vtkSmartPointer<vtkCellArray>::New();
        array->SetData(offsets, corners);
        return array;
    }

    void appendSlots(std::vector<std::int64_t>& slots) const
    {
        std::transform(m_places.begin(), m_places.end(), std::back_inserter(slots),
                       [](std::int64_t place) { return place / placesOfCell; });
    }

private:
    std::int64_t cornerCount(std::int64_t place) const
    {
        std::int64_t const cell = place / placesOfCell;
        if (CellFaces::isFlat(m_cells.shape(cell)))
            return m_cells.cornerCount(cell);
        return faceAt(place)[3] == CellFaces::noCorner ? 3 : 4;
    }

    std::array<int, 4> const& faceAt(std::int64_t place) const
    {
        return m_cells.faces(place / placesOfCell).faces[static_cast<std::size_t>(place % placesOfCell)];
    }

    // Calls body(number of the drawn cell, position of a corner in it, point).
    template <typename Body>
    void forEach(Body const& body) const
    {
        kernel::parallelFor(count(), [&](std::int64_t first, std::int64_t last, std::int64_t) {
            for (std::int64_t n = first; n < last; ++n) {
                std::int64_t const place = m_places[static_cast<std::size_t>(n)];
                std::int64_t const cell = place / placesOfCell;
                std::int64_t const* const points = m_cells.corners(cell);
                bool const isWhole = CellFaces::isFlat(m_cells.shape(cell));
                for (int corner = 0; corner < cornerCount(place); ++corner)
                    body(n, corner, points[isWhole ? corner : faceAt(place)[static_cast<std::size_t>(corner)]]);
            }
        });
    }

    CellFaces const& m_cells;
    std::vector<std::int64_t> m_places;
};

// Places of the cells that are drawn as they stand: lines, or surfaces.
std::vector<std::int64_t> flatCells(Zone const& zone, CellFaces const& cells, bool lines)
{
    std::vector<std::int64_t> places;
    if (!zone.connectivity->shapes)
        return places;
    for (std::int64_t cell = 0; cell < cells.count(); ++cell)
        if (CellFaces::isFlat(cells.shape(cell)) && (cells.shape(cell) == CellFaces::Shape::LineSegment) == lines)
            places.push_back(cell * placesOfCell);
    return places;
}

std::vector<std::int64_t> merged(std::vector<std::int64_t> const& a, std::vector<std::int64_t> const& b)
{
    std::vector<std::int64_t> all;
    all.reserve(a.size() + b.size());
    std::merge(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(all));
    return all;
}

} // namespace

bool OuterFaces::canFind(Zone const& zone)
{
    return !zone.connectivity->faceOffsets && zone.pointCount() < std::numeric_limits<std::uint32_t>::max();
}

ZoneShape OuterFaces::create(Zone const& zone, kernel::Progress const& progress)
{
    CellFaces const cells(zone);
    DrawnCells const lines(cells, flatCells(zone, cells, true));
    DrawnCells const polygons(
        cells, merged(FaceSearch(cells, zone.pointCount(), progress).find(), flatCells(zone, cells, false)));
    progress.check();
    PointNumbering numbering(zone.pointCount());
    lines.wantPoints(numbering);
    polygons.wantPoints(numbering);

    ZoneShape shape;
    shape.points = numbering.handOut();
    shape.pointCount = static_cast<std::int64_t>(shape.points.size());
    shape.lines = lines.create(numbering);
    shape.polygons = polygons.create(numbering);
    shape.cells.reserve(static_cast<std::size_t>(lines.count() + polygons.count()));
    lines.appendSlots(shape.cells);
    polygons.appendSlots(shape.cells);
    return shape;
}

} // namespace veldraw::app
