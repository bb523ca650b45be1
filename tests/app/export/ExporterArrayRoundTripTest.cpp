#include "app/export/Exporter.h"
#include "app/vtk/ZoneToVtk.h"
#include "kernel/compute/Rotation.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/operations/RotateZones.h"
#include "kernel/operations/SetValue.h"
#include "kernel/operations/SpatialVariables.h"
#include "kernel/session/Session.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/GridComparison.h"
#include "tests/app/support/GridSamples.h"

#include <vtkBitArray.h>
#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkCellType.h>
#include <vtkDoubleArray.h>
#include <vtkFloatArray.h>
#include <vtkImageData.h>
#include <vtkIntArray.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>
#include <vtkRectilinearGrid.h>
#include <vtkShortArray.h>
#include <vtkUnsignedCharArray.h>

#include <cmath>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>

namespace veldraw::tests {

namespace {

/// Random values of any type in the named array; its components are called "name 0>1" and so on if asked.
template <typename Array>
void addRandom(vtkDataSetAttributes& attributes, std::string const& name, int components, vtkIdType tuples,
               bool hasComponentNames = false)
{
    std::mt19937 random(static_cast<unsigned>(tuples + components)); // the same for each call
    vtkNew<Array> array;
    array->SetName(name.c_str());
    array->SetNumberOfComponents(components);
    array->SetNumberOfTuples(tuples);
    for (vtkIdType tuple = 0; tuple < tuples; ++tuple) {
        for (int component = 0; component < components; ++component) {
            bool const isBit = array->GetDataType() == VTK_BIT;
            array->SetComponent(tuple, component,
                                isBit ? static_cast<double>(random() % 2) : 0.37 * static_cast<double>(random() % 500));
        }
    }
    for (int component = 0; component < components && hasComponentNames; ++component)
        array->SetComponentName(component, ("name " + std::to_string(component) + ">1").c_str());
    attributes.AddArray(array);
}

/// Scalars, vectors, tensors, colours and others, some of the same name at points and cells.
void addArrays(vtkDataSet& grid)
{
    vtkDataSetAttributes& ofPoints = *grid.GetPointData();
    vtkDataSetAttributes& ofCells = *grid.GetCellData();
    vtkIdType const points = grid.GetNumberOfPoints();
    vtkIdType const cells = grid.GetNumberOfCells();
    addRandom<vtkFloatArray>(ofPoints, "p", 1, points);
    addRandom<vtkFloatArray>(ofPoints, "U", 3, points, true);
    addRandom<vtkDoubleArray>(ofPoints, "grad U", 9, points);
    addRandom<vtkFloatArray>(ofPoints, "stress", 6, points);
    addRandom<vtkUnsignedCharArray>(ofPoints, "colour", 3, points);
    addRandom<vtkIntArray>(ofPoints, "pair", 2, points);
    addRandom<vtkShortArray>(ofPoints, "one", 1, points, true);
    addRandom<vtkBitArray>(ofPoints, "flags", 3, points);
    addRandom<vtkDoubleArray>(ofCells, "U", 3, cells);
    addRandom<vtkDoubleArray>(ofCells, "p", 1, cells);
    addRandom<vtkIntArray>(ofCells, "id", 1, cells);
    addRandom<vtkFloatArray>(ofCells, "stress", 6, cells, true);
}

vtkSmartPointer<vtkUnstructuredGrid> tetrahedra()
{
    std::vector<std::pair<int, std::vector<vtkIdType>>> cells;
    for (vtkIdType n = 0; n + 3 < 3000; ++n)
        cells.push_back({VTK_TETRA, {n, n + 1, n + 2, n + 3}});
    auto grid = unstructuredGrid(3000, cells);
    addArrays(*grid);
    return grid;
}

vtkSmartPointer<vtkPolyData> surface(bool withLines)
{
    auto grid = vtkSmartPointer<vtkPolyData>::New();
    grid->SetPoints(unstructuredGrid(2500, {})->GetPoints());
    vtkNew<vtkCellArray> lines;
    vtkNew<vtkCellArray> faces;
    for (vtkIdType n = 0; n + 3 < 2500; ++n) {
        if (n % 3 == 0)
            faces->InsertNextCell({n, n + 1, n + 2, n + 3});
        else
            faces->InsertNextCell({n, n + 1, n + 2});
        if (n % 5 == 0)
            lines->InsertNextCell({n, n + 2});
    }
    if (withLines)
        grid->SetLines(lines);
    grid->SetPolys(faces);
    addArrays(*grid);
    return grid;
}

vtkSmartPointer<vtkPolyData> cloud()
{
    auto grid = vtkSmartPointer<vtkPolyData>::New();
    grid->SetPoints(unstructuredGrid(2500, {})->GetPoints());
    vtkNew<vtkCellArray> vertices;
    for (vtkIdType n = 0; n < 2500; ++n)
        vertices->InsertNextCell({n});
    grid->SetVerts(vertices);
    addRandom<vtkFloatArray>(*grid->GetPointData(), "U", 3, 2500, true);
    return grid;
}

vtkSmartPointer<vtkDataSet> gridFor(std::string const& extension)
{
    if (extension == "vtu")
        return tetrahedra();
    if (extension == "vtp")
        return surface(false);
    if (extension == "vts") {
        auto const grid = structuredGrid(17, 13, 11);
        addArrays(*grid);
        return grid;
    }
    auto const image = vtkSmartPointer<vtkImageData>::New();
    image->SetDimensions(20, 15, 9);
    addArrays(*image);
    return image;
}

/// A session that shows what a file holds.
struct OpenFile
{
    explicit OpenFile(std::string const& path)
        : data(import(path).dataSet)
    {
        auto const frame = std::make_shared<kernel::Frame>("frame", kernel::Rectangle{});
        frame->dataSet = data;
        session.openPage({frame});
    }

