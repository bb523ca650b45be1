#include "kernel/base/Progress.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/GridSamples.h"
#include "tests/app/support/PieceFiles.h"
#include "tests/app/support/WatchedProgress.h"

#include <vtkBitArray.h>
#include <vtkCellType.h>
#include <vtkCompositeDataSet.h>
#include <vtkFloatArray.h>
#include <vtkImageData.h>
#include <vtkInformation.h>
#include <vtkLongLongArray.h>
#include <vtkMultiBlockDataSet.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkRectilinearGrid.h>
#include <vtkStringArray.h>
#include <vtkXMLMultiBlockDataWriter.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

vtkSmartPointer<vtkStructuredGrid> gridWithValues()
{
    auto grid = structuredGrid(3, 2, 2);
    addPointValues(*grid, "p", {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11});
    std::vector<double> vectors;
    for (int n = 0; n < 36; ++n)
        vectors.push_back(n);
    addPointValues(*grid, "v", vectors, 3);
    addCellValues(*grid, "q", {7, 8});
    return grid;
}

void expectGridWithValues(kernel::DataSet const& data)
{
    ASSERT_EQ(data.zoneCount(), 1);
    kernel::Zone const& zone = *data.zone(1);
    EXPECT_TRUE(zone.isOrdered());
    EXPECT_EQ(zone.i, 3);
    EXPECT_EQ(zone.j, 2);
    EXPECT_EQ(zone.k, 2);
    EXPECT_EQ(valuesOf(data, 1, "X"), "0 1 2 0 1 2 0 1 2 0 1 2");
    EXPECT_EQ(valuesOf(data, 1, "Y"), "0 0 0 10 10 10 0 0 0 10 10 10");
    EXPECT_EQ(valuesOf(data, 1, "Z"), "0 0 0 0 0 0 100 100 100 100 100 100");
    EXPECT_EQ(valuesOf(data, 1, "p"), "0 1 2 3 4 5 6 7 8 9 10 11");
    EXPECT_EQ(valuesOf(data, 1, "v_Y"), "1 4 7 10 13 16 19 22 25 28 31 34");
    EXPECT_EQ(fieldOf(data, 1, "q").location(), ValueLocation_CellCentered);
    EXPECT_EQ(valuesOf(data, 1, "q"), "7 8 0 0 0 0 0 0 0 0 0 0");
}

} // namespace

TEST(GridImport, ReadsAStructuredGridInEveryEncoding)
{
    TemporaryFolder const folder;
    for (Mode mode : {Mode::Ascii, Mode::Base64, Mode::Raw, Mode::RawCompressed}) {
        SCOPED_TRACE(static_cast<int>(mode));
        auto const result = import(writeXml(*gridWithValues(), folder.path("grid.vts"), mode));
        expectGridWithValues(*result.dataSet);
        EXPECT_EQ(variableNames(*result.dataSet), "X,Y,Z,p,v_X,v_Y,v_Z,q");
        EXPECT_TRUE(result.remarks.empty());
    }
}

TEST(GridImport, ReadsLegacyFilesAsciiAndBinary)
{
    TemporaryFolder const folder;
    for (bool binary : {false, true})
        expectGridWithValues(*import(writeLegacy(*gridWithValues(), folder.path("grid.vtk"), binary)).dataSet);
}

TEST(GridImport, AdoptsTheReadersMemory)
{
    TemporaryFolder const folder;
    auto const data = import(writeXml(*gridWithValues(), folder.path("grid.vts"))).dataSet;
    auto const x = fieldOf(*data, 1, "X").group()->buffer();
    auto const z = fieldOf(*data, 1, "Z").group()->buffer();
    EXPECT_EQ(x->stride(), 3);
    EXPECT_EQ(x->owner(), z->owner());
    EXPECT_EQ(static_cast<float const*>(z->data()) - static_cast<float const*>(x->data()), 2);
    EXPECT_EQ(x->type(), FieldDataType_Float);
    EXPECT_EQ(fieldOf(*data, 1, "p").type(), FieldDataType_Double);
}

