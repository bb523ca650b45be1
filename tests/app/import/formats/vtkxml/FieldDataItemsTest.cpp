#include "app/import/zones/AuxiliaryItems.h"
#include "tests/app/support/AuxiliaryTexts.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/GridSamples.h"
#include "tests/app/support/PieceFiles.h"

#include <vtkDoubleArray.h>
#include <vtkFieldData.h>
#include <vtkFloatArray.h>
#include <vtkGenericDataObjectWriter.h>
#include <vtkIntArray.h>
#include <vtkMultiBlockDataSet.h>
#include <vtkNew.h>
#include <vtkStringArray.h>
#include <vtkTypeInt64Array.h>
#include <vtkTypeUInt64Array.h>
#include <vtkUnsignedCharArray.h>
#include <vtkXMLMultiBlockDataWriter.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using app::Deferral;
using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

void addText(vtkDataObject& object, std::string const& name, std::string const& value)
{
    vtkNew<vtkStringArray> array;
    array->SetName(name.c_str());
    array->InsertNextValue(value);
    object.GetFieldData()->AddArray(array);
}

template <typename Array, typename Number>
void addNumber(vtkDataObject& object, char const* name, Number number)
{
    vtkNew<Array> array;
    array->SetName(name);
    array->InsertNextValue(number);
    object.GetFieldData()->AddArray(array);
}

void addNotes(vtkDataObject& object)
{
    addText(object, "Title", "Flow <over> a \"wing\" & more; Strömung");
    addText(object, "solver version", "");
    addNumber<vtkFloatArray>(object, "Mach", 0.1F);
    addNumber<vtkDoubleArray>(object, "Reynolds", 1e-30);
    addNumber<vtkIntArray>(object, "CYCLE", -7);
    addNumber<vtkTypeInt64Array>(object, "Whole", vtkTypeInt64(9007199254740993));
    addNumber<vtkTypeUInt64Array>(object, "Large", vtkTypeUInt64(18446744073709551615ULL));
    addNumber<vtkUnsignedCharArray>(object, "Byte", static_cast<unsigned char>(65));
    addNumber<vtkDoubleArray>(object, "TIME", 2.5);
}

char const* const notes =
    "Byte=65|CYCLE=-7|Large=18446744073709551615|Mach=0.1|Reynolds=1e-30|solver_version=|TIME=2.5|"
    "Title=Flow <over> a \"wing\" & more; Strömung|Whole=9007199254740993";

std::string writeBlocks(vtkMultiBlockDataSet& blocks, std::string const& path, Mode mode)
{
    vtkNew<vtkXMLMultiBlockDataWriter> writer;
    writer->SetFileName(path.c_str());
    writer->SetInputDataObject(&blocks);
    writer->SetDataMode(mode == Mode::Ascii ? vtkXMLWriter::Ascii
                        : mode == Mode::Raw ? vtkXMLWriter::Appended
                                            : vtkXMLWriter::Binary);
    writer->SetEncodeAppendedData(0);
    EXPECT_EQ(writer->Write(), 1);
    return path;
}

vtkSmartPointer<vtkMultiBlockDataSet> twoBlocks()
{
    auto blocks = vtkSmartPointer<vtkMultiBlockDataSet>::New();
    auto const first = structuredGrid(2, 2, 1);
    addText(*first, "Part", "hull");
    blocks->SetBlock(0, first);
    blocks->SetBlock(1, structuredGrid(3, 2, 1));
    return blocks;
}

} // namespace

TEST(FieldDataItems, AreAuxiliaryDataOfTheZoneHoweverItsFileIsWrittenAndRead)
{
    TemporaryFolder const folder;
    auto const grid = structuredGrid(3, 2, 1);
    addNotes(*grid);
    addFact(*grid, "TimeValue", 4.5);
    for (Encoding const& encoding : allEncodings()) {
        std::string const path = writeXml(*grid, folder.path("grid.vts"), encoding);
        for (Deferral const deferral : {Deferral::Auto, Deferral::Always, Deferral::Never}) {
            SCOPED_TRACE(encoding.text());
            auto const result = import(path, deferral);
            EXPECT_EQ(textOf(result.dataSet->zone(1)->auxiliaryData), notes);
            EXPECT_EQ(result.dataSet->auxiliaryData().size(), 0);
            EXPECT_EQ(result.dataSet->zone(1)->solutionTime, 4.5);
            EXPECT_THAT(result.remarks, IsEmpty());
        }
    }
}

TEST(FieldDataItems, ComeFromEachKindOfGrid)
{
    TemporaryFolder const folder;
    auto const mesh = unstructuredGrid(3, {{VTK_TRIANGLE, {0, 1, 2}}});
    addNotes(*mesh);
    for (Deferral const deferral : {Deferral::Always, Deferral::Never})
        EXPECT_EQ(textOf(import(writeXml(*mesh, folder.path("m.vtu")), deferral).dataSet->zone(1)->auxiliaryData),
                  notes);
    vtkNew<vtkPolyData> faces;
    faces->SetPoints(mesh->GetPoints());
    addNotes(*faces);
    EXPECT_EQ(textOf(import(writeXml(*faces, folder.path("f.vtp"))).dataSet->zone(1)->auxiliaryData), notes);
}

