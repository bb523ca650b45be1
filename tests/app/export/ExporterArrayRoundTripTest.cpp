#include "app/export/Exporter.h"
#include "app/vtk/ZoneToVtk.h"
#include "kernel/compute/Rotation.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/MirrorZones.h"
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
#include <vtkFieldData.h>
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
#include <map>
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

/// Names and purposes of the arrays that a program is to show first.
std::map<std::string, std::string> activeArraysOf(vtkDataSetAttributes& attributes)
{
    std::map<std::string, std::string> result;
    for (int n = 0; n < vtkDataSetAttributes::NUM_ATTRIBUTES; ++n) {
        if (vtkAbstractArray* const array = attributes.GetAbstractAttribute(n))
            result[vtkDataSetAttributes::GetAttributeTypeAsString(n)] = array->GetName();
    }
    return result;
}

void nameActiveArrays(vtkDataSet& grid)
{
    grid.GetPointData()->SetActiveScalars("p");
    grid.GetPointData()->SetActiveVectors("U");
    grid.GetPointData()->SetActiveNormals("U");
    grid.GetPointData()->SetActiveTensors("grad U");
    grid.GetPointData()->SetActiveTCoords("pair");
    grid.GetCellData()->SetActiveScalars("colour");
    grid.GetCellData()->SetActiveGlobalIds("id");
    grid.GetCellData()->SetActiveTensors("stress");
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

/// The coordinates of a file, and a vector by the name of its array.
kernel::SpatialVariables vectorIn(OpenFile const& file, std::string const& vector)
{
    kernel::SpatialVariables variables;
    variables.coordinates = {file.number("X"), file.number("Y"), file.number("Z")};
    variables.vector = {file.number(vector + "_X"), file.number(vector + "_Y"), file.number(vector + "_Z")};
    variables.hasVector = true;
    return variables;
}

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

TEST(ArrayRoundTrip, NamesTheArraysThatAProgramIsToShowFirst)
{
    TemporaryFolder const folder;
    for (std::string const extension : {"vtu", "vts", "vti", "vtp"}) {
        auto const grid = gridFor(extension);
        nameActiveArrays(*grid);
        auto const ofPoints = activeArraysOf(*grid->GetPointData());
        auto const ofCells = activeArraysOf(*grid->GetCellData());
        ASSERT_EQ(ofPoints.size() + ofCells.size(), 7U);
        writeXml(*grid, folder.path("in." + extension));
        for (app::Deferral const deferral : {app::Deferral::Never, app::Deferral::Always}) {
            SCOPED_TRACE(extension);
            auto const data = import(folder.path("in." + extension), deferral).dataSet;
            loadAll(*data);
            save(*data, folder.path("out." + extension));
            auto const found = readByVtk(folder.path("out." + extension));
            EXPECT_EQ(activeArraysOf(*found->GetPointData()), ofPoints);
            EXPECT_EQ(activeArraysOf(*found->GetCellData()), ofCells);
        }
    }
}

TEST(ArrayRoundTrip, NamesTheActiveArraysOfCopiesAndOfARenamedVariableButNoPartOfAnArray)
{
    TemporaryFolder const folder;
    auto const grid = tetrahedra();
    nameActiveArrays(*grid);
    OpenFile file(writeXml(*grid, folder.path("in.vtu")));
    ASSERT_TRUE(file.session.perform(kernel::RenameVariable(*file.data, file.number("p"), "a < b & c")));
    ASSERT_TRUE(file.session.perform(kernel::DeleteVariables(*file.data, {file.number("grad U_2")})));
    ASSERT_TRUE(file.session.perform(kernel::MirrorZones(file.session.activeFrame()->id, {1}, 'X')));
    save(*file.data, folder.path("out.vtm"));
    for (char const* name : {"out/out_1.vtu", "out/out_2.vtu"}) {
        auto const found = readByVtk(folder.path(name));
        std::map<std::string, std::string> const expected = {
            {"Scalars", "a < b & c"}, {"Vectors", "U"}, {"Normals", "U"}, {"TCoords", "pair"}};
        EXPECT_EQ(activeArraysOf(*found->GetPointData()), expected);
        EXPECT_EQ(activeArraysOf(*found->GetCellData()), activeArraysOf(*grid->GetCellData()));
    }
}

TEST(ArrayRoundTrip, SaysWhatFieldDataAreNotKept)
{
    TemporaryFolder const folder;
    auto const grid = tetrahedra();
    EXPECT_THAT(import(writeXml(*grid, folder.path("none.vtu"))).remarks, ::testing::IsEmpty());
    for (char const* name : {"TimeValue", "CYCLE", "units"}) {
        vtkNew<vtkDoubleArray> array;
        array->SetName(name);
        array->InsertNextValue(2.5);
        if (name != std::string("TimeValue"))
            array->InsertNextValue(3.5); // a single one would be auxiliary data
        grid->GetFieldData()->AddArray(array);
    }
    auto const opened = import(writeXml(*grid, folder.path("in.vtu")));
    EXPECT_THAT(opened.remarks,
                ::testing::ElementsAre("Zone \"in\": field data \"CYCLE\", \"units\" will not be in a saved file"));
    EXPECT_EQ(opened.dataSet->zone(1)->solutionTime, 2.5);
    save(*opened.dataSet, folder.path("out.vtu"));
    EXPECT_THAT(import(folder.path("out.vtu")).remarks, ::testing::IsEmpty());

    folder.write("in.vtm",
                 "<VTKFile type=\"vtkMultiBlockDataSet\" version=\"1.0\"><vtkMultiBlockDataSet>"
                 "<DataSet file=\"none.vtu\"/></vtkMultiBlockDataSet><FieldData><DataArray type=\"Float64\" "
                 "Name=\"CYCLE\" NumberOfTuples=\"2\" format=\"ascii\">1 2</DataArray></FieldData></VTKFile>");
    EXPECT_THAT(import(folder.path("in.vtm")).remarks,
                ::testing::ElementsAre("Data set: field data \"CYCLE\" will not be in a saved file"));
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
    ASSERT_TRUE(
        file.session.perform(kernel::RotateZones(*file.data, {1}, vectorIn(file, "U"), {{0, 0, 0}, {0, 0, 1}}, 30)));
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

TEST(ArrayRoundTrip, PutsAVectorOfWholeNumbersTogetherOfWhichARotationComputedSomeComponents)
{
    TemporaryFolder const folder;
    for (int const type : {VTK_INT, VTK_SHORT}) {
        SCOPED_TRACE(type);
        auto const grid = structuredGrid(17, 15, 11);
        if (type == VTK_INT)
            addRandom<vtkIntArray>(*grid->GetPointData(), "U", 3, 17 * 15 * 11, true);
        else
            addRandom<vtkShortArray>(*grid->GetPointData(), "U", 3, 17 * 15 * 11, true);
        OpenFile file(writeXml(*grid, folder.path("in.vts")));
        ASSERT_TRUE(file.session.perform(
            kernel::RotateZones(*file.data, {1}, vectorIn(file, "U"), {{0, 0, 0}, {0, 0, 1}}, 90)));
        ASSERT_NE(fieldOf(*file.data, 1, "U_X").type(), fieldOf(*file.data, 1, "U_Z").type());
        save(*file.data, folder.path("out.vts"));
        auto const found = readByVtk(folder.path("out.vts"));
        EXPECT_THAT(arraysOf(*found->GetPointData()), ::testing::ElementsAre("U"));
        vtkDataArray& before = *grid->GetPointData()->GetArray("U");
        vtkDataArray& after = *found->GetPointData()->GetArray("U");
        EXPECT_EQ(after.GetDataType(), type == VTK_INT ? VTK_DOUBLE : VTK_FLOAT);
        EXPECT_STREQ(after.GetComponentName(2), "name 2>1");
        for (vtkIdType n = 0; n < before.GetNumberOfTuples(); ++n) {
            ASSERT_EQ(after.GetComponent(n, 0), -before.GetComponent(n, 1));
            ASSERT_EQ(after.GetComponent(n, 1), before.GetComponent(n, 0));
            ASSERT_EQ(after.GetComponent(n, 2), before.GetComponent(n, 2));
        }
        ASSERT_TRUE(file.session.undo());
        save(*file.data, folder.path("undone.vts"));
        expectSameArrays(*grid, *readByVtk(folder.path("undone.vts")));
    }
}

TEST(ArrayRoundTrip, PutsAVectorOfWholeNumbersAtCellsTogetherThatWasMirrored)
{
    TemporaryFolder const folder;
    auto const grid = structuredGrid(21, 15, 11);
    addRandom<vtkIntArray>(*grid->GetCellData(), "U", 3, 20 * 14 * 10);
    OpenFile file(writeXml(*grid, folder.path("in.vts")));
    ASSERT_TRUE(file.session.perform(kernel::MirrorZones(file.session.activeFrame()->id, {1}, 'Y')));
    save(*file.data, folder.path("out.vtm"));
    expectSameArrays(*grid, *readByVtk(folder.path("out/out_1.vts")));
    auto const found = readByVtk(folder.path("out/out_2.vts"));
    vtkDataArray& before = *grid->GetCellData()->GetArray("U");
    vtkDataArray* const after = found->GetCellData()->GetArray("U");
    ASSERT_NE(after, nullptr);
    ASSERT_EQ(after->GetNumberOfComponents(), 3);
    for (vtkIdType n = 0; n < before.GetNumberOfTuples(); ++n) {
        ASSERT_EQ(after->GetComponent(n, 0), before.GetComponent(n, 0));
        ASSERT_EQ(after->GetComponent(n, 1), -before.GetComponent(n, 1));
        ASSERT_EQ(after->GetComponent(n, 2), before.GetComponent(n, 2));
    }
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
