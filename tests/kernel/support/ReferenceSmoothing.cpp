#include "tests/kernel/support/ReferenceSmoothing.h"

#include <cmath>
#include <map>

namespace veldraw::tests {

using namespace kernel;
using Shape = Connectivity::Shape;

namespace reference {

namespace {

using Place = std::array<std::int64_t, 3>;

class Grid
{
public:
    explicit Grid(Place const& counts)
        : m_counts(counts)
    {
    }

    std::size_t at(Place const& place) const
    {
        return static_cast<std::size_t>(place[0] + m_counts[0] * (place[1] + m_counts[1] * place[2]));
    }

    static Place moved(Place place, std::size_t axis, std::int64_t step)
    {
        place[axis] += step;
        return place;
    }

    bool isEnd(Place const& place, std::size_t axis) const
    {
        return m_counts[axis] > 1 && (place[axis] == 0 || place[axis] == m_counts[axis] - 1);
    }

    bool isInside(Place const& place) const { return !isEnd(place, 0) && !isEnd(place, 1) && !isEnd(place, 2); }

    template <typename Body>
    void forEach(Body const& body) const
    {
        for (std::int64_t k = 0; k < m_counts[2]; ++k) {
            for (std::int64_t j = 0; j < m_counts[1]; ++j) {
                for (std::int64_t i = 0; i < m_counts[0]; ++i) {
                    body(Place{i, j, k});
                }
            }
        }
    }

    Numbers passInside(Numbers const& old, long double weight) const
    {
        Numbers values = old;
        forEach([&](Place const& place) {
            if (!isInside(place)) {
                return;
            }
            long double sum = 0;
            long double number = 0;
            for (std::size_t axis = 0; axis < 3; ++axis) {
                for (std::int64_t const step : {-1, 1}) {
                    long double const value = m_counts[axis] > 1 ? old[at(moved(place, axis, step))] : NAN;
                    sum += std::isnan(value) ? 0 : value;
                    number += std::isnan(value) ? 0 : 1;
                }
            }
            values[at(place)] += number > 0 ? weight * (sum / number - old[at(place)]) : 0;
        });
        return values;
    }

    void setEnds(Numbers& values, std::size_t axis, BoundaryCondition_e condition) const
    {
        forEach([&](Place const& place) {
            bool isTurn = isEnd(place, axis) && follows(axis, condition);
            for (std::size_t other = 0; other < 3; ++other) {
                bool const mayBeEnd = other <= axis && follows(other, condition);
                isTurn = isTurn && (mayBeEnd || other == axis || !isEnd(place, other));
            }
            if (!isTurn) {
                return;
            }
            std::int64_t const inwards = place[axis] == 0 ? 1 : -1;
            long double const next = values[at(moved(place, axis, inwards))];
            long double const inner = values[at(moved(place, axis, 2 * inwards))];
            long double const value = condition == BoundaryCondition_FirstOrder ? next : 2 * next - inner;
            if (!std::isnan(value) && !std::isnan(values[at(place)])) {
                values[at(place)] = value;
            }
        });
    }

private:
    bool follows(std::size_t axis, BoundaryCondition_e condition) const
    {
        return (condition == BoundaryCondition_FirstOrder && m_counts[axis] >= 3) ||
               (condition == BoundaryCondition_SecondOrder && m_counts[axis] >= 4);
    }

