#include "kernel/operations/LoadVariables.h"
#include "kernel/session/Session.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/GridSamples.h"

#include <vtkCellArray.h>
#include <vtkCellType.h>
#include <vtkNew.h>
#include <vtkUnsignedCharArray.h>
#include <vtkUnstructuredGrid.h>

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using ::testing::HasSubstr;

namespace {

// Cells that take 20 MB: enough to be left in the file.
constexpr vtkIdType manyCells = 500000;
constexpr int meshPoints = 1000;

// Tetrahedra but for a few cells at the end.
vtkSmartPointer<vtkUnstructuredGrid> meshEndingWith(std::vector<std::pair<int, std::vector<vtkIdType>>> const& others)
{
    auto const mesh = unstructuredGrid(meshPoints, {});
    vtkNew<vtkCellArray> cells;
    vtkNew<vtkUnsignedCharArray> types;
    for (vtkIdType n = 0; n < manyCells; ++n) {
        cells->InsertNextCell({n % 990, n % 990 + 1, n % 991 + 3, n % 89 + 7});
        types->InsertNextValue(VTK_TETRA);
    }
    for (auto const& [type, corners] : others) {
        cells->InsertNextCell(static_cast<vtkIdType>(corners.size()), corners.data());
        types->InsertNextValue(static_cast<unsigned char>(type));
    }
    mesh->SetCells(types, cells);
    std::vector<double> ofCells;
    for (vtkIdType n = 0; n < mesh->GetNumberOfCells(); ++n)
        ofCells.push_back(static_cast<double>(n % 17));
    addPointValues(*mesh, "p", std::vector<double>(meshPoints, 2.0));
    addCellValues(*mesh, "c", ofCells);
    return mesh;
}

std::string loadingProblemOfCells(kernel::Zone& zone)
{
    kernel::Progress progress;
    try {
        zone.setDimensions(zone.dimensionsLoader->load(progress));
        return {};
    } catch (std::runtime_error const& error) {
        return error.what();
    }
}

void expectSameCellsLater(vtkUnstructuredGrid& mesh)
{
    TemporaryFolder const folder;
    std::string const path = writeXml(mesh, folder.path("a.vtu"));
    auto const later = import(path, app::Deferral::Always).dataSet;
    auto const now = import(path, app::Deferral::Never).dataSet;
    kernel::Zone& zone = *later->zone(1);
    ASSERT_TRUE(zone.isDeferred());
    EXPECT_EQ(zone.i, -1);
    EXPECT_EQ(zone.type, now->zone(1)->type);
    EXPECT_EQ(variableNames(*later), "X,Y,Z,p,c");
    for (char const* name : {"X", "Y", "Z", "p", "c"})
        EXPECT_FALSE(fieldOf(*later, 1, name).isLoaded()) << name;
    EXPECT_EQ(loadingProblemOfCells(zone), "");
    EXPECT_EQ(zone.i, now->zone(1)->i);
    EXPECT_EQ(zone.j, now->zone(1)->j);
    EXPECT_EQ(zone.k, now->zone(1)->k);
    EXPECT_EQ(cellsOf(zone), cellsOf(*now->zone(1)));
    for (char const* name : {"X", "Y", "Z", "p", "c"}) {
        EXPECT_EQ(loadingProblem(*later, 1, name), "");
        EXPECT_EQ(valuesOf(*later, 1, name), valuesOf(*now, 1, name));
    }
}

} // namespace

TEST(DeferredCells, AreLeftInTheFileWhenTheyAreManyAndComeWithTheDimensions)
{
    expectSameCellsLater(*meshEndingWith({}));
}

TEST(DeferredCells, OfSeveralKindsMakeTheSameZoneAsReadAtOnce)
{
    expectSameCellsLater(*meshEndingWith({{VTK_PYRAMID, {1, 2, 3, 4, 5}}, {VTK_LINE, {7, 8}}}));
}

TEST(DeferredCells, OfKindsThatTheFileAsksForMakeThatZone)
{
    auto const mesh = meshEndingWith({});
    addFact(*mesh, "ZoneType", static_cast<double>(ZoneType_FEMixed));
    expectSameCellsLater(*mesh);
}

TEST(DeferredCells, AreReadAtOnceWhereSomeOfThemCannotBeTakenOver)
{
    TemporaryFolder const folder;
    std::string const path = writeXml(*meshEndingWith({{VTK_VERTEX, {3}}}), folder.path("a.vtu"));
    auto const dataSet = import(path, app::Deferral::Always).dataSet;
    EXPECT_EQ(dataSet->zone(1)->cellCount(), manyCells) << "without the vertex";
    EXPECT_TRUE(fieldOf(*dataSet, 1, "X").isLoaded());
}

TEST(DeferredCells, AreReadAtOnceWhereTheFileIsCompressedOrThereIsMemory)
{
    TemporaryFolder const folder;
    auto const mesh = meshEndingWith({});
    EXPECT_FALSE(import(writeXml(*mesh, folder.path("a.vtu"), Mode::RawCompressed), app::Deferral::Always)
                     .dataSet->zone(1)
                     ->isDeferred());
    EXPECT_FALSE(import(writeXml(*mesh, folder.path("a.vtu"))).dataSet->zone(1)->isDeferred());
}

TEST(DeferredCells, AreLeftWithEverythingElseWhenTheyDoNotFitIntoTheMemory)
{
    TemporaryFolder const folder;
    std::string const path = writeXml(*meshEndingWith({}), folder.path("a.vtu"));
    auto const dataSet = importWithMemory(2e7, path);
    EXPECT_TRUE(dataSet->zone(1)->isDeferred());
    EXPECT_FALSE(fieldOf(*dataSet, 1, "X").isLoaded()) << "though it would fit";
}

TEST(DeferredCells, AreToldWhenTheirFileHasGoneAndComeWhenItIsBack)
{
    TemporaryFolder const folder;
    std::string const path = writeXml(*meshEndingWith({}), folder.path("a.vtu"));
    auto const dataSet = import(path, app::Deferral::Always).dataSet;
    std::filesystem::rename(path, folder.path("b"));
    EXPECT_THAT(loadingProblemOfCells(*dataSet->zone(1)), HasSubstr("cannot be read any more"));
    folder.write("a.vtu", "something else");
    EXPECT_THAT(loadingProblemOfCells(*dataSet->zone(1)), HasSubstr("has been changed since it was opened"));
    EXPECT_TRUE(dataSet->zone(1)->isDeferred());
    std::filesystem::rename(folder.path("b"), path);
    EXPECT_EQ(loadingProblemOfCells(*dataSet->zone(1)), "");
}

TEST(DeferredCells, ComeWithTheFirstVariableThatIsLoaded)
{
    TemporaryFolder const folder;
    kernel::Session session;
    session.createFrame("Frame", {});
    auto const dataSet = import(writeXml(*meshEndingWith({}), folder.path("a.vtu")), app::Deferral::Always).dataSet;
    ASSERT_TRUE(session.setFrameDataSet(session.activeFrame()->id, dataSet));
    ASSERT_TRUE(session.perform(kernel::LoadVariables(*dataSet, {1}, {dataSet->findVariable("c")})));
    EXPECT_FALSE(dataSet->zone(1)->isDeferred());
    EXPECT_EQ(dataSet->zone(1)->cellCount(), manyCells);
    EXPECT_TRUE(fieldOf(*dataSet, 1, "c").isLoaded());
    EXPECT_FALSE(fieldOf(*dataSet, 1, "p").isLoaded());
}

} // namespace veldraw::tests
