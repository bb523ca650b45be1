#include "app/export/Exporter.h"
#include "app/import/formats/vtkxml/ArrayChoice.h"
#include "app/import/reading/LoadingPlan.h"
#include "kernel/operations/LoadVariables.h"
#include "kernel/session/Session.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/GridSamples.h"
#include "tools/samples/SparseSamples.h"

#include <vtkBitArray.h>
#include <vtkCellData.h>
#include <vtkCellType.h>
#include <vtkDoubleArray.h>
#include <vtkImageData.h>
#include <vtkLongLongArray.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>
#include <vtkStringArray.h>
#include <vtkUnsignedShortArray.h>

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using ::testing::HasSubstr;

namespace {

vtkSmartPointer<vtkDataSet> structured()
{
    auto const grid = structuredGrid(3, 2, 2);
    addPointValues(*grid, "p", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 0.1});
    addPointValues(*grid, "v", std::vector<double>(36, 2.5), 3);
    addPointValues(*grid, "Größe &quot;q&quot; &lt;&amp;&gt;", {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11});
    addCellValues(*grid, "c", {7, 8});
    vtkNew<vtkUnsignedShortArray> shorts;
    vtkNew<vtkLongLongArray> longs;
    shorts->SetName("u16");
    longs->SetName("i64");
    for (int n = 0; n < 12; ++n) {
        shorts->InsertNextValue(static_cast<unsigned short>(65535 - n));
        longs->InsertNextValue(1000000000000LL + n);
    }
    grid->GetPointData()->AddArray(shorts);
    grid->GetPointData()->AddArray(longs);
    return grid;
}

vtkSmartPointer<vtkDataSet> meshWithVertex()
{
    // A vertex among triangles is left out, so that the cells' values have to be picked.
    auto const grid = unstructuredGrid(5, {{VTK_TRIANGLE, {0, 1, 2}}, {VTK_VERTEX, {4}}, {VTK_TRIANGLE, {1, 2, 3}}});
    addPointValues(*grid, "p", {1, 2, 3, 4, 5});
    addCellValues(*grid, "c", {10, 20, 30});
    return grid;
}

vtkSmartPointer<vtkDataSet> image()
{
    auto const grid = vtkSmartPointer<vtkImageData>::New();
    grid->SetExtent(2, 4, -1, 1, 0, 0);
    grid->SetSpacing(0.1, 0.2, 0.3);
    grid->SetOrigin(1.0, 2.0, 3.0);
    addPointValues(*grid, "p", {1, 2, 3, 4, 5, 6, 7, 8, 9});
    addCellValues(*grid, "c", {1, 2, 3, 4});
    return grid;
}

std::string everythingIn(kernel::DataSet const& dataSet)
{
    std::string text = variableNames(dataSet) + "\n";
    for (int variable = 1; variable <= dataSet.variableCount(); ++variable)
        text += valuesOf(dataSet, 1, dataSet.variable(variable)->name) + "\n";
    return text;
}

void expectSameLater(vtkDataSet& grid, std::string const& name)
{
    TemporaryFolder const folder;
    for (Mode const mode : allModes) {
        std::string const path = writeXml(grid, folder.path(name), mode);
        auto const now = import(path, app::Deferral::Never).dataSet;
        auto const later = import(path, app::Deferral::Always).dataSet;
        EXPECT_EQ(valuesOf(*later, 1, "p"), "not loaded");
        EXPECT_EQ(valuesOf(*later, 1, "c"), "not loaded");
        loadAll(*later);
        EXPECT_EQ(everythingIn(*later), everythingIn(*now)) << name << " mode " << static_cast<int>(mode);
        EXPECT_EQ(everythingIn(*import(path).dataSet), everythingIn(*now));
    }
}

kernel::ValueRange rangeOf(kernel::DataSet const& dataSet, std::string const& variable)
{
    return dataSet.zone(1)->range(dataSet.findVariable(variable));
}

void expectEstimate(kernel::ValueRange const& range, double min, double max)
{
    EXPECT_EQ(range.state, kernel::ValueRange::State::Estimated);
    EXPECT_EQ(range.min, min);
    EXPECT_EQ(range.max, max);
}

