#include "tests/app/support/DamagedFiles.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/GridSamples.h"
#include "tests/app/support/SurfaceSamples.h"

#include <vtkIdList.h>
#include <vtkNew.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

constexpr int damages = 200; // of each file

double coordinate(kernel::DataSet const& data, int zone, char const* axis, std::int64_t point)
{
    return fieldOf(data, zone, axis).group()->buffer()->value(point);
}

// Corner by corner, as numbers of points may be others.
void expectTriangles(vtkPolyData& surface, kernel::DataSet const& data)
{
    kernel::Connectivity const& cells = *data.zone(1)->connectivity;
    ASSERT_EQ(cells.cellCount, surface.GetNumberOfPolys());
    vtkNew<vtkIdList> corners;
    for (std::int64_t cell = 0; cell < cells.cellCount; ++cell) {
        surface.GetCellPoints(cell, corners);
        ASSERT_EQ(cells.offsets[cell + 1] - cells.offsets[cell], 3);
        for (int n = 0; n < 3; ++n) {
            double const* const expected = surface.GetPoint(corners->GetId(n));
            std::int64_t const point = cells.indices[cells.offsets[cell] + n];
            ASSERT_EQ(coordinate(data, 1, "X", point), expected[0]) << cell;
            ASSERT_EQ(coordinate(data, 1, "Y", point), expected[1]) << cell;
            ASSERT_EQ(coordinate(data, 1, "Z", point), expected[2]) << cell;
        }
    }
}

} // namespace

TEST(StlFile, HasAZoneForEachSolidWithItsName)
{
    TemporaryFolder const folder;
    auto const result = import(folder.write("two.stl", textOfSolids()));
    kernel::DataSet const& data = *result.dataSet;
    ASSERT_EQ(data.zoneCount(), 2);
    EXPECT_EQ(data.zone(1)->name, "Bow \u00dc 1");
    EXPECT_EQ(data.zone(2)->name, "stern");
    EXPECT_EQ(data.zone(1)->type, ZoneType_FETriangle);
    EXPECT_EQ(variableNames(data), "X,Y,Z");
    EXPECT_EQ(valuesOf(data, 1, "X"), "0 1 0");
    EXPECT_EQ(cellsOf(*data.zone(1)), "0 1 2");
    EXPECT_EQ(valuesOf(data, 2, "X"), "0 1 0 5") << "corners at one place are one point";
    EXPECT_EQ(valuesOf(data, 2, "Z"), "0 0 1.5 0");
    EXPECT_EQ(cellsOf(*data.zone(2)), "0 1 2 | 3 1 2");
    EXPECT_THAT(result.remarks, IsEmpty());
}

TEST(StlFile, IsNamedAsTheFileWhereItsSolidHasNoName)
{
    TemporaryFolder const folder;
    EXPECT_EQ(import(folder.write("a \"b\" \u00fc'$(x).stl", "solid\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\n"
                                                             "vertex 1 0 0\nvertex 0 1 0\nendloop\nendfacet\n"
                                                             "endsolid\n"))
                  .dataSet->zone(1)
                  ->name,
              "a \"b\" \u00fc'$(x)");
}

TEST(SurfaceFile, BringsEachTriangleAsTheWriterHadIt)
{
    TemporaryFolder const folder;
    auto const surface = sphere(60, 40);
    ASSERT_GT(surface->GetNumberOfPolys() * 9, 40000) << "values";
    for (bool const binary : {false, true}) {
        SCOPED_TRACE(binary);
        if (binary) // as text they are rounded
            expectTriangles(*surface, *import(writeStl(*surface, folder.path("a.stl"), binary)).dataSet);
        expectTriangles(*roundedTo(*surface, 64.0),
                        *import(writePly(*roundedTo(*surface, 64.0), folder.path("a.ply"), binary)).dataSet);
        expectTriangles(*roundedTo(*surface, 64.0),
                        *import(writeStl(*roundedTo(*surface, 64.0), folder.path("b.stl"), binary)).dataSet);
    }
    expectTriangles(*roundedTo(*surface, 64.0),
                    *import(writeObj(*roundedTo(*surface, 64.0), folder.path("a.obj"))).dataSet);
}