TEST(GridImport, CalculatesThePointsOfUniformGrids)
{
    TemporaryFolder const folder;
    vtkNew<vtkImageData> image;
    image->SetExtent(2, 4, 0, 1, 5, 5);
    image->SetOrigin(1.0, 2.0, 3.0);
    image->SetSpacing(0.5, 0.25, 2.0);
    addCellValues(*image, "c", {4, 5});
    auto const data = import(writeXml(*image, folder.path("image.vti"))).dataSet;
    EXPECT_EQ(data->zone(1)->i, 3);
    EXPECT_EQ(data->zone(1)->j, 2);
    EXPECT_EQ(data->zone(1)->k, 1);
    EXPECT_EQ(valuesOf(*data, 1, "X"), "2 2.5 3 2 2.5 3");
    EXPECT_EQ(valuesOf(*data, 1, "Y"), "2 2 2 2.25 2.25 2.25");
    EXPECT_EQ(valuesOf(*data, 1, "Z"), "13 13 13 13 13 13");
    EXPECT_EQ(valuesOf(*data, 1, "c"), "4 5 0 0 0 0");
}

TEST(GridImport, CalculatesThePointsOfRectilinearGrids)
{
    TemporaryFolder const folder;
    vtkNew<vtkRectilinearGrid> grid;
    grid->SetDimensions(2, 1, 3);
    auto const axis = [](std::vector<float> const& values) {
        auto array = vtkSmartPointer<vtkFloatArray>::New();
        for (float value : values)
            array->InsertNextValue(value);
        return array;
    };
    grid->SetXCoordinates(axis({1, 4}));
    grid->SetYCoordinates(axis({7}));
    grid->SetZCoordinates(axis({0, 2, 9}));
    auto const data = import(writeXml(*grid, folder.path("grid.vtr"))).dataSet;
    EXPECT_EQ(valuesOf(*data, 1, "X"), "1 4 1 4 1 4");
    EXPECT_EQ(valuesOf(*data, 1, "Y"), "7 7 7 7 7 7");
    EXPECT_EQ(valuesOf(*data, 1, "Z"), "0 0 2 2 9 9");
    EXPECT_EQ(fieldOf(*data, 1, "X").type(), FieldDataType_Float);
}

TEST(GridImport, KnowsTheRangesOfManyValuesBeforeAWindowAsks)
{
    TemporaryFolder const folder;
    constexpr int side = 1024;
    std::string const path = writeXml(*structuredGrid(side, side, 1), folder.path("large.vts"), Mode::Base64);
    auto const data = import(path, app::Deferral::Never).dataSet;
    auto const& group = fieldOf(*data, 1, "X").group();
    ASSERT_TRUE(group->isLoaded() && !group->isMapped());
    EXPECT_EQ(group->knownRange().range().state, kernel::ValueRange::State::Exact);
}

TEST(GridImport, NamesTheDataSetAndItsSourceAfterTheFile)
{
    TemporaryFolder const folder;
    std::string const path = writeXml(*structuredGrid(2, 2, 1), folder.path("my grid.vts"));
    auto const data = import(path).dataSet;
    EXPECT_EQ(data->title(), "my grid.vts");
    EXPECT_EQ(data->zone(1)->name, "my grid");
    ASSERT_EQ(data->loaderInstructions().size(), 1U);
    EXPECT_EQ(data->loaderInstructions()[0].loaderName, "VTK");
    EXPECT_THAT(data->loaderInstructions()[0].words, ElementsAre("FILENAME_", path));
}

TEST(GridImport, CopesWithQuotesAndLettersOfAnyLanguageInNames)
{
    TemporaryFolder const folder;
    auto const grid = structuredGrid(2, 2, 1);
    addPointValues(*grid, "Größe &quot;q&quot; &lt;&amp;&gt;", {1, 2, 3, 4}); // VTK's writer escapes nothing
    for (std::string const name : {"it's a \"file\".vts", "Strömung 流れ.vts", "-dash & semi;colon.vts"}) {
        SCOPED_TRACE(name);
        auto const data = import(writeXml(*grid, folder.path(name))).dataSet;
        EXPECT_EQ(data->title(), name);
        EXPECT_EQ(valuesOf(*data, 1, "Größe \"q\" <&>"), "1 2 3 4");
    }
}

TEST(GridImport, NumbersComponentsBeyondThreeAndEvadesTakenNames)
{
    TemporaryFolder const folder;
    auto const grid = structuredGrid(2, 1, 1);
    addPointValues(*grid, "X", {5, 6});
    addPointValues(*grid, "pair", {1, 2, 3, 4}, 2);
    addPointValues(*grid, "four", {1, 2, 3, 4, 5, 6, 7, 8}, 4);
    addCellValues(*grid, "X", {9});
    auto const data = import(writeXml(*grid, folder.path("grid.vts"))).dataSet;
    EXPECT_EQ(variableNames(*data), "X,Y,Z,X (2),pair_X,pair_Y,four_1,four_2,four_3,four_4,X (3)");
    EXPECT_EQ(valuesOf(*data, 1, "X (2)"), "5 6");
    EXPECT_EQ(valuesOf(*data, 1, "four_4"), "4 8");
}

