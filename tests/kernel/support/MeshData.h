#pragma once

#include "kernel/data/DataSet.h"
#include "kernel/data/ValuePlaces.h"
#include "kernel/mesh/ZoneCells.h"

#include <functional>

namespace veldraw::tests {

/// Zones that fill a cube, or a square, without gaps.
namespace sample {

using kernel::Point;

/// Cells, with the memory that they point at.
struct CellLists
{
    using Shape = kernel::Connectivity::Shape;

    std::vector<Point> points;
    std::vector<std::int64_t> offsets{0};
    std::vector<std::int64_t> indices;
    std::vector<Shape> shapes;
    std::vector<std::int64_t> faceOffsets;
    std::vector<std::int64_t> faceStream;

    void add(Shape shape, std::vector<std::int64_t> const& corners);

    /// A polyhedron with the faces of these points.
    void addPolyhedron(std::vector<std::int64_t> const& corners, std::vector<std::vector<std::int64_t>> const& faces);

    /// The corners of a cell.
    std::vector<Point> cornersOf(std::size_t cell) const;

    /// Puts the cells into another, random order.
    void shuffle(unsigned seed);

    /// A zone of these cells with the coordinates as its first three fields.
    std::shared_ptr<kernel::Zone> zone(ZoneType_e type, FieldDataType_e coordinates = FieldDataType_Double) const;
};

/// Cells of one shape that fill the box from 0 to @p edge along each axis; squares at z = 0 for surface shapes. Or a brick, a
/// polyhedron and pyramids by turns, whose faces fit.
/// @param shift how far the points inside are moved at random, as a share of 1; 0 leaves all on a grid
CellLists fillOf(kernel::Connectivity::Shape shape, int edge, double shift, unsigned seed);
CellLists mixedFill(int edge, double shift, unsigned seed);

/// An ordered zone of the points (i, j, k), moved by @p shift as above.
std::shared_ptr<kernel::Zone> orderedFill(std::int64_t i, std::int64_t j, std::int64_t k, double shift, unsigned seed);

/// Adds a field at the points with the values of a function of the place.
void addNodal(kernel::Zone& zone, std::function<double(Point const&)> const& function,
              FieldDataType_e type = FieldDataType_Double);

/// The type of zone for cells of one shape; mixed for those that have none.
ZoneType_e zoneTypeOf(kernel::Connectivity::Shape shape);

/// The values of a field; null when it is passive.
std::shared_ptr<kernel::Buffer const> bufferOf(kernel::Field const& field);

/// The cells of a zone whose coordinates are its first three fields.
kernel::ZoneCells cellsOf(kernel::Zone const& zone);

/// Points as the places of values.
kernel::ValuePlaces placesOf(std::vector<Point> const& points, int dimensions = 3);

} // namespace sample

} // namespace veldraw::tests
