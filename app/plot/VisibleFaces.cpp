#include "app/plot/VisibleFaces.h"

#include <algorithm>
#include <array>

namespace veldraw::app {

namespace {

using Index = std::int64_t;

// Faces of one side of the cells, by the zone's points. Sides do not share points, so that edges are drawn sharp.
struct Side
{
    std::vector<std::array<Index, 4>> corners;
    std::vector<Index> cells; ///< value slots
};

class Search
{
public:
    explicit Search(kernel::Zone const& zone)
        : m_zone(zone)
        , m_counts{zone.i, zone.j, zone.k}
        , m_steps{1, zone.i, zone.i * zone.j}
    {
    }

    // Faces perpendicular to the direction @p normal, on the high or the low side of their cells.
    Side facesOf(std::size_t normal, bool high) const
    {
        Side side;
        Index const last = m_counts[normal] - 2; // cells along the normal
        Index const offset = high && m_counts[normal] > 1 ? m_steps[normal] : 0;
        forCells([&](std::array<Index, 3> const& place, Index slot) {
            bool const isAtEnd = high ? place[normal] >= last : place[normal] == 0;
            Index const neighbour = slot + (high ? m_steps[normal] : -m_steps[normal]);
            if (isHidden(slot) || !(isAtEnd || isHidden(neighbour)))
                return;
            side.corners.push_back(cornersFrom(slot + offset, normal));
            side.cells.push_back(slot);
        });
        return side;
    }

private:
    template <typename Body>
    void forCells(Body const& body) const
    {
        auto const cellsAlong = [this](std::size_t axis) { return std::max<Index>(m_counts[axis] - 1, 1); };
        for (Index k = 0; k < cellsAlong(2); ++k)
            for (Index j = 0; j < cellsAlong(1); ++j)
                for (Index i = 0; i < cellsAlong(0); ++i)
                    body({i, j, k}, i + j * m_steps[1] + k * m_steps[2]);
    }

    bool isHidden(Index slot) const { return m_zone.isHidden(ValueLocation_CellCentered, slot); }

    std::array<Index, 4> cornersFrom(Index first, std::size_t normal) const
    {
        Index const a = m_steps[normal == 0 ? 1 : 0];
        Index const b = m_steps[normal == 2 ? 1 : 2];
        return {first, first + a, first + a + b, first + b};
    }

    kernel::Zone const& m_zone;
    std::array<Index, 3> m_counts;
    std::array<Index, 3> m_steps;
};

void add(ZoneShape& shape, Side const& side)
{
    std::vector<Index> points;
    points.reserve(4 * side.corners.size());
    for (auto const& corners : side.corners)
        points.insert(points.end(), corners.begin(), corners.end());
    std::sort(points.begin(), points.end());
    points.erase(std::unique(points.begin(), points.end()), points.end());
    for (auto const& corners : side.corners) {
        std::array<vtkIdType, 4> drawn{};
        std::transform(corners.begin(), corners.end(), drawn.begin(), [&](Index point) {
            return shape.pointCount + (std::lower_bound(points.begin(), points.end(), point) - points.begin());
        });
        shape.polygons->InsertNextCell(4, drawn.data());
    }
    shape.points.insert(shape.points.end(), points.begin(), points.end());
    shape.pointCount += static_cast<Index>(points.size());
    shape.cells.insert(shape.cells.end(), side.cells.begin(), side.cells.end());
}

} // namespace

ZoneShape VisibleFaces::create(kernel::Zone const& zone)
{
    ZoneShape shape;
    shape.polygons = vtkSmartPointer<vtkCellArray>::New();
    Search const search(zone);
    std::array<Index, 3> const counts = {zone.i, zone.j, zone.k};
    for (std::size_t normal = 0; normal < 3; ++normal) {
        if (counts[normal == 0 ? 1 : 0] < 2 || counts[normal == 2 ? 1 : 2] < 2)
            continue;
        add(shape, search.facesOf(normal, false));
        if (counts[normal] > 1)
            add(shape, search.facesOf(normal, true));
    }
    return shape;
}

} // namespace veldraw::app