struct LinePiece
{
    std::string extent; // along I
    std::string range;  // attributes
    std::string values;
};

// An image of one row with the point variable p.
std::string lineInPieces(std::vector<LinePiece> const& pieces, std::string const& extent)
{
    std::string text = "<VTKFile type=\"ImageData\" version=\"1.0\" byte_order=\"LittleEndian\">\n"
                       "<ImageData WholeExtent=\"" +
                       extent + " 0 0 0 0\" Origin=\"0 0 0\" Spacing=\"1 1 1\">\n";
    for (LinePiece const& piece : pieces)
        text += "<Piece Extent=\"" + piece.extent +
                " 0 0 0 0\"><PointData><DataArray type=\"Float32\" Name=\"p\" format=\"ascii\" " + piece.range + ">" +
                piece.values + "</DataArray></PointData></Piece>\n";
    return text + "</ImageData></VTKFile>\n";
}

using NamedValues = std::vector<std::pair<std::string, std::string>>;

std::string arrayElements(NamedValues const& arrays)
{
    std::string text;
    for (auto const& [name, values] : arrays)
        text += R"(<DataArray type="Float64" Name=")" + name + R"(" format="ascii">)" + values + "</DataArray>";
    return text;
}

// One triangle with values at its three points and its cell.
std::string trianglePiece(NamedValues const& ofPoints, NamedValues const& ofCells)
{
    return R"(<Piece NumberOfPoints="3" NumberOfCells="1"><PointData>)" + arrayElements(ofPoints) +
           "</PointData><CellData>" + arrayElements(ofCells) +
           R"(</CellData><Points><DataArray type="Float32" NumberOfComponents="3" format="ascii">0 0 0 1 0 0 0 1 0</DataArray></Points>)"
           R"(<Cells><DataArray type="Int64" Name="connectivity" format="ascii">0 1 2</DataArray>)"
           R"(<DataArray type="Int64" Name="offsets" format="ascii">3</DataArray>)"
           R"(<DataArray type="UInt8" Name="types" format="ascii">5</DataArray></Cells></Piece>)";
}

std::string meshInPieces(std::vector<std::string> const& pieces)
{
    std::string text =
        R"(<VTKFile type="UnstructuredGrid" version="1.0" byte_order="LittleEndian" header_type="UInt64"><UnstructuredGrid>)";
    for (std::string const& piece : pieces)
        text += piece;
    return text + "</UnstructuredGrid></VTKFile>";
}

} // namespace

TEST(Deferral, BringsTheSameValuesLaterAsAtOnce)
{
    expectSameLater(*structured(), "grid.vts");
    expectSameLater(*meshWithVertex(), "mesh.vtu");
    expectSameLater(*image(), "image.vti");
}

TEST(Deferral, KnowsTheRangeThatTheFileSaysAsAnEstimate)
{
    TemporaryFolder const folder;
    auto const grid = meshWithVertex();
    addPointValues(*grid, "v", std::vector<double>(15, -2.5), 3);
    for (Mode const mode : allModes) {
        auto const dataSet = import(writeXml(*grid, folder.path("mesh.vtu"), mode), app::Deferral::Always).dataSet;
        expectEstimate(rangeOf(*dataSet, "p"), 1.0, 5.0);
        expectEstimate(rangeOf(*dataSet, "c"), 10.0, 30.0);
        EXPECT_FALSE(rangeOf(*dataSet, "v_X").isValid()) << "the file tells how long the vectors are";
        EXPECT_EQ(loadingProblem(*dataSet, 1, "c"), "");
        EXPECT_EQ(rangeOf(*dataSet, "c").state, kernel::ValueRange::State::Exact);
    }
}