TEST(GridImport, TellsWhatItConvertsAndLeavesOut)
{
    TemporaryFolder const folder;
    auto const grid = structuredGrid(2, 1, 1);
    vtkNew<vtkLongLongArray> large;
    large->SetName("large");
    large->InsertNextValue(1);
    large->InsertNextValue(1LL << 40);
    vtkNew<vtkStringArray> texts;
    texts->SetName("texts");
    texts->InsertNextValue("a");
    texts->InsertNextValue("b");
    grid->GetPointData()->AddArray(large);
    grid->GetPointData()->AddArray(texts);
    auto const result = import(writeXml(*grid, folder.path("grid.vts")));
    EXPECT_EQ(fieldOf(*result.dataSet, 1, "large").type(), FieldDataType_Double);
    EXPECT_EQ(fieldOf(*result.dataSet, 1, "large").group()->buffer()->value(1), 1099511627776.0);
    EXPECT_THAT(result.remarks, ElementsAre("Zone \"grid\": \"texts\" has no numbers and was left out",
                                            "Zone \"grid\": \"large\": 64-bit integers were converted to double, "
                                            "which is exact up to 2^53"));
}

TEST(GridImport, LeavesOutSingleBitsOfSeveralPiecesAndSaysSo)
{
    TemporaryFolder const folder;
    auto const piece = [] {
        auto const grid = unstructuredGrid(3, {{VTK_TRIANGLE, {0, 1, 2}}});
        vtkNew<vtkBitArray> bits;
        bits->SetName("bits");
        for (int const bit : {1, 0, 1})
            bits->InsertNextValue(bit);
        grid->GetPointData()->AddArray(bits);
        addPointValues(*grid, "p", {1, 2, 3});
        return grid;
    };
    std::string const one = writePieces({piece()}, {}, folder.path("one.vtu"), {});
    EXPECT_EQ(valuesOf(*import(one).dataSet, 1, "bits"), "1 0 1");
    auto const result = import(writePieces({piece(), piece()}, {}, folder.path("two.vtu"), {}));
    EXPECT_EQ(variableNames(*result.dataSet), "X,Y,Z,p");
    EXPECT_EQ(valuesOf(*result.dataSet, 1, "p"), "1 2 3 1 2 3");
    EXPECT_THAT(result.remarks,
                ElementsAre("Zone \"two\": \"bits\" has single bits in several pieces and was left out"));
}

TEST(GridImport, MakesAZoneOfEachBlockAndMatchesVariablesByName)
{
    TemporaryFolder const folder;
    vtkNew<vtkMultiBlockDataSet> blocks;
    auto const first = structuredGrid(2, 1, 1);
    addPointValues(*first, "p", {1, 2});
    auto const second = unstructuredGrid(3, {{VTK_TRIANGLE, {0, 1, 2}}});
    addPointValues(*second, "T", {3, 4, 5});
    addCellValues(*second, "p", {6});
    vtkNew<vtkMultiBlockDataSet> inner;
    inner->SetBlock(0, second);
    blocks->SetBlock(0, first);
    blocks->SetBlock(2, inner);
    blocks->GetMetaData(0U)->Set(vtkCompositeDataSet::NAME(), "wing \"A\"");
    blocks->GetMetaData(2U)->Set(vtkCompositeDataSet::NAME(), "tail");
    vtkNew<vtkXMLMultiBlockDataWriter> writer;
    std::string const path = folder.path("plane parts.vtm");
    writer->SetFileName(path.c_str());
    writer->SetInputDataObject(blocks);
    writer->Write();
    auto const data = import(path).dataSet;
    ASSERT_EQ(data->zoneCount(), 2);
    EXPECT_EQ(data->zone(1)->name, "wing \"A\"");
    EXPECT_EQ(data->zone(2)->name, "tail");
    EXPECT_EQ(data->zone(2)->type, ZoneType_FETriangle);
    EXPECT_EQ(variableNames(*data), "X,Y,Z,p,T");
    EXPECT_EQ(valuesOf(*data, 1, "T"), "-");
    EXPECT_EQ(valuesOf(*data, 2, "p"), "6");
    EXPECT_EQ(fieldOf(*data, 2, "p").location(), ValueLocation_CellCentered);
}

