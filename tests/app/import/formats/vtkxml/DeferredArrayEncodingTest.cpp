#include "app/vtk/VtkErrorCapture.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/GridSamples.h"
#include "tests/app/support/PieceFiles.h"

#include <vtkCellData.h>
#include <vtkCellType.h>
#include <vtkDataSet.h>
#include <vtkDoubleArray.h>
#include <vtkFloatArray.h>
#include <vtkImageData.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPointSet.h>
#include <vtkRectilinearGrid.h>
#include <vtkXMLGenericDataObjectReader.h>

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <random>

namespace veldraw::tests {

namespace {

constexpr unsigned int valueSeed = 20251121;
constexpr int pointCount = 12; // in all grids

// Arrays of every type with random bits; such that are no numbers only where @p anyBits, since a text has none of them.
void addArrays(vtkDataSet& grid, bool anyBits)
{
    std::mt19937 random(valueSeed);
    for (auto const& [attributes, tuples] :
         {std::pair<vtkDataSetAttributes*, vtkIdType>{grid.GetPointData(), grid.GetNumberOfPoints()},
          std::pair<vtkDataSetAttributes*, vtkIdType>{grid.GetCellData(), grid.GetNumberOfCells()}}) {
        for (int const type : {VTK_SIGNED_CHAR, VTK_UNSIGNED_CHAR, VTK_SHORT, VTK_UNSIGNED_SHORT, VTK_INT,
                               VTK_UNSIGNED_INT, VTK_LONG_LONG, VTK_UNSIGNED_LONG_LONG, VTK_FLOAT, VTK_DOUBLE}) {
            for (int const components : {1, 3}) {
                auto const array = vtkSmartPointer<vtkDataArray>::Take(vtkDataArray::CreateDataArray(type));
                array->SetName((std::string(attributes == grid.GetCellData() ? "cell " : "point ") +
                                array->GetDataTypeAsString() + " " + std::to_string(components))
                                   .c_str());
                array->SetNumberOfComponents(components);
                array->SetNumberOfTuples(tuples);
                auto* const bytes = static_cast<unsigned char*>(array->GetVoidPointer(0));
                for (vtkIdType n = 0; n < array->GetNumberOfValues() * array->GetDataTypeSize(); ++n)
                    bytes[n] = static_cast<unsigned char>(random());
                for (vtkIdType n = 0; !anyBits && n < array->GetNumberOfValues(); ++n) {
                    double const value = array->GetVariantValue(n).ToDouble();
                    if (!std::isnormal(value) && value != 0.0)
                        array->SetVariantValue(n, 0.5);
                }
                attributes->AddArray(array);
            }
        }
    }
}

vtkSmartPointer<vtkDataSet> gridOf(std::string const& extension)
{
    if (extension == "vti") {
        auto const grid = vtkSmartPointer<vtkImageData>::New();
        grid->SetExtent(1, 3, 0, 1, -1, 0);
        grid->SetSpacing(0.1, 0.3, 7.0);
        return grid;
    }
    if (extension == "vtr") {
        auto const grid = vtkSmartPointer<vtkRectilinearGrid>::New();
        grid->SetExtent(0, 2, 1, 2, 0, 1);
        vtkNew<vtkDoubleArray> x;
        vtkNew<vtkFloatArray> y;
        for (double const position : {-0.1, 0.7, 1e10})
            x->InsertNextValue(position);
        for (float const position : {0.3F, 2.0F})
            y->InsertNextValue(position);
        grid->SetXCoordinates(x);
        grid->SetYCoordinates(y);
        grid->SetZCoordinates(y);
        return grid;
    }
    if (extension == "vts")
        return structuredGrid(3, 2, 2);
    auto const mesh = unstructuredGrid(
        pointCount, {{VTK_TRIANGLE, {0, 1, 2}}, {VTK_QUAD, {3, 4, 5, 6}}, {VTK_POLYGON, {7, 8, 9, 10, 11}}});
    if (extension == "vtu")
        return mesh;
    auto const surface = vtkSmartPointer<vtkPolyData>::New();
    surface->SetPoints(mesh->GetPoints());
    surface->SetPolys(mesh->GetCells());
    return surface;
}

std::vector<std::string> componentNames(vtkDataArray& array)
{
    std::string const name = array.GetName();
    if (array.GetNumberOfComponents() == 1)
        return {name};
    return {name + "_X", name + "_Y", name + "_Z"};
}

std::uint64_t bitsAt(vtkDataArray& array, vtkIdType value)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, array.GetVoidPointer(value), static_cast<std::size_t>(array.GetDataTypeSize()));
    return bits;
}

