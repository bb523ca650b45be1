#include "app/export/writing/SaveJournal.h"

#include "app/export/writing/ExportError.h"
#include "app/export/writing/SaveNames.h"
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
        journal.note({{"a/a_1.vts"}, {"a"}, {}});
        journal.makeFile(journal.part(), nullptr);
        journal.makeFolder("a");
        journal.makeFile("a/a_1.vts", nullptr);
        for (std::string const& name : {journal.part(), std::string("a.vtm.veldraw-saving"), std::string("a/a_1.vts")})
            EXPECT_TRUE(std::filesystem::is_regular_file(folder.path(name))) << name;
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

TEST(SaveJournal, RemovesWhatACrashHasLeft)
{
    TemporaryFolder const folder;
    pid_t const process = ::fork();
    if (process == 0) {
        app::SaveJournal journal(folder.path("a.vtm"));
        journal.note({{"a/a_1.vts", "a/a_2.vtu"}, {"a"}, {}});
        journal.makeFile(journal.part(), nullptr);
        journal.makeFolder("a");
        journal.makeFile("a/a_1.vts", nullptr);
        journal.makeFile("a/a_2.vtu", nullptr);
        ::_exit(0);
    }
    ::waitpid(process, nullptr, 0);
    for (char const* name : {".part", "a.vtm.veldraw-saving", "a/a_1.vts", "a/a_2.vtu"})
        EXPECT_THAT(folder.listing(), HasSubstr(name));
    EXPECT_EQ(problemBeginning(folder.path("a.vtm")), "");
    EXPECT_EQ(folder.listing(), "");
}

TEST(SaveJournal, LeavesNewFilesOnceTheirPartHasBeenRenamed)
{
    std::string const text = notes({"pa.vtm.abcdefghij.part", "fa/a_1-2.vts", "oa/a_1.vts"});
    for (bool const isRenamed : {true, false}) {
        TemporaryFolder const folder;
        std::filesystem::create_directory(folder.path("a"));
        for (char const* name : {"a/a_1.vts", "a/a_1-2.vts"})
            folder.write(name, "the user's, who has moved a.vtm away since");
        folder.write("a.vtm.veldraw-saving", text);
        if (!isRenamed)
            folder.write("a.vtm.abcdefghij.part", "not finished");
        EXPECT_EQ(problemBeginning(folder.path("a.vtm")), "");
        EXPECT_EQ(folder.listing(), isRenamed ? "a a/a_1-2.vts a/a_1.vts" : "a a/a_1.vts");
    }
}

TEST(SaveJournal, RemovesOldFilesOnceTheTargetNeedsTheNewOnes)
{
    TemporaryFolder const folder;
    std::filesystem::create_directory(folder.path("a"));
    for (char const* name : {"a/a_1-2.vts", "a/a_1.vts", "a/a_2.vts"})
        folder.write(name, "a piece");
    folder.write("a.vtm.veldraw-saving", notes({"pa.vtm.abcdefghij.part", "fa/a_1-2.vts", "oa/a_1.vts", "oa/a_2.vts"}));
    app::SaveJournal(folder.path("a.vtm"), [] { return std::set<std::string>{"a/a_1-2.vts", "a/a_2.vts"}; });
    EXPECT_EQ(folder.listing(), "a a/a_1-2.vts a/a_2.vts");
}

