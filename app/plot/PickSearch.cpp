#include "app/plot/PickSearch.h"

#include "kernel/base/Parallel.h"

#include <vtkCellArray.h>
#include <vtkFloatArray.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace veldraw::app {

namespace {

constexpr double missed = -1.0;
constexpr std::int64_t cellsForAThread = 4096; // of a small zone nobody else need hear
constexpr double farAway = std::numeric_limits<double>::max();

using Vector = std::array<double, 3>;

double nearer(double a, double b)
{
    if (a < 0.0 || b < 0.0)
        return std::max(a, b);
    return std::min(a, b);
}

// Of two at the same distance the first one.
PickHit nearer(PickHit const& a, PickHit const& b)
{
    return a.isMiss() || (!b.isMiss() && b.distance < a.distance) ? b : a;
}

std::int64_t countOf(vtkCellArray* cells)
{
    return cells ? cells->GetNumberOfCells() : 0;
}

PickSearch::Bounds boundsOf(vtkPolyData& drawing)
{
    PickSearch::Bounds bounds{};
    drawing.GetBounds(bounds.data());
    return bounds;
}

} // namespace

PickSearch::PickSearch(PickRay const& ray, vtkPolyData& drawing, double pixels)
    : PickSearch(ray, drawing, pixels, boundsOf(drawing))
{
}

PickSearch::PickSearch(PickRay const& ray, vtkPolyData& drawing, double pixels, Bounds const& bounds)
    : m_ray(ray)
    , m_drawing(drawing)
    , m_points(nullptr)
    , m_pixels(pixels)
    , m_bounds(bounds)
{
    vtkPoints* const points = drawing.GetPoints();
    if (auto* const values = points ? vtkFloatArray::SafeDownCast(points->GetData()) : nullptr)
        m_points = values->GetPointer(0);
}

PickHit PickSearch::nearest(kernel::Progress const& progress) const
{
    if (!m_points || !mayMeet())
        return {};
    std::int64_t const lineCells = countOf(m_drawing.GetVerts());
    std::int64_t const polygonCells = lineCells + countOf(m_drawing.GetLines());
    PickHit found = nearestOf(m_drawing.GetPolys(), polygonCells, progress,
                              [this](auto const* ids, auto count) { return polygon(ids, count); });
    found = nearer(found, nearestOf(m_drawing.GetLines(), lineCells, progress,
                                    [this](auto const* ids, auto count) { return lines(ids, count); }));
    return nearer(found, nearestOf(m_drawing.GetVerts(), 0, progress,
                                   [this](auto const* ids, auto count) { return vertices(ids, count); }));
}

// Whether the ray comes near the ball around the drawing at all.
bool PickSearch::mayMeet() const
{
    Bounds const& box = m_bounds;
    Vector const centre = {0.5 * (box[0] + box[1]), 0.5 * (box[2] + box[3]), 0.5 * (box[4] + box[5])};
    double x = 0.0;
    double y = 0.0;
    double squaredRadius = 0.0;
    for (std::size_t n = 0; n < 3; ++n) {
        double const offset = centre[n] - m_ray.m_origin[n];
        x += m_ray.m_across[n] * offset;
        y += m_ray.m_upward[n] * offset;
        double const half = 0.5 * (box[2 * n + 1] - box[2 * n]);
        squaredRadius += half * half;
    }
    double const reach = std::sqrt(squaredRadius) + m_pixels * std::max(m_ray.m_pixelAtStart, m_ray.m_pixelAtEnd);
    return x * x + y * y <= reach * reach;
}

template <typename Cell>
PickHit PickSearch::nearestOf(vtkCellArray* cells, std::int64_t firstCell, kernel::Progress const& progress,
                              Cell const& cell) const
{
    std::int64_t const count = countOf(cells);
    if (count == 0)
        return {};
    std::vector<PickHit> found(static_cast<std::size_t>(kernel::parallelChunkCount(count)));
    auto const search = [&](auto const* offsets, auto const* ids) {
        auto const work = [&](std::int64_t first, std::int64_t last, std::int64_t chunk) {
            PickHit best;
            for (std::int64_t n = first; n < last; ++n) {
                if (n % cellsForAThread == 0 && progress.isInterrupted())
                    break;
                best =
                    nearer(best, {cell(ids + offsets[n], static_cast<std::int64_t>(offsets[n + 1] - offsets[n])), n});
            }
            found[static_cast<std::size_t>(chunk)] = best;
        };
        kernel::parallelFor(count, work, cellsForAThread);
    };
    if (cells->IsStorage64Bit())
        search(cells->GetOffsetsArray64()->GetPointer(0), cells->GetConnectivityArray64()->GetPointer(0));
    else
        search(cells->GetOffsetsArray32()->GetPointer(0), cells->GetConnectivityArray32()->GetPointer(0));
    PickHit best;
    for (PickHit const& hit : found)
        best = nearer(best, hit);
    best.cell += best.isMiss() ? 0 : firstCell;
    return best;
}