    int number(std::string const& name) const { return data->findVariable(name); }

    std::shared_ptr<kernel::DataSet> data;
    kernel::Session session;
};

std::set<std::string> arraysOf(vtkDataSetAttributes& attributes)
{
    std::set<std::string> names;
    for (int n = 0; n < attributes.GetNumberOfArrays(); ++n)
        names.insert(attributes.GetArrayName(n));
    return names;
}

} // namespace

TEST(ArrayRoundTrip, GivesAnotherProgramTheArraysThatItGave)
{
    TemporaryFolder const folder;
    for (std::string const extension : {"vtu", "vts", "vti", "vtp"}) {
        auto const grid = gridFor(extension);
        for (app::Deferral const deferral : {app::Deferral::Never, app::Deferral::Always}) {
            SCOPED_TRACE(extension);
            auto const data = import(writeXml(*grid, folder.path("in." + extension)), deferral).dataSet;
            loadAll(*data);
            save(*data, folder.path("out." + extension));
            expectSameArrays(*grid, *readByVtk(folder.path("out." + extension)));
        }
    }
}

TEST(ArrayRoundTrip, OfTheKernelKeepsItsVariablesThroughAnyNumberOfFiles)
{
    TemporaryFolder const folder;
    auto const first = import(writeXml(*tetrahedra(), folder.path("a.vtu"))).dataSet;
    save(*first, folder.path("b.vtu"));
    auto const second = import(folder.path("b.vtu")).dataSet;
    EXPECT_EQ(variableNames(*first), variableNames(*second));
    save(*second, folder.path("c.vtu"));
    EXPECT_EQ(contentOf(folder.path("b.vtu")), contentOf(folder.path("c.vtu")));
}

TEST(ArrayRoundTrip, KeepsTheKindsAndArraysOfPieces)
{
    TemporaryFolder const folder;
    std::vector<std::pair<std::string, vtkSmartPointer<vtkDataSet>>> const pieces = {{"vtu", tetrahedra()},
                                                                                     {"vtp", surface(false)},
                                                                                     {"vts", gridFor("vts")},
                                                                                     {"vtp", surface(true)},
                                                                                     {"vtp", cloud()}};
    std::string text = "<VTKFile type=\"vtkMultiBlockDataSet\" version=\"1.0\"><vtkMultiBlockDataSet>";
    int number = 0;
    for (auto const& [extension, grid] : pieces) {
        std::string const name = "piece" + std::to_string(++number) + "." + extension;
        writeXml(*grid, folder.path(name));
        text += "<DataSet index=\"" + std::to_string(number) + "\" file=\"" + name + "\"/>";
    }
    folder.write("in.vtm", text + "</vtkMultiBlockDataSet></VTKFile>");
    save(*import(folder.path("in.vtm")).dataSet, folder.path("out.vtm"));
    number = 0;
    for (auto const& [extension, grid] : pieces) {
        SCOPED_TRACE(++number);
        std::string const path = folder.path("out/out_" + std::to_string(number) + "." + extension);
        ASSERT_TRUE(std::filesystem::exists(path)) << folder.listing();
        auto const found = readByVtk(path);
        expectSameArrays(*grid, *found);
        for (vtkIdType cell = 0; cell < grid->GetNumberOfCells(); cell += 97) {
            EXPECT_EQ(grid->GetCellType(cell), found->GetCellType(cell));
            EXPECT_EQ(grid->GetCell(cell)->GetPointId(0), found->GetCell(cell)->GetPointId(0));
        }
    }
    auto const again = import(folder.path("out.vtm")).dataSet;
    save(*again, folder.path("again.vtm"));
    EXPECT_TRUE(std::filesystem::exists(folder.path("again/again_5.vtp")));
}

TEST(ArrayRoundTrip, PutsATurnedVectorTogetherAgain)
{
    TemporaryFolder const folder;
    auto const grid = tetrahedra();
    OpenFile file(writeXml(*grid, folder.path("in.vtu")));
    kernel::SpatialVariables variables;
    variables.coordinates = {file.number("X"), file.number("Y"), file.number("Z")};
    variables.vector = {file.number("U_X"), file.number("U_Y"), file.number("U_Z")};
    variables.hasVector = true;
    ASSERT_TRUE(file.session.perform(kernel::RotateZones(*file.data, {1}, variables, {{0, 0, 0}, {0, 0, 1}}, 30)));
    ASSERT_NE(fieldOf(*file.data, 1, "U_X").group()->buffer()->owner(),
              fieldOf(*file.data, 1, "U_Z").group()->buffer()->owner());
    save(*file.data, folder.path("out.vtu"));

    auto const found = readByVtk(folder.path("out.vtu"));
    vtkDataArray& before = *grid->GetPointData()->GetArray("U");
    vtkDataArray* const after = found->GetPointData()->GetArray("U");
    ASSERT_NE(after, nullptr);
    ASSERT_EQ(after->GetNumberOfComponents(), 3);
    EXPECT_STREQ(after->GetComponentName(1), "name 1>1");
    double const c = std::sqrt(3.0) / 2.0;
    for (vtkIdType n = 0; n < before.GetNumberOfTuples(); ++n) {
        double const* const u = before.GetTuple3(n);
        double const x = u[0];
        double const y = u[1];
        double const z = u[2];
        ASSERT_NEAR(after->GetComponent(n, 0), c * x - 0.5 * y, 1e-4);
        ASSERT_NEAR(after->GetComponent(n, 1), 0.5 * x + c * y, 1e-4);
        ASSERT_EQ(after->GetComponent(n, 2), z);
        double place[3];
        grid->GetPoint(n, place);
        ASSERT_NEAR(found->GetPoint(n)[1], 0.5 * place[0] + c * place[1], 1e-5 * (1.0 + std::abs(place[1])));
    }
    ASSERT_TRUE(file.session.undo());
    save(*file.data, folder.path("undone.vtu"));
    expectSameArrays(*grid, *readByVtk(folder.path("undone.vtu")));
}

TEST(ArrayRoundTrip, PutsAnEditedComponentTogetherWithTheOthers)
{
    TemporaryFolder const folder;
    auto const grid = gridFor("vts");
    OpenFile file(writeXml(*grid, folder.path("in.vts")));
    for (char const* name : {"U_Y", "U_Y (2)"})
        ASSERT_TRUE(file.session.perform(kernel::SetValue(*file.data, 1, file.number(name), 1, 77, false)));
    save(*file.data, folder.path("out.vts"));
    grid->GetPointData()->GetArray("U")->SetComponent(1, 1, 77);
    grid->GetCellData()->GetArray("U")->SetComponent(1, 1, 77);
    expectSameArrays(*grid, *readByVtk(folder.path("out.vts")));
}

TEST(ArrayRoundTrip, WritesComponentsOneByOneWhenOneOfThemIsGoneOrRenamed)
{
    TemporaryFolder const folder;
    OpenFile file(writeXml(*tetrahedra(), folder.path("in.vtu")));
    ASSERT_TRUE(file.session.perform(kernel::DeleteVariables(*file.data, {file.number("U_Y")})));
    ASSERT_TRUE(file.session.perform(kernel::RenameVariable(*file.data, file.number("stress_6 (2)"), "other")));
    save(*file.data, folder.path("out.vtu"));
    auto const found = readByVtk(folder.path("out.vtu"));
    EXPECT_THAT(arraysOf(*found->GetPointData()),
                ::testing::ElementsAre("U_X", "U_Z", "colour", "flags", "grad U", "one", "p", "pair", "stress"));
    EXPECT_THAT(arraysOf(*found->GetCellData()),
                ::testing::ElementsAre("U", "id", "other", "p", "stress_1 (2)", "stress_2 (2)", "stress_3 (2)",
                                       "stress_4 (2)", "stress_5 (2)"));
    EXPECT_EQ(variableNames(*import(folder.path("out.vtu")).dataSet), variableNames(*file.data));

    ASSERT_TRUE(file.session.undo());
    ASSERT_TRUE(file.session.undo());
    save(*file.data, folder.path("undone.vtu"));
    expectSameArrays(*tetrahedra(), *readByVtk(folder.path("undone.vtu")));
}

TEST(ArrayRoundTrip, WritesComponentsOneByOneWhenTheyAreNoLongerOfOneType)
{
    TemporaryFolder const folder;
    auto const grid = structuredGrid(5, 4, 3);
    addRandom<vtkIntArray>(*grid->GetPointData(), "U", 3, 60);
    OpenFile file(writeXml(*grid, folder.path("in.vts")));
    kernel::SpatialVariables variables;
    variables.coordinates = {1, 2, 3};
    variables.vector = {4, 5, 6};
    variables.hasVector = true;
    ASSERT_TRUE(file.session.perform(kernel::RotateZones(*file.data, {1}, variables, {{0, 0, 0}, {0, 0, 1}}, 30)));
    save(*file.data, folder.path("out.vts"));
    EXPECT_THAT(arraysOf(*readByVtk(folder.path("out.vts"))->GetPointData()),
                ::testing::ElementsAre("U_X", "U_Y", "U_Z"));
}

TEST(ArrayRoundTrip, LeavesAnArrayApartWhoseNameIsTaken)
{
    TemporaryFolder const folder;
    OpenFile file(writeXml(*tetrahedra(), folder.path("in.vtu")));
    ASSERT_TRUE(file.session.perform(kernel::RenameVariable(*file.data, file.number("one"), "U")));
    save(*file.data, folder.path("out.vtu"));
    auto const found = readByVtk(folder.path("out.vtu"));
    EXPECT_EQ(found->GetPointData()->GetArray("U")->GetNumberOfComponents(), 1);
    EXPECT_NE(found->GetPointData()->GetArray("U_Z"), nullptr);
    EXPECT_EQ(found->GetCellData()->GetArray("U")->GetNumberOfComponents(), 3) << "that name is free at cells";
    EXPECT_EQ(variableNames(*import(folder.path("out.vtu")).dataSet), variableNames(*file.data));
}

TEST(ArrayRoundTrip, LetsEachZoneHaveItsOwnArrays)
{
    TemporaryFolder const folder;
    auto const whole = unstructuredGrid(40, {{VTK_TETRA, {0, 1, 2, 3}}});
    addRandom<vtkFloatArray>(*whole->GetPointData(), "U", 3, 40);
    auto const single = unstructuredGrid(40, {{VTK_TETRA, {0, 1, 2, 3}}});
    addRandom<vtkFloatArray>(*single->GetPointData(), "U_X", 1, 40);
    auto const atCells = unstructuredGrid(4, {{VTK_TETRA, {0, 1, 2, 3}}});
    addRandom<vtkFloatArray>(*atCells->GetCellData(), "U", 3, 1);
    std::string text = "<VTKFile type=\"vtkMultiBlockDataSet\" version=\"1.0\"><vtkMultiBlockDataSet>";
    for (auto const& [name, grid] : {std::pair("a.vtu", single), {"b.vtu", whole}, {"c.vtu", atCells}}) {
        writeXml(*grid, folder.path(name));
        text += std::string("<DataSet file=\"") + name + "\"/>";
    }
    folder.write("in.vtm", text + "</vtkMultiBlockDataSet></VTKFile>");
    save(*import(folder.path("in.vtm")).dataSet, folder.path("out.vtm"));
    expectSameArrays(*single, *readByVtk(folder.path("out/out_1.vtu")));
    expectSameArrays(*whole, *readByVtk(folder.path("out/out_2.vtu")));
    expectSameArrays(*atCells, *readByVtk(folder.path("out/out_3.vtu")));
}

TEST(ArrayRoundTrip, KeepsNamesThatXmlHasToWriteInAnotherWay)
{
    TemporaryFolder const folder;
    auto const data = import(writeXml(*tetrahedra(), folder.path("in.vtu"))).dataSet;
    auto const array = std::make_shared<kernel::SourceArray>(*data->variable(data->findVariable("U_X"))->sourceArray);
    array->name = "a < b & \"c\"";
    array->componentNames = {"<x>", "", "&z"};
    for (char const* name : {"U_X", "U_Y", "U_Z"})
        data->variable(data->findVariable(name))->sourceArray = array;
    save(*data, folder.path("out.vtu"));
    auto const found = readByVtk(folder.path("out.vtu"));
    vtkDataArray* const written = found->GetPointData()->GetArray(array->name.c_str());
    ASSERT_NE(written, nullptr);
    EXPECT_STREQ(written->GetComponentName(0), "<x>");
    EXPECT_STREQ(written->GetComponentName(2), "&z");
    auto const again = import(folder.path("out.vtu")).dataSet;
    EXPECT_EQ(variableNames(*again), variableNames(*data));
    EXPECT_EQ(again->variable(again->findVariable("U_X"))->sourceArray->componentNames, array->componentNames);
}

TEST(ArrayRoundTrip, WrapsAnArrayThatIsStillInOnePieceAndSetsOthersSideBySide)
{
    TemporaryFolder const folder;
    OpenFile file(writeXml(*tetrahedra(), folder.path("in.vtu")));
    kernel::Zone const& zone = *file.data->zone(1);
    auto const field = [&](char const* name) { return &fieldOf(*file.data, 1, name); };
    auto const together = app::vtkArrayOfFields(zone, {field("U_X"), field("U_Y"), field("U_Z")}, "U");
    EXPECT_EQ(together->GetVoidPointer(0), field("U_X")->group()->buffer()->data());
    EXPECT_TRUE(together->HasStandardMemoryLayout());
    auto const swapped = app::vtkArrayOfFields(zone, {field("U_Y"), field("U_X"), field("U_Z")}, "U");
    EXPECT_FALSE(swapped->HasStandardMemoryLayout());
    for (vtkIdType n = 0; n < swapped->GetNumberOfTuples(); n += 7) {
        EXPECT_EQ(swapped->GetComponent(n, 0), together->GetComponent(n, 1));
        EXPECT_EQ(swapped->GetComponent(n, 2), together->GetComponent(n, 2));
    }
}

} // namespace veldraw::tests