TEST(Deferral, KnowsNoRangeWhereTheFileSaysNonsense)
{
    TemporaryFolder const folder;
    for (std::string const range :
         {"", "RangeMin=\"1\"", "RangeMin=\"2\" RangeMax=\"1\"", "RangeMin=\"-inf\" RangeMax=\"0\"",
          "RangeMin=\"nan\" RangeMax=\"nan\"", "RangeMin=\"a\" RangeMax=\"b\""}) {
        std::string const path = folder.write("a.vti", lineInPieces({{"0 1", range, "1 2"}}, "0 1"));
        EXPECT_FALSE(rangeOf(*import(path, app::Deferral::Always).dataSet, "p").isValid()) << range;
    }
}

TEST(Deferral, LeavesArraysOfSeveralPiecesInTheFileToo)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("a.vti", lineInPieces({{"0 2", "RangeMin=\"1\" RangeMax=\"3\"", "1 2 3"},
                                                                 {"2 3", "RangeMin=\"-4\" RangeMax=\"3\"", "3 -4"}},
                                                                "0 3"));
    auto const later = import(path, app::Deferral::Always).dataSet;
    EXPECT_EQ(valuesOf(*later, 1, "p"), "not loaded");
    expectEstimate(rangeOf(*later, "p"), -4.0, 3.0);
    EXPECT_EQ(loadingProblem(*later, 1, "p"), "");
    EXPECT_EQ(valuesOf(*later, 1, "p"), "1 2 3 -4");
    EXPECT_EQ(valuesOf(*import(path, app::Deferral::Never).dataSet, 1, "p"), "1 2 3 -4");
}

TEST(Deferral, GivesEachArrayItsValuesWhateverOrderAPieceHasThemIn)
{
    TemporaryFolder const folder;
    std::string const path = folder.write(
        "a.vtu", meshInPieces({trianglePiece({{"p", "1 2 3"}, {"r", "100 200 300"}}, {{"c", "7"}, {"d", "70"}}),
                               trianglePiece({{"r", "400 500 600"}, {"p", "4 5 6"}}, {{"d", "80"}, {"c", "8"}})}));
    for (app::Deferral const deferral : {app::Deferral::Always, app::Deferral::Auto, app::Deferral::Never}) {
        auto const imported = import(path, deferral);
        kernel::DataSet& dataSet = *imported.dataSet;
        loadAll(dataSet);
        EXPECT_EQ(valuesOf(dataSet, 1, "p"), "1 2 3 4 5 6");
        EXPECT_EQ(valuesOf(dataSet, 1, "r"), "100 200 300 400 500 600");
        EXPECT_EQ(valuesOf(dataSet, 1, "c"), "7 8");
        EXPECT_EQ(valuesOf(dataSet, 1, "d"), "70 80");
    }
}

TEST(Deferral, GivesEachArrayItsValuesAlsoWhereTheCellsStandInAnotherOrder)
{
    TemporaryFolder const folder;
    std::string second = trianglePiece({{"r", "400 500 600"}, {"p", "4 5 6"}}, {});
    std::string const offsets = R"(<DataArray type="Int64" Name="offsets" format="ascii">3</DataArray>)";
    second.erase(second.find(offsets), offsets.size());
    second.insert(second.find("<Cells>") + 7, offsets);
    std::string const path =
        folder.write("a.vtu", meshInPieces({trianglePiece({{"p", "1 2 3"}, {"r", "100 200 300"}}, {}), second}));
    for (app::Deferral const deferral : {app::Deferral::Always, app::Deferral::Never}) {
        auto const imported = import(path, deferral);
        loadAll(*imported.dataSet);
        EXPECT_EQ(valuesOf(*imported.dataSet, 1, "p"), "1 2 3 4 5 6");
        EXPECT_EQ(valuesOf(*imported.dataSet, 1, "r"), "100 200 300 400 500 600");
    }
}

TEST(Deferral, LoadsWhatIsWantedAtOnceAlsoWherePiecesHaveAnotherOrder)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("a.vtu", meshInPieces({trianglePiece({{"p", "1 2 3"}, {"r", "7 8 9"}}, {}),
                                                                 trianglePiece({{"r", "7 8 9"}, {"p", "4 5 6"}}, {})}));
    EXPECT_EQ(valuesOf(*import(path, app::Deferral::Never).dataSet, 1, "p"), "1 2 3 4 5 6");
    EXPECT_EQ(valuesOf(*import(path, app::Deferral::Always).dataSet, 1, "p"), "not loaded");
}