    Place m_counts;
};

using Points = std::vector<std::int64_t>;

/// The faces of a solid; of a surface the face that it is.
std::vector<Points> facesOf(Connectivity const& cells, std::size_t cell, Shape shape)
{
    Points const c(cells.indices + cells.offsets[cell], cells.indices + cells.offsets[cell + 1]);
    switch (shape) {
    case Shape::Tetrahedron:
        return {{c[0], c[1], c[2]}, {c[0], c[3], c[1]}, {c[1], c[3], c[2]}, {c[2], c[3], c[0]}};
    case Shape::Brick:
        return {{c[0], c[1], c[2], c[3]}, {c[4], c[5], c[6], c[7]}, {c[0], c[1], c[5], c[4]},
                {c[1], c[2], c[6], c[5]}, {c[2], c[3], c[7], c[6]}, {c[3], c[0], c[4], c[7]}};
    case Shape::Pyramid:
        return {
            {c[0], c[1], c[2], c[3]}, {c[0], c[1], c[4]}, {c[1], c[2], c[4]}, {c[2], c[3], c[4]}, {c[3], c[0], c[4]}};
    case Shape::Prism:
        return {{c[0], c[1], c[2]},
                {c[3], c[4], c[5]},
                {c[0], c[1], c[4], c[3]},
                {c[1], c[2], c[5], c[4]},
                {c[2], c[0], c[3], c[5]}};
    case Shape::Polyhedron: {
        std::vector<Points> faces;
        std::int64_t const* face = cells.faceStream + cells.faceOffsets[cell];
        for (std::int64_t left = *face++; left > 0; --left) {
            faces.emplace_back(face + 1, face + 1 + *face);
            face += *face + 1;
        }
        return faces;
    }
    default:
        return {c};
    }
}

Shape shapeOf(Zone const& zone, std::size_t cell)
{
    if (zone.connectivity->shapes != nullptr) {
        return zone.connectivity->shapes[cell];
    }
    static std::map<ZoneType_e, Shape> const shapes{{ZoneType_FELineSeg, Shape::LineSegment},
                                                    {ZoneType_FETriangle, Shape::Triangle},
                                                    {ZoneType_FEQuad, Shape::Quad},
                                                    {ZoneType_FETetra, Shape::Tetrahedron},
                                                    {ZoneType_FEBrick, Shape::Brick},
                                                    {ZoneType_FEPolygon, Shape::Polygon},
                                                    {ZoneType_FEPolyhedron, Shape::Polyhedron}};
    return shapes.at(zone.type);
}

using Edges = std::vector<std::array<std::int64_t, 2>>;

Edges edgesOf(std::vector<Points> const& faces, Shape shape)
{
    Edges edges;
    for (Points const& face : faces) {
        std::size_t const count = shape == Shape::LineSegment ? face.size() - 1 : face.size();
        for (std::size_t at = 0; at < count; ++at) {
            edges.push_back({face[at], face[(at + 1) % face.size()]});
        }
    }
    return edges;
}

using Sides = std::map<std::set<std::int64_t>, std::vector<std::size_t>>;

/// Adds the sides that a cell has an odd number of times.
void addSides(std::size_t cell, std::vector<Points> const& sides, std::size_t fewestPoints, Sides& ofAll)
{
    std::map<std::set<std::int64_t>, int> counts;
    for (Points const& side : sides) {
        ++counts[std::set<std::int64_t>(side.begin(), side.end())];
    }
    for (auto const& [points, count] : counts) {
        if (points.size() >= fewestPoints && count % 2 == 1) {
            ofAll[points].push_back(cell);
        }
    }
}

/// The sides of all cells, as sets of points with the cells that have them.
Sides sidesOf(Zone const& zone)
{
    Sides sides;
    for (std::size_t cell = 0; cell < static_cast<std::size_t>(zone.connectivity->cellCount); ++cell) {
        Shape const shape = shapeOf(zone, cell);
        std::vector<Points> const faces = facesOf(*zone.connectivity, cell, shape);
        if (shape == Shape::LineSegment) {
            addSides(cell, {{faces[0].front()}, {faces[0].back()}}, 1, sides);
        } else if (Connectivity::isFace(shape)) {
            std::vector<Points> edges;
            for (auto const& edge : edgesOf(faces, shape)) {
                edges.push_back({edge[0], edge[1]});
            }
            addSides(cell, edges, 2, sides);
        } else {
            addSides(cell, faces, 3, sides);
        }
    }
    return sides;
}

} // namespace

Numbers smoothGrid(Numbers values, Place const& counts, int passes, long double weight, BoundaryCondition_e condition)
{
    Grid const grid(counts);
    for (int pass = 0; pass < passes; ++pass) {
        values = grid.passInside(values, weight);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            grid.setEnds(values, axis, condition);
        }
    }
    return values;
}

Mesh meshOfPoints(Zone const& zone)
{
    auto const count = static_cast<std::size_t>(zone.pointCount());
    Mesh mesh{std::vector<std::set<std::size_t>>(count), std::vector<bool>(count)};
    for (std::size_t cell = 0; cell < static_cast<std::size_t>(zone.connectivity->cellCount); ++cell) {
        Shape const shape = shapeOf(zone, cell);
        for (auto const& [first, second] : edgesOf(facesOf(*zone.connectivity, cell, shape), shape)) {
            if (first != second) {
                mesh.neighbors[static_cast<std::size_t>(first)].insert(static_cast<std::size_t>(second));
                mesh.neighbors[static_cast<std::size_t>(second)].insert(static_cast<std::size_t>(first));
            }
        }
    }
    for (auto const& [points, cells] : sidesOf(zone)) {
        for (std::int64_t const point : points) {
            mesh.border[static_cast<std::size_t>(point)] =
                mesh.border[static_cast<std::size_t>(point)] || cells.size() == 1;
        }
    }
    return mesh;
}

Mesh meshOfCells(Zone const& zone)
{
    auto const count = static_cast<std::size_t>(zone.connectivity->cellCount);
    Mesh mesh{std::vector<std::set<std::size_t>>(count), std::vector<bool>(count)};
    for (auto const& [points, cells] : sidesOf(zone)) {
        mesh.border[cells.front()] = mesh.border[cells.front()] || cells.size() == 1;
        for (std::size_t const first : cells) {
            for (std::size_t const second : cells) {
                if (first != second) {
                    mesh.neighbors[first].insert(second);
                }
            }
        }
    }
    return mesh;
}

Numbers smoothMesh(Numbers values, Mesh const& mesh, int passes, long double weight)
{
    for (int pass = 0; pass < passes; ++pass) {
        Numbers const old = values;
        for (std::size_t at = 0; at < old.size(); ++at) {
            long double sum = 0;
            long double number = 0;
            for (std::size_t const neighbor : mesh.neighbors[at]) {
                sum += std::isnan(old[neighbor]) ? 0 : old[neighbor];
                number += std::isnan(old[neighbor]) ? 0 : 1;
            }
            if (!mesh.border[at] && number > 0) {
                values[at] += weight * (sum / number - old[at]);
            }
        }
    }
    return values;
}

} // namespace reference

} // namespace veldraw::tests
