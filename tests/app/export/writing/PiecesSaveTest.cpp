#include "app/export/writing/PiecesSave.h"

#include "app/export/formats/vtkxml/PieceNames.h"
#include "app/export/writing/ExportError.h"
#include "tests/app/support/FileHelpers.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace veldraw::tests {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

std::string const start = std::string("<?xml version=\"1.0\"?><!--") + app::markOfOwnPieces + "--><VTKFile>";

std::vector<std::string> saveTwo(std::string const& path)
{
    app::PiecesSave save(path, {"vts", "vtu"}, app::namedPieces);
    kernel::Progress progress;
    std::vector<std::string> remarks;
    save.commit(progress, remarks);
    return remarks;
}

std::string problemSavingTwo(std::string const& path)
{
    try {
        saveTwo(path);
        return {};
    } catch (app::ExportError const& error) {
        return error.what();
    }
}

unsigned rightsOf(std::string const& path)
{
    return static_cast<unsigned>(std::filesystem::status(path).permissions());
}

} // namespace

TEST(PiecesSave, RemovesOnlyWhatASaveOfTheNameMade)
{
    TemporaryFolder const folder;
    std::filesystem::create_directory(folder.path("a"));
    std::string index = start;
    for (char const* name : {"a/a_1.vts", "a/a_12-3.vtp", "a/b_1.vts", "a/a_.vts", "a/a_1-.vts", "a/a_2.vts.bak",
                             "a/a_3.txt", "b.vts", "a/../a_4.vts", "a_1.vts"}) {
        folder.write(name, "x");
        index += "<DataSet file=\"" + std::string(name) + "\"/>";
    }
    std::filesystem::create_symlink("../b.vts", folder.path("a/a_5.vts"));
    folder.write("a.vtm", index + "<DataSet file=\"a/a_5.vts\"/><DataSet file=\"a/a_6.vts\"/></VTKFile>");
    EXPECT_THAT(saveTwo(folder.path("a.vtm")), ElementsAre());
    EXPECT_EQ(folder.listing(), "a a.vtm a/a_.vts a/a_1-.vts a/a_1-2.vts a/a_2-2.vtu a/a_2.vts.bak a/a_3.txt a/a_5.vts "
                                "a/b_1.vts a_1.vts a_4.vts b.vts");
}

TEST(PiecesSave, KnowsItsPiecesHoweverTheyAreSpelt)
{
    TemporaryFolder const folder;
    std::string const path =
        folder.write("a.vtm", start + "<DataSet file=\"./a//a_1.vts\"/><DataSet file=\"" + folder.path("a/a_2.vts") +
                                  "\"/><DataSet file=\"a/x&amp;y.vts\"/><DataSet name=\"empty\"/><Damaged");
    app::NamedPieces const pieces = app::namedPieces(path);
    EXPECT_TRUE(pieces.areItsOwn);
    EXPECT_THAT(pieces.files, ElementsAre("a/a_1.vts", "a/a_2.vts", "a/x&y.vts"));
    EXPECT_FALSE(app::namedPieces(folder.write("b.vtm", "<VTKFile><DataSet file=\"b/1.vts\"/></VTKFile>")).areItsOwn);
    EXPECT_TRUE(app::namedPieces(folder.write("c.vtm", "no XML")).files.empty());
}

TEST(PiecesSave, GivesNobodyMoreRightsThanTheOldOnes)
{
    TemporaryFolder const folder;
    std::filesystem::create_directory(folder.path("a"));
    ::chmod(folder.write("a/a_1.vts", "x").c_str(), 0600);
    ::chmod(folder.write("a.vtm", start + "<DataSet file=\"a/a_1.vts\"/></VTKFile>").c_str(), 0644);
    saveTwo(folder.path("a.vtm"));
    EXPECT_EQ(rightsOf(folder.path("a.vtm")), 0644U);
    EXPECT_EQ(rightsOf(folder.path("a/a_1-2.vts")), 0600U);
    EXPECT_EQ(rightsOf(folder.path("a/a_2-2.vtu")), 0600U);
}

