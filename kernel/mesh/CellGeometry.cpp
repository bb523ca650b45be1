#include "kernel/mesh/CellGeometry.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace veldraw::kernel {

namespace {

using Shape = Connectivity::Shape;

Point normalOf(Point const& a, Point const& b, Point const& c)
{
    Point const u{b[0] - a[0], b[1] - a[1], b[2] - a[2]};
    Point const v{c[0] - a[0], c[1] - a[1], c[2] - a[2]};
    return {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
}

/// The mean of @p count points that @p pointAt gives; no sum becomes too large on the way.
template <typename PointAt>
Point meanOf(std::size_t count, PointAt const& pointAt)
{
    Point mean{};
    for (std::size_t at = 0; at < count; ++at) {
        Point const point = pointAt(at);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            mean[axis] += point[axis] / static_cast<double>(count);
        }
    }
    return mean;
}

} // namespace

bool CellGeometry::consistsOfParts() const
{
    return m_cell.shape == Shape::Polygon || m_cell.shape == Shape::Polyhedron;
}

void CellGeometry::read(ZoneCells const& cells, Cell const& cell)
{
    m_cells = &cells;
    m_cell = cell;
    m_corners.resize(cell.cornerCount);
    std::transform(cell.corners, cell.corners + cell.cornerCount, m_corners.begin(),
                   [&cells](std::int64_t corner) { return cells.point(corner); });
    if (consistsOfParts()) {
        prepareParts();
        m_isFlat = std::all_of(m_parts.begin(), m_parts.end(), [](Part const& part) { return part.map.isFlat(); });
    } else {
        m_map.set(cell.shape, m_corners.data());
        m_isFlat = m_map.isFlat();
    }
}

void CellGeometry::read(Connectivity::Shape shape, Point const* corners)
{
    m_cells = nullptr;
    m_cell = {shape, nullptr, 0};
    m_map.set(shape, corners);
    m_isFlat = m_map.isFlat();
}

void CellGeometry::prepareParts()
{
    m_parts.clear();
    m_turnsIn = false;
    m_middle = meanOf(m_corners.size(), [this](std::size_t corner) { return m_corners[corner]; });
    if (m_cell.shape == Shape::Polygon) {
        addFan(nullptr);
        return;
    }
    std::int64_t const* face = m_cell.faces + 1;
    for (std::int64_t left = m_cell.faces[0]; left > 0; --left) {
        addFan(face);
        face += face[0] + 1;
    }
}

/// Adds the parts of a polygon, or those of a polyhedron behind one of its faces.
void CellGeometry::addFan(std::int64_t const* face)
{
    std::int64_t const* const points = face != nullptr ? face + 1 : m_cell.corners;
    auto const count = face != nullptr ? static_cast<std::size_t>(face[0]) : m_cell.cornerCount;
    auto const pointAt = [&](std::size_t corner) { return m_cells->point(points[corner % count]); };
    Point const middle = face != nullptr ? meanOf(count, pointAt) : m_middle;
    Point whole{}; // twice the area, along the normal
    for (std::size_t corner = 0; corner < count; ++corner) {
        Point const normal = normalOf(middle, pointAt(corner), pointAt(corner + 1));
        std::transform(whole.begin(), whole.end(), normal.begin(), whole.begin(), std::plus<>());
    }
    auto const isLess = [](double a, double b) { return std::abs(a) < std::abs(b); };
    auto const across = static_cast<std::size_t>(std::max_element(whole.begin(), whole.end(), isLess) - whole.begin());
    m_axes = {(across + 1) % 3, (across + 2) % 3};
    for (std::size_t corner = 0; corner < count; ++corner) {
        Point const corners[4] = {middle, pointAt(corner), pointAt(corner + 1), m_middle};
        Point const normal = normalOf(corners[0], corners[1], corners[2]);
        double const sense = whole[0] * normal[0] + whole[1] * normal[1] + whole[2] * normal[2];
        Part part{{points[corner], points[(corner + 1) % count]}, face, {}};
        part.map.set(face != nullptr ? Shape::Tetrahedron : Shape::Triangle, corners);
        m_turnsIn = m_turnsIn || (face == nullptr && sense < 0);
        m_parts.push_back(part);
    }
}

std::optional<CellGeometry::Place> CellGeometry::locate(Point const& point) const
{
    if (consistsOfParts()) {
        return locateInParts(point);
    }
    std::optional<Point> const reference = m_map.locate(point);
    return reference ? std::optional<Place>({0, *reference}) : std::nullopt;
}

std::optional<CellGeometry::Place> CellGeometry::locateInParts(Point const& point) const
{
    for (std::size_t part = 0; part < m_parts.size(); ++part) {
        if (std::optional<Point> const reference = m_parts[part].map.locate(point)) {
            bool const isIn = !m_turnsIn || isInOutline(point);
            return isIn ? std::optional<Place>({part, *reference}) : std::nullopt;
        }
    }
    return std::nullopt;
}

/// Whether a ray from the point crosses the outline of the polygon an odd number of times, or the point is on the outline. As seen
/// along the axis in which the polygon is the largest.
bool CellGeometry::isInOutline(Point const& point) const
{
    auto const [x, y] = m_axes;
    bool isIn = false;
    for (std::size_t corner = 0; corner < m_corners.size(); ++corner) {
        Point const& a = m_corners[corner];
        Point const& b = m_corners[(corner + 1) % m_corners.size()];
        double const alongX = b[x] - a[x];
        double const alongY = b[y] - a[y];
        double const fromX = point[x] - a[x];
        double const fromY = point[y] - a[y];
        double const square = alongX * alongX + alongY * alongY;
        double const side = alongX * fromY - alongY * fromX;
        double const share = alongX * fromX + alongY * fromY;
        if (std::abs(side) <= CellMap::tolerance * square && share >= 0 && share <= square) {
            return true;
        }
        bool const isCrossed = (a[y] > point[y]) != (b[y] > point[y]);
        isIn = isCrossed && (side > 0) == (alongY > 0) ? !isIn : isIn;
    }
    return isIn;
}

void CellGeometry::weigh(Place const& place, std::vector<WeightedPoint>& weights) const
{
    weights.clear();
    std::array<double, CellMap::mostCorners> shares{};
    if (!consistsOfParts()) {
        std::size_t const count = m_map.weigh(place.reference, shares.data());
        for (std::size_t corner = 0; corner < count; ++corner) {
            weights.push_back({m_cell.corners[corner], shares[corner]});
        }
        return;
    }
    Part const& part = m_parts[place.part];
    part.map.weigh(place.reference, shares.data());
    weights.push_back({part.points[0], shares[1]});
    weights.push_back({part.points[1], shares[2]});
    auto const spread = [&weights](double share, std::int64_t const* points, std::size_t count) {
        for (std::size_t at = 0; at < count; ++at) {
            weights.push_back({points[at], share / static_cast<double>(count)});
        }
    };
    if (part.face != nullptr) {
        spread(shares[0], part.face + 1, static_cast<std::size_t>(part.face[0]));
    }
    spread(part.face != nullptr ? shares[3] : shares[0], m_cell.corners, m_cell.cornerCount);
}

} // namespace veldraw::kernel
