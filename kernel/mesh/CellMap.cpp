#include "kernel/mesh/CellMap.h"

#include <cmath>

namespace veldraw::kernel {

namespace {

using Shape = Connectivity::Shape;

constexpr double roundingUnit = std::numeric_limits<double>::epsilon();
constexpr double mostSlack = 1e-3; // a cell with more is flat

Point operator+(Point const& a, Point const& b)
{
    return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}

Point operator-(Point const& a, Point const& b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

Point operator*(double factor, Point const& a)
{
    return {factor * a[0], factor * a[1], factor * a[2]};
}

double dot(Point const& a, Point const& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Point cross(Point const& a, Point const& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double largest(Point const& a)
{
    return std::max({std::abs(a[0]), std::abs(a[1]), std::abs(a[2])});
}

double sumOfAbsolutes(Point const& a)
{
    return std::abs(a[0]) + std::abs(a[1]) + std::abs(a[2]);
}

bool isFace(Shape shape)
{
    return Connectivity::isFace(shape);
}

bool isAffine(Shape shape)
{
    return shape == Shape::Triangle || shape == Shape::Tetrahedron;
}

/// A place well inside the reference cell.
Point middleOf(Shape shape)
{
    switch (shape) {
    case Shape::Triangle:
        return {1.0 / 3, 1.0 / 3, 0};
    case Shape::Quad:
        return {0.5, 0.5, 0};
    case Shape::Tetrahedron:
        return {0.25, 0.25, 0.25};
    case Shape::Prism:
        return {1.0 / 3, 1.0 / 3, 0.5};
    case Shape::Pyramid:
        return {0.375, 0.375, 0.25};
    default:
        return {0.5, 0.5, 0.5};
    }
}

Point referenceCorner(Shape shape, std::size_t corner)
{
    constexpr Point corners[CellMap::mostCorners] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0},
                                                     {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}};
    constexpr Point ofPrism[6] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {1, 0, 1}, {0, 1, 1}};
    return shape == Shape::Prism ? ofPrism[corner] : corners[corner];
}

std::size_t cornerCount(Shape shape)
{
    return static_cast<std::size_t>(Connectivity::cornerCount(shape));
}

} // namespace

void CellMap::set(Shape shape, Point const* corners)
{
    m_shape = shape;
    m_isFlat = true;
    Box box;
    std::for_each(corners, corners + cornerCount(shape), [&](Point const& corner) { box.add(corner); });
    m_origin = corners[0];
    m_unit = 1.0 / sumOfAbsolutes(box.high - box.low);
    if (!std::isfinite(m_unit) || !(m_unit > 0)) {
        return;
    }
    std::array<Point, mostCorners> scaled{};
    std::transform(corners, corners + cornerCount(shape), scaled.begin(),
                   [this](Point const& corner) { return inUnits(corner); });
    setTerms(scaled.data());
    setFrame(scaled.data());
}

Point CellMap::inUnits(Point const& point) const
{
    return m_unit * (point - m_origin);
}

/// The factors of the products of r, s and t when the sum over the corners of shape function times place is multiplied out.
/// The first corner is the origin.
void CellMap::setTerms(Point const* c)
{
    m_t = m_rs = m_st = m_rt = m_rst = Point{};
    m_r = c[1];
    m_s = m_shape == Shape::Triangle || m_shape == Shape::Tetrahedron || m_shape == Shape::Prism ? c[2] : c[3];
    switch (m_shape) {
    case Shape::Tetrahedron:
        m_t = c[3];
        break;
    case Shape::Quad:
        m_rs = c[2] - c[1] - c[3];
        break;
    case Shape::Pyramid:
        m_t = c[4];
        m_rs = c[2] - c[1] - c[3];
        break;
    case Shape::Prism:
        m_t = c[3];
        m_rt = c[4] - c[3] - c[1];
        m_st = c[5] - c[3] - c[2];
        break;
    case Shape::Brick:
        m_t = c[4];
        m_rs = c[2] - c[1] - c[3];
        m_st = c[7] - c[3] - c[4];
        m_rt = c[5] - c[1] - c[4];
        m_rst = (c[6] - c[2] - c[5] - c[7]) + (c[1] + c[3] + c[4]);
        break;
    default:
        break;
    }
}

/// Finds the frame, the tolerance that belongs to it and the box of the corners in it; leaves a flat cell flat.
void CellMap::setFrame(Point const* corners)
{
    m_middle = middleOf(m_shape);
    if (isFace(m_shape)) { // t goes along the normal in the middle
        Point const normal = cross(m_r + m_middle[1] * m_rs, m_s + m_middle[0] * m_rs);
        m_t = (1 / std::sqrt(dot(normal, normal))) * normal;
    }
    auto const [place, derivatives] = image(m_middle);
    m_middlePlace = place;
    Point const firstNormal = cross(derivatives[1], derivatives[2]);
    double const volume = dot(derivatives[0], firstNormal);
    m_inverse = {(1 / volume) * firstNormal, (1 / volume) * cross(derivatives[2], derivatives[0]),
                 (1 / volume) * cross(derivatives[0], derivatives[1])};
    double const steepest =
        std::max({sumOfAbsolutes(m_inverse[0]), sumOfAbsolutes(m_inverse[1]), sumOfAbsolutes(m_inverse[2])});
    m_slack = tolerance + 16 * roundingUnit * steepest;
    m_isFlat = !(m_slack <= mostSlack); // true when it is no number
    m_box = {};
    for (std::size_t corner = 0; corner < cornerCount(m_shape); ++corner) {
        m_box.add(inFrame(corners[corner]));
    }
    double const slackAcross = isFace(m_shape) ? surfaceTolerance : m_slack;
    m_box.low = m_box.low - Point{m_slack, m_slack, slackAcross};
    m_box.high = m_box.high + Point{m_slack, m_slack, slackAcross};
}

/// Whether the derivatives may differ so much from those in the middle (by half, in the frame) that Newton's iteration could
/// miss a solution. Below that it converges to the only one (Kantorovich).
bool CellMap::isWarped() const
{
    if (isAffine(m_shape)) {
        return false;
    }
    Point const half = 0.5 * m_rst;
    Point sum{};
    for (Point const& term : {m_rs + half, m_st + half, m_rt + half, 0.75 * m_rst}) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            sum[axis] += std::abs(dot(m_inverse[axis], term));
        }
    }
    return !(largest(sum) <= 0.5);
}

