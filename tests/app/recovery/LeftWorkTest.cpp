#include "app/recovery/LeftWork.h"

#include "app/recovery/RecoveryFile.h"
#include "tests/app/support/FileHelpers.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace veldraw::tests {

using app::LeftWork;
using app::RecoveryStep;

namespace {

class LeftWorkTest : public ::testing::Test
{
protected:
    static RecoveryStep step(RecoveryStep::Kind kind, std::string const& text)
    {
        RecoveryStep made;
        made.kind = kind;
        made.text = text;
        made.altersData = kind == RecoveryStep::Kind::Command;
        return made;
    }

    static std::string records(std::string const& title)
    {
        app::RecoveryRecords records;
        return records.start({step(RecoveryStep::Kind::Open, "open files=/a.vtu,/b.vtu"),
                              step(RecoveryStep::Kind::Open, "open files=/b.vtu new-frames=yes"),
                              step(RecoveryStep::Kind::Command, "set-title title=" + title)});
    }

    void setTime(std::string const& name, std::time_t time) const
    {
        timespec const times[2] = {{time, 0}, {time, 0}};
        ASSERT_EQ(0, ::utimensat(AT_FDCWD, folder.path(name).c_str(), times, 0));
    }

    std::vector<std::unique_ptr<LeftWork>> find() const { return LeftWork::findAll(folder.path("")); }

    TemporaryFolder folder;
};

} // namespace

TEST_F(LeftWorkTest, IsFoundWithTheNewestFirst)
{
    EXPECT_TRUE(LeftWork::findAll(folder.path("nowhere")).empty());
    folder.write("1.recovery", records("older"));
    folder.write("2.recovery", records("newer"));
    folder.write("notes.txt", records("other"));
    setTime("1.recovery", 1700000000);
    setTime("2.recovery", 1700000060);
    auto const found = find();
    ASSERT_EQ(2u, found.size());
    EXPECT_EQ("set-title title=newer", found[0]->content().steps[2].text);
    EXPECT_EQ("set-title title=older", found[1]->content().steps[2].text);
    EXPECT_EQ(1700000060, found[0]->time());
    EXPECT_EQ((std::vector<std::string>{"/a.vtu", "/b.vtu"}), found[0]->files());
}

TEST_F(LeftWorkTest, IsFoundByOneProgramAtATime)
{
    folder.write("1.recovery", records("a"));
    {
        auto const found = find();
        ASSERT_EQ(1u, found.size());
        EXPECT_TRUE(find().empty());
    }
    EXPECT_EQ(1u, find().size());
}

TEST_F(LeftWorkTest, IsNotThatOfAProgramThatRuns)
{
    {
        app::RecoveryFile first(folder.path(""), [](std::string const&) {});
        app::RecoveryFile second(folder.path(""), [](std::string const&) {});
        for (app::RecoveryFile* const file : {&first, &second}) {
            file->begin(records("a"));
            ASSERT_TRUE(file->finish());
        }
        EXPECT_TRUE(find().empty());
    }
    EXPECT_EQ(2u, find().size()) << "a file for each program";
}

TEST_F(LeftWorkTest, GoesWhenItIsDiscarded)
{
    folder.write("1.recovery", records("a"));
    find().front()->discard();
    EXPECT_EQ("", folder.listing());
}

TEST_F(LeftWorkTest, IsNothingWhereNoStepWouldBeLost)
{
    app::RecoveryRecords records;
    folder.write("1.recovery", records.start({step(RecoveryStep::Kind::Open, "open files=/a.vtu")}));
    folder.write("2.recovery", "");
    folder.write("3.recovery-new", "begun");
    folder.write("4.recovery-new", "begun just now");
    setTime("3.recovery-new", 1700000000);
    EXPECT_TRUE(find().empty());
    EXPECT_EQ("4.recovery-new", folder.listing());
}

TEST_F(LeftWorkTest, IsKeptWhereItCannotBeRead)
{
    folder.write("1.recovery", "x" + records("a"));
    ASSERT_EQ(0, ::mkfifo(folder.path("2.recovery").c_str(), 0600));
    auto const found = find();
    ASSERT_EQ(1u, found.size());
    EXPECT_TRUE(found.front()->content().isDamaged);
    EXPECT_EQ("1.recovery 2.recovery", folder.listing());
}

} // namespace veldraw::tests
