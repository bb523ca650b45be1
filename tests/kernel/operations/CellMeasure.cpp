#include "tests/kernel/operations/CellMeasure.h"

#include "tests/kernel/support/SpatialData.h"

#include <array>
#include <cmath>
#include <stdexcept>

namespace veldraw::tests {

using namespace kernel;
using Shape = Connectivity::Shape;
using Point = std::array<double, 3>;
using Corners = std::vector<std::int64_t>;

namespace {

Point operator-(Point const& a, Point const& b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

Point cross(Point const& a, Point const& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double dot(Point const& a, Point const& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

struct Points
{
    std::array<std::vector<double>, 3> coordinates;

    Point at(std::int64_t index) const
    {
        auto const place = static_cast<std::size_t>(index);
        return {coordinates[0][place], coordinates[1][place], coordinates[2][place]};
    }

    /// Calls @p triangle with the corners of a fan about the middle of the face.
    template <typename Triangle>
    void fan(Corners const& face, Triangle const& triangle) const
    {
        Point middle{};
        for (std::int64_t const corner : face) {
            for (std::size_t axis = 0; axis < 3; ++axis) {
                middle[axis] += at(corner)[axis] / static_cast<double>(face.size());
            }
        }
        for (std::size_t corner = 0; corner < face.size(); ++corner) {
            triangle(middle, at(face[corner]), at(face[(corner + 1) % face.size()]));
        }
    }

    double area(Corners const& face) const
    {
        double sum = 0;
        fan(face, [&](Point const& a, Point const& b, Point const& c) {
            Point const normal = cross(b - a, c - a);
            sum += std::sqrt(dot(normal, normal)) / 2;
        });
        return sum;
    }

    /// By the theorem of Gauss, from a corner of the cell so that nothing cancels out.
    double volume(std::vector<Corners> const& faces) const
    {
        double sum = 0;
        Point const from = at(faces.front().front());
        for (Corners const& face : faces) {
            fan(face, [&](Point const& a, Point const& b, Point const& c) {
                sum += dot(a - from, cross(b - from, c - from)) / 6;
            });
        }
        return sum;
    }
};

/// The faces of a solid by the places of its corners.
std::vector<Corners> facesOf(Shape shape)
{
    switch (shape) {
    case Shape::Tetrahedron:
        return {{0, 2, 1}, {0, 1, 3}, {1, 2, 3}, {2, 0, 3}};
    case Shape::Pyramid:
        return {{0, 3, 2, 1}, {0, 1, 4}, {1, 2, 4}, {2, 3, 4}, {3, 0, 4}};
    case Shape::Prism:
        return {{0, 2, 1}, {3, 4, 5}, {0, 1, 4, 3}, {1, 2, 5, 4}, {2, 0, 3, 5}};
    case Shape::Brick:
        return {{0, 3, 2, 1}, {4, 5, 6, 7}, {0, 1, 5, 4}, {1, 2, 6, 5}, {2, 3, 7, 6}, {3, 0, 4, 7}};
    default:
        throw std::logic_error("not a solid");
    }
}

double measure(Points const& points, Shape shape, Corners const& corners)
{
    if (shape == Shape::LineSegment) {
        Point const along = points.at(corners[1]) - points.at(corners[0]);
        return std::sqrt(dot(along, along));
    }
    if (shape == Shape::Triangle || shape == Shape::Quad || shape == Shape::Polygon) {
        return points.area(corners);
    }
    std::vector<Corners> faces = facesOf(shape);
    for (Corners& face : faces) {
        for (std::int64_t& corner : face) {
            corner = corners[static_cast<std::size_t>(corner)];
        }
    }
    return points.volume(faces);
}

double polyhedronVolume(Points const& points, std::int64_t const* stream)
{
    std::vector<Corners> faces(static_cast<std::size_t>(*stream++));
    for (Corners& face : faces) {
        std::int64_t const size = *stream++;
        face.assign(stream, stream + size);
        stream += size;
    }
    return points.volume(faces);
}

std::vector<double> measuresOfOrdered(Points const& points, Zone const& zone)
{
    std::int64_t const dims[3] = {zone.i, zone.j, zone.k};
    std::int64_t const strides[3] = {1, zone.i, zone.i * zone.j};
    std::vector<std::int64_t> steps;
    for (int axis = 0; axis < 3; ++axis) {
        if (dims[axis] > 1) {
            steps.push_back(strides[axis]);
        }
    }
    constexpr Shape shapes[] = {Shape::LineSegment, Shape::Quad, Shape::Brick};
    std::vector<double> measures;
    for (std::int64_t at = 0; at < zone.pointCount(); ++at) {
        std::int64_t const place[3] = {at % dims[0], at / dims[0] % dims[1], at / (dims[0] * dims[1])};
        bool const isLast = (dims[0] > 1 && place[0] == dims[0] - 1) || (dims[1] > 1 && place[1] == dims[1] - 1) ||
                            (dims[2] > 1 && place[2] == dims[2] - 1);
        if (isLast) {
            continue;
        }
        Corners corners{at, at + steps[0]};
        if (steps.size() > 1) {
            corners = {at, at + steps[0], at + steps[0] + steps[1], at + steps[1]};
        }
        for (int corner = 0; steps.size() > 2 && corner < 4; ++corner) {
            corners.push_back(corners[static_cast<std::size_t>(corner)] + steps[2]);
        }
        measures.push_back(measure(points, shapes[steps.size() - 1], corners));
    }
    return measures;
}

} // namespace

std::vector<double> cellMeasures(DataSet const& dataSet, int zone)
{
    Points const points{
        {sample::values(dataSet, zone, 1), sample::values(dataSet, zone, 2), sample::values(dataSet, zone, 3)}};
    Zone const& measured = *dataSet.zone(zone);
    if (measured.isOrdered()) {
        return measuresOfOrdered(points, measured);
    }
    Connectivity const& cells = *measured.connectivity;
    std::vector<double> measures;
    for (std::int64_t cell = 0; cell < cells.cellCount; ++cell) {
        Corners const corners(cells.indices + cells.offsets[cell], cells.indices + cells.offsets[cell + 1]);
        measures.push_back(cells.shapes[cell] == Shape::Polyhedron
                               ? polyhedronVolume(points, cells.faceStream + cells.faceOffsets[cell])
                               : measure(points, cells.shapes[cell], corners));
    }
    return measures;
}

} // namespace veldraw::tests
