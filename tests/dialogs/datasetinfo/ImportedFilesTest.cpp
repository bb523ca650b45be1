#include "dialogs/datasetinfo/ImportedFiles.h"

#include "tests/dialogs/models/SampleSession.h"
#include "tests/support/KernelSpy.h"

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using sdk::ui::propertymanager::importedFiles;

/// A data set that remembers some loads.
class ImportedFilesTest : public testing::Test
{
protected:
    void remember(std::vector<kernel::LoaderInstructions> const& loads)
    {
        sample.dataSet().loaderInstructions() = loads;
    }

    SampleSession sample{{"Wing"}, {"X"}};
};

TEST_F(ImportedFilesTest, AreNoneForADataSetThatWasNotLoaded)
{
    EXPECT_EQ(importedFiles(), "");
}

TEST_F(ImportedFilesTest, AreNoneWithoutADataSet)
{
    remember({{"VELDRAW", {"a.dat"}}});
    sample.session().clear();
    EXPECT_EQ(importedFiles(), "");
}

TEST_F(ImportedFilesTest, AreThoseOfEachLoadOneALine)
{
    remember({{"VTK", {"FILENAME_", "/data/wing.vtu"}},
              {"VELDRAW", {"a.dat", "b.dat"}},
              {"Tables", {"FILELIST_", "2", "c.csv", "d.csv", "DIRNAME_", "/data/tables"}}});
    EXPECT_EQ(importedFiles(), "/data/wing.vtu\na.dat\nb.dat\nc.csv\nd.csv\n/data/tables\n");
}

TEST_F(ImportedFilesTest, KeepTheirOddCharacters)
{
    std::string const odd = "/data/Größe 測定/\xF0\x9D\x84\x9E \"a\" & <b>\\c.vtu";
    remember({{"VTK", {"FILENAME_", odd}}});
    EXPECT_EQ(importedFiles(), odd + "\n");
}

TEST_F(ImportedFilesTest, LeaveOutTheLoadWhoseInstructionsCannotBeRead)
{
    remember({{"VTK", {"FILENAME_", "a"}},
              {"Strange", {"FILENAME_", "b", "FILELIST_", "many", "c"}},
              {"VTK", {"FILENAME_", "d"}}});
    EXPECT_EQ(importedFiles(), "a\nd\n");
}

TEST_F(ImportedFilesTest, LeaveOutTheLoadThatTheKernelDoesNotTell)
{
    remember({{"VTK", {"FILENAME_", "a"}}, {"VTK", {"FILENAME_", "b"}}});
    KernelSpy spy;
    spy.failNext("VelUtilImportGetLoaderInstrByNum");
    EXPECT_EQ(importedFiles(), "b\n");
}

TEST_F(ImportedFilesTest, GiveBackWhatTheKernelHandsOut)
{
    remember({{"VTK", {"FILENAME_", "a"}}, {"Strange", {"FILELIST_", "many", "c"}}});
    KernelSpy const spy;
    importedFiles();
    EXPECT_EQ(spy.count("VelUtilImportGetLoaderInstrCount"), 1);
    EXPECT_EQ(spy.count("VelUtilImportGetLoaderInstrByNum"), 2);
    EXPECT_EQ(spy.count("VelUtilStringListDealloc"), 2);
    EXPECT_EQ(spy.count("VelUtilStringDealloc"), 2);
}

} // namespace
} // namespace veldraw::tests