PickSearch::Seen PickSearch::see(std::int64_t point) const
{
    float const* const p = m_points + 3 * point;
    double const x = p[0] - m_ray.m_origin[0];
    double const y = p[1] - m_ray.m_origin[1];
    double const z = p[2] - m_ray.m_origin[2];
    auto const along = [&](Vector const& axis) { return axis[0] * x + axis[1] * y + axis[2] * z; };
    return {along(m_ray.m_across), along(m_ray.m_upward), along(m_ray.m_along)};
}

// Most polygons lie on one side of the ray; for the others, the sides that cross the positive half of the first axis count.
template <typename Id>
double PickSearch::polygon(Id const* ids, std::int64_t count) const
{
    double low = farAway;
    double high = -farAway;
    for (std::int64_t n = 0; n < count; ++n) {
        float const* const p = m_points + 3 * static_cast<std::int64_t>(ids[n]);
        double const x = m_ray.m_across[0] * (p[0] - m_ray.m_origin[0]) +
                         m_ray.m_across[1] * (p[1] - m_ray.m_origin[1]) +
                         m_ray.m_across[2] * (p[2] - m_ray.m_origin[2]);
        low = std::min(low, x);
        high = std::max(high, x);
    }
    if (!(low <= 0.0 && high >= 0.0) || count < 3)
        return missed;
    std::vector<Seen> corners;
    for (std::int64_t n = 0; n < count; ++n)
        corners.push_back(see(static_cast<std::int64_t>(ids[n])));
    bool isInside = false;
    Seen last = corners.back();
    for (Seen const& here : corners) {
        if ((here.y > 0.0) != (last.y > 0.0)) {
            double const side = last.x * here.y - here.x * last.y;
            isInside = isInside != (here.y > last.y ? side > 0.0 : side < 0.0);
        }
        last = here;
    }
    return isInside ? depthOnPlane(corners) : missed;
}

// Where the ray meets the plane that fits the corners best; seen from its edge, any corner will do.
double PickSearch::depthOnPlane(std::vector<Seen> const& corners) const
{
    double normalX = 0.0;
    double normalY = 0.0;
    double normalDepth = 0.0;
    Seen centre{0.0, 0.0, 0.0};
    Seen last = corners.back();
    auto const size = static_cast<double>(corners.size());
    for (Seen const& here : corners) {
        normalX += (last.y - here.y) * (last.depth + here.depth);
        normalY += (last.depth - here.depth) * (last.x + here.x);
        normalDepth += (last.x - here.x) * (last.y + here.y);
        centre = {centre.x + here.x / size, centre.y + here.y / size, centre.depth + here.depth / size};
        last = here;
    }
    double const depth =
        normalDepth == 0.0 ? centre.depth : centre.depth + (normalX * centre.x + normalY * centre.y) / normalDepth;
    return isInScene(depth) ? depth : missed;
}

double PickSearch::reachAt(double depth) const
{
    double const share = depth / m_ray.m_length;
    return m_pixels * ((1.0 - share) * m_ray.m_pixelAtStart + share * m_ray.m_pixelAtEnd);
}

template <typename Id>
double PickSearch::lines(Id const* ids, std::int64_t count) const
{
    double best = missed;
    for (std::int64_t n = 0; n + 1 < count; ++n) {
        Seen const a = see(static_cast<std::int64_t>(ids[n]));
        Seen const b = see(static_cast<std::int64_t>(ids[n + 1]));
        double const x = b.x - a.x;
        double const y = b.y - a.y;
        double const squared = x * x + y * y;
        double const share = squared > 0.0 ? std::clamp(-(a.x * x + a.y * y) / squared, 0.0, 1.0) : 0.0;
        double const depth = a.depth + share * (b.depth - a.depth);
        if (isInScene(depth) && std::hypot(a.x + share * x, a.y + share * y) <= reachAt(depth))
            best = nearer(best, depth);
    }
    return best;
}

template <typename Id>
double PickSearch::vertices(Id const* ids, std::int64_t count) const
{
    double best = missed;
    for (std::int64_t n = 0; n < count; ++n) {
        Seen const seen = see(static_cast<std::int64_t>(ids[n]));
        if (isInScene(seen.depth) && std::hypot(seen.x, seen.y) <= reachAt(seen.depth))
            best = nearer(best, seen.depth);
    }
    return best;
}

} // namespace veldraw::app