TEST(Deferral, LeavesArraysOutThatAPieceLacksOrHasOtherwiseAndSaysSo)
{
    TemporaryFolder const folder;
    std::string const path =
        folder.write("a.vtu", meshInPieces({trianglePiece({{"lost", "1 2 3"}, {"r", "100 200 300"}}, {{"c", "7"}}),
                                            trianglePiece({{"r", "400 500 600"}, {"new", "1 1 1"}}, {})}));
    for (app::Deferral const deferral : {app::Deferral::Always, app::Deferral::Auto, app::Deferral::Never}) {
        auto const imported = import(path, deferral);
        loadAll(*imported.dataSet);
        EXPECT_EQ(valuesOf(*imported.dataSet, 1, "r"), "100 200 300 400 500 600");
        for (std::string const name : {"lost", "new", "c"}) {
            EXPECT_EQ(imported.dataSet->findVariable(name), 0) << name;
            EXPECT_THAT(imported.remarks,
                        testing::Contains(testing::HasSubstr("\"" + name + "\" is not alike in all pieces")));
        }
    }
}

TEST(Deferral, TakesPiecesWithoutPointsForNone)
{
    TemporaryFolder const folder;
    std::string const empty =
        R"(<Piece NumberOfPoints="0" NumberOfCells="0"><PointData/><CellData/>)"
        R"(<Points><DataArray type="Float32" NumberOfComponents="3" format="ascii"></DataArray></Points>)"
        R"(<Cells><DataArray type="Int64" Name="connectivity" format="ascii"></DataArray>)"
        R"(<DataArray type="Int64" Name="offsets" format="ascii"></DataArray>)"
        R"(<DataArray type="UInt8" Name="types" format="ascii"></DataArray></Cells></Piece>)";
    std::string const path =
        folder.write("a.vtu", meshInPieces({trianglePiece({{"p", "1 2 3"}, {"r", "7 8 9"}}, {}), empty}));
    for (app::Deferral const deferral : {app::Deferral::Always, app::Deferral::Never}) {
        auto const imported = import(path, deferral);
        loadAll(*imported.dataSet);
        EXPECT_EQ(valuesOf(*imported.dataSet, 1, "r"), "7 8 9");
        EXPECT_THAT(imported.remarks, testing::IsEmpty());
    }
}

TEST(Deferral, BringsAllForSavingWithoutLettingGoOfWhatIsLoaded)
{
    TemporaryFolder const folder;
    auto const grid = structuredGrid(3, 2, 2);
    for (char const* name : {"p", "q", "r"})
        addPointValues(*grid, name, std::vector<double>(12, 2.5));
    auto const dataSet = import(writeXml(*grid, folder.path("grid.vts")), app::Deferral::Always).dataSet;
    auto const frame = std::make_shared<kernel::Frame>("Frame 1", kernel::Rectangle{});
    frame->dataSet = dataSet;
    kernel::Session session;
    session.openPage({frame});
    session.loadedValues().setLimit(0);
    ASSERT_TRUE(session.perform(kernel::LoadVariables(*dataSet, {1}, {dataSet->findVariable("q")})));
    ASSERT_TRUE(app::loadWholeDataSet(session, *dataSet));
    for (char const* name : {"p", "q", "r"})
        EXPECT_NE(valuesOf(*dataSet, 1, name), "not loaded") << name;
}

