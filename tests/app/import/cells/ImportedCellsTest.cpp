#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/GridSamples.h"

#include <vtkCellArray.h>
#include <vtkCellType.h>
#include <vtkNew.h>
#include <vtkPoints.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <numeric>

namespace veldraw::tests {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

std::vector<vtkIdType> firstPoints(int count)
{
    std::vector<vtkIdType> points(static_cast<std::size_t>(count));
    std::iota(points.begin(), points.end(), vtkIdType(0));
    return points;
}

app::ImportResult importGrid(vtkDataSet& grid, char const* name = "grid.vtu")
{
    TemporaryFolder const folder;
    return import(writeXml(grid, folder.path(name)));
}

app::ImportResult importCells(int points, std::vector<std::pair<int, std::vector<vtkIdType>>> const& cells)
{
    return importGrid(*unstructuredGrid(points, cells));
}

vtkSmartPointer<vtkPolyData> polyData(int points)
{
    auto surface = vtkSmartPointer<vtkPolyData>::New();
    surface->SetPoints(unstructuredGrid(points, {})->GetPoints());
    return surface;
}

vtkSmartPointer<vtkCellArray> cellArray(std::vector<std::vector<vtkIdType>> const& cells)
{
    auto array = vtkSmartPointer<vtkCellArray>::New();
    for (auto const& cell : cells)
        array->InsertNextCell(static_cast<vtkIdType>(cell.size()), cell.data());
    return array;
}

} // namespace

TEST(CellImport, GivesCellsOfOneShapeTheirZoneType)
{
    struct Expected
    {
        int vtkType;
        int corners;
        ZoneType_e zoneType;
    };
    for (Expected const& expected :
         {Expected{VTK_LINE, 2, ZoneType_FELineSeg}, Expected{VTK_TRIANGLE, 3, ZoneType_FETriangle},
          Expected{VTK_QUAD, 4, ZoneType_FEQuad}, Expected{VTK_TETRA, 4, ZoneType_FETetra},
          Expected{VTK_HEXAHEDRON, 8, ZoneType_FEBrick}, Expected{VTK_POLYGON, 5, ZoneType_FEPolygon},
          Expected{VTK_PYRAMID, 5, ZoneType_FEMixed}, Expected{VTK_WEDGE, 6, ZoneType_FEMixed}}) {
        SCOPED_TRACE(expected.vtkType);
        auto const result = importCells(9, {{expected.vtkType, firstPoints(expected.corners)}});
        kernel::Zone const& zone = *result.dataSet->zone(1);
        EXPECT_EQ(zone.type, expected.zoneType);
        EXPECT_EQ(zone.i, 9);
        EXPECT_EQ(zone.j, 1);
        EXPECT_EQ(zone.connectivity->indexCount, expected.corners);
        EXPECT_EQ(zone.connectivity->shapes != nullptr, expected.zoneType == ZoneType_FEMixed);
        EXPECT_TRUE(result.remarks.empty());
    }
}

TEST(CellImport, MakesAMixedZoneOfDifferentShapes)
{
    auto const result =
        importCells(8, {{VTK_TETRA, {0, 1, 2, 3}}, {VTK_WEDGE, {0, 1, 2, 3, 4, 5}}, {VTK_QUAD, {4, 5, 6, 7}}});
    kernel::Zone const& zone = *result.dataSet->zone(1);
    EXPECT_EQ(zone.type, ZoneType_FEMixed);
    EXPECT_EQ(cellsOf(zone), "0 1 2 3 | 0 1 2 3 4 5 | 4 5 6 7");
    EXPECT_EQ(zone.connectivity->shapes[1], kernel::Connectivity::Shape::Prism);
    EXPECT_EQ(zone.connectivity->shapes[2], kernel::Connectivity::Shape::Quad);
}

TEST(CellImport, MakesAPolygonZoneOfFacesWithPolygonsAmongThem)
{
    auto const result = importCells(6, {{VTK_TRIANGLE, {0, 1, 2}}, {VTK_POLYGON, {0, 2, 3, 4, 5}}});
    kernel::Zone const& zone = *result.dataSet->zone(1);
    EXPECT_EQ(zone.type, ZoneType_FEPolygon);
    EXPECT_EQ(zone.k, 7) << "eight edges, one of them shared";
}