TEST(GridImport, TakesSolutionTimeAndStrandFromFieldData)
{
    TemporaryFolder const folder;
    auto const grid = structuredGrid(2, 1, 1);
    addFact(*grid, "TimeValue", 0.75);
    addFact(*grid, "StrandId", 3);
    auto const data = import(writeXml(*grid, folder.path("grid.vts"))).dataSet;
    EXPECT_EQ(data->zone(1)->solutionTime, 0.75);
    EXPECT_EQ(data->zone(1)->strand, 3);
    EXPECT_EQ(import(writeXml(*structuredGrid(2, 1, 1), folder.path("s.vts"))).dataSet->zone(1)->strand,
              kernel::staticStrand);
}

TEST(GridImport, IgnoresStrandsThatCannotBe)
{
    TemporaryFolder const folder;
    for (double strand : {-1.0, 0.5, 2147483646.0, 1e300}) {
        auto const grid = structuredGrid(2, 1, 1);
        addFact(*grid, "StrandId", strand);
        auto const data = import(writeXml(*grid, folder.path("grid.vts"))).dataSet;
        EXPECT_EQ(data->zone(1)->strand, kernel::staticStrand) << strand;
    }
}

TEST(GridImport, FindsStrandsByTimeStep)
{
    TemporaryFolder const folder;
    vtkNew<vtkMultiBlockDataSet> blocks;
    for (unsigned int n = 0; n < 4; ++n) {
        auto const grid = structuredGrid(2, 1, 1);
        addFact(*grid, "TimeStep", 10.0 * (n / 2));
        blocks->SetBlock(n, grid);
    }
    vtkNew<vtkXMLMultiBlockDataWriter> writer;
    std::string const path = folder.path("steps.vtm");
    writer->SetFileName(path.c_str());
    writer->SetInputDataObject(blocks);
    writer->Write();
    auto const data = import(path).dataSet;
    ASSERT_EQ(data->zoneCount(), 4);
    EXPECT_EQ(data->zone(1)->strand, 1);
    EXPECT_EQ(data->zone(2)->strand, 2);
    EXPECT_EQ(data->zone(3)->strand, 1);
    EXPECT_EQ(data->zone(4)->strand, 2);
    EXPECT_EQ(data->zone(4)->solutionTime, 10.0);
}

TEST(GridImport, ReportsProgressThatNeverFalls)
{
    TemporaryFolder const folder;
    std::string const path = writeXml(*gridWithValues(), folder.path("grid.vts"));
    std::vector<double> reports;
    WatchedProgress progress([&reports](double done) {
        reports.push_back(done);
        return true;
    });
    app::importFile(QString::fromStdString(path), app::Deferral::Auto, progress);
    ASSERT_FALSE(reports.empty());
    EXPECT_TRUE(std::is_sorted(reports.begin(), reports.end()));
    EXPECT_GE(reports.front(), 0.0);
    EXPECT_LE(reports.back(), 1.0);
}

TEST(GridImport, CountsThePartsOfAMultiBlockFileAsPartsOfTheWhole)
{
    TemporaryFolder const folder;
    std::string text = "<VTKFile type=\"vtkMultiBlockDataSet\" version=\"1.0\"><vtkMultiBlockDataSet>";
    for (char const* name : {"a.vts", "b.vts", "c.vts", "d.vts"}) {
        writeXml(*gridWithValues(), folder.path(name));
        text += std::string("<DataSet file=\"") + name + "\"/>";
    }
    std::string const path = folder.write("all.vtm", text + "</vtkMultiBlockDataSet></VTKFile>");
    std::vector<double> reports;
    WatchedProgress progress([&reports](double done) {
        reports.push_back(done);
        return true;
    });
    app::importFile(QString::fromStdString(path), app::Deferral::Never, progress);
    EXPECT_TRUE(std::is_sorted(reports.begin(), reports.end()));
    for (double const first : {0.0, 0.25, 0.5, 0.75}) {
        auto const isIn = [first](double done) { return done >= first && done < first + 0.25; };
        EXPECT_TRUE(std::any_of(reports.begin(), reports.end(), isIn)) << "nothing is told from " << first << " on";
    }
    EXPECT_EQ(progress.fraction(), 1.0);
}

TEST(GridImport, StopsWhenTheUserCancels)
{
    TemporaryFolder const folder;
    std::string const path = writeXml(*gridWithValues(), folder.path("grid.vts"));
    InterruptedProgress progress;
    EXPECT_THROW(app::importFile(QString::fromStdString(path), app::Deferral::Auto, progress), kernel::Interrupted);
}

} // namespace veldraw::tests
