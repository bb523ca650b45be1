#include "app/export/Exporter.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/MirrorZones.h"
#include "kernel/session/Session.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/GridComparison.h"
#include "tests/app/support/GridSamples.h"

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkCellType.h>
#include <vtkImageData.h>
#include <vtkIntArray.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>
#include <vtkUnsignedCharArray.h>

#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

constexpr app::Deferral allDeferrals[] = {app::Deferral::Never, app::Deferral::Auto, app::Deferral::Always};

/// Marks with each bit in turn, none at most places.
vtkSmartPointer<vtkUnsignedCharArray> marks(vtkIdType count, char const* name = "vtkGhostType")
{
    auto array = vtkSmartPointer<vtkUnsignedCharArray>::New();
    array->SetName(name);
    for (vtkIdType n = 0; n < count; ++n)
        array->InsertNextValue(static_cast<unsigned char>(n % 7 == 3 ? 1 << (n / 7 % 6) : 0));
    return array;
}

/// With values of -1e30 wherever something is marked in any way, and marks between other arrays.
void addMarkedValues(vtkDataSet& grid)
{
    for (auto* const attributes : {static_cast<vtkDataSetAttributes*>(grid.GetPointData()),
                                   static_cast<vtkDataSetAttributes*>(grid.GetCellData())}) {
        bool const atPoints = attributes == grid.GetPointData();
        auto const ofAll = marks(atPoints ? grid.GetNumberOfPoints() : grid.GetNumberOfCells());
        std::vector<double> values;
        for (vtkIdType n = 0; n < ofAll->GetNumberOfValues(); ++n)
            values.push_back(ofAll->GetValue(n) != 0 ? -1e30 : static_cast<double>(n));
        (atPoints ? addPointValues : addCellValues)(grid, "before", values, 1);
        attributes->AddArray(ofAll);
        (atPoints ? addPointValues : addCellValues)(grid, "after", values, 1);
    }
}

vtkSmartPointer<vtkDataSet> gridWithParts(std::string const& extension)
{
    vtkSmartPointer<vtkDataSet> grid = structuredGrid(15, 12, 9);
    if (extension == "vti") {
        auto const image = vtkSmartPointer<vtkImageData>::New();
        image->SetDimensions(15, 12, 9);
        grid = image;
    }
    std::vector<std::pair<int, std::vector<vtkIdType>>> cells;
    for (vtkIdType n = 0; n + 3 < 2000; ++n)
        cells.push_back({VTK_TETRA, {n, n + 1, n + 2, n + 3}});
    if (extension == "vtu")
        grid = unstructuredGrid(2000, cells);
    if (extension == "vtp") {
        auto const surface = vtkSmartPointer<vtkPolyData>::New();
        surface->SetPoints(unstructuredGrid(2000, {})->GetPoints());
        vtkNew<vtkCellArray> polygons;
        for (vtkIdType n = 0; n + 2 < 2000; ++n)
            polygons->InsertNextCell({n, n + 1, n + 2});
        surface->SetPolys(polygons);
        grid = surface;
    }
    addMarkedValues(*grid);
    return grid;
}

std::string marksOf(std::shared_ptr<kernel::Buffer const> const& marks)
{
    std::string text;
    for (std::int64_t n = 0; marks && n < marks->size(); ++n)
        text += static_cast<char>('0' + marks->bits(n));
    return text;
}

std::string marksOf(vtkUnsignedCharArray& array)
{
    std::string text;
    for (vtkIdType n = 0; n < array.GetNumberOfValues(); ++n)
        text += static_cast<char>('0' + array.GetValue(n));
    return text;
}

std::string hiddenOf(kernel::Zone const& zone, ValueLocation_e location)
{
    std::string text;
    for (std::int64_t slot = 0; slot < zone.valueCount(location); ++slot)
        text += zone.isHidden(location, slot) ? " " + std::to_string(slot) : "";
    return text.empty() ? text : text.substr(1);
}

} // namespace

