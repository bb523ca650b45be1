#include "app/export/writing/SaveTarget.h"

#include "app/export/writing/ExportError.h"
#include "app/export/writing/FileSave.h"
#include "tests/app/support/FileHelpers.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace veldraw::tests {

using ::testing::HasSubstr;
using ::testing::ThrowsMessage;

namespace {

std::string problemAt(std::string const& path)
{
    try {
        app::SaveTarget const target(path);
        return {};
    } catch (app::ExportError const& error) {
        return error.what();
    }
}

} // namespace

TEST(SaveTarget, IsAFileThatIsThereOrNot)
{
    TemporaryFolder const folder;
    EXPECT_FALSE(app::SaveTarget(folder.path("new.vtu")).rights());
    EXPECT_TRUE(app::SaveTarget(folder.write("old.vtu", "old")).rights());
    EXPECT_EQ(app::folderOf("alone.vtu"), ".");
}

TEST(SaveTarget, RefusesWhatIsWriteProtected)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("a.vtu", "old");
    ::chmod(path.c_str(), 0444);
    EXPECT_EQ(problemAt(path), "the file that is there is write-protected") << "for root too, who could write it";
}

TEST(SaveTarget, RefusesAFileWithASecondName)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("a.vtu", "old");
    std::filesystem::create_hard_link(path, folder.path("b.vtu"));
    EXPECT_THAT(problemAt(path), HasSubstr("a second name (a hard link)"));
}

TEST(SaveTarget, RefusesWhatIsNoFile)
{
    TemporaryFolder const folder;
    ASSERT_EQ(::mkfifo(folder.path("pipe.csv").c_str(), 0600), 0);
    std::filesystem::create_directory(folder.path("folder.csv"));
    EXPECT_THAT(problemAt(folder.path("pipe.csv")), HasSubstr("no file but a device, a pipe"));
    EXPECT_THAT(problemAt("/dev/null"), HasSubstr("no file but a device, a pipe"));
    EXPECT_EQ(problemAt(folder.path("folder.csv")), "there is a folder of this name");
}

TEST(SaveTarget, SaysWhatIsWrongWithThePath)
{
    TemporaryFolder const folder;
    folder.write("file", "no folder");
    EXPECT_EQ(problemAt(folder.path("no/a.vtu")), "there is no such folder");
    EXPECT_EQ(problemAt(folder.path("file/a.vtu")), "a file stands where the path has a folder");
    EXPECT_EQ(problemAt(folder.path(std::string(300, 'n') + ".vtu")), "its name is too long");
}

TEST(SaveTarget, IsWhatALinkLeadsToEvenIfThatIsNotThere)
{
    TemporaryFolder const folder;
    std::filesystem::create_directory(folder.path("far"));
    std::filesystem::create_symlink("far/next.vtu", folder.path("first.vtu"));
    std::filesystem::create_symlink("real.vtu", folder.path("far/next.vtu"));
    EXPECT_EQ(app::SaveTarget(folder.path("first.vtu")).path(), folder.path("far/real.vtu"));
    std::filesystem::create_symlink("b.vtu", folder.path("a.vtu"));
    std::filesystem::create_symlink("a.vtu", folder.path("b.vtu"));
    EXPECT_EQ(problemAt(folder.path("a.vtu")), "its links lead in a circle");
}

TEST(SaveTarget, RefusesANameThatStandsForAnother)
{
    TemporaryFolder const folder;
    EXPECT_THAT(problemAt(folder.path("\xEF\xBF\xBD.vtu")), HasSubstr("letters that cannot be read"));
}

TEST(SaveTarget, IsNotReplacedWhenItHasChangedSince)
{
    TemporaryFolder const folder;
    folder.write("old.csv", "old");
    kernel::Progress progress;
    std::vector<std::string> remarks;
    app::FileSave narrowed(folder.path("old.csv"));
    ::chmod(folder.path("old.csv").c_str(), 0600);
    EXPECT_THAT([&] { narrowed.commit(progress, remarks); },
                ThrowsMessage<app::ExportError>("its owner or permissions have been changed meanwhile"));
    app::FileSave fresh(folder.path("new.csv"));
    folder.write("new.csv", "another program's");
    EXPECT_THAT([&] { fresh.commit(progress, remarks); },
                ThrowsMessage<app::ExportError>("another program has made a file of this name meanwhile"));
    EXPECT_EQ(contentOf(folder.path("old.csv")) + contentOf(folder.path("new.csv")), "oldanother program's");
}

TEST(SaveTarget, KeepsLinksThatLeadToNoFileYet)
{
    TemporaryFolder const folder;
    std::filesystem::create_symlink("real.csv", folder.path("link.csv"));
    app::FileSave save(folder.path("link.csv"));
    kernel::Progress progress;
    std::vector<std::string> remarks;
    save.commit(progress, remarks);
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path("link.csv")));
    EXPECT_TRUE(std::filesystem::is_regular_file(folder.path("real.csv")));
}

} // namespace veldraw::tests
