#include "tools/samples/FlowSample.h"

#include "tools/samples/SampleFiles.h"

#include <vtkCellData.h>
#include <vtkCompositeDataSet.h>
#include <vtkInformation.h>
#include <vtkMultiBlockDataSet.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkStructuredGrid.h>

#include <cmath>

namespace veldraw::samples {

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr double inletSpeed = 20.0;
constexpr double density = 1.2;
constexpr int across = 13;

// Half width of the duct; the throat is at x = 0.
double halfWidth(double x)
{
    return 0.5 - 0.2 * std::exp(-x * x);
}

double meanSpeed(double x)
{
    double const ratio = halfWidth(-10.0) / halfWidth(x);
    return inletSpeed * ratio * ratio;
}

double pressure(double x)
{
    return 101325.0 + 0.5 * density * (inletSpeed * inletSpeed - meanSpeed(x) * meanSpeed(x));
}

void setPoint(vtkStructuredGrid& grid, vtkFloatArray& velocity, vtkFloatArray& temperature, vtkIdType n, double x,
              double a, double b)
{
    double const width = halfWidth(x);
    double const slope = (halfWidth(x + 1e-4) - halfWidth(x - 1e-4)) / 2e-4;
    // Slower along the walls, with the mean kept.
    double const speed = meanSpeed(x) * (1.15 - 0.45 * a * a) * (1.15 - 0.45 * b * b);
    grid.GetPoints()->SetPoint(n, x, width * a, width * b);
    velocity.SetTuple3(n, speed, speed * slope * a, speed * slope * b);
    temperature.SetValue(n, static_cast<float>(293.15 + 5.0 * (1.0 - std::cos(pi * a) * std::cos(pi * b)) + x));
}

vtkSmartPointer<vtkStructuredGrid> block(double start, double end, int along)
{
    vtkNew<vtkStructuredGrid> grid;
    grid->SetDimensions(along, across, across);
    vtkIdType const count = static_cast<vtkIdType>(along) * across * across;
    vtkNew<vtkPoints> points;
    points->SetNumberOfPoints(count);
    grid->SetPoints(points);
    auto const velocity = floats("velocity", 3, count);
    auto const temperature = floats("temperature", 1, count);
    auto const cells = floats("pressure", 1, static_cast<vtkIdType>(along - 1) * (across - 1) * (across - 1));
    vtkIdType n = 0;
    for (int k = 0; k < across; ++k) {
        for (int j = 0; j < across; ++j) {
            for (int i = 0; i < along; ++i)
                setPoint(*grid, *velocity, *temperature, n++, start + (end - start) * i / (along - 1),
                         2.0 * j / (across - 1) - 1.0, 2.0 * k / (across - 1) - 1.0);
        }
    }
    for (vtkIdType cell = 0; cell < cells->GetNumberOfTuples(); ++cell)
        cells->SetValue(
            cell, static_cast<float>(
                      pressure(start + (end - start) * (static_cast<double>(cell % (along - 1)) + 0.5) / (along - 1))));
    grid->GetPointData()->AddArray(velocity);
    grid->GetPointData()->AddArray(temperature);
    grid->GetCellData()->AddArray(cells);
    return grid;
}

} // namespace

void writeFlow(std::string const& path)
{
    vtkNew<vtkMultiBlockDataSet> blocks;
    blocks->SetBlock(0, block(-4.0, -1.5, 21));
    blocks->SetBlock(1, block(-1.5, 1.5, 31));
    blocks->SetBlock(2, block(1.5, 6.0, 31));
    unsigned int n = 0;
    for (char const* name : {"Inlet", "Throat", "Outlet"})
        blocks->GetMetaData(n++)->Set(vtkCompositeDataSet::NAME(), name);
    writeBlocks(*blocks, path);
}

} // namespace veldraw::samples
