#include "app/export/writing/SaveJournal.h"

#include "app/export/writing/ExportError.h"
#include "tests/app/support/FileHelpers.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace veldraw::tests {

using ::testing::HasSubstr;

namespace {

std::string problemBeginning(std::string const& target)
{
    try {
        app::SaveJournal const journal(target);
        return {};
    } catch (app::ExportError const& error) {
        return error.what();
    }
}

// As notes are written: each text ends in a zero.
std::string notes(std::vector<std::string> const& entries)
{
    std::string text("veldraw save\0", 13);
    for (std::string const& entry : entries)
        text += entry + '\0';
    return text;
}

} // namespace

TEST(SaveJournal, LeavesNothingWhereNothingWasKept)
{
    TemporaryFolder const folder;
    {
        app::SaveJournal journal(folder.path("a.vtm"));
        journal.note({{"a.part", "b/1"}, {"b"}});
        journal.makeFolder("b");
        journal.makeFile("b/1", nullptr);
        journal.makeFile("a.part", nullptr);
        EXPECT_EQ(folder.listing(), "a.part a.vtm.veldraw-saving b b/1");
    }
    EXPECT_EQ(folder.listing(), "");
}

TEST(SaveJournal, LetsOneSaveOfANameGoOnAtATime)
{
    TemporaryFolder const folder;
    {
        app::SaveJournal const journal(folder.path("a.vtm"));
        EXPECT_THAT(problemBeginning(folder.path("a.vtm")), HasSubstr("another program is saving to this name"));
        EXPECT_EQ(problemBeginning(folder.path("b.vtm")), "");
    }
    EXPECT_EQ(problemBeginning(folder.path("a.vtm")), "");
}

TEST(SaveJournal, RemovesWhatACrashHasLeftButForWhatIsNeeded)
{
    TemporaryFolder const folder;
    pid_t const process = ::fork();
    if (process == 0) {
        app::SaveJournal journal(folder.path("a.vtm"));
        journal.note({{"a.part", "a/new", "a/old"}, {"a"}});
        journal.makeFolder("a");
        for (char const* name : {"a.part", "a/new", "a/old"})
            journal.makeFile(name, nullptr);
        ::_exit(0);
    }
    ::waitpid(process, nullptr, 0);
    EXPECT_EQ(folder.listing(), "a a.part a.vtm.veldraw-saving a/new a/old");
    app::SaveJournal(folder.path("a.vtm"), [] { return std::set<std::string>{"a/new"}; });
    EXPECT_EQ(folder.listing(), "a a/new");
}

TEST(SaveJournal, OfACrashWhileItWasWrittenIsNoObstacle)
{
    TemporaryFolder const folder;
    std::string const whole = notes({"fother"});
    folder.write("other", "is not noted as long as its zero is missing");
    for (std::size_t size = 0; size < whole.size(); ++size) {
        folder.write("a.vtm.veldraw-saving", whole.substr(0, size));
        EXPECT_EQ(problemBeginning(folder.path("a.vtm")), "") << size;
        EXPECT_EQ(folder.listing(), "other");
    }
}

TEST(SaveJournal, LeavesAloneAFileThatHappensToHaveItsName)
{
    TemporaryFolder const folder;
    folder.write("a.vtm.veldraw-saving", "something of the user's");
    EXPECT_THAT(problemBeginning(folder.path("a.vtm")), HasSubstr("stands where notes on the save would"));
    EXPECT_EQ(contentOf(folder.path("a.vtm.veldraw-saving")), "something of the user's");
}

TEST(SaveJournal, RemovesNothingThatASaveWouldNotMake)
{
    TemporaryFolder const folder;
    std::filesystem::create_directories(folder.path("here/a/b"));
    for (char const* name : {"outside", "here/a/b/deep", "here/a/kept"})
        folder.write(name, "the user's");
    std::filesystem::create_symlink("a/kept", folder.path("here/link"));
    folder.write("here/x.vtm.veldraw-saving",
                 notes({"f../outside", "f" + folder.path("outside"), "fa/../../outside", "fa/b/deep", "flink", "f", "",
                        "f.", "f..", "da/b", "d.", "d..", "d", "da", "fa"}));
    EXPECT_EQ(problemBeginning(folder.path("here/x.vtm")), "");
    EXPECT_EQ(folder.listing(), "here here/a here/a/b here/a/b/deep here/a/kept here/link outside");
}

TEST(SaveJournal, BelievesNobodyElse)
{
    TemporaryFolder const folder;
    std::string const mine = folder.write("mine", "the user's");
    std::string const planted = folder.write("a.vtm.veldraw-saving", notes({"fmine"}));
    bool const isForeign = ::chown(planted.c_str(), 4711, 4711) == 0;
    EXPECT_EQ(problemBeginning(folder.path("a.vtm")), "");
    EXPECT_EQ(std::filesystem::exists(mine), isForeign);
}

TEST(SaveJournal, TakesNamesOfAnyLength)
{
    TemporaryFolder const folder;
    std::string const longest(251, 'n');
    {
        app::SaveJournal const journal(folder.path(longest + ".vtm"));
        EXPECT_THAT(problemBeginning(folder.path(longest + ".vtm")), HasSubstr("another program"));
        EXPECT_EQ(problemBeginning(folder.path(longest + ".vtu")), "");
    }
    std::string letters;
    for (int n = 0; n < 120; ++n)
        letters += "ä";
    std::string const name = app::nameWithEnding(letters + "1234567890", ".veldraw-saving");
    EXPECT_LE(name.size(), 255U);
    EXPECT_EQ(name.substr(0, 2), "ä");
    EXPECT_EQ(name.find("\xC3-"), std::string::npos) << "a letter was cut in two";
}

} // namespace veldraw::tests