bool isKernelType(vtkDataArray& array)
{
    int const type = array.GetDataType();
    return type == VTK_UNSIGNED_CHAR || type == VTK_SHORT || type == VTK_INT || type == VTK_FLOAT || type == VTK_DOUBLE;
}

// The slot of the kernel's buffer that a cell or point of the file has.
std::int64_t slotOf(kernel::Zone const& zone, bool inCells, vtkIdType tuple)
{
    if (!inCells || !zone.isOrdered())
        return tuple;
    std::int64_t const i = std::max<std::int64_t>(zone.i - 1, 1);
    std::int64_t const j = std::max<std::int64_t>(zone.j - 1, 1);
    return tuple % i + zone.i * (tuple / i % j + zone.j * (tuple / (i * j)));
}

void expectSame(kernel::DataSet const& dataSet, vtkDataArray& array, bool inCells)
{
    auto const names = componentNames(array);
    for (std::size_t component = 0; component < names.size(); ++component) {
        ASSERT_EQ(loadingProblem(dataSet, 1, names[component]), "") << names[component];
        auto const& values = *fieldOf(dataSet, 1, names[component]).group()->buffer();
        for (vtkIdType tuple = 0; tuple < array.GetNumberOfTuples(); ++tuple) {
            vtkIdType const value = tuple * static_cast<vtkIdType>(names.size()) + static_cast<vtkIdType>(component);
            std::int64_t const slot = slotOf(*dataSet.zone(1), inCells, tuple);
            if (isKernelType(array))
                ASSERT_EQ(values.bits(slot), bitsAt(array, value)) << names[component] << " " << tuple;
            else
                ASSERT_EQ(values.value(slot), array.GetComponent(tuple, static_cast<int>(component)))
                    << names[component] << " " << tuple;
        }
    }
}

void expectSameAsVtkReads(std::string const& path)
{
    app::VtkErrorCapture const quiet; // VTK complains of lengths of vectors that are infinite
    vtkNew<vtkXMLGenericDataObjectReader> reader;
    reader->SetFileName(path.c_str());
    reader->Update();
    auto* const grid = vtkDataSet::SafeDownCast(reader->GetOutput());
    ASSERT_NE(grid, nullptr);
    auto const dataSet = import(path, app::Deferral::Always).dataSet;
    for (int n = 0; n < grid->GetPointData()->GetNumberOfArrays(); ++n)
        expectSame(*dataSet, *grid->GetPointData()->GetArray(n), false);
    for (int n = 0; n < grid->GetCellData()->GetNumberOfArrays(); ++n)
        expectSame(*dataSet, *grid->GetCellData()->GetArray(n), true);
    EXPECT_EQ(dataSet->variableCount(), 3 + 2 * 4 * 10);
    int axis = 0;
    for (char const* name : {"X", "Y", "Z"}) {
        if (!fieldOf(*dataSet, 1, name).isLoaded()) {
            EXPECT_EQ(loadingProblem(*dataSet, 1, name), "");
        }
        for (vtkIdType point = 0; point < grid->GetNumberOfPoints(); ++point)
            EXPECT_EQ(fieldOf(*dataSet, 1, name).group()->buffer()->value(point), grid->GetPoint(point)[axis]);
        ++axis;
    }
}

class EncodingTest : public ::testing::TestWithParam<std::string>
{
};

} // namespace

TEST_P(EncodingTest, IsReadBitByBitAsVtkReadsItWhenValuesAreLoadedLater)
{
    TemporaryFolder const folder;
    for (Encoding const& encoding : allEncodings()) {
        SCOPED_TRACE(encoding.text());
        auto const grid = gridOf(GetParam());
        addArrays(*grid, encoding.data != Encoding::Data::Ascii);
        expectSameAsVtkReads(writeXml(*grid, folder.path("a." + GetParam()), encoding));
        if (HasFatalFailure())
            return;
    }
}

INSTANTIATE_TEST_SUITE_P(AllGrids, EncodingTest, ::testing::Values("vti", "vtr", "vts", "vtu", "vtp"),
                         [](auto const& instance) { return instance.param; });

} // namespace veldraw::tests