TEST(HiddenParts, AreTheBlankingOfTheZoneInEveryKindOfFileAndNoVariable)
{
    TemporaryFolder const folder;
    for (std::string const extension : {"vtu", "vts", "vti", "vtp"}) {
        auto const grid = gridWithParts(extension);
        for (Mode const mode : allModes) {
            for (app::Deferral const deferral : allDeferrals) {
                SCOPED_TRACE(extension + " mode " + std::to_string(static_cast<int>(mode)) + " deferral " +
                             std::to_string(static_cast<int>(deferral)));
                auto const data = import(writeXml(*grid, folder.path("in." + extension), mode), deferral).dataSet;
                EXPECT_EQ(variableNames(*data), "X,Y,Z,before,after,before (2),after (2)");
                kernel::Zone const& zone = *data->zone(1);
                ASSERT_NE(zone.blanking, nullptr);
                EXPECT_EQ(marksOf(zone.blanking->marks().ofPoints), marksOf(*marks(grid->GetNumberOfPoints())));
                EXPECT_EQ(marksOf(zone.blanking->marks().ofCells), marksOf(*marks(grid->GetNumberOfCells())));
                EXPECT_TRUE(zone.isHidden(ValueLocation_Nodal, 10));
                EXPECT_FALSE(zone.isHidden(ValueLocation_Nodal, 3)) << "is a duplicate, but of this zone too";
                loadAll(*data);
                app::exportDataSet(*data, QString::fromStdString(folder.path("out." + extension)));
                expectSameArrays(*grid, *readByVtk(folder.path("out." + extension)));
            }
        }
    }
}

TEST(HiddenParts, AreLeftOutOfRanges)
{
    TemporaryFolder const folder;
    auto const grid = structuredGrid(15, 12, 9);
    vtkNew<vtkUnsignedCharArray> hidden;
    hidden->SetName("vtkGhostType");
    std::vector<double> values;
    for (vtkIdType n = 0; n < grid->GetNumberOfCells(); ++n) {
        hidden->InsertNextValue(n % 13 == 5 ? 32 : 0);
        values.push_back(n % 13 == 5 ? -1e30 : static_cast<double>(n));
    }
    grid->GetCellData()->AddArray(hidden);
    addCellValues(*grid, "c", values);
    for (app::Deferral const deferral : allDeferrals) {
        auto const data = import(writeXml(*grid, folder.path("a.vts")), deferral).dataSet;
        loadAll(*data);
        kernel::ValueRange const range = data->zone(1)->range(data->findVariable("c"));
        EXPECT_EQ(range.min, 0);
        EXPECT_EQ(range.max, static_cast<double>(grid->GetNumberOfCells() - 1));
        EXPECT_EQ(range.state, kernel::ValueRange::State::Exact);
    }
}

TEST(HiddenParts, OfALegacyFileAndOfAnOlderNameAreTheSame)
{
    TemporaryFolder const folder;
    auto const grid = gridWithParts("vtu");
    auto const legacy = import(writeLegacy(*grid, folder.path("a.vtk"), true)).dataSet;
    ASSERT_NE(legacy->zone(1)->blanking, nullptr);
    EXPECT_EQ(marksOf(legacy->zone(1)->blanking->marks().ofCells), marksOf(*marks(grid->GetNumberOfCells())));

    auto const older = unstructuredGrid(5, {{VTK_TETRA, {0, 1, 2, 3}}, {VTK_TETRA, {1, 2, 3, 4}}});
    vtkNew<vtkUnsignedCharArray> levels;
    levels->SetName("vtkGhostLevels");
    levels->InsertNextValue(0);
    levels->InsertNextValue(1);
    older->GetCellData()->AddArray(levels);
    for (app::Deferral const deferral : allDeferrals) {
        auto const data = import(writeXml(*older, folder.path("b.vtu")), deferral).dataSet;
        EXPECT_EQ(variableNames(*data), "X,Y,Z");
        EXPECT_EQ(hiddenOf(*data->zone(1), ValueLocation_CellCentered), "1");
    }
}

