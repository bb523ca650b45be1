#include "tools/samples/MeshSamples.h"

#include "tools/samples/SampleFiles.h"

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkCellType.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkUnstructuredGrid.h>

#include <cmath>

namespace veldraw::samples {

namespace {

constexpr int barLength = 24;
constexpr int barWidth = 6;

vtkIdType barPoint(int i, int j, int k)
{
    return (static_cast<vtkIdType>(k) * (barWidth + 1) + j) * (barLength + 1) + i;
}

// Six tetrahedra round the diagonal of a box, so that neighbouring boxes meet in the same triangles.
void addBox(vtkCellArray& cells, int i, int j, int k)
{
    static int const paths[6][2] = {{1, 2}, {1, 4}, {2, 1}, {2, 4}, {4, 1}, {4, 2}};
    auto const corner = [=](int bits) {
        return barPoint(i + (bits & 1), j + ((bits >> 1) & 1), k + ((bits >> 2) & 1));
    };
    for (auto const& path : paths) {
        // Paths with an odd permutation of the axes would turn the tetrahedron inside out.
        bool const even =
            (path[0] == 1 && path[1] == 2) || (path[0] == 2 && path[1] == 4) || (path[0] == 4 && path[1] == 1);
        vtkIdType const first = corner(path[0]);
        vtkIdType const second = corner(path[0] | path[1]);
        vtkIdType const tetrahedron[4] = {corner(0), even ? first : second, even ? second : first, corner(7)};
        cells.InsertNextCell(4, tetrahedron);
    }
}

} // namespace

void writeTetrahedra(std::string const& path)
{
    vtkNew<vtkUnstructuredGrid> grid;
    vtkNew<vtkPoints> points;
    vtkIdType const count = barPoint(0, 0, barWidth + 1);
    auto const displacement = floats("displacement", 3, count);
    auto const temperature = floats("temperature", 1, count);
    for (vtkIdType n = 0; n < count; ++n) {
        double const x = static_cast<double>(n % (barLength + 1)) / barWidth;
        double const y = static_cast<double>(n / (barLength + 1) % (barWidth + 1)) / barWidth - 0.5;
        double const z = static_cast<double>(n / (barLength + 1) / (barWidth + 1)) / barWidth - 0.5;
        double const bend = 0.03 * x * x;
        points->InsertNextPoint(x - 0.06 * x * z, y, z + bend);
        displacement->SetTuple3(n, -0.06 * x * z, 0.0, bend);
        temperature->SetValue(n, static_cast<float>(300.0 + 40.0 * std::exp(-x) + 5.0 * y));
    }
    vtkNew<vtkCellArray> cells;
    for (int k = 0; k < barWidth; ++k) {
        for (int j = 0; j < barWidth; ++j) {
            for (int i = 0; i < barLength; ++i)
                addBox(*cells, i, j, k);
        }
    }
    auto const stress = floats("stress", 1, cells->GetNumberOfCells());
    for (vtkIdType cell = 0; cell < stress->GetNumberOfTuples(); ++cell) {
        double const along = static_cast<double>(cell / 6 % barLength) / barLength;
        double const height = static_cast<double>(cell / 6 / barLength / barWidth) + 0.5;
        stress->SetValue(cell, static_cast<float>(120.0 * (1.0 - along) * (height / barWidth - 0.5)));
    }
    grid->SetPoints(points);
    grid->SetCells(VTK_TETRA, cells);
    grid->GetPointData()->AddArray(displacement);
    grid->GetPointData()->AddArray(temperature);
    grid->GetCellData()->AddArray(stress);
    writeGrid(*grid, path);
}

void writeTriangles(std::string const& path)
{
    constexpr int rings = 16;
    constexpr int spokes = 48;
    vtkNew<vtkUnstructuredGrid> grid;
    vtkNew<vtkPoints> points;
    auto const deflection = floats("deflection", 1, 1 + rings * spokes);
    for (vtkIdType n = 0; n < deflection->GetNumberOfTuples(); ++n) {
        double const radius = n == 0 ? 0.0 : (1.0 + static_cast<double>((n - 1) / spokes)) / rings;
        double const angle = 2.0 * 3.14159265358979323846 * static_cast<double>((n + spokes - 1) % spokes) / spokes;
        double const height = 0.2 * (1.0 - radius * radius) * std::cos(2.0 * angle) * radius;
        points->InsertNextPoint(radius * std::cos(angle), radius * std::sin(angle), height);
        deflection->SetValue(n, static_cast<float>(height));
    }
    vtkNew<vtkCellArray> cells;
    for (vtkIdType spoke = 0; spoke < spokes; ++spoke) {
        vtkIdType const next = (spoke + 1) % spokes;
        vtkIdType const inner[3] = {0, 1 + spoke, 1 + next};
        cells->InsertNextCell(3, inner);
        for (vtkIdType ring = 0; ring + 1 < rings; ++ring) {
            vtkIdType const a = 1 + ring * spokes;
            vtkIdType const b = a + spokes;
            vtkIdType const lower[3] = {a + spoke, b + spoke, b + next};
            vtkIdType const upper[3] = {a + spoke, b + next, a + next};
            cells->InsertNextCell(3, lower);
            cells->InsertNextCell(3, upper);
        }
    }
    auto const thickness = floats("thickness", 1, cells->GetNumberOfCells());
    for (vtkIdType cell = 0; cell < thickness->GetNumberOfTuples(); ++cell)
        thickness->SetValue(cell, 0.01F + 0.0005F * static_cast<float>(cell % (2 * rings - 1)));
    grid->SetPoints(points);
    grid->SetCells(VTK_TRIANGLE, cells);
    grid->GetPointData()->AddArray(deflection);
    grid->GetCellData()->AddArray(thickness);
    writeGrid(*grid, path);
}

} // namespace veldraw::samples