TEST(PlyFile, HasColoursNormalsAndIntensitiesAsVariables)
{
    TemporaryFolder const folder;
    auto const result = import(folder.write("a.ply", textOfPolygons()));
    kernel::DataSet const& data = *result.dataSet;
    EXPECT_EQ(variableNames(data), "X,Y,Z,red,green,blue,Normals_X,Normals_Y,Normals_Z,intensity");
    EXPECT_EQ(valuesOf(data, 1, "red"), "255 2 5 8");
    EXPECT_EQ(valuesOf(data, 1, "blue"), "1 4 7 10");
    EXPECT_EQ(valuesOf(data, 1, "Normals_Z"), "1 1 1 -1");
    EXPECT_EQ(valuesOf(data, 1, "intensity"), "5 6");
    EXPECT_EQ(fieldOf(data, 1, "intensity").location(), ValueLocation_CellCentered);
    EXPECT_EQ(cellsOf(*data.zone(1)), "0 1 2 | 0 2 3");
    EXPECT_THAT(result.remarks, Contains(HasSubstr("are read: \"temperature\" of vertex")));
}

TEST(PlyFile, OfAnotherKindOrTooShortIsRefusedBeforeItIsRead)
{
    TemporaryFolder const folder;
    std::string const start = "ply\nformat binary_little_endian 1.0\nelement vertex ";
    std::string const coordinates = "\nproperty float x\nproperty float y\nproperty float z\n";
    std::string const faces = "element face 1\nproperty list uchar int vertex_indices\nend_header\n";
    EXPECT_THAT(problemWith(folder.write("a.ply", "A model of something else\n")), HasSubstr("it is no PLY file"));
    EXPECT_THAT(problemWith(folder.write("b.ply", start + "99999999999" + coordinates + faces + "x")),
                HasSubstr("it has no room for all that its header promises"));
    EXPECT_THAT(problemWith(folder.write("c.ply", start + "-5" + coordinates + faces + "x")),
                HasSubstr("its header has an element without a name or number"));
    EXPECT_THAT(problemWith(folder.write("d.ply", start + "1\nproperty float x\nproperty half y\n" + faces)),
                HasSubstr("a property has the type \"half\", which there is not"));
    EXPECT_THAT(
        problemWith(folder.write("e.ply", start + "1\nproperty float x\nproperty float y\n" + faces + "12345678x")),
        HasSubstr("its vertices have no z"));
}

TEST(ObjFile, HasFacesWithTheNumbersOfTheirGroups)
{
    TemporaryFolder const folder;
    std::string const points = "# ship\nv 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\n";
    auto const result = import(folder.write("a.obj", points + "g left\nf 1 2 3\ng right other\nf 1 3 4\nf -4 -3 -1\n"));
    kernel::DataSet const& data = *result.dataSet;
    EXPECT_EQ(cellsOf(*data.zone(1)), "0 1 2 | 0 2 3 | 0 1 3");
    EXPECT_EQ(valuesOf(data, 1, "GroupIds"), "0 1 1");
    EXPECT_EQ(fieldOf(data, 1, "GroupIds").location(), ValueLocation_CellCentered);
    EXPECT_EQ(valuesOf(data, 1, "Y"), "0 0 1 1");
    EXPECT_THAT(result.remarks, IsEmpty());
    auto const lines = import(folder.write("b.obj", points + "vn 0 0 1\nf 1//1 2//1 3//1\nl 1 3\n"));
    EXPECT_THAT(lines.remarks, Contains(HasSubstr("left out: lines and points, beside faces")));
}

TEST(SurfaceFile, OfAnotherProgramIsRefused)
{
    TemporaryFolder const folder;
    EXPECT_THAT(problemWith(folder.write("a.stl", "1\n00:00:01,000 --> 00:00:02,000\nHello\n")),
                HasSubstr("it is no STL file"));
    EXPECT_THAT(problemWith(folder.write("b.stl", std::string(90, 'x'))), HasSubstr("or no STL file"));
    EXPECT_THAT(problemWith(folder.write("a.obj", std::string("L\1\0\0machine code", 16))),
                HasSubstr("it is no OBJ file of a surface: it has zero bytes"));
    EXPECT_THAT(problemWith(folder.write("b.obj", "some text\n")), HasSubstr("no line of it is a point"));
}

// VTK's reader looks for texture coordinates that are not there.
TEST(SurfaceFile, ThatEndsItsReaderIsNamedInTheMessage)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("a.obj", "v 0 0 0\nv 1 0 0\nv 1 1 0\nf 1/5 2/6000000 3/7\n");
    EXPECT_EQ(problemWith(path), "Cannot open \"" + path + "\": it is damaged: the reader did not get through it.");
}

TEST(SurfaceFile, OfTextOrBytesStandsAnyDamage)
{
    for (SoundFile const& file : soundSurfaces())
        expectToStandDamage(file, damages);
}

} // namespace veldraw::tests