TEST(FieldDataItems, ComeFromLegacyFilesToo)
{
    TemporaryFolder const folder;
    auto const grid = structuredGrid(3, 2, 1);
    addText(*grid, "Title", "Flow over a wing 100% & <more>");
    addNumber<vtkFloatArray>(*grid, "Mach", 0.1F);
    addNumber<vtkIntArray>(*grid, "CYCLE", -7);
    for (bool const binary : {false, true}) {
        auto const data = import(writeLegacy(*grid, folder.path("grid.vtk"), binary)).dataSet;
        EXPECT_EQ(textOf(data->zone(1)->auxiliaryData), "CYCLE=-7|Mach=0.1|Title=Flow over a wing 100% & <more>");
    }
}

TEST(FieldDataItems, OfALegacyFileMayHoldZeroBytesAndOthers)
{
    TemporaryFolder const folder;
    std::string const path = folder.write(
        "odd.vtk", "# vtk DataFile Version 4.0\nodd\nASCII\nDATASET STRUCTURED_POINTS\nDIMENSIONS 2 2 1\nORIGIN 0 0 "
                   "0\nSPACING 1 1 1\n"
                   "FIELD FieldData 3\nzero 1 1 string\na%00b\nbytes 1 1 string\ngr%FC%DF\nplain 1 1 string\nx%20y\n");
    auto const result = import(path);
    EXPECT_EQ(textOf(result.dataSet->zone(1)->auxiliaryData), "bytes=gr\xC3\xBC\xC3\x9F|plain=x y");
    EXPECT_THAT(result.remarks, Contains(HasSubstr("\"zero\" has zero bytes and was left out")));
}

TEST(FieldDataItems, OfAFileWithBlocksAreThoseOfTheDataSet)
{
    TemporaryFolder const folder;
    auto const blocks = twoBlocks();
    addNotes(*blocks);
    for (Mode const mode : {Mode::Ascii, Mode::Base64, Mode::Raw}) {
        std::string const path = writeBlocks(*blocks, folder.path("all.vtm"), mode);
        for (Deferral const deferral : {Deferral::Always, Deferral::Never}) {
            auto const result = import(path, deferral);
            EXPECT_EQ(textOf(result.dataSet->auxiliaryData()), notes);
            EXPECT_EQ(textOf(result.dataSet->zone(1)->auxiliaryData), "Part=hull");
            EXPECT_EQ(result.dataSet->zone(2)->auxiliaryData.size(), 0);
            EXPECT_THAT(result.remarks, IsEmpty());
        }
    }
}

TEST(FieldDataItems, OfALegacyFileWithBlocksAreThoseOfTheirZones)
{
    TemporaryFolder const folder;
    std::string const path = folder.path("several.vtk");
    vtkNew<vtkGenericDataObjectWriter> writer;
    writer->SetFileName(path.c_str());
    writer->SetInputDataObject(twoBlocks());
    ASSERT_EQ(writer->Write(), 1);
    auto const data = import(path).dataSet;
    EXPECT_EQ(allTextsOf(*data).substr(0, 10), "data set: ");
    EXPECT_EQ(textOf(data->zone(1)->auxiliaryData), "Part=hull");
}

TEST(FieldDataItems, AreOneForEachTextOfAnArray)
{
    TemporaryFolder const folder;
    auto const grid = structuredGrid(2, 2, 1);
    vtkNew<vtkStringArray> texts;
    texts->SetName("Steps");
    for (char const* text : {"mesh", "", "solve"})
        texts->InsertNextValue(text);
    grid->GetFieldData()->AddArray(texts);
    for (Mode const mode : {Mode::Ascii, Mode::Base64, Mode::Raw}) {
        auto const result = import(writeXml(*grid, folder.path("grid.vts"), mode));
        EXPECT_EQ(textOf(result.dataSet->zone(1)->auxiliaryData), "Steps=mesh|Steps_2=|Steps_3=solve");
        EXPECT_THAT(result.remarks, IsEmpty());
    }
}

TEST(FieldDataItems, AreNotMadeOfSeveralNumbers)
{
    TemporaryFolder const folder;
    auto const grid = structuredGrid(2, 2, 1);
    vtkNew<vtkStringArray> none;
    none->SetName("no text");
    grid->GetFieldData()->AddArray(none);
    vtkNew<vtkDoubleArray> vector;
    vector->SetName("vector");
    vector->SetNumberOfComponents(3);
    vector->InsertNextTuple3(1, 2, 3);
    grid->GetFieldData()->AddArray(vector);
    auto const result = import(writeXml(*grid, folder.path("grid.vts")));
    EXPECT_EQ(result.dataSet->zone(1)->auxiliaryData.size(), 0);
    EXPECT_THAT(result.remarks, Contains(HasSubstr("field data \"no text\", \"vector\" will not be in a saved file")));
}

