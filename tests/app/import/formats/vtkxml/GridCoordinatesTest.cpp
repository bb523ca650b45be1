#include "app/import/xml/XmlArrayList.h"
#include "tests/app/support/ChildProcesses.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/GridSamples.h"

#include <vtkCellArray.h>
#include <vtkCellType.h>
#include <vtkDoubleArray.h>
#include <vtkFloatArray.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkRectilinearGrid.h>

#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using ::testing::HasSubstr;

namespace {

// Points that take 18 MB: enough to be left in the file.
constexpr int manyPoints = 1500000;

vtkSmartPointer<vtkPoints> scatteredPoints()
{
    auto const result = vtkSmartPointer<vtkPoints>::New();
    result->SetNumberOfPoints(manyPoints);
    for (int n = 0; n < manyPoints; ++n)
        result->SetPoint(n, n, 0.5 * n, n % 1000);
    return result;
}

void addRamp(vtkDataSet& grid)
{
    vtkNew<vtkFloatArray> ramp;
    ramp->SetName("p");
    for (int n = 0; n < manyPoints; ++n)
        ramp->InsertNextValue(static_cast<float>(n));
    grid.GetPointData()->AddArray(ramp);
    addCellValues(grid, "c", std::vector<double>(static_cast<std::size_t>(grid.GetNumberOfCells()), 3.0));
}

vtkSmartPointer<vtkDataSet> gridWithPoints(std::string const& extension)
{
    vtkSmartPointer<vtkPointSet> grid;
    vtkNew<vtkCellArray> triangles;
    for (vtkIdType const first : {0, 1000000})
        triangles->InsertNextCell({first, first + 1, first + 2});
    if (extension == "vts") {
        auto const structured = vtkSmartPointer<vtkStructuredGrid>::New();
        structured->SetDimensions(1000, 1500, 1);
        grid = structured;
    } else if (extension == "vtu") {
        auto const mesh = vtkSmartPointer<vtkUnstructuredGrid>::New();
        mesh->SetCells(VTK_TRIANGLE, triangles);
        grid = mesh;
    } else {
        auto const surface = vtkSmartPointer<vtkPolyData>::New();
        surface->SetPolys(triangles);
        grid = surface;
    }
    grid->SetPoints(scatteredPoints());
    addRamp(*grid);
    return grid;
}

void expectSameBits(kernel::DataSet const& a, kernel::DataSet const& b, std::string const& variable)
{
    auto const& one = *fieldOf(a, 1, variable).group()->buffer();
    auto const& other = *fieldOf(b, 1, variable).group()->buffer();
    ASSERT_EQ(one.type(), other.type());
    ASSERT_EQ(one.size(), other.size());
    std::int64_t n = 0;
    while (n < one.size() && one.bits(n) == other.bits(n))
        ++n;
    EXPECT_EQ(n, one.size()) << variable << " differs there";
}

double bytesReadBy(std::string const& process)
{
    std::ifstream file("/proc/" + process + "/io");
    std::string name;
    double bytes = 0.0;
    while (file >> name >> bytes && name != "rchar:") {
    }
    return bytes;
}

// Bytes that this process and those that it has started have read so far; the system adds those of a process to its parent's when it has ended.
double bytesRead()
{
    double bytes = bytesReadBy("self");
    for (ChildProcess const& process : childProcesses())
        bytes += bytesReadBy(std::to_string(process.number));
    return bytes;
}

class DeferredPointsTest : public ::testing::TestWithParam<std::string>
{
};

} // namespace

TEST_P(DeferredPointsTest, AreLeftInTheFileWhenTheyAreManyAndComeLater)
{
    TemporaryFolder const folder;
    auto const grid = gridWithPoints(GetParam());
    for (Mode const mode : {Mode::Raw, Mode::RawCompressed, Mode::Base64}) {
        SCOPED_TRACE(static_cast<int>(mode));
        std::string const path = writeXml(*grid, folder.path("a." + GetParam()), mode);
        auto const later = import(path, app::Deferral::Always).dataSet;
        auto const now = import(path, app::Deferral::Never).dataSet;
        EXPECT_EQ(variableNames(*later), "X,Y,Z,p,c");
        EXPECT_EQ(later->zone(1)->type, now->zone(1)->type);
        EXPECT_EQ(later->zone(1)->pointCount(), manyPoints);
        EXPECT_EQ(later->zone(1)->cellCount(), now->zone(1)->cellCount());
        if (later->zone(1)->connectivity) {
            EXPECT_EQ(cellsOf(*later->zone(1)), "0 1 2 | 1000000 1000001 1000002");
        }
        for (char const* name : {"Z", "X", "Y", "p", "c"}) {
            EXPECT_FALSE(fieldOf(*later, 1, name).isLoaded()) << name;
            EXPECT_EQ(loadingProblem(*later, 1, name), "");
            expectSameBits(*later, *now, name);
        }
    }
}

