#include "app/plot/VisibleFaces.h"

#include "app/plot/GatherInOrder.h"
#include "app/plot/PointNumbering.h"
#include "kernel/storage/CellSlots.h"

#include <vtkTypeInt64Array.h>

#include <algorithm>
#include <array>
#include <numeric>

namespace veldraw::app {

namespace {

using Index = std::int64_t;

// Faces of one side of the cells. Sides do not share points, so that edges are drawn sharp.
struct Side
{
    std::vector<Index> cells;      // value slots of the cells that show a face
    Index toFirst = 0;             // from the slot of a cell to the first corner of its face,
    std::array<Index, 4> around{}; // and from there to all four

    Index count() const { return static_cast<Index>(cells.size()); }

    // Calls body(number of the face, position of the corner in it, point).
    template <typename Body>
    void forCorners(Body const& body) const
    {
        kernel::parallelFor(count(), [&](Index first, Index last, Index) {
            for (Index n = first; n < last; ++n)
                for (std::size_t corner = 0; corner < around.size(); ++corner)
                    body(n, corner, cells[static_cast<std::size_t>(n)] + toFirst + around[corner]);
        });
    }
};

class Search
{
public:
    Search(kernel::Zone const& zone, kernel::Progress const& progress)
        : m_hidden(zone.hidden(ValueLocation_CellCentered))
        , m_progress(progress)
        , m_counts{zone.i, zone.j, zone.k}
        , m_steps{1, zone.i, zone.i * zone.j}
    {
    }

    // Faces perpendicular to the direction @p normal, on the high or the low side of their cells.
    Side facesOf(std::size_t normal, bool high) const
    {
        Index const a = m_steps[normal == 0 ? 1 : 0];
        Index const b = m_steps[normal == 2 ? 1 : 2];
        Side side;
        side.toFirst = high && m_counts[normal] > 1 ? m_steps[normal] : 0;
        side.around = {0, a, a + b, b};
        auto const find = [&](Index first, Index last, auto const& take) {
            for (Index row = first; row < last; ++row)
                findInRow(row, normal, high, take);
        };
        side.cells = gatherInOrder(cellsAlong(1) * cellsAlong(2), find, m_progress);
        return side;
    }

private:
    Index cellsAlong(std::size_t axis) const { return kernel::cellsAlong(m_counts[axis]); }

    bool isHidden(Index slot) const { return m_hidden && m_hidden->contains(slot); }

    // A row of cells along I.
    template <typename Take>
    void findInRow(Index row, std::size_t normal, bool high, Take const& take) const
    {
        std::array<Index, 3> place = {0, row % cellsAlong(1), row / cellsAlong(1)};
        Index const start = place[1] * m_steps[1] + place[2] * m_steps[2];
        Index const end = high ? cellsAlong(normal) - 1 : 0;
        Index const toNeighbour = high ? m_steps[normal] : -m_steps[normal];
        for (; place[0] < cellsAlong(0); ++place[0]) {
            Index const slot = start + place[0];
            if (!isHidden(slot) && (place[normal] == end || isHidden(slot + toNeighbour)))
                take(slot);
        }
    }

    std::shared_ptr<kernel::HiddenSlots const> m_hidden;
    kernel::Progress const& m_progress;
    std::array<Index, 3> m_counts;
    std::array<Index, 3> m_steps;
};

// @param corners of all faces of the side, to be written
void add(ZoneShape& shape, Side const& side, Index pointsOfZone, vtkTypeInt64* corners)
{
    PointNumbering numbering(pointsOfZone);
    side.forCorners([&numbering](Index, std::size_t, Index point) { numbering.want(point); });
    std::vector<Index> const points = numbering.handOut();
    side.forCorners([&](Index face, std::size_t corner, Index point) {
        corners[4 * face + static_cast<Index>(corner)] = shape.pointCount + numbering.numberOf(point);
    });
    shape.points.insert(shape.points.end(), points.begin(), points.end());
    shape.pointCount += static_cast<Index>(points.size());
    shape.cells.insert(shape.cells.end(), side.cells.begin(), side.cells.end());
}

} // namespace

ZoneShape VisibleFaces::create(kernel::Zone const& zone, kernel::Progress const& progress)
{
    Search const search(zone, progress);
    std::array<Index, 3> const counts = {zone.i, zone.j, zone.k};
    std::vector<Side> sides;
    for (std::size_t normal = 0; normal < 3; ++normal) {
        if (counts[normal == 0 ? 1 : 0] < 2 || counts[normal == 2 ? 1 : 2] < 2)
            continue;
        sides.push_back(search.facesOf(normal, false));
        if (counts[normal] > 1)
            sides.push_back(search.facesOf(normal, true));
    }
    Index const faces = std::accumulate(sides.begin(), sides.end(), Index{0},
                                        [](Index sum, Side const& side) { return sum + side.count(); });
    vtkNew<vtkTypeInt64Array> corners;
    corners->SetNumberOfValues(4 * faces);
    ZoneShape shape;
    vtkTypeInt64* target = corners->GetPointer(0);
    for (Side const& side : sides) {
        progress.check();
        add(shape, side, zone.pointCount(), target);
        target += 4 * side.count();
    }
    shape.polygons = vtkSmartPointer<vtkCellArray>::New();
    shape.polygons->SetData(4, corners);
    return shape;
}

} // namespace veldraw::app
