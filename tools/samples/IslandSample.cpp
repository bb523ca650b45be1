#include "tools/samples/IslandSample.h"

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
#include <utility>

namespace veldraw::samples {

namespace {

constexpr double fullTurn = 6.28318530717958647693;
constexpr double middleX = 5.0;
constexpr double middleY = 4.0;
constexpr double lakeX = 6.2;
constexpr double lakeY = 4.3;
constexpr double lakeRadius = 0.7;
constexpr double lakeLevel = 40.0;

double shoreRadius(double angle)
{
    return 3.0 + 0.8 * std::sin(3.0 * angle + 0.4) + 0.3 * std::cos(angle);
}

/// From 0 in the middle to 1 at the shore.
double distanceToShore(double x, double y)
{
    double const radius = std::hypot(x - middleX, y - middleY);
    return radius / shoreRadius(std::atan2(y - middleY, x - middleX));
}

bool isOnLand(double x, double y)
{
    return distanceToShore(x, y) < 0.97 && std::hypot(x - lakeX, y - lakeY) > lakeRadius + 0.1;
}

/// @param error of the measurement
double height(double x, double y, double error)
{
    double const distance = distanceToShore(x, y);
    double const hill = 120.0 * (1.0 - distance * distance);
    double const basin = std::exp(-std::pow(std::hypot(x - lakeX, y - lakeY) - lakeRadius, 2));
    return hill + basin * (lakeLevel - hill) + error;
}

void addHeights(vtkPointSet& grid, vtkFloatArray& heights)
{
    heights.SetName("height");
    grid.GetPointData()->AddArray(&heights);
}

// Spread evenly and without a pattern, the same each time: fractions of multiples of irrational numbers.
vtkSmartPointer<vtkPolyData> marks()
{
    vtkNew<vtkPolyData> cloud;
    vtkNew<vtkPoints> points;
    vtkNew<vtkCellArray> vertices;
    vtkNew<vtkFloatArray> heights;
    for (int n = 0; n < 500; ++n) {
        double const step = n + 0.5;
        double const x = 10.0 * std::fmod(step * 0.7548776662466927, 1.0);
        double const y = 8.0 * std::fmod(step * 0.5698402909980532, 1.0);
        if (!isOnLand(x, y))
            continue;
        vtkIdType const point = points->InsertNextPoint(x, y, 0.0);
        vertices->InsertNextCell(1, &point);
        double const error = 16.0 * (std::fmod(step * 0.4142135623730950, 1.0) - 0.5);
        heights->InsertNextValue(static_cast<float>(height(x, y, error)));
    }
    cloud->SetPoints(points);
    cloud->SetVerts(vertices);
    addHeights(*cloud, *heights);
    return cloud;
}

/// @param place gives X and Y for an angle; the last point is where the first one is
template <typename Place>
vtkSmartPointer<vtkStructuredGrid> loop(int steps, double level, Place const& place)
{
    vtkNew<vtkPoints> points;
    vtkNew<vtkFloatArray> heights;
    for (int n = 0; n <= steps; ++n) {
        auto const [x, y] = place(fullTurn * (n % steps) / steps);
        points->InsertNextPoint(x, y, 0.0);
        heights->InsertNextValue(static_cast<float>(level));
    }
    vtkNew<vtkStructuredGrid> line;
    line->SetDimensions(steps + 1, 1, 1);
    line->SetPoints(points);
    addHeights(*line, *heights);
    return line;
}

} // namespace

void writeIsland(std::string const& path)
{
    vtkNew<vtkMultiBlockDataSet> blocks;
    blocks->SetBlock(0, marks());
    blocks->SetBlock(1, loop(120, 0.0, [](double angle) {
                         double const radius = shoreRadius(angle);
                         return std::pair(middleX + radius * std::cos(angle), middleY + radius * std::sin(angle));
                     }));
    blocks->SetBlock(2, loop(24, lakeLevel, [](double angle) {
                         return std::pair(lakeX + lakeRadius * std::cos(angle), lakeY + lakeRadius * std::sin(angle));
                     }));
    char const* const names[] = {"Marks", "Shore", "Lake"};
    for (unsigned int n = 0; n < 3; ++n)
        blocks->GetMetaData(n)->Set(vtkCompositeDataSet::NAME(), names[n]);
    writeBlocks(*blocks, path);
}

} // namespace veldraw::samples
