#include "app/files/FileStamp.h"

#include "app/files/ImportError.h"
#include "tests/app/support/FileHelpers.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace veldraw::tests {

using ::testing::HasSubstr;

namespace {

std::string problemOfStamped(app::FileStamp const& file)
{
    try {
        ::close(file.open());
        return {};
    } catch (app::ImportError const& error) {
        return error.what();
    }
}

// Nobody will ever write into it, so that whoever opens it to read would wait for ever.
void replaceByPipe(std::string const& path)
{
    std::filesystem::remove(path);
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
}

} // namespace

TEST(FileStamp, OpensTheFileThatItNoted)
{
    TemporaryFolder const folder;
    app::FileStamp const file(folder.write("a.raw", "123"));
    EXPECT_EQ(problemOfStamped(file), "");
}

TEST(FileStamp, RefusesAFileThatBecameAPipeWithoutWaitingForIt)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("a.raw", "123");
    app::FileStamp const file(path);
    replaceByPipe(path);
    EXPECT_THAT(problemOfStamped(file), HasSubstr("\"" + path + "\" has been changed since it was opened"));
}

TEST(FileStamp, TellsInPlainWordsThatTheFileHasGone)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("a.raw", "123");
    app::FileStamp const file(path);
    std::filesystem::remove(path);
    EXPECT_EQ(problemOfStamped(file), "\"" + path + "\" cannot be read any more: there is no such file");
}

TEST(FileStamp, OfEveryFormatKeepsALateLoadFromWaitingForAPipe)
{
    TemporaryFolder const folder;
    std::string const values = folder.write("a.raw", "\1\2\3");
    std::string const header = folder.write("a.mhd", "ObjectType = Image\nNDims = 1\nDimSize = 3\nElementType = "
                                                     "MET_UCHAR\nElementDataFile = a.raw\n");
    auto const image = import(header, app::Deferral::Always).dataSet;
    replaceByPipe(values);
    EXPECT_THAT(loadingProblem(*image, 1, "Value"), HasSubstr("\"" + values + "\" has been changed"));
    std::string const grid =
        folder.write("a.vti", "<VTKFile type=\"ImageData\" version=\"1.0\" byte_order=\"LittleEndian\"><ImageData "
                              "WholeExtent=\"0 2 0 0 0 0\" Origin=\"0 0 0\" Spacing=\"1 1 1\"><Piece Extent=\"0 2 0 0 "
                              "0 0\"><PointData><DataArray type=\"Float32\" Name=\"p\" format=\"ascii\">1 2 "
                              "3</DataArray></PointData></Piece></ImageData></VTKFile>");
    auto const dataSet = import(grid, app::Deferral::Always).dataSet;
    replaceByPipe(grid);
    EXPECT_THAT(loadingProblem(*dataSet, 1, "p"), HasSubstr("\"" + grid + "\" has been changed"));
}

} // namespace veldraw::tests