TEST(FieldDataItems, MayBeOfAnySizeAndNumber)
{
    TemporaryFolder const folder;
    auto const grid = structuredGrid(2, 2, 1);
    addText(*grid, "long", std::string(200000, 'x'));
    addText(*grid, "bytes", "gr\xFC\xDF");
    for (int n = 0; n < 3000; ++n)
        addText(*grid, "note" + std::to_string(n), "x");
    addFact(*grid, "TimeValue", 4.5);
    for (Mode const mode : {Mode::Ascii, Mode::Raw}) {
        auto const result = import(writeXml(*grid, folder.path("grid.vts"), mode));
        kernel::AuxiliaryData const& items = result.dataSet->zone(1)->auxiliaryData;
        EXPECT_EQ(items.size(), app::AuxiliaryItems::mostItems);
        EXPECT_EQ(items.item(items.indexOf("bytes")).value, "gr\xC3\xBC\xC3\x9F");
        EXPECT_EQ(result.dataSet->zone(1)->solutionTime, 4.5) << "which stands behind them";
        std::string all;
        for (std::string const& text : result.remarks)
            all += text + '\n';
        EXPECT_THAT(all, HasSubstr("\"long\" was left out"));
        EXPECT_THAT(all, HasSubstr("1002 of its field data were not read"));
        EXPECT_THAT(all, HasSubstr("999 items of auxiliary data were left out"));
        EXPECT_LT(all.size(), 1000U);
    }
}

TEST(FieldDataItems, ThatAreDamagedBesideBlocksKeepNobodyFromTheZones)
{
    TemporaryFolder const folder;
    writeXml(*structuredGrid(2, 2, 1), folder.path("one.vts"));
    auto const blocksWith = [&](std::string const& arrays) {
        return import(
            folder.write("all.vtm", "<VTKFile type=\"vtkMultiBlockDataSet\" version=\"1.0\"><vtkMultiBlockDataSet>"
                                    "<DataSet index=\"0\" file=\"one.vts\"/></vtkMultiBlockDataSet><FieldData>" +
                                        arrays + "</FieldData></VTKFile>"));
    };
    auto const good =
        blocksWith("<Array type=\"String\" Name=\"a\" NumberOfTuples=\"1\" format=\"ascii\">72 105 0</Array>");
    EXPECT_EQ(textOf(good.dataSet->auxiliaryData()), "a=Hi");
    for (std::string const bad :
         {"<Array type=\"String\" Name=\"a\" NumberOfTuples=\"1000000000000\" format=\"ascii\">72 105 0</Array>",
          "<Array type=\"String\" Name=\"a\" NumberOfTuples=\"-1\" format=\"ascii\">72 105 0</Array>",
          "<Array type=\"String\" NumberOfTuples=\"1\" format=\"ascii\">72 105 0</Array>",
          "<DataArray type=\"Float64\" Name=\"a\" NumberOfTuples=\"1\" format=\"appended\" offset=\"99999\"/>",
          "<DataArray type=\"Nonsense\" Name=\"a\" NumberOfTuples=\"1\" format=\"ascii\">1</DataArray>",
          "<DataArray type=\"Float64\" Name=\"a\" NumberOfTuples=\"1\" format=\"ascii\">no number</DataArray>"}) {
        auto const result = blocksWith(bad);
        EXPECT_EQ(result.dataSet->zoneCount(), 1) << bad;
        EXPECT_LE(result.dataSet->auxiliaryData().size(), 1) << bad;
    }
}

TEST(FieldDataItems, OfUnknownTypesAreLeftInTheFile)
{
    TemporaryFolder const folder;
    std::string text = contentOf(writeXml(*structuredGrid(2, 2, 1), folder.path("one.vts"), Mode::Ascii));
    std::string const place = "<StructuredGrid ";
    std::size_t const at = text.find('>', text.find(place)) + 1;
    ASSERT_NE(text.find(place), std::string::npos);
    text.insert(at,
                "<FieldData><DataArray type=\"Nonsense\" Name=\"a\" NumberOfTuples=\"1\" format=\"ascii\">1</DataArray>"
                "<DataArray Name=\"b\" NumberOfTuples=\"1\" format=\"ascii\">1</DataArray>"
                "<DataArray type=\"Int8\" Name=\"c\" NumberOfTuples=\"1\" format=\"ascii\">-3</DataArray></FieldData>");
    for (Deferral const deferral : {Deferral::Always, Deferral::Never}) {
        auto const result = import(folder.write("odd.vts", text), deferral);
        EXPECT_EQ(textOf(result.dataSet->zone(1)->auxiliaryData), "c=-3");
        EXPECT_THAT(result.remarks, Contains(HasSubstr("2 of its field data were not read")));
    }
}

} // namespace veldraw::tests
