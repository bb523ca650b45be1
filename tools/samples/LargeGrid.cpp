#include "tools/samples/LargeGrid.h"

#include "tools/samples/SampleFiles.h"

#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkStructuredGrid.h>

#include <cmath>

namespace veldraw::samples {

void writeLargeGrid(std::string const& path, int edge)
{
    vtkIdType const count = static_cast<vtkIdType>(edge) * edge * edge;
    auto const coordinates = floats("Points", 3, count);
    auto const pressure = floats("p", 1, count);
    auto const temperature = floats("T", 1, count);
    auto const density = floats("rho", 1, count);
    float const step = 1.0F / static_cast<float>(edge);
    for (vtkIdType n = 0; n < count; ++n) {
        float const x = static_cast<float>(n % edge) * step;
        float const y = static_cast<float>(n / edge % edge) * step;
        float const z = static_cast<float>(n / edge / edge) * step;
        float const p = 1e5F * (1.0F + 0.1F * std::sin(6.0F * x) * std::cos(4.0F * y));
        float const t = 300.0F + 20.0F * z;
        coordinates->SetTuple3(n, x, y, z);
        pressure->SetValue(n, p);
        temperature->SetValue(n, t);
        density->SetValue(n, p / (287.0F * t));
    }
    vtkNew<vtkStructuredGrid> grid;
    vtkNew<vtkPoints> points;
    points->SetData(coordinates);
    grid->SetDimensions(edge, edge, edge);
    grid->SetPoints(points);
    grid->GetPointData()->AddArray(pressure);
    grid->GetPointData()->AddArray(temperature);
    grid->GetPointData()->AddArray(density);
    writeGrid(*grid, path);
}

} // namespace veldraw::samples
