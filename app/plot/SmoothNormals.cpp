#include "app/plot/SmoothNormals.h"

#include "kernel/base/Parallel.h"

#include <vtkCellArray.h>
#include <vtkPoints.h>

#include <array>
#include <cmath>

namespace veldraw::app {

namespace {

using Vector = std::array<double, 3>;

Vector pointAt(float const* points, vtkIdType number)
{
    float const* const p = points + 3 * number;
    return {p[0], p[1], p[2]};
}

// Perpendicular to a polygon, of length 1, all 0 without an area: the sum over its sides tells the area that is seen along each
// axis (M. E. Newell), also where the corners do not lie in one plane.
template <typename Ids>
Vector directionOf(float const* points, Ids const& ids)
{
    Vector sum{};
    Vector from = pointAt(points, ids[ids.size() - 1]);
    for (vtkIdType n = 0; n < ids.size(); ++n) {
        Vector const to = pointAt(points, ids[n]);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            std::size_t const next = (axis + 1) % 3;
            std::size_t const last = (axis + 2) % 3;
            sum[axis] += (from[next] - to[next]) * (from[last] + to[last]);
        }
        from = to;
    }
    double const length = std::sqrt(sum[0] * sum[0] + sum[1] * sum[1] + sum[2] * sum[2]);
    for (double& component : sum)
        component = length > 0.0 ? component / length : 0.0;
    return sum;
}

void addDirections(vtkPolyData& surface, float* normals, kernel::Progress const& progress)
{
    constexpr vtkIdType cellsBetweenChecks = 65536;
    float const* const points = vtkFloatArray::SafeDownCast(surface.GetPoints()->GetData())->GetPointer(0);
    surface.GetPolys()->Visit([&](auto& cells) {
        for (vtkIdType cell = 0; cell < cells.GetNumberOfCells(); ++cell) {
            if (cell % cellsBetweenChecks == 0)
                progress.check();
            auto const ids = cells.GetCellRange(cell);
            if (ids.size() < 3)
                continue;
            Vector const direction = directionOf(points, ids);
            for (vtkIdType const id : ids)
                for (int axis = 0; axis < 3; ++axis)
                    normals[3 * id + axis] += static_cast<float>(direction[static_cast<std::size_t>(axis)]);
        }
    });
}

void makeLengthsOne(float* normals, vtkIdType count)
{
    auto const work = [&](std::int64_t first, std::int64_t last, std::int64_t) {
        for (std::int64_t n = first; n < last; ++n) {
            float* const normal = normals + 3 * n;
            float const length = std::sqrt(normal[0] * normal[0] + normal[1] * normal[1] + normal[2] * normal[2]);
            for (int axis = 0; length > 0.0F && axis < 3; ++axis)
                normal[axis] /= length;
        }
    };
    kernel::parallelFor(count, work, kernel::grainOfFreshMemory(count));
}

} // namespace

vtkSmartPointer<vtkFloatArray> SmoothNormals::create(vtkPolyData& surface, kernel::Progress const& progress)
{
    auto normals = vtkSmartPointer<vtkFloatArray>::New();
    normals->SetNumberOfComponents(3);
    normals->SetNumberOfTuples(surface.GetNumberOfPoints());
    normals->FillValue(0.0F);
    if (surface.GetNumberOfPolys() == 0)
        return normals;
    addDirections(surface, normals->GetPointer(0), progress);
    makeLengthsOne(normals->GetPointer(0), normals->GetNumberOfTuples());
    return normals;
}

} // namespace veldraw::app
