#include "tests/kernel/support/MeshData.h"

#include "tests/kernel/support/SampleData.h"

#include <algorithm>
#include <numeric>
#include <random>

namespace veldraw::tests {

using namespace kernel;
using Shape = Connectivity::Shape;

namespace sample {

namespace {

using Corners = std::vector<std::int64_t>;

/// The points of a grid of cubes, those inside moved at random, and some in the middles of cubes.
class Cubes
{
public:
    Cubes(std::array<int, 3> cubes, double shift, unsigned seed)
        : m_cubes(cubes)
        , m_random(seed)
    {
        std::uniform_real_distribution<double> distribution(-shift, shift);
        for (int k = 0; k <= cubes[2]; ++k) {
            for (int j = 0; j <= cubes[1]; ++j) {
                for (int i = 0; i <= cubes[0]; ++i) {
                    int const place[3] = {i, j, k};
                    Point point{};
                    for (std::size_t axis = 0; axis < 3; ++axis) {
                        bool const isInside = place[axis] > 0 && place[axis] < cubes[axis];
                        point[axis] = place[axis] + (isInside ? distribution(m_random) : 0.0);
                    }
                    points.push_back(point);
                }
            }
        }
    }

    /// The corners of a cube, first those of its lower side and then those above.
    Corners corners(int i, int j, int k) const
    {
        std::int64_t const row = m_cubes[0] + 1;
        std::int64_t const layer = row * (m_cubes[1] + 1);
        std::int64_t const first = i + j * row + k * layer;
        Corners corners{first, first + 1, first + row + 1, first + row};
        for (std::size_t corner = 0; corner < 4; ++corner) {
            corners.push_back(corners[corner] + layer);
        }
        return corners;
    }

    /// A point in the mean of the corners.
    std::int64_t middle(Corners const& corners)
    {
        Point mean{};
        for (std::int64_t const corner : corners) {
            for (std::size_t axis = 0; axis < 3; ++axis) {
                mean[axis] += points[static_cast<std::size_t>(corner)][axis] / static_cast<double>(corners.size());
            }
        }
        points.push_back(mean);
        return static_cast<std::int64_t>(points.size()) - 1;
    }