TEST(PiecesSave, RefusesALinkIntoAnotherFolder)
{
    TemporaryFolder const folder;
    std::filesystem::create_directory(folder.path("far"));
    folder.write("far/b.vtm", "old");
    std::filesystem::create_symlink("far/b.vtm", folder.path("a.vtm"));
    EXPECT_THAT(problemSavingTwo(folder.path("a.vtm")),
                AllOf(HasSubstr("it is a link to \"" + folder.path("far/b.vtm")), HasSubstr("save to that name")));
    EXPECT_EQ(folder.listing(), "a.vtm far far/b.vtm");
    std::filesystem::create_symlink("there.vtm", folder.path("here.vtm"));
    EXPECT_EQ(problemSavingTwo(folder.path("here.vtm")), "") << "the pieces stand beside both";
    EXPECT_EQ(folder.listing(), "a.vtm far far/b.vtm here.vtm there there.vtm there/there_1.vts there/there_2.vtu");
}

TEST(PiecesSave, NeedsANameThatAFolderCanHave)
{
    TemporaryFolder const folder;
    std::filesystem::create_directory(folder.path("in"));
    for (char const* name : {"in/...vtm", "in/..vtm"})
        EXPECT_THAT(problemSavingTwo(folder.path(name)), HasSubstr("cannot be one")) << name;
    std::filesystem::create_symlink("...vtm", folder.path("in/link.vtm"));
    EXPECT_THAT(problemSavingTwo(folder.path("in/link.vtm")), HasSubstr("\"..\" cannot be one"));
    EXPECT_EQ(folder.listing(), "in in/link.vtm");
    for (char const* name : {"in/....vtm", "in/ .vtm"})
        EXPECT_EQ(problemSavingTwo(folder.path(name)), "") << name;
    EXPECT_EQ(folder.listing(), "in in/  in/ .vtm in/ / _1.vts in/ / _2.vtu in/... in/....vtm in/.../..._1.vts "
                                "in/.../..._2.vtu in/link.vtm");
}

TEST(PiecesSave, LeavesWriteProtectedPiecesAlone)
{
    TemporaryFolder const folder;
    std::filesystem::create_directory(folder.path("a"));
    ::chmod(folder.write("a/a_1.vts", "x").c_str(), 0444);
    folder.write("a.vtm", start + "<DataSet file=\"a/a_1.vts\"/></VTKFile>");
    EXPECT_EQ(problemSavingTwo(folder.path("a.vtm")), "its old piece \"a/a_1.vts\" is write-protected");
    EXPECT_EQ(folder.listing(), "a a.vtm a/a_1.vts");
}

TEST(PiecesSave, TakesAFolderThatIsALink)
{
    TemporaryFolder const folder;
    std::filesystem::create_directory(folder.path("large disk"));
    std::filesystem::create_directory_symlink("large disk", folder.path("a"));
    folder.write("large disk/a_1.vts", "another file's, or an earlier one's");
    folder.write("a.vtm", start + "<DataSet file=\"a/a_1.vts\"/></VTKFile>");
    EXPECT_THAT(saveTwo(folder.path("a.vtm")), ElementsAre(HasSubstr("their folder is a link")));
    EXPECT_EQ(folder.listing(), "a a.vtm large disk large disk/a_1-2.vts large disk/a_1.vts large disk/a_2-2.vtu");
    folder.write("b", "no folder");
    EXPECT_THAT(problemSavingTwo(folder.path("b.vtm")), HasSubstr("a file of that name is there"));
    std::filesystem::create_symlink("nowhere", folder.path("c"));
    EXPECT_THAT(problemSavingTwo(folder.path("c.vtm")), HasSubstr("a link to nothing has its name"));
}

} // namespace veldraw::tests
