#include "tests/app/support/GridSamples.h"

#include <vtkCellData.h>
#include <vtkCellType.h>
#include <vtkDataSetWriter.h>
#include <vtkDoubleArray.h>
#include <vtkFieldData.h>
#include <vtkIdList.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkXMLDataSetWriter.h>

namespace veldraw::tests {

namespace {

vtkSmartPointer<vtkDoubleArray> doubles(std::string const& name, std::vector<double> const& values, int components)
{
    auto array = vtkSmartPointer<vtkDoubleArray>::New();
    array->SetName(name.c_str());
    array->SetNumberOfComponents(components);
    for (double value : values)
        array->InsertNextValue(value);
    return array;
}

} // namespace

void addPointValues(vtkDataSet& grid, std::string const& name, std::vector<double> const& values, int components)
{
    grid.GetPointData()->AddArray(doubles(name, values, components));
}

void addCellValues(vtkDataSet& grid, std::string const& name, std::vector<double> const& values, int components)
{
    grid.GetCellData()->AddArray(doubles(name, values, components));
}

void addFact(vtkDataSet& grid, std::string const& name, double value)
{
    grid.GetFieldData()->AddArray(doubles(name, {value}, 1));
}

vtkSmartPointer<vtkStructuredGrid> structuredGrid(int i, int j, int k)
{
    auto grid = vtkSmartPointer<vtkStructuredGrid>::New();
    vtkNew<vtkPoints> points;
    for (int n = 0; n < i * j * k; ++n)
        points->InsertNextPoint(n % i, 10.0 * (n / i % j), 100.0 * (n / i / j));
    grid->SetDimensions(i, j, k);
    grid->SetPoints(points);
    return grid;
}

vtkSmartPointer<vtkUnstructuredGrid> unstructuredGrid(int points,
                                                      std::vector<std::pair<int, std::vector<vtkIdType>>> const& cells)
{
    auto grid = vtkSmartPointer<vtkUnstructuredGrid>::New();
    vtkNew<vtkPoints> coordinates;
    for (int n = 0; n < points; ++n)
        coordinates->InsertNextPoint(n, static_cast<double>(n) * n, 0.5 * n);
    grid->SetPoints(coordinates);
    for (auto const& [type, corners] : cells)
        grid->InsertNextCell(type, static_cast<vtkIdType>(corners.size()), corners.data());
    return grid;
}

vtkSmartPointer<vtkUnstructuredGrid> polyhedra()
{
    auto grid = unstructuredGrid(5, {});
    auto const add = [&grid](vtkIdType a, vtkIdType b, vtkIdType c, vtkIdType d) {
        vtkNew<vtkIdList> faces;
        for (vtkIdType value :
             {vtkIdType(4), vtkIdType(3), a, b, c, vtkIdType(3), a, b, d, vtkIdType(3), b, c, d, vtkIdType(3), c, a, d})
            faces->InsertNextId(value);
        grid->InsertNextCell(VTK_POLYHEDRON, faces);
    };
    add(0, 1, 2, 3);
    add(1, 2, 3, 4);
    return grid;
}

std::string writeXml(vtkDataSet& grid, std::string const& path, Mode mode)
{
    vtkNew<vtkXMLDataSetWriter> writer;
    writer->SetFileName(path.c_str());
    writer->SetInputDataObject(&grid);
    if (mode == Mode::Ascii)
        writer->SetDataModeToAscii();
    else if (mode == Mode::Base64 || mode == Mode::Base64Compressed)
        writer->SetDataModeToBinary();
    else
        writer->SetDataModeToAppended();
    writer->EncodeAppendedDataOff();
    if (mode == Mode::RawCompressed || mode == Mode::Base64Compressed)
        writer->SetCompressorTypeToZLib();
    else
        writer->SetCompressorTypeToNone();
    writer->Write();
    return path;
}

std::string writeLegacy(vtkDataSet& grid, std::string const& path, bool binary)
{
    vtkNew<vtkDataSetWriter> writer;
    writer->SetFileName(path.c_str());
    writer->SetInputDataObject(&grid);
    if (binary)
        writer->SetFileTypeToBinary();
    else
        writer->SetFileTypeToASCII();
    writer->Write();
    return path;
}

} // namespace veldraw::tests
