#include "tools/samples/RainfallSample.h"

#include "tools/samples/SampleFiles.h"

#include <vtkCellArray.h>
#include <vtkCompositeDataSet.h>
#include <vtkInformation.h>
#include <vtkMultiBlockDataSet.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkStructuredGrid.h>

#include <cmath>

namespace veldraw::samples {

namespace {

constexpr double length = 10.0;
constexpr double width = 8.0;

// Two showers over a rise towards the east.
double rainfall(double x, double y)
{
    double const west = std::exp(-((x - 3.0) * (x - 3.0) + (y - 5.0) * (y - 5.0)) / 3.0);
    double const east = std::exp(-((x - 7.5) * (x - 7.5) + (y - 2.5) * (y - 2.5)) / 4.0);
    return 12.0 + 0.6 * x + 20.0 * west + 12.0 * east;
}

void addRainfall(vtkPointSet& grid)
{
    auto const values = floats("rainfall", 1, grid.GetNumberOfPoints());
    for (vtkIdType n = 0; n < grid.GetNumberOfPoints(); ++n) {
        double point[3];
        grid.GetPoint(n, point);
        values->SetValue(n, static_cast<float>(rainfall(point[0], point[1])));
    }
    grid.GetPointData()->AddArray(values);
}

// Spread evenly and without a pattern, the same each time: fractions of multiples of two irrational numbers.
vtkSmartPointer<vtkPolyData> gauges()
{
    vtkNew<vtkPolyData> cloud;
    vtkNew<vtkPoints> points;
    vtkNew<vtkCellArray> vertices;
    for (vtkIdType n = 0; n < 80; ++n) {
        double const step = static_cast<double>(n) + 0.5;
        points->InsertNextPoint(length * std::fmod(step * 0.7548776662466927, 1.0),
                                width * std::fmod(step * 0.5698402909980532, 1.0), 0.0);
        vertices->InsertNextCell(1, &n);
    }
    cloud->SetPoints(points);
    cloud->SetVerts(vertices);
    addRainfall(*cloud);
    return cloud;
}

/// @param turn angle about the middle of the plain, in radians
vtkSmartPointer<vtkStructuredGrid> plain(int columns, int rows, double scale, double turn)
{
    vtkNew<vtkStructuredGrid> grid;
    grid->SetDimensions(columns, rows, 1);
    vtkNew<vtkPoints> points;
    for (int j = 0; j < rows; ++j) {
        for (int i = 0; i < columns; ++i) {
            double const x = scale * length * (1.0 * i / (columns - 1) - 0.5);
            double const y = scale * width * (1.0 * j / (rows - 1) - 0.5);
            points->InsertNextPoint(0.5 * length + x * std::cos(turn) - y * std::sin(turn),
                                    0.5 * width + x * std::sin(turn) + y * std::cos(turn), 0.0);
        }
    }
    grid->SetPoints(points);
    return grid;
}

} // namespace

void writeRainfall(std::string const& path)
{
    vtkNew<vtkMultiBlockDataSet> blocks;
    auto const forecast = plain(13, 11, 1.0, 0.0);
    addRainfall(*forecast);
    blocks->SetBlock(0, gauges());
    blocks->SetBlock(1, forecast);
    blocks->SetBlock(2, plain(61, 51, 1.05, 0.2));
    char const* const names[] = {"Gauges", "Forecast", "Map"};
    for (unsigned int n = 0; n < 3; ++n)
        blocks->GetMetaData(n)->Set(vtkCompositeDataSet::NAME(), names[n]);
    writeBlocks(*blocks, path);
}

} // namespace veldraw::samples
