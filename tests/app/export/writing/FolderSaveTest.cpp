#include "app/export/writing/FolderSave.h"

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

bool isTable(std::string const& name)
{
    return name.find(".csv") != std::string::npos;
}

std::vector<std::string> saveTables(std::string const& folder, std::vector<std::string> const& names)
{
    app::FolderSave save(folder, names, isTable);
    kernel::Progress progress;
    std::vector<std::string> remarks;
    save.commit(progress, remarks);
    return remarks;
}

std::string problemSavingTables(std::string const& folder)
{
    try {
        saveTables(folder, {"1.csv"});
        return {};
    } catch (app::ExportError const& error) {
        return error.what();
    }
}

unsigned modeOfPath(std::string const& path)
{
    return static_cast<unsigned>(std::filesystem::status(path).permissions());
}

} // namespace

TEST(FolderSave, ReplacesAFolderAsAWholeAndKeepsItsRights)
{
    TemporaryFolder const folder;
    saveTables(folder.path("a"), {"1.csv", "2.csv", "3.csv"});
    ::chmod(folder.path("a").c_str(), 0750);
    ::chmod(folder.path("a/1.csv").c_str(), 0600);
    ::chmod(folder.path("a/2.csv").c_str(), 0640);
    EXPECT_THAT(saveTables(folder.path("a"), {"2.csv", "4.csv"}), ElementsAre());
    EXPECT_EQ(folder.listing(), "a a/2.csv a/4.csv");
    EXPECT_EQ(modeOfPath(folder.path("a")), 0750U);
    EXPECT_EQ(modeOfPath(folder.path("a/2.csv")), 0640U) << "as the old one of its name";
    EXPECT_EQ(modeOfPath(folder.path("a/4.csv")), 0600U) << "as the narrowest of the old ones";
}

TEST(FolderSave, TakesAnEmptyFolder)
{
    TemporaryFolder const folder;
    std::filesystem::create_directory(folder.path("a"));
    EXPECT_EQ(problemSavingTables(folder.path("a")), "");
    EXPECT_EQ(folder.listing(), "a a/1.csv");
}

TEST(FolderSave, RefusesWhereMoreThanTablesWouldGo)
{
    TemporaryFolder const folder;
    folder.write("file", "no folder");
    EXPECT_THAT(problemSavingTables(folder.path("file")), HasSubstr("a file of that name is there"));
    for (char const* name : {"other", "linked", "protected", "full"})
        std::filesystem::create_directory(folder.path(name));
    folder.write("other/notes.txt", "the user's");
    EXPECT_THAT(problemSavingTables(folder.path("other")), HasSubstr("something else in it (\"notes.txt\")"));
    std::filesystem::create_directory(folder.path("full/1.csv"));
    EXPECT_THAT(problemSavingTables(folder.path("full")), HasSubstr("something else in it (\"1.csv\")"));
    folder.write("protected/1.csv", "the user's");
    ::chmod(folder.path("protected/1.csv").c_str(), 0444);
    EXPECT_EQ(problemSavingTables(folder.path("protected")), "the file that is there is write-protected");
    std::filesystem::create_directory_symlink("other", folder.path("link"));
    EXPECT_THAT(problemSavingTables(folder.path("link")), HasSubstr("is a link, which a new folder would replace"));
    EXPECT_EQ(folder.listing(), "file full full/1.csv link linked other other/notes.txt protected protected/1.csv");
}

TEST(FolderSave, RefusesWhatCameIntoTheFolderMeanwhile)
{
    TemporaryFolder const folder;
    saveTables(folder.path("a"), {"1.csv"});
    app::FolderSave save(folder.path("a"), {"1.csv"}, isTable);
    folder.write("a/2.csv", "somebody else's");
    kernel::Progress progress;
    std::vector<std::string> remarks;
    EXPECT_THROW(save.commit(progress, remarks), app::ExportError);
    EXPECT_EQ(contentOf(folder.path("a/2.csv")), "somebody else's");
}

} // namespace veldraw::tests