TEST(SaveJournal, OfACrashWhileItWasWrittenIsNoObstacle)
{
    TemporaryFolder const folder;
    std::string const whole = notes({"pa.vtm.abcdefghij.part", "fa/a_1.vts"});
    folder.write("other", "the user's");
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
    std::filesystem::create_directories(folder.path("here/x/b"));
    std::filesystem::create_directories(folder.path("here/y"));
    for (char const* name : {"outside", "here/thesis.tex", "here/x/b/x_1.vts", "here/x/kept", "here/x/x_1.txt",
                             "here/y/x_1.vts", "here/y/y_1.vts", "here/x_1.vts", "here/x.vtm.part",
                             "here/y.vtm.abcdefghij.part", "here/x.vtm.ABCDEFGHIJ.part"})
        folder.write(name, "the user's");
    std::filesystem::create_symlink("kept", folder.path("here/x/x_5.vts"));
    std::string const before = folder.listing();
    std::vector<std::string> entries{"px.vtm.abcdefghij.part", "", "p", "f", "d", "o"};
    for (std::string const name :
         {"../outside", "x/../../outside", "thesis.tex", "x/b/x_1.vts", "x/kept", "x/x_1.txt", "y/x_1.vts", "y/y_1.vts",
          "x_1.vts", "x.vtm.part", "y.vtm.abcdefghij.part", "x.vtm.ABCDEFGHIJ.part", "x/x_5.vts", ".", "..", "x", "y",
          "x/b", "../here/x/kept"}) {
        for (char const* kind : {"f", "d", "o"})
            entries.push_back(kind + name);
    }
    entries.push_back("f" + folder.path("outside"));
    folder.write("here/x.vtm.abcdefghij.part", "");
    folder.write("here/x.vtm.veldraw-saving", notes(entries));
    EXPECT_EQ(problemBeginning(folder.path("here/x.vtm")), "");
    EXPECT_EQ(folder.listing(), before);
    for (std::string const part : {"pthesis.tex", "p../outside", "py.vtm.abcdefghij.part", "px.vtm.ABCDEFGHIJ.part"}) {
        folder.write("here/x.vtm.veldraw-saving", notes({part}));
        EXPECT_EQ(problemBeginning(folder.path("here/x.vtm")), "");
        EXPECT_EQ(folder.listing(), before);
    }
}

TEST(SaveJournal, RemovesNothingThroughALink)
{
    TemporaryFolder const folder;
    for (char const* name : {"there", "here"})
        std::filesystem::create_directory(folder.path(name));
    std::filesystem::create_directory_symlink("../there", folder.path("here/a"));
    std::filesystem::create_directory_symlink("../there", folder.path("here/a_tables.abcdefghij.part"));
    for (char const* name : {"there/a_1.vts", "there/a_1.csv"})
        folder.write(name, "another file's");
    folder.write("here/a.vtm.abcdefghij.part", "");
    folder.write("here/a.vtm.veldraw-saving", notes({"pa.vtm.abcdefghij.part", "fa/a_1.vts"}));
    folder.write("here/a_tables.veldraw-saving",
                 notes({"pa_tables.abcdefghij.part", "fa_tables.abcdefghij.part/a_1.csv"}));
    EXPECT_EQ(problemBeginning(folder.path("here/a.vtm")), "");
    EXPECT_EQ(problemBeginning(folder.path("here/a_tables")), "");
    EXPECT_EQ(folder.listing(), "here here/a here/a_tables.abcdefghij.part there there/a_1.csv there/a_1.vts");
}

TEST(SaveJournal, OfAnotherUserIsEndedWithWhatIsThatUsersOwn)
{
    TemporaryFolder const folder;
    std::filesystem::create_directory(folder.path("a"));
    for (char const* name : {"a/a_1.vts", "a/a_2.vts", "a.vtm.abcdefghij.part"})
        folder.write(name, "a piece");
    folder.write("a.vtm.veldraw-saving", notes({"pa.vtm.abcdefghij.part", "fa/a_1.vts", "fa/a_2.vts"}));
    bool isForeign = true; // only root can make files of others
    for (char const* name : {"a/a_1.vts", "a.vtm.abcdefghij.part", "a.vtm.veldraw-saving"})
        isForeign = ::chown(folder.path(name).c_str(), 4711, 4711) == 0 && isForeign;
    EXPECT_EQ(problemBeginning(folder.path("a.vtm")), "");
    EXPECT_EQ(folder.listing(), isForeign ? "a a/a_2.vts" : "a") << "a hostile user may note what is not theirs";
}

TEST(SaveJournal, WithASecondNameMayBeOfAnotherFolder)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("a.vtm.veldraw-saving", notes({"pa.vtm.abcdefghij.part"}));
    std::filesystem::create_hard_link(path, folder.path("b"));
    folder.write("a.vtm.abcdefghij.part", "x");
    EXPECT_THAT(problemBeginning(folder.path("a.vtm")), HasSubstr("stands where notes on the save would"));
    EXPECT_EQ(folder.listing(), "a.vtm.abcdefghij.part a.vtm.veldraw-saving b");
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
