#include "tools/samples/TransientSample.h"

#include "tools/samples/SampleFiles.h"

#include <vtkCellArray.h>
#include <vtkCellType.h>
#include <vtkCompositeDataSet.h>
#include <vtkDoubleArray.h>
#include <vtkFieldData.h>
#include <vtkInformation.h>
#include <vtkIntArray.h>
#include <vtkMultiBlockDataSet.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkStructuredGrid.h>
#include <vtkUnstructuredGrid.h>

#include <cmath>
#include <cstdio>

namespace veldraw::samples {

namespace {

constexpr int along = 41;
constexpr int rowsAcross = 21;
constexpr int steps = 6;
constexpr double timeStep = 0.5;

double temperature(double x, double y, double time)
{
    double const spread = 0.08 + 0.05 * time;
    double const dx = x - 0.3 - 0.4 * time;
    double const dy = y - 0.5;
    return 20.0 + 80.0 * 0.08 / spread * std::exp(-(dx * dx + dy * dy) / spread);
}

void addTime(vtkDataSet& grid, double time, int strand)
{
    vtkNew<vtkDoubleArray> value;
    value->SetName("TimeValue");
    value->InsertNextValue(time);
    vtkNew<vtkIntArray> number;
    number->SetName("StrandId");
    number->InsertNextValue(strand);
    grid.GetFieldData()->AddArray(value);
    grid.GetFieldData()->AddArray(number);
}

void addValues(vtkPointSet& grid, double time)
{
    auto const values = floats("temperature", 1, grid.GetNumberOfPoints());
    auto const flux = floats("flux", 3, grid.GetNumberOfPoints());
    for (vtkIdType n = 0; n < grid.GetNumberOfPoints(); ++n) {
        double point[3];
        grid.GetPoint(n, point);
        double const step = 1e-3;
        values->SetValue(n, static_cast<float>(temperature(point[0], point[1], time)));
        flux->SetTuple3(n,
                        (temperature(point[0] - step, point[1], time) - temperature(point[0] + step, point[1], time)) /
                            (2.0 * step),
                        (temperature(point[0], point[1] - step, time) - temperature(point[0], point[1] + step, time)) /
                            (2.0 * step),
                        0.0);
    }
    grid.GetPointData()->AddArray(values);
    grid.GetPointData()->AddArray(flux);
}

vtkSmartPointer<vtkDataSet> plate(double time)
{
    vtkNew<vtkStructuredGrid> grid;
    grid->SetDimensions(along, rowsAcross, 1);
    vtkNew<vtkPoints> points;
    for (int j = 0; j < rowsAcross; ++j) {
        for (int i = 0; i < along; ++i)
            points->InsertNextPoint(2.0 * i / (along - 1), 1.0 * j / (rowsAcross - 1), 0.0);
    }
    grid->SetPoints(points);
    addValues(*grid, time);
    addTime(*grid, time, 1);
    return grid;
}

vtkSmartPointer<vtkDataSet> probes(double time)
{
    vtkNew<vtkUnstructuredGrid> grid;
    vtkNew<vtkPoints> points;
    vtkNew<vtkCellArray> cells;
    for (vtkIdType n = 0; n < rowsAcross; ++n) {
        points->InsertNextPoint(1.0, static_cast<double>(n) / (rowsAcross - 1), 0.1);
        vtkIdType const segment[2] = {n - 1, n};
        if (n > 0)
            cells->InsertNextCell(2, segment);
    }
    grid->SetPoints(points);
    grid->SetCells(VTK_LINE, cells);
    addValues(*grid, time);
    addTime(*grid, time, 2);
    return grid;
}

} // namespace

void writeTransient(std::string const& path)
{
    vtkNew<vtkMultiBlockDataSet> blocks;
    unsigned int n = 0;
    auto const add = [&](vtkDataSet* grid, char const* name, double time) {
        char text[40];
        std::snprintf(text, sizeof text, "%s t=%.1f", name, time);
        blocks->SetBlock(n, grid);
        blocks->GetMetaData(n++)->Set(vtkCompositeDataSet::NAME(), text);
    };
    for (int step = 0; step < steps; ++step) {
        add(plate(step * timeStep), "Plate", step * timeStep);
        add(probes(step * timeStep), "Probes", step * timeStep);
    }
    writeBlocks(*blocks, path);
}

} // namespace veldraw::samples