TEST_P(DeferredPointsTest, AreToldWhenTheirFileHasGoneAndComeWhenItIsBack)
{
    TemporaryFolder const folder;
    for (Mode const mode : {Mode::Raw, Mode::RawCompressed}) {
        std::string const path = writeXml(*gridWithPoints(GetParam()), folder.path("a." + GetParam()), mode);
        auto const dataSet = import(path, app::Deferral::Always).dataSet;
        std::filesystem::rename(path, folder.path("b"));
        EXPECT_THAT(loadingProblem(*dataSet, 1, "X"), HasSubstr("cannot be read any more: there is no such file"));
        EXPECT_FALSE(fieldOf(*dataSet, 1, "X").isLoaded());
        std::filesystem::rename(folder.path("b"), path);
        EXPECT_EQ(loadingProblem(*dataSet, 1, "X"), "");
    }
}

TEST_P(DeferredPointsTest, AreReadAtOnceWhereThereIsMemory)
{
    TemporaryFolder const folder;
    auto const dataSet = import(writeXml(*gridWithPoints(GetParam()), folder.path("a." + GetParam()))).dataSet;
    for (char const* name : {"X", "Y", "Z", "p", "c"})
        EXPECT_TRUE(fieldOf(*dataSet, 1, name).isLoaded()) << name;
}

TEST_P(DeferredPointsTest, AreNotReadForTheSakeOfAnythingElse)
{
    TemporaryFolder const folder;
    auto const grid = gridWithPoints(GetParam());
    addFact(*grid, "TimeValue", 2.0);
    for (Mode const mode : {Mode::Raw, Mode::RawCompressed}) {
        std::string const path = writeXml(*grid, folder.path("a." + GetParam()), mode);
        double const atFirst = bytesRead();
        auto const dataSet = import(path, app::Deferral::Always).dataSet;
        EXPECT_EQ(dataSet->zone(1)->solutionTime, 2.0);
        EXPECT_LT(bytesRead() - atFirst, 2e6) << "opening";
        double const before = bytesRead();
        EXPECT_EQ(loadingProblem(*dataSet, 1, "p"), "");
        double const size = static_cast<double>(std::filesystem::file_size(path));
        EXPECT_LT(bytesRead() - before, mode == Mode::Raw ? 4.1 * manyPoints : size / 2.0) << "one of four arrays";
    }
}

INSTANTIATE_TEST_SUITE_P(AllGrids, DeferredPointsTest, ::testing::Values("vts", "vtu", "vtp"),
                         [](auto const& instance) { return instance.param; });

TEST(DeferredPoints, AreReadAtOnceWhenTheyAreFew)
{
    TemporaryFolder const folder;
    auto const dataSet =
        import(writeXml(*structuredGrid(3, 2, 2), folder.path("a.vts")), app::Deferral::Always).dataSet;
    EXPECT_EQ(valuesOf(*dataSet, 1, "X"), "0 1 2 0 1 2 0 1 2 0 1 2");
}