TEST(Deferral, LoadsTheComponentsOfAVectorOfAnyKindOfFile)
{
    TemporaryFolder const folder;
    auto const grid = structured();
    std::vector<double> values(36);
    for (std::size_t n = 0; n < values.size(); ++n)
        values[n] = static_cast<double>(n);
    addPointValues(*grid, "w", values, 3);
    for (Mode const mode : allModes) {
        auto const dataSet = import(writeXml(*grid, folder.path("grid.vts"), mode), app::Deferral::Always).dataSet;
        auto const arrayOf = [&](char const* name) { return fieldOf(*dataSet, 1, name).group()->loader()->array(); };
        EXPECT_EQ(arrayOf("w_X").identity, arrayOf("w_Z").identity);
        bool const comesWhole = arrayOf("w_X").identity != nullptr;
        EXPECT_EQ(arrayOf("w_X").bytes, comesWhole ? 36 * 8 : 0);
        EXPECT_EQ(loadingProblem(*dataSet, 1, "w_Z"), "");
        EXPECT_EQ(arrayOf("w_X").bytes, 0) << "it is in memory now";
        for (char const* name : {"w_X", "w_Y"})
            EXPECT_EQ(loadingProblem(*dataSet, 1, name), "");
        EXPECT_EQ(valuesOf(*dataSet, 1, "w_X"), "0 3 6 9 12 15 18 21 24 27 30 33");
        EXPECT_EQ(valuesOf(*dataSet, 1, "w_Y"), "1 4 7 10 13 16 19 22 25 28 31 34");
        EXPECT_EQ(valuesOf(*dataSet, 1, "w_Z"), "2 5 8 11 14 17 20 23 26 29 32 35");
    }
}

TEST(Deferral, LeavesTheCoordinatesOfImagesToBeComputed)
{
    TemporaryFolder const folder;
    auto const dataSet = import(writeXml(*image(), folder.path("image.vti")), app::Deferral::Always).dataSet;
    EXPECT_EQ(valuesOf(*dataSet, 1, "X"), "not loaded");
    EXPECT_EQ(dataSet->zone(1)->range(1).state, kernel::ValueRange::State::Exact);
    EXPECT_NEAR(dataSet->zone(1)->range(1).max, 1.4, 1e-12);
}

TEST(Deferral, KnowsTheLimitsOfCoordinatesOfAnImageThatStartsAnywhere)
{
    TemporaryFolder const folder;
    for (double const spacing : {1.0, -0.5}) {
        auto const grid = vtkSmartPointer<vtkImageData>::New();
        grid->SetExtent(100, 104, 200, 203, -7, -6);
        grid->SetSpacing(1.0, spacing, 0.1);
        grid->SetOrigin(0.0, 3.0, 0.0);
        addPointValues(*grid, "p", std::vector<double>(40, 1.0));
        std::string const path = writeXml(*grid, folder.path("image.vti"));
        auto const now = import(path, app::Deferral::Never).dataSet;
        auto const later = import(path, app::Deferral::Always).dataSet;
        for (char const* name : {"X", "Y", "Z"}) {
            kernel::ValueRange const announced = rangeOf(*later, name);
            kernel::ValueRange const found = rangeOf(*now, name);
            EXPECT_EQ(announced.state, kernel::ValueRange::State::Exact);
            EXPECT_EQ(announced.min, found.min) << name;
            EXPECT_EQ(announced.max, found.max) << name;
        }
        EXPECT_EQ(rangeOf(*later, "X").min, 100.0);
        EXPECT_EQ(rangeOf(*later, "X").max, 104.0);
        EXPECT_EQ(rangeOf(*later, "Y").min, spacing > 0.0 ? 203.0 : -98.5);
    }
}