TEST(CellImport, KeepsTheFacesOfPolyhedra)
{
    auto const result = importGrid(*polyhedra());
    kernel::Zone const& zone = *result.dataSet->zone(1);
    EXPECT_EQ(zone.type, ZoneType_FEPolyhedron);
    EXPECT_EQ(zone.j, 2);
    EXPECT_EQ(zone.k, 7) << "eight faces, one of them shared";
    kernel::Connectivity const& cells = *zone.connectivity;
    ASSERT_NE(cells.faceStream, nullptr);
    EXPECT_EQ(cells.faceStreamSize, 34);
    EXPECT_EQ(cells.faceOffsets[1], 17);
    EXPECT_EQ(cells.faceStream[17], 4);
}

TEST(CellImport, ReordersPixelsAndVoxels)
{
    EXPECT_EQ(cellsOf(*importCells(4, {{VTK_PIXEL, {0, 1, 2, 3}}}).dataSet->zone(1)), "0 1 3 2");
    EXPECT_EQ(cellsOf(*importCells(8, {{VTK_VOXEL, {0, 1, 2, 3, 4, 5, 6, 7}}}).dataSet->zone(1)), "0 1 3 2 4 5 7 6");
}

TEST(CellImport, StraightensCellsOfHigherOrderAndSaysSo)
{
    auto const result = importCells(6, {{VTK_QUADRATIC_TRIANGLE, {0, 1, 2, 3, 4, 5}}});
    EXPECT_EQ(result.dataSet->zone(1)->type, ZoneType_FETriangle);
    EXPECT_EQ(cellsOf(*result.dataSet->zone(1)), "0 1 2");
    EXPECT_THAT(result.remarks, ElementsAre(HasSubstr("1 cell of higher order became straight")));
}

TEST(CellImport, RefusesCellsWithoutCounterpart)
{
    TemporaryFolder const folder;
    auto const grid = unstructuredGrid(10, {{VTK_PENTAGONAL_PRISM, firstPoints(10)}});
    EXPECT_THAT(problemWith(writeXml(*grid, folder.path("prism.vtu"))),
                HasSubstr("cell 1 of type vtkPentagonalPrism with 10 points cannot be read"));
}

TEST(CellImport, TakesPolylinesAndStripsApartWithTheirValues)
{
    auto const surface = polyData(8);
    surface->SetLines(cellArray({{0, 1, 2}}));
    surface->SetStrips(cellArray({{3, 4, 5, 6, 7}}));
    addCellValues(*surface, "c", {10, 20});
    auto const result = importGrid(*surface, "surface.vtp");
    kernel::Zone const& zone = *result.dataSet->zone(1);
    EXPECT_EQ(cellsOf(zone), "0 1 | 1 2 | 3 4 5 | 4 6 5 | 5 6 7");
    EXPECT_EQ(valuesOf(*result.dataSet, 1, "c"), "10 10 20 20 20");
    EXPECT_EQ(zone.type, ZoneType_FEMixed);
    EXPECT_EQ(result.remarks.size(), 1U);
}

TEST(CellImport, LeavesVerticesAmongOtherCellsOutWithTheirValues)
{
    auto const surface = polyData(4);
    surface->SetVerts(cellArray({{0}, {1}}));
    surface->SetPolys(cellArray({{0, 1, 2}, {1, 2, 3}}));
    addCellValues(*surface, "c", {1, 2, 3, 4});
    auto const result = importGrid(*surface, "surface.vtp");
    EXPECT_EQ(result.dataSet->zone(1)->type, ZoneType_FETriangle);
    EXPECT_EQ(valuesOf(*result.dataSet, 1, "c"), "3 4");
    EXPECT_THAT(result.remarks, ElementsAre(HasSubstr("2 vertices among other cells left out")));
}

