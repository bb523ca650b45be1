#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/GridSamples.h"

#include <vtkGenericDataObjectWriter.h>
#include <vtkMultiBlockDataSet.h>
#include <vtkNew.h>

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using ::testing::ElementsAre;

namespace {

std::vector<std::string> wordsOf(std::string const& path)
{
    auto const data = import(path).dataSet;
    EXPECT_EQ(data->loaderInstructions().size(), 1U);
    return data->loaderInstructions().at(0).words;
}

std::string multiBlock(std::vector<std::string> const& pieces)
{
    std::string text = "<VTKFile type=\"vtkMultiBlockDataSet\" version=\"1.0\"><vtkMultiBlockDataSet>";
    for (std::size_t n = 0; n < pieces.size(); ++n)
        text += "<DataSet index=\"" + std::to_string(n) + "\" file=\"" + pieces[n] + "\"/>";
    return text + "</vtkMultiBlockDataSet></VTKFile>";
}

} // namespace

TEST(LoaderInstructions, NameTheFileWhateverItIsCalled)
{
    TemporaryFolder const folder;
    for (std::string const name :
         {"plain.csv", "FILENAME_.csv", "Strömung 流れ.csv", "\"q\" 'a'\n& FILELIST_ 3.csv", " DIRNAME_ .csv"}) {
        std::string const path = folder.write(name, "x,y\n1,2\n3,4\n");
        EXPECT_THAT(wordsOf(path), ElementsAre("FILENAME_", path));
    }
}

TEST(LoaderInstructions, NameEachPieceOfAMultiBlockFileOnceBesideTheFile)
{
    TemporaryFolder const folder;
    std::filesystem::create_directory(folder.path("parts ä"));
    std::string const first = writeXml(*structuredGrid(2, 2, 1), folder.path("parts ä/one.vts"));
    std::string const second = writeXml(*structuredGrid(3, 2, 1), folder.path("parts ä/FILENAME_2.vts"));
    std::string const all =
        folder.write("all.vtm", multiBlock({"parts ä/one.vts", "parts ä/FILENAME_2.vts", "parts ä/one.vts"}));
    EXPECT_THAT(wordsOf(all), ElementsAre("FILENAME_", all, "FILELIST_", "2", first, second));
}

TEST(LoaderInstructions, NameTheFileWithTheValuesBesideItsHeader)
{
    TemporaryFolder const folder;
    std::string const raw = folder.write("values.raw", std::string(8, '\1'));
    std::string const header =
        folder.write("image.mhd", "ObjectType = Image\nNDims = 3\nDimSize = 2 2 2\nElementType = MET_UCHAR\n"
                                  "ElementDataFile = values.raw\n");
    EXPECT_THAT(wordsOf(header), ElementsAre("FILENAME_", header, "FILELIST_", "1", raw));
    std::string const whole =
        folder.write("image.mha", "ObjectType = Image\nNDims = 3\nDimSize = 2 2 2\nElementType = MET_UCHAR\n"
                                  "ElementDataFile = LOCAL\n" +
                                      std::string(8, '\1'));
    EXPECT_THAT(wordsOf(whole), ElementsAre("FILENAME_", whole));
}

TEST(LoaderInstructions, DoNotNameTheTemporaryFilesOfALegacyOne)
{
    TemporaryFolder const folder;
    std::string const one = writeLegacy(*structuredGrid(2, 2, 1), folder.path("one.vtk"), true);
    EXPECT_THAT(wordsOf(one), ElementsAre("FILENAME_", one));
    vtkNew<vtkMultiBlockDataSet> blocks;
    blocks->SetBlock(0, structuredGrid(2, 2, 1));
    blocks->SetBlock(1, structuredGrid(3, 2, 1));
    std::string const several = folder.path("several.vtk");
    vtkNew<vtkGenericDataObjectWriter> writer;
    writer->SetFileName(several.c_str());
    writer->SetInputDataObject(blocks);
    ASSERT_EQ(writer->Write(), 1);
    EXPECT_THAT(wordsOf(several), ElementsAre("FILENAME_", several));
}

TEST(LoaderInstructions, HoldFromWhereverTheProgramWasStarted)
{
    TemporaryFolder const folder;
    auto const before = std::filesystem::current_path();
    writeXml(*structuredGrid(2, 2, 1), folder.path("one.vts"));
    folder.write("all.vtm", multiBlock({"one.vts"}));
    std::filesystem::current_path(folder.path("."));
    std::string const here = std::filesystem::current_path().string();
    auto const words = wordsOf("all.vtm");
    std::filesystem::current_path(before);
    EXPECT_THAT(words, ElementsAre("FILENAME_", here + "/all.vtm", "FILELIST_", "1", here + "/one.vts"));
}

} // namespace veldraw::tests