TEST(HiddenParts, ThatOnlyLookLikeItAreAVariable)
{
    TemporaryFolder const folder;
    auto const grid = unstructuredGrid(4, {{VTK_TETRA, {0, 1, 2, 3}}});
    vtkNew<vtkIntArray> numbers;
    numbers->SetName("vtkGhostType");
    for (int n = 0; n < 4; ++n)
        numbers->InsertNextValue(2);
    grid->GetPointData()->AddArray(numbers);
    auto const data = import(writeXml(*grid, folder.path("a.vtu"))).dataSet;
    EXPECT_EQ(variableNames(*data), "X,Y,Z,vtkGhostType");
    EXPECT_EQ(data->zone(1)->blanking, nullptr);
    app::exportDataSet(*data, QString::fromStdString(folder.path("b.vtu")));
    expectSameArrays(*grid, *readByVtk(folder.path("b.vtu")));
}

TEST(HiddenParts, AreNotMistakenForAVariableThatWasCalledLikeThem)
{
    TemporaryFolder const folder;
    auto const grid = unstructuredGrid(4, {{VTK_TETRA, {0, 1, 2, 3}}});
    vtkNew<vtkUnsignedCharArray> bytes;
    bytes->SetName("level");
    for (int n = 0; n < 4; ++n)
        bytes->InsertNextValue(2);
    grid->GetPointData()->AddArray(bytes);
    auto const data = import(writeXml(*grid, folder.path("a.vtu"))).dataSet;
    data->variable(4)->name = "vtkGhostType";
    app::exportDataSet(*data, QString::fromStdString(folder.path("b.vtu")));
    auto const again = import(folder.path("b.vtu")).dataSet;
    EXPECT_EQ(variableNames(*again), "X,Y,Z,vtkGhostType");
    EXPECT_EQ(valuesOf(*again, 1, "vtkGhostType"), "2 2 2 2");
}

TEST(HiddenParts, FollowCellsThatAreLeftOutOrTakenApart)
{
    TemporaryFolder const folder;
    auto const surface = vtkSmartPointer<vtkPolyData>::New();
    surface->SetPoints(unstructuredGrid(8, {})->GetPoints());
    vtkNew<vtkCellArray> vertices;
    vertices->InsertNextCell({7});
    vtkNew<vtkCellArray> polygons;
    polygons->InsertNextCell({0, 1, 2});
    vtkNew<vtkCellArray> strips;
    strips->InsertNextCell({2, 3, 4, 5, 6});
    surface->SetVerts(vertices);
    surface->SetPolys(polygons);
    surface->SetStrips(strips);
    vtkNew<vtkUnsignedCharArray> hidden;
    hidden->SetName("vtkGhostType");
    for (int const mark : {0, 0, 32})
        hidden->InsertNextValue(static_cast<unsigned char>(mark));
    surface->GetCellData()->AddArray(hidden);
    auto const data = import(writeXml(*surface, folder.path("a.vtp"))).dataSet;
    EXPECT_EQ(cellsOf(*data->zone(1)), "0 1 2 | 2 3 4 | 3 5 4 | 4 5 6");
    EXPECT_EQ(hiddenOf(*data->zone(1), ValueLocation_CellCentered), "1 2 3");
    EXPECT_EQ(hiddenOf(*data->zone(1), ValueLocation_Nodal), "3 4 5 6");
}

