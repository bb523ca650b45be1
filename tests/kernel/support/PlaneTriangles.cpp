#include "tests/kernel/support/PlaneTriangles.h"

#include <boost/multiprecision/cpp_int.hpp>

#include <algorithm>
#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

using Rational = boost::multiprecision::cpp_rational;
using Place = kernel::PlanePlace;

/// Twice the area of a triangle.
Rational turn(Place const& a, Place const& b, Place const& c)
{
    Rational const ax(a[0]), ay(a[1]);
    return (Rational(b[0]) - ax) * (Rational(c[1]) - ay) - (Rational(b[1]) - ay) * (Rational(c[0]) - ax);
}

/// Positive when d is within the circle through a, b and c, which turn against the clock's sense.
Rational withinCircle(Place const& a, Place const& b, Place const& c, Place const& d)
{
    struct Row
    {
        Rational x, y, square;
    };
    auto const rowOf = [&d](Place const& place) {
        Rational const x = Rational(place[0]) - Rational(d[0]);
        Rational const y = Rational(place[1]) - Rational(d[1]);
        return Row{x, y, x * x + y * y};
    };
    Row const p = rowOf(a);
    Row const q = rowOf(b);
    Row const r = rowOf(c);
    return p.x * (q.y * r.square - r.y * q.square) - p.y * (q.x * r.square - r.x * q.square) +
           p.square * (q.x * r.y - r.x * q.y);
}

PlaneTriangles::Edge edgeOf(std::size_t a, std::size_t b)
{
    return std::minmax({a, b});
}

} // namespace

PlaneTriangles::PlaneTriangles(kernel::Zone const& zone)
{
    auto const x = zone.fields[0].group()->buffer();
    auto const y = zone.fields[1].group()->buffer();
    for (std::int64_t point = 0; point < zone.pointCount(); ++point) {
        places.push_back({x->value(point), y->value(point)});
    }
    kernel::Connectivity const& cells = *zone.connectivity;
    for (std::int64_t cell = 0; cell < cells.cellCount; ++cell) {
        EXPECT_EQ(cells.offsets[cell], 3 * cell);
        Triangle triangle{};
        std::copy_n(cells.indices + 3 * cell, 3, triangle.corners.begin());
        triangles.push_back(triangle);
    }
}

bool PlaneTriangles::areAllForward() const
{
    return std::all_of(triangles.begin(), triangles.end(), [this](Triangle const& triangle) {
        auto const& [a, b, c] = triangle.corners;
        return turn(places[a], places[b], places[c]) > 0;
    });
}

std::map<PlaneTriangles::Edge, int> PlaneTriangles::edges() const
{
    std::map<Edge, int> result;
    for (Triangle const& triangle : triangles) {
        for (std::size_t corner = 0; corner < 3; ++corner) {
            ++result[edgeOf(triangle.corners[corner], triangle.corners[(corner + 1) % 3])];
        }
    }
    return result;
}

int PlaneTriangles::nonDelaunayCount(std::set<Edge> const& lines) const
{
    std::map<Edge, std::size_t> otherCorners; // across edges that one triangle has been seen at
    int count = 0;
    for (Triangle const& triangle : triangles) {
        auto const& [a, b, c] = triangle.corners;
        for (std::size_t corner = 0; corner < 3; ++corner) {
            Edge const edge = edgeOf(triangle.corners[(corner + 1) % 3], triangle.corners[(corner + 2) % 3]);
            auto const [other, isNew] = otherCorners.emplace(edge, triangle.corners[corner]);
            if (!isNew && lines.count(edge) == 0) {
                count += withinCircle(places[a], places[b], places[c], places[other->second]) > 0 ? 1 : 0;
            }
        }
    }
    return count;
}

int PlaneTriangles::eulerCharacteristic() const
{
    return static_cast<int>(places.size()) - static_cast<int>(edges().size()) + static_cast<int>(triangles.size());
}

double PlaneTriangles::doubleArea() const
{
    Rational sum = 0;
    for (Triangle const& triangle : triangles) {
        auto const& [a, b, c] = triangle.corners;
        sum += turn(places[a], places[b], places[c]);
    }
    return sum.convert_to<double>();
}

std::set<std::array<std::size_t, 3>> PlaneTriangles::sorted() const
{
    std::set<std::array<std::size_t, 3>> result;
    for (Triangle triangle : triangles) {
        std::sort(triangle.corners.begin(), triangle.corners.end());
        result.insert(triangle.corners);
    }
    return result;
}

double doubleAreaOfHull(std::vector<Place> places)
{
    std::sort(places.begin(), places.end());
    std::vector<Place> hull;
    for (int half = 0; half < 2; ++half) {
        std::size_t const first = hull.size();
        for (Place const& place : places) {
            while (hull.size() >= first + 2 && turn(hull[hull.size() - 2], hull.back(), place) <= 0) {
                hull.pop_back();
            }
            hull.push_back(place);
        }
        hull.pop_back(); // the first one of the other half
        std::reverse(places.begin(), places.end());
    }
    return doubleAreaOf(hull);
}

double doubleAreaOf(std::vector<Place> const& polygon)
{
    Rational sum = 0;
    for (std::size_t at = 0; at + 1 < polygon.size(); ++at) {
        sum += turn(polygon.front(), polygon[at], polygon[at + 1]);
    }
    return sum.convert_to<double>();
}

} // namespace veldraw::tests