TEST(CellImport, TellsTheFacesOfASurfaceApartByTheirPoints)
{
    auto const quads = polyData(6);
    quads->SetPolys(cellArray({{0, 1, 2, 3}, {2, 3, 4, 5}}));
    EXPECT_EQ(importGrid(*quads, "s.vtp").dataSet->zone(1)->type, ZoneType_FEQuad);
    auto const both = polyData(6);
    both->SetPolys(cellArray({{0, 1, 2, 3}, {2, 3, 4}}));
    EXPECT_EQ(importGrid(*both, "s.vtp").dataSet->zone(1)->type, ZoneType_FEMixed);
    auto const pentagon = polyData(6);
    pentagon->SetPolys(cellArray({{0, 1, 2, 3, 4}, {2, 3, 4}}));
    EXPECT_EQ(importGrid(*pentagon, "s.vtp").dataSet->zone(1)->type, ZoneType_FEPolygon);
}

TEST(CellImport, MakesAnOrderedZoneOfVerticesAlone)
{
    auto const surface = polyData(3);
    surface->SetVerts(cellArray({{0}, {1}, {2}}));
    addPointValues(*surface, "p", {1, 2, 3});
    addCellValues(*surface, "c", {4, 5, 6});
    auto const data = importGrid(*surface, "points.vtp").dataSet;
    EXPECT_TRUE(data->zone(1)->isOrdered());
    EXPECT_TRUE(data->zone(1)->isScattered);
    EXPECT_EQ(data->zone(1)->i, 3);
    EXPECT_EQ(data->zone(1)->j, 1);
    EXPECT_EQ(data->zone(1)->k, 1);
    EXPECT_EQ(valuesOf(*data, 1, "c"), "4 5 6");
    EXPECT_EQ(fieldOf(*data, 1, "c").location(), ValueLocation_Nodal) << "a vertex is its point";
}

TEST(CellImport, TakesPointsWithoutAnyCellForScatteredOnes)
{
    EXPECT_TRUE(importGrid(*polyData(3), "points.vtp").dataSet->zone(1)->isScattered);
    EXPECT_TRUE(importGrid(*unstructuredGrid(3, {}), "points.vtu").dataSet->zone(1)->isScattered);
    EXPECT_FALSE(importGrid(*unstructuredGrid(3, {{VTK_LINE, {0, 1}}}), "line.vtu").dataSet->zone(1)->isScattered);
}

TEST(CellImport, LeavesCellValuesOfPointCloudsOutWhenTheyBelongToNoPoint)
{
    auto const surface = polyData(3);
    surface->SetVerts(cellArray({{0, 1, 2}}));
    addCellValues(*surface, "c", {4});
    auto const result = importGrid(*surface, "points.vtp");
    EXPECT_EQ(result.dataSet->findVariable("c"), 0);
    EXPECT_THAT(result.remarks, ElementsAre(HasSubstr("\"c\"")));
}

TEST(CellImport, LeavesDegeneratePolygonsOut)
{
    // By hand: VTK's own writer does not survive a polygon of two points.
    TemporaryFolder const folder;
    auto const result = import(folder.write(
        "surface.vtp",
        "<VTKFile type=\"PolyData\" version=\"0.1\"><PolyData><Piece NumberOfPoints=\"4\" NumberOfPolys=\"2\">"
        "<Points><DataArray type=\"Float32\" NumberOfComponents=\"3\" format=\"ascii\">"
        "0 0 0 1 0 0 0 1 0 1 1 0</DataArray></Points><Polys>"
        "<DataArray type=\"Int64\" Name=\"connectivity\" format=\"ascii\">0 1 1 2 3</DataArray>"
        "<DataArray type=\"Int64\" Name=\"offsets\" format=\"ascii\">2 5</DataArray>"
        "</Polys></Piece></PolyData></VTKFile>"));
    EXPECT_EQ(cellsOf(*result.dataSet->zone(1)), "1 2 3");
    EXPECT_THAT(result.remarks, ElementsAre(HasSubstr("1 cell with too few points left out")));
}

TEST(CellImport, RefusesCellsThatNamePointsWhichDoNotExist)
{
    TemporaryFolder const folder;
    auto const grid = unstructuredGrid(3, {{VTK_TRIANGLE, {0, 1, 7}}});
    EXPECT_THAT(problemWith(writeXml(*grid, folder.path("bad.vtu"))), HasSubstr("names point 7 of 3 points"));
}

} // namespace veldraw::tests