    std::vector<Point> points;

private:
    std::array<int, 3> m_cubes;
    std::mt19937 m_random;
};

/// The sides of a cube by the places of its corners.
constexpr std::size_t sides[6][4] = {{0, 3, 2, 1}, {4, 5, 6, 7}, {0, 1, 5, 4},
                                     {1, 2, 6, 5}, {2, 3, 7, 6}, {3, 0, 4, 7}};

void addTetrahedra(CellLists& cells, Corners const& c)
{
    constexpr std::size_t ways[6][2] = {{1, 2}, {2, 3}, {3, 7}, {7, 4}, {4, 5}, {5, 1}}; // around the diagonal
    for (auto const& way : ways) {
        cells.add(Shape::Tetrahedron, {c[0], c[way[0]], c[way[1]], c[6]});
    }
}

void addPrisms(CellLists& cells, Corners const& c)
{
    cells.add(Shape::Prism, {c[0], c[1], c[2], c[4], c[5], c[6]});
    cells.add(Shape::Prism, {c[0], c[2], c[3], c[4], c[6], c[7]});
}

void addPyramids(CellLists& cells, Corners const& c, std::int64_t middle)
{
    for (auto const& side : sides) {
        cells.add(Shape::Pyramid, {c[side[0]], c[side[3]], c[side[2]], c[side[1]], middle});
    }
}

void addCubeByFaces(CellLists& cells, Corners const& c)
{
    std::vector<Corners> faces;
    for (auto const& side : sides) {
        faces.push_back({c[side[0]], c[side[1]], c[side[2]], c[side[3]]});
    }
    cells.addPolyhedron(c, faces);
}

void addFlat(CellLists& cells, Shape shape, Corners const& c)
{
    if (shape == Shape::Triangle) {
        cells.add(shape, {c[0], c[1], c[2]});
        cells.add(shape, {c[0], c[2], c[3]});
    } else {
        cells.add(shape, {c[0], c[1], c[2], c[3]});
    }
}

void addSolid(CellLists& cells, Cubes& cubes, Shape shape, Corners const& corners)
{
    switch (shape) {
    case Shape::Tetrahedron:
        return addTetrahedra(cells, corners);
    case Shape::Prism:
        return addPrisms(cells, corners);
    case Shape::Pyramid:
        return addPyramids(cells, corners, cubes.middle(corners));
    case Shape::Polyhedron:
        return addCubeByFaces(cells, corners);
    default:
        return cells.add(Shape::Brick, corners);
    }
}

template <typename ShapeAt>
CellLists fill(int edge, bool isFlat, double shift, unsigned seed, ShapeAt const& shapeAt)
{
    Cubes cubes({edge, edge, isFlat ? 0 : edge}, shift, seed);
    CellLists cells;
    int number = 0;
    for (int k = 0; k < (isFlat ? 1 : edge); ++k) {
        for (int j = 0; j < edge; ++j) {
            for (int i = 0; i < edge; ++i) {
                Shape const shape = shapeAt(number++);
                if (isFlat) {
                    addFlat(cells, shape, cubes.corners(i, j, k));
                } else {
                    addSolid(cells, cubes, shape, cubes.corners(i, j, k));
                }
            }
        }
    }
    cells.points = cubes.points;
    return cells;
}

Field coordinate(std::vector<Point> const& points, std::size_t axis, FieldDataType_e type)
{
    std::vector<double> numbers;
    std::transform(points.begin(), points.end(), std::back_inserter(numbers),
                   [axis](Point const& p) { return p[axis]; });
    return field(numbers, type);
}

} // namespace

void CellLists::add(Shape shape, Corners const& corners)
{
    indices.insert(indices.end(), corners.begin(), corners.end());
    offsets.push_back(static_cast<std::int64_t>(indices.size()));
    shapes.push_back(shape);
    faceOffsets.push_back(-1);
}

void CellLists::addPolyhedron(Corners const& corners, std::vector<Corners> const& faces)
{
    add(Shape::Polyhedron, corners);
    faceOffsets.back() = static_cast<std::int64_t>(faceStream.size());
    faceStream.push_back(static_cast<std::int64_t>(faces.size()));
    for (Corners const& face : faces) {
        faceStream.push_back(static_cast<std::int64_t>(face.size()));
        faceStream.insert(faceStream.end(), face.begin(), face.end());
    }
}

std::vector<Point> CellLists::cornersOf(std::size_t cell) const
{
    std::vector<Point> corners;
    for (auto at = static_cast<std::size_t>(offsets[cell]); at < static_cast<std::size_t>(offsets[cell + 1]); ++at) {
        corners.push_back(points[static_cast<std::size_t>(indices[at])]);
    }
    return corners;
}

void CellLists::shuffle(unsigned seed)
{
    CellLists const old = *this;
    std::vector<std::size_t> order(shapes.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::shuffle(order.begin(), order.end(), std::mt19937(seed));
    for (std::size_t cell = 0; cell < order.size(); ++cell) {
        auto const first = old.indices.begin() + old.offsets[order[cell]];
        auto const last = old.indices.begin() + old.offsets[order[cell] + 1];
        std::copy(first, last, indices.begin() + offsets[cell]);
        offsets[cell + 1] = offsets[cell] + (last - first);
        shapes[cell] = old.shapes[order[cell]];
        faceOffsets[cell] = old.faceOffsets[order[cell]];
    }
}

std::shared_ptr<Zone> CellLists::zone(ZoneType_e type, FieldDataType_e coordinates) const
{
    auto const owned = std::make_shared<CellLists>(*this);
    auto cells = std::make_shared<Connectivity>();
    cells->cellCount = static_cast<std::int64_t>(owned->shapes.size());
    cells->indexCount = static_cast<std::int64_t>(owned->indices.size());
    cells->offsets = owned->offsets.data();
    cells->indices = owned->indices.data();
    cells->shapes = type == ZoneType_FEMixed ? owned->shapes.data() : nullptr;
    if (!owned->faceStream.empty()) {
        cells->faceOffsets = owned->faceOffsets.data();
        cells->faceStream = owned->faceStream.data();
        cells->faceStreamSize = static_cast<std::int64_t>(owned->faceStream.size());
    }
    cells->owner = owned;
    auto zone = std::make_shared<Zone>("cells", type, static_cast<std::int64_t>(points.size()), cells->cellCount, 0);
    zone->connectivity = cells;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        zone->fields.push_back(coordinate(points, axis, coordinates));
    }
    return zone;
}

CellLists fillOf(Shape shape, int edge, double shift, unsigned seed)
{
    return fill(edge, Connectivity::isFace(shape), shift, seed, [shape](int) { return shape; });
}

CellLists mixedFill(int edge, double shift, unsigned seed)
{
    return fill(edge, false, shift, seed, [](int number) {
        constexpr Shape shapes[] = {Shape::Brick, Shape::Polyhedron, Shape::Pyramid};
        return shapes[number % 3];
    });
}

std::shared_ptr<Zone> orderedFill(std::int64_t i, std::int64_t j, std::int64_t k, double shift, unsigned seed)
{
    Cubes const cubes({static_cast<int>(i) - 1, static_cast<int>(j) - 1, static_cast<int>(k) - 1}, shift, seed);
    auto zone = std::make_shared<Zone>("ordered", ZoneType_Ordered, i, j, k);
    for (std::size_t axis = 0; axis < 3; ++axis) {
        zone->fields.push_back(coordinate(cubes.points, axis, FieldDataType_Double));
    }
    return zone;
}

void addNodal(Zone& zone, std::function<double(Point const&)> const& function, FieldDataType_e type)
{
    std::vector<double> numbers;
    for (std::int64_t point = 0; point < zone.pointCount(); ++point) {
        Point place{};
        for (std::size_t axis = 0; axis < 3; ++axis) {
            Field const& coordinate = zone.fields[axis];
            place[axis] = coordinate.isPassive() ? 0.0 : coordinate.group()->buffer()->value(point);
        }
        numbers.push_back(function(place));
    }
    zone.fields.push_back(field(numbers, type));
}

ZoneType_e zoneTypeOf(Shape shape)
{
    switch (shape) {
    case Shape::LineSegment:
        return ZoneType_FELineSeg;
    case Shape::Triangle:
        return ZoneType_FETriangle;
    case Shape::Quad:
        return ZoneType_FEQuad;
    case Shape::Tetrahedron:
        return ZoneType_FETetra;
    case Shape::Brick:
        return ZoneType_FEBrick;
    case Shape::Polygon:
        return ZoneType_FEPolygon;
    case Shape::Polyhedron:
        return ZoneType_FEPolyhedron;
    case Shape::Pyramid:
    case Shape::Prism:
        break;
    }
    return ZoneType_FEMixed;
}

std::shared_ptr<Buffer const> bufferOf(Field const& field)
{
    return field.isPassive() ? nullptr : field.group()->buffer();
}

ZoneCells cellsOf(Zone const& zone)
{
    return {zone.type,
            {zone.i, zone.j, zone.k, zone.connectivity, zone.blanking},
            {bufferOf(zone.fields[0]), bufferOf(zone.fields[1]), bufferOf(zone.fields[2])}};
}

ValuePlaces placesOf(std::vector<Point> const& points, int dimensions)
{
    ValuePlaces::Coordinates coordinates;
    for (std::size_t axis = 0; axis < static_cast<std::size_t>(dimensions); ++axis) {
        coordinates[axis] = bufferOf(coordinate(points, axis, FieldDataType_Double));
    }
    auto const count = static_cast<std::int64_t>(points.size());
    return {ZoneType_Ordered, {count, 1, 1, nullptr, nullptr}, coordinates, dimensions, ValueLocation_Nodal};
}

} // namespace sample

} // namespace veldraw::tests