TEST(DeferredPoints, OfRectilinearGridsAreComputedLater)
{
    TemporaryFolder const folder;
    vtkNew<vtkRectilinearGrid> grid;
    grid->SetDimensions(2, 3, 1);
    vtkNew<vtkFloatArray> x;
    vtkNew<vtkDoubleArray> y;
    vtkNew<vtkDoubleArray> z;
    for (float const position : {0.5F, 4.0F})
        x->InsertNextValue(position);
    for (double const position : {3.0, -7.0, 0.1})
        y->InsertNextValue(position);
    z->InsertNextValue(9.0);
    grid->SetXCoordinates(x);
    grid->SetYCoordinates(y);
    grid->SetZCoordinates(z);
    std::string const path = writeXml(*grid, folder.path("a.vtr"));
    auto const later = import(path, app::Deferral::Always).dataSet;
    EXPECT_EQ(valuesOf(*later, 1, "Y"), "not loaded");
    auto const range = later->zone(1)->range(2);
    EXPECT_EQ(range.state, kernel::ValueRange::State::Exact);
    EXPECT_EQ(range.min, -7.0);
    EXPECT_EQ(range.max, 3.0);
    auto const now = import(path).dataSet;
    EXPECT_EQ(valuesOf(*now, 1, "X"), "0.5 4 0.5 4 0.5 4");
    EXPECT_EQ(valuesOf(*now, 1, "Y"), "3 3 -7 -7 0.1 0.1");
    EXPECT_EQ(valuesOf(*now, 1, "Z"), "9 9 9 9 9 9");
    EXPECT_EQ(fieldOf(*now, 1, "X").type(), FieldDataType_Float);
    for (char const* name : {"X", "Y", "Z"}) {
        EXPECT_EQ(loadingProblem(*later, 1, name), "");
        expectSameBits(*later, *now, name);
    }
}

TEST(DeferredPoints, OfScatteredPointsNeedNoCells)
{
    TemporaryFolder const folder;
    vtkNew<vtkPolyData> cloud;
    cloud->SetPoints(scatteredPoints());
    auto const dataSet = import(writeXml(*cloud, folder.path("a.vtp")), app::Deferral::Always).dataSet;
    EXPECT_TRUE(dataSet->zone(1)->isOrdered());
    EXPECT_EQ(dataSet->zone(1)->i, manyPoints);
    EXPECT_EQ(loadingProblem(*dataSet, 1, "Y"), "");
    EXPECT_EQ(fieldOf(*dataSet, 1, "Y").group()->buffer()->value(5), 2.5);
}

TEST(XmlArrayList, TakesNoPieceForTheWholeThatIsSmaller)
{
    TemporaryFolder const folder;
    std::string const path = folder.write(
        "a.vti", "<VTKFile type=\"ImageData\" version=\"1.0\" byte_order=\"LittleEndian\" header_type=\"UInt32\">\n"
                 "<ImageData WholeExtent=\"0 3 0 0 0 0\"><Piece Extent=\"0 1 0 0 0 0\"><PointData>\n"
                 "<DataArray type=\"UInt8\" Name=\"p\" format=\"appended\" offset=\"0\"/></PointData></Piece>\n"
                 "</ImageData><AppendedData encoding=\"raw\">_" +
                     std::string("\4\0\0\0abcd", 8) + "</AppendedData></VTKFile>");
    app::XmlArrayList const list(path, kernel::Progress());
    ASSERT_EQ(list.ofPoints().size(), 1U);
    EXPECT_EQ(list.ofPoints()[0].values, 4);
    EXPECT_FALSE(list.ofPoints()[0].offset);
}

TEST(XmlArrayList, DoesNotMixUpSectionsThatAreEmpty)
{
    TemporaryFolder const folder;
    std::string const path = folder.write(
        "a.vtu", "<VTKFile type=\"UnstructuredGrid\"><UnstructuredGrid>"
                 "<Piece NumberOfPoints=\"2\" NumberOfCells=\"1\"><PointData/><CellData/>"
                 "<Cells><DataArray type=\"Int32\" Name=\"connectivity\" format=\"ascii\">0 1</DataArray></Cells>"
                 "<Points><DataArray type=\"Float32\" NumberOfComponents=\"3\" format=\"ascii\">0 0 0 1 0 0"
                 "<InformationKey name=\"k\"><Value index=\"0\">1</Value></InformationKey></DataArray></Points>"
                 "</Piece></UnstructuredGrid></VTKFile>");
    app::XmlArrayList const list(path, kernel::Progress());
    EXPECT_TRUE(list.ofPoints().empty());
    EXPECT_TRUE(list.ofCells().empty());
    ASSERT_EQ(list.coordinates().size(), 1U);
    EXPECT_EQ(list.coordinates()[0].values, 6);
}

} // namespace veldraw::tests