TEST(Deferral, LeavesTheOrderOfVariablesAlone)
{
    TemporaryFolder const folder;
    auto const addTexts = [](vtkDataSetAttributes& attributes, std::string const& name, int count) {
        vtkNew<vtkStringArray> texts;
        texts->SetName(name.c_str());
        for (int n = 0; n < count; ++n)
            texts->InsertNextValue("some text");
        attributes.AddArray(texts);
    };
    for (std::string const extension : {"vts", "vtu", "vti"}) {
        vtkSmartPointer<vtkDataSet> grid = structuredGrid(3, 2, 2);
        if (extension == "vtu")
            grid = meshWithVertex();
        if (extension == "vti")
            grid = image();
        auto const points = static_cast<int>(grid->GetNumberOfPoints());
        auto const cells = static_cast<int>(grid->GetNumberOfCells());
        grid->GetPointData()->Initialize();
        grid->GetCellData()->Initialize();
        for (auto const& [attributes, count] : {std::pair<vtkDataSetAttributes*, int>(grid->GetPointData(), points),
                                                std::pair<vtkDataSetAttributes*, int>(grid->GetCellData(), cells)}) {
            // Arrays of texts and of more bits than the reader can put off stand among the others.
            for (int n = 0; n < 4; ++n) {
                std::string const number = std::to_string(n);
                addTexts(*attributes, "texts " + number, count);
                vtkNew<vtkDoubleArray> values;
                values->SetName(("values " + number).c_str());
                values->SetNumberOfComponents(n == 2 ? 3 : 1);
                values->SetNumberOfTuples(count);
                values->Fill(n);
                attributes->AddArray(values);
                if (n % 2 == 1)
                    addTexts(*attributes, "more texts " + number, count);
                vtkNew<vtkBitArray> bits;
                bits->SetName(("bits " + number).c_str());
                bits->SetNumberOfTuples(count);
                bits->Fill(1);
                attributes->AddArray(bits);
            }
        }
        std::string const expected = "values 0,bits 0,values 1,bits 1,values 2_X,values 2_Y,values 2_Z,bits 2,values "
                                     "3,bits 3";
        std::string again = expected;
        for (std::size_t at = 0; (at = again.find(',', at)) != std::string::npos; at += 5)
            again.insert(at, " (2)");
        for (Mode const mode : allModes) {
            std::string const path = writeXml(*grid, folder.path("a." + extension), mode);
            for (app::Deferral const deferral : {app::Deferral::Always, app::Deferral::Auto, app::Deferral::Never}) {
                EXPECT_EQ(variableNames(*import(path, deferral).dataSet), "X,Y,Z," + expected + "," + again + " (2)")
                    << extension << " mode " << static_cast<int>(mode);
            }
        }
    }
}

TEST(Deferral, LoadsASmallFileAtOnceUnlessToldOtherwise)
{
    TemporaryFolder const folder;
    auto const dataSet = import(writeXml(*structured(), folder.path("grid.vts"))).dataSet;
    EXPECT_EQ(valuesOf(*dataSet, 1, "c"), "7 8 0 0 0 0 0 0 0 0 0 0");
}

TEST(Deferral, TellsThatAFileHasVanishedOrChangedSince)
{
    TemporaryFolder const folder;
    for (Mode const mode : allModes) {
        std::string const path = writeXml(*meshWithVertex(), folder.path("mesh.vtu"), mode);
        auto const dataSet = import(path, app::Deferral::Always).dataSet;
        kernel::ValueLoader const& loader = *fieldOf(*dataSet, 1, "p").group()->loader();
        EXPECT_TRUE(loader.canLoad());
        std::filesystem::rename(path, folder.path("other.vtu"));
        EXPECT_FALSE(loader.canLoad());
        EXPECT_THAT(loadingProblem(*dataSet, 1, "p"), HasSubstr("cannot be read any more: there is no such file"));
        folder.write("mesh.vtu", "something else");
        EXPECT_FALSE(loader.canLoad());
        EXPECT_THAT(loadingProblem(*dataSet, 1, "p"), HasSubstr("has been changed since it was opened"));
        EXPECT_EQ(valuesOf(*dataSet, 1, "p"), "not loaded");
        std::filesystem::rename(folder.path("other.vtu"), path);
        EXPECT_EQ(loadingProblem(*dataSet, 1, "p"), "");
        EXPECT_EQ(valuesOf(*dataSet, 1, "p"), "1 2 3 4 5");
    }
}

TEST(Deferral, LoadsWhatComesFromATemporaryFileAtOnce)
{
    TemporaryFolder const folder;
    auto const dataSet =
        import(writeLegacy(*meshWithVertex(), folder.path("mesh.vtk"), true), app::Deferral::Always).dataSet;
    EXPECT_EQ(valuesOf(*dataSet, 1, "p"), "1 2 3 4 5");
}

