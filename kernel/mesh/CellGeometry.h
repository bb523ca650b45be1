#pragma once

#include "kernel/mesh/CellMap.h"
#include "kernel/mesh/ZoneCells.h"

#include <optional>
#include <vector>

namespace veldraw::kernel {

/// A point of a zone and its share in a value between the points.
struct WeightedPoint
{
    std::int64_t point;
    double weight;
};

/// Where a cell of any shape is, whether it contains a point, and how the values at its corners mix there.
///
/// Polygons and polyhedra consist of triangles and tetrahedra around the means of their corners, polyhedra with the means of
/// the corners of their faces. The values there are means as well, so that linear fields stay as they are. A place that
/// these parts cover is in the cell; of a polygon that turns in somewhere, only what is within its outline.
///
///     geometry.read(cells, cell);
///     if (auto const place = geometry.locate(point)) { ... geometry.weigh(*place, weights) ... }
///
/// An object is meant to be used for one cell after the other, by one thread.
class CellGeometry
{
public:
    /// A place in the cell.
    struct Place
    {
        std::size_t part;
        Point reference;
    };

    /// Takes a cell that has corners, all of them with finite coordinates.
    void read(ZoneCells const& cells, Cell const& cell);

    /// Takes a cell of an ordered zone, of which nothing will be weighed. @param corners finite
    void read(Connectivity::Shape shape, Point const* corners);

    /// Whether the cell contains nothing.
    bool isFlat() const { return m_isFlat; }

    /// Number of triangles or tetrahedra that a polygon or polyhedron consists of; 0 for other cells.
    std::size_t partCount() const { return consistsOfParts() ? m_parts.size() : 0; }

    /// Where in the cell a point is; nothing when it is outside.
    std::optional<Place> locate(Point const& point) const;

    /// The points whose values make up the value at a place, with weights that have the sum 1. A point can come up twice.
    void weigh(Place const& place, std::vector<WeightedPoint>& weights) const;

private:
    /// A triangle or tetrahedron of a polygon or polyhedron: the last two corners are points of the zone; then there are
    /// the middle of the cell and, in a polyhedron, that of a face.
    struct Part
    {
        std::array<std::int64_t, 2> points;
        std::int64_t const* face; ///< number of points and points; null in a polygon
        CellMap map;
    };

    bool consistsOfParts() const;
    void prepareParts();
    void addFan(std::int64_t const* face);
    std::optional<Place> locateInParts(Point const& point) const;
    bool isInOutline(Point const& point) const;

    ZoneCells const* m_cells = nullptr;
    Cell m_cell{};
    std::vector<Point> m_corners;
    Point m_middle{};
    std::array<std::size_t, 2> m_axes{}; // along which the outline of a polygon is looked at
    bool m_turnsIn = false;              // whether a polygon does so somewhere, as its middle sees it
    CellMap m_map;
    bool m_isFlat = true;
    std::vector<Part> m_parts; // of a polygon or polyhedron
};

} // namespace veldraw::kernel
