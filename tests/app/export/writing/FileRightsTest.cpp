#include "app/export/writing/FileRights.h"

#include "app/export/writing/ExportError.h"
#include "app/export/writing/FileSave.h"
#include "tests/app/support/FileHelpers.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace veldraw::tests {

namespace {

unsigned modeOf(std::string const& path)
{
    struct stat facts
    {
    };
    EXPECT_EQ(::stat(path.c_str(), &facts), 0);
    return facts.st_mode & 07777U;
}

constexpr char const* listName = "system.posix_acl_access";

std::string listOf(std::string const& path)
{
    std::array<char, 200> list{};
    ssize_t const size = ::getxattr(path.c_str(), listName, list.data(), list.size());
    return size < 0 ? std::string() : std::string(list.data(), static_cast<std::size_t>(size));
}

// Lets the user 4711 read a file besides its owner, as far as the file system knows such lists.
void letAnotherUserRead(std::string const& path)
{
    struct Entry
    {
        std::uint16_t tag;
        std::uint16_t permission;
        std::uint32_t id;
    };
    constexpr std::uint32_t nobody = 0xFFFFFFFFU;
    std::array<Entry, 5> const entries{
        {{1, 6, nobody}, {2, 4, 4711}, {4, 0, nobody}, {0x10, 4, nobody}, {0x20, 0, nobody}}};
    std::array<char, sizeof(std::uint32_t) + sizeof entries> list{};
    std::uint32_t const version = 2;
    std::memcpy(list.data(), &version, sizeof version);
    std::memcpy(list.data() + sizeof version, entries.data(), sizeof entries);
    bool const isSet = ::setxattr(path.c_str(), listName, list.data(), list.size(), 0) == 0;
    EXPECT_TRUE(isSet || errno == ENOTSUP);
}

void commit(app::FileSave& save)
{
    kernel::Progress progress;
    std::vector<std::string> remarks;
    save.commit(progress, remarks);
    EXPECT_TRUE(remarks.empty());
}

// What an ordinary user is told who saves; root becomes one for it.
std::string problemOfOrdinaryUser(std::string const& path)
{
    int pipe[2] = {};
    EXPECT_EQ(::pipe(pipe), 0);
    pid_t const process = ::fork();
    if (process == 0) {
        std::string problem;
        try {
            if (::geteuid() == 0 && (::setresgid(65534, 65534, 65534) != 0 || ::setresuid(65534, 65534, 65534) != 0))
                problem = "root cannot become somebody else";
            app::FileSave save(path);
        } catch (app::ExportError const& error) {
            problem = error.what();
        }
        ::_exit(::write(pipe[1], problem.data(), problem.size()) == static_cast<ssize_t>(problem.size()) ? 0 : 1);
    }
    ::close(pipe[1]);
    std::array<char, 500> text{};
    ssize_t const size = ::read(pipe[0], text.data(), text.size());
    ::close(pipe[0]);
    int status = 0;
    EXPECT_EQ(::waitpid(process, &status, 0), process);
    EXPECT_EQ(status, 0);
    return {text.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0))};
}

} // namespace

TEST(FileRights, AreThoseOfTheOldFileFromTheFirstMoment)
{
    TemporaryFolder const folder;
    for (unsigned const mode : {0600U, 0640U, 0604U, 0666U, 0777U}) {
        std::string const path = folder.write("a.csv", "old");
        ::chmod(path.c_str(), mode);
        app::FileSave save(path);
        EXPECT_EQ(modeOf(save.path()), mode) << "while it is written";
        commit(save);
        EXPECT_EQ(modeOf(path), mode);
    }
}

TEST(FileRights, OfANewFileAreTheUsualOnes)
{
    TemporaryFolder const folder;
    std::string const usual = folder.write("usual.csv", "");
    app::FileSave save(folder.path("a.csv"));
    commit(save);
    EXPECT_EQ(modeOf(folder.path("a.csv")), modeOf(usual));
}

TEST(FileRights, TakeAccessControlListsAlong)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("a.csv", "old");
    ::chmod(path.c_str(), 0600);
    letAnotherUserRead(path);
    std::string const list = listOf(path);
    app::FileSave save(path);
    commit(save);
    EXPECT_EQ(listOf(path), list);
    EXPECT_TRUE(list.empty() || modeOf(path) == 0640U) << "the mask of the list";
}

TEST(FileRights, AreNotThoseThatTheFolderWouldGive)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("a.csv", "old");
    ::chmod(path.c_str(), 0600);
    std::string const pattern = folder.write("pattern", "");
    letAnotherUserRead(pattern);
    std::string const list = listOf(pattern);
    std::string const place = std::filesystem::path(path).parent_path().string();
    bool const isSet = ::setxattr(place.c_str(), "system.posix_acl_default", list.data(), list.size(), 0) == 0;
    app::FileSave save(path);
    commit(save);
    EXPECT_EQ(listOf(path), "");
    EXPECT_EQ(modeOf(path), 0600U);
    EXPECT_NE(isSet, list.empty());
}

TEST(FileRights, OfPiecesAreNarrowedToWhatAllAllow)
{
    TemporaryFolder const folder;
    std::string const first = folder.write("first", "");
    std::string const second = folder.write("second", "");
    ::chmod(first.c_str(), 0664);
    ::chmod(second.c_str(), 0640);
    app::FileRights rights(first);
    rights.narrowTo(app::FileRights(second));
    app::FileSave save(folder.path("a.csv"));
    app::SaveJournal journal(folder.path("b.csv"));
    journal.makeFile("made", &rights);
    EXPECT_EQ(modeOf(folder.path("made")), 0640U);
}

TEST(FileRights, AreNarrowedForAGroupThatIsNotTheSame)
{
    TemporaryFolder const folder;
    std::string const first = folder.write("first", "");
    std::string const second = folder.write("second", "");
    for (std::string const& path : {first, second})
        ::chmod(path.c_str(), 0660);
    bool const isOther = ::chown(second.c_str(), static_cast<uid_t>(-1), 4711) == 0; // only root can do that
    app::FileRights rights(first);
    rights.narrowTo(app::FileRights(second));
    app::SaveJournal journal(folder.path("b.csv"));
    journal.makeFile("made", &rights);
    EXPECT_EQ(modeOf(folder.path("made")), isOther ? 0600U : 0660U);
}

TEST(FileRights, ThatCannotBeKeptAreAReasonToRefuse)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("a.csv", "old");
    std::string const place = std::filesystem::path(path).parent_path().string();
    ::chmod(place.c_str(), 0777);
    ::chmod(path.c_str(), 0666);
    std::string const problem = problemOfOrdinaryUser(path);
    bool const isOwn = ::geteuid() != 0;
    EXPECT_EQ(problem,
              isOwn ? "" : "the file that is there belongs to another user or group, which a new one would not");
    ::chmod(path.c_str(), 0400);
    EXPECT_EQ(problemOfOrdinaryUser(path), "the file that is there is write-protected");
    ::chmod(place.c_str(), 0555);
    EXPECT_EQ(problemOfOrdinaryUser(path), "you have no permission to write into its folder");
    EXPECT_EQ(contentOf(path), "old");
    ::chmod(place.c_str(), 0700);
    EXPECT_EQ(folder.listing(), "a.csv");
}

} // namespace veldraw::tests