TEST(HiddenParts, OfScatteredPointsAreThePointsOfHiddenVertices)
{
    TemporaryFolder const folder;
    auto const cloud = vtkSmartPointer<vtkPolyData>::New();
    cloud->SetPoints(unstructuredGrid(5, {})->GetPoints());
    vtkNew<vtkCellArray> vertices;
    vtkNew<vtkUnsignedCharArray> ofPoints;
    vtkNew<vtkUnsignedCharArray> ofCells;
    ofPoints->SetName("vtkGhostType");
    ofCells->SetName("vtkGhostType");
    for (vtkIdType n = 0; n < 5; ++n) {
        vertices->InsertNextCell({n});
        ofPoints->InsertNextValue(n == 0 ? 2 : 0);
        ofCells->InsertNextValue(n == 2 ? 32 : 0);
    }
    cloud->SetVerts(vertices);
    cloud->GetPointData()->AddArray(ofPoints);
    cloud->GetCellData()->AddArray(ofCells);
    addPointValues(*cloud, "p", {-9, 1, -9, 2, 3});
    auto const data = import(writeXml(*cloud, folder.path("a.vtp"))).dataSet;
    EXPECT_EQ(hiddenOf(*data->zone(1), ValueLocation_Nodal), "0 2");
    EXPECT_EQ(data->zone(1)->range(data->findVariable("p")).min, 1);
    app::exportDataSet(*data, QString::fromStdString(folder.path("b.vtp")));
    auto const again = import(folder.path("b.vtp")).dataSet;
    EXPECT_EQ(hiddenOf(*again->zone(1), ValueLocation_Nodal), "0 2");
}

TEST(HiddenParts, OfCellsThatAreLeftInTheFileComeWithThem)
{
    TemporaryFolder const folder;
    auto const grid = unstructuredGrid(1000, {});
    vtkNew<vtkCellArray> cells;
    vtkNew<vtkUnsignedCharArray> types;
    for (vtkIdType n = 0; n < 500000; ++n) {
        cells->InsertNextCell({n % 990, n % 990 + 1, n % 990 + 2, n % 990 + 3});
        types->InsertNextValue(VTK_TETRA);
    }
    grid->SetCells(types, cells);
    addMarkedValues(*grid);
    std::string const path = writeXml(*grid, folder.path("a.vtu"));
    auto const now = import(path, app::Deferral::Never).dataSet;
    auto const later = import(path, app::Deferral::Always).dataSet;
    kernel::Zone& zone = *later->zone(1);
    ASSERT_TRUE(zone.isDeferred());
    EXPECT_EQ(variableNames(*later), variableNames(*now));
    kernel::Progress progress;
    zone.setDimensions(zone.dimensionsLoader->load(progress));
    ASSERT_NE(zone.blanking, nullptr);
    for (auto const location : {ValueLocation_Nodal, ValueLocation_CellCentered}) {
        EXPECT_NE(hiddenOf(zone, location), "");
        EXPECT_EQ(hiddenOf(zone, location), hiddenOf(*now->zone(1), location));
    }
}

TEST(HiddenParts, AreSavedWithEveryKindOfCopyAndReadBack)
{
    TemporaryFolder const folder;
    auto const data = import(writeXml(*gridWithParts("vts"), folder.path("a.vts"))).dataSet;
    kernel::Session session;
    auto const frame = std::make_shared<kernel::Frame>("frame", kernel::Rectangle{});
    session.openPage({frame});
    ASSERT_TRUE(session.setFrameDataSet(frame->id, data));
    ASSERT_TRUE(session.perform(kernel::DuplicateZones(*data, {1})));
    ASSERT_TRUE(session.perform(kernel::MirrorZones(frame->id, {1}, 'X')));
    app::exportDataSet(*data, QString::fromStdString(folder.path("b.vtm")));
    auto const again = import(folder.path("b.vtm")).dataSet;
    ASSERT_EQ(again->zoneCount(), 3);
    for (int number = 1; number <= 3; ++number) {
        kernel::Zone const& zone = *again->zone(number);
        ASSERT_NE(zone.blanking, nullptr);
        for (auto const location : {ValueLocation_Nodal, ValueLocation_CellCentered})
            EXPECT_EQ(hiddenOf(zone, location), hiddenOf(*data->zone(1), location));
    }
}

TEST(HiddenParts, AreToldToBeRowsLikeOthersInATable)
{
    TemporaryFolder const folder;
    auto const data = import(writeXml(*gridWithParts("vts"), folder.path("a.vts"))).dataSet;
    auto const remarks = app::exportDataSet(*data, QString::fromStdString(folder.path("b.csv")));
    std::string all;
    for (std::string const& remark : remarks)
        all += remark + "\n";
    EXPECT_NE(all.find("hidden points are rows like others"), std::string::npos) << all;
}

} // namespace veldraw::tests