/// Reference coordinates of a place if the map were linear.
Point CellMap::inFrame(Point const& place) const
{
    Point const fromMiddle = place - m_middlePlace;
    return m_middle +
           Point{dot(m_inverse[0], fromMiddle), dot(m_inverse[1], fromMiddle), dot(m_inverse[2], fromMiddle)};
}

CellMap::Image CellMap::image(Point const& reference) const
{
    auto const [r, s, t] = reference;
    if (m_shape == Shape::Pyramid) { // shape functions of Bedrosian (1992), which are bounded at the apex
        double const width = std::max(1 - t, 1e-12);
        double const along = std::clamp(r / width, -1.0, 2.0);
        double const across = std::clamp(s / width, -1.0, 2.0);
        return {r * m_r + s * m_s + t * m_t + (along * across * width) * m_rs,
                {m_r + across * m_rs, m_s + along * m_rs, m_t + (along * across) * m_rs}};
    }
    return {r * m_r + s * m_s + t * m_t + (r * s) * m_rs + (s * t) * m_st + (r * t) * m_rt + (r * s * t) * m_rst,
            {m_r + s * m_rs + t * m_rt + (s * t) * m_rst, m_s + r * m_rs + t * m_st + (r * t) * m_rst,
             m_t + s * m_st + r * m_rt + (r * s) * m_rst}};
}