TEST(Deferral, MapsLargeArraysThatAreAlignedInAnImageOfAnySize)
{
    TemporaryFolder const folder;
    std::string const path = folder.path("large.vti");
    samples::writeSparseGrid(path, 8000000, 3);
    auto const dataSet = import(path).dataSet;
    EXPECT_EQ(variableNames(*dataSet), "X,Y,Z,v1,v2,v3");
    for (char const* name : {"v1", "v2", "v3"}) {
        auto const& group = fieldOf(*dataSet, 1, name).group();
        ASSERT_TRUE(group->isLoaded());
        EXPECT_EQ(group->size(), 8000000);
        EXPECT_TRUE(group->canUnload());
        EXPECT_EQ(group->buffer()->value(7999999), 0.0);
    }
}

TEST(Deferral, LoadsWhatTheFirstPlotNeedsWhenTheWholeIsTooMuch)
{
    using Need = app::LoadingPlan::Need;
    app::LoadingPlan plan(app::Deferral::Auto);
    plan.setTotal(1e15);
    EXPECT_TRUE(plan.loadsNow(1e6, Need::FirstPlot));
    EXPECT_FALSE(plan.loadsNow(1e6, Need::Later));
    EXPECT_FALSE(plan.loadsNow(1e15, Need::FirstPlot));
    EXPECT_TRUE(plan.loadsNow(0.0, Need::Later)) << "mapping takes no memory";
    EXPECT_TRUE(plan.mayCompute(100000000));
    EXPECT_FALSE(plan.mayCompute(100000001)) << "nobody waits for so many coordinates unasked";
}

TEST(Deferral, LoadsTheFirstVariableOfEachPartInsteadOfEverythingOfTheFirst)
{
    TemporaryFolder const folder;
    std::string text = "<VTKFile type=\"vtkMultiBlockDataSet\" version=\"1.0\"><vtkMultiBlockDataSet>";
    auto const grid = vtkSmartPointer<vtkImageData>::New();
    grid->SetDimensions(1000, 1, 1);
    for (char const* name : {"a", "b", "c"})
        addPointValues(*grid, name, std::vector<double>(1000, 1.0));
    for (int n = 0; n < 4; ++n) {
        std::string const name = std::to_string(n) + ".vti";
        writeXml(*grid, folder.path(name));
        text += "<DataSet index=\"" + std::to_string(n) + "\" file=\"" + name + "\"/>";
    }
    std::string const path = folder.write("all.vtm", text + "</vtkMultiBlockDataSet></VTKFile>");
    auto const loadedWith = [&path](double memory) {
        auto const dataSet = importWithMemory(memory, path);
        std::string loaded;
        for (int zone = 1; zone <= 4; ++zone)
            for (char const* name : {"X", "a", "b", "c"})
                loaded += fieldOf(*dataSet, zone, name).isLoaded() ? name : "-";
        return loaded;
    };
    double const bytesOfAll = 4 * 6 * 8000.0;
    EXPECT_EQ(loadedWith(bytesOfAll / 0.39), "XabcXabcXabcXabc");
    EXPECT_EQ(loadedWith(bytesOfAll / 0.41), "Xa--Xa--Xa--Xa--");
}

TEST(Deferral, LoadsEverythingThatTakesLittleOfTheMemory)
{
    app::LoadingPlan plan(app::Deferral::Auto);
    plan.setTotal(1e6);
    EXPECT_TRUE(plan.loadsNow(1e6, app::LoadingPlan::Need::Later));
}

TEST(Deferral, CanBeForcedOrForbidden)
{
    app::LoadingPlan always(app::Deferral::Always, {});
    always.setTotal(1.0);
    EXPECT_FALSE(always.loadsNow(1.0, app::LoadingPlan::Need::FirstPlot));
    app::LoadingPlan never(app::Deferral::Never, {});
    EXPECT_THROW(never.setTotal(1e15), app::ImportError);
    EXPECT_TRUE(never.loadsNow(1.0, app::LoadingPlan::Need::Later));
}

} // namespace veldraw::tests
