#include "app/plot/PickRay.h"

#include "app/plot/PickSearch.h"

#include <vtkPolyData.h>
#include <vtkRenderer.h>

#include <cmath>

namespace veldraw::app {

namespace {

using Vector = std::array<double, 3>;

Vector difference(Vector const& a, Vector const& b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

Vector cross(Vector const& a, Vector const& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double length(Vector const& a)
{
    return std::sqrt(a[0] * a[0] + a[1] * a[1] + a[2] * a[2]);
}

Vector unit(Vector const& a)
{
    double const size = length(a);
    return size > 0.0 ? Vector{a[0] / size, a[1] / size, a[2] / size} : Vector{};
}

// @param depth from 0, the near end of what the camera sees, to 1
Vector inScene(vtkRenderer& renderer, double x, double y, double depth)
{
    renderer.SetDisplayPoint(x, y, depth);
    renderer.DisplayToWorld();
    double const* const world = renderer.GetWorldPoint();
    return {world[0] / world[3], world[1] / world[3], world[2] / world[3]};
}

} // namespace

PickRay::PickRay(vtkRenderer& renderer, double x, double y)
    : m_origin(inScene(renderer, x, y, 0.0))
{
    Vector const end = inScene(renderer, x, y, 1.0);
    Vector const way = difference(end, m_origin);
    m_length = length(way);
    m_along = unit(way);
    bool const isSteep = std::abs(m_along[0]) > 0.6;
    m_across = unit(cross(m_along, isSteep ? Vector{0.0, 1.0, 0.0} : Vector{1.0, 0.0, 0.0}));
    m_upward = cross(m_along, m_across);
    m_pixelAtStart = length(difference(inScene(renderer, x + 1.0, y, 0.0), m_origin));
    m_pixelAtEnd = length(difference(inScene(renderer, x + 1.0, y, 1.0), end));
}

std::array<double, 3> PickRay::seen(std::array<double, 3> const& place) const
{
    Vector const way = difference(place, m_origin);
    auto const along = [&way](Vector const& axis) { return axis[0] * way[0] + axis[1] * way[1] + axis[2] * way[2]; };
    return {along(m_across), along(m_upward), along(m_along)};
}

std::array<double, 3> PickRay::at(double distance) const
{
    return {m_origin[0] + distance * m_along[0], m_origin[1] + distance * m_along[1],
            m_origin[2] + distance * m_along[2]};
}

double PickRay::distanceTo(vtkPolyData& drawing, double pixels) const
{
    return PickSearch(*this, drawing, pixels).nearest().distance;
}

} // namespace veldraw::app