/// Newton's iteration for the reference coordinates of a place, from a first guess; nothing when it finds none.
std::optional<Point> CellMap::solve(Point const& place, Point reference) const
{
    constexpr int mostSteps = 40;
    constexpr double smallestStep = 1e-12; // the next one would be about its square
    double miss = 0;
    for (int step = 0; step < mostSteps; ++step) {
        Image const here = image(reference);
        Point const missing = place - here.place;
        miss = largest(missing);
        if (miss <= 2 * roundingUnit) {
            return reference;
        }
        auto const& [alongR, alongS, alongT] = here.derivatives;
        Point const normal = cross(alongS, alongT);
        double const volume = dot(alongR, normal);
        Point const turned = cross(alongR, missing);
        Point const stride = (1 / volume) * Point{dot(missing, normal), dot(turned, alongT), -dot(turned, alongS)};
        reference = reference + stride;
        if (!(largest(reference - m_middle) <= 4)) { // also when it is no number
            return std::nullopt;
        }
        if (largest(stride) <= smallestStep) {
            return reference;
        }
    }
    return miss <= smallestStep ? std::optional<Point>(reference) : std::nullopt;
}

bool CellMap::isInside(Point const& reference) const
{
    auto const [r, s, t] = reference;
    double const low = -m_slack;
    double const high = 1 + m_slack;
    if (r < low || s < low) {
        return false;
    }
    switch (m_shape) {
    case Shape::Triangle:
        return r + s <= high && std::abs(t) <= surfaceTolerance;
    case Shape::Quad:
        return r <= high && s <= high && std::abs(t) <= surfaceTolerance;
    case Shape::Tetrahedron:
        return t >= low && r + s + t <= high;
    case Shape::Prism:
        return r + s <= high && t >= low && t <= high;
    case Shape::Pyramid:
        return t >= low && r + t <= high && s + t <= high;
    default:
        return r <= high && s <= high && t >= low && t <= high;
    }
}

std::optional<Point> CellMap::locate(Point const& point) const
{
    if (m_isFlat) {
        return std::nullopt;
    }
    Point const place = inUnits(point);
    Point const guess = inFrame(place);
    if (!m_box.contains(guess)) {
        return std::nullopt;
    }
    std::optional<Point> found = solve(place, guess);
    bool isInCell = found && isInside(*found);
    bool const isSearched = !isInCell && isWarped(); // from several places
    for (std::size_t corner = 0; isSearched && !isInCell && corner < cornerCount(m_shape); ++corner) {
        found = solve(place, 0.5 * (m_middle + referenceCorner(m_shape, corner)));
        isInCell = found && isInside(*found);
    }
    return isInCell ? found : std::nullopt;
}

std::size_t CellMap::weigh(Point const& reference, double* weights) const
{
    auto const [r, s, t] = reference;
    auto const square = [weights](double along, double across, double factor, std::size_t first) {
        weights[first] = factor * (1 - along) * (1 - across);
        weights[first + 1] = factor * along * (1 - across);
        weights[first + 2] = factor * along * across;
        weights[first + 3] = factor * (1 - along) * across;
    };
    auto const triangle = [weights, along = r, across = s](double factor, std::size_t first) {
        weights[first] = factor * (1 - along - across);
        weights[first + 1] = factor * along;
        weights[first + 2] = factor * across;
    };
    switch (m_shape) {
    case Shape::Triangle:
        triangle(1, 0);
        break;
    case Shape::Quad:
        square(r, s, 1, 0);
        break;
    case Shape::Tetrahedron:
        triangle(1, 0);
        weights[0] -= t;
        weights[3] = t;
        break;
    case Shape::Prism:
        triangle(1 - t, 0);
        triangle(t, 3);
        break;
    case Shape::Pyramid: {
        double const width = std::max(1 - t, 1e-12);
        square(std::clamp(r / width, -1.0, 2.0), std::clamp(s / width, -1.0, 2.0), 1 - t, 0);
        weights[4] = t;
        break;
    }
    default:
        square(r, s, 1 - t, 0);
        square(r, s, t, 4);
        break;
    }
    return cornerCount(m_shape);
}

} // namespace veldraw::kernel
