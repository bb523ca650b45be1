#include "operations/CommandRunner.h"

#include "operations/KernelOperations.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "tests/host/SampleSession.h"

namespace veldraw::tests {

using namespace operations;

namespace {

class CommandRunnerTest : public SampleSession
{
protected:
    void SetUp() override
    {
        SampleSession::SetUp();
        addZone(*dataSet, "wing", 3, 2);
        show(dataSet, PlotType_Cartesian2D);
    }

    Outcome run(std::string const& text) { return CommandRunner(session(), registry).run(*readCommand(text)); }

    std::string problemIn(std::vector<std::string> const& lines)
    {
        CommandRunner const runner(session(), registry);
        auto foresight = runner.foresight();
        for (std::string const& line : lines) {
            try {
                foresight.check(*readCommand(line));
            } catch (CommandError const& error) {
                return error.what();
            }
        }
        return "none";
    }

    /// An operation that is refused by its own words, or by an exception.
    void addFailing(std::string const& name, std::string const& failure, std::function<bool(Arguments const&)> run)
    {
        registry.add({name, name, "Fails.", {}, std::move(run), failure, ""});
    }

    std::shared_ptr<kernel::DataSet> const dataSet = makeDataSet({"x", "y", "p"});
    Registry registry = kernelOperations();
};

} // namespace

TEST_F(CommandRunnerTest, TellsSuccessInTheWordsOfTheDialog)
{
    Outcome const outcome = run("duplicate-zones zones=wing");
    EXPECT_TRUE(outcome.isDone);
    EXPECT_EQ("Duplicate zone(s) created", outcome.text);
    EXPECT_EQ(2, dataSet->zoneCount());
}

TEST_F(CommandRunnerTest, TellsFailureInTheWordsOfTheDialogWithTheReason)
{
    Outcome const outcome = run("delete-variables variables=*");
    EXPECT_FALSE(outcome.isDone);
    EXPECT_EQ("Error attempting to delete variable(s): The last variable of a data set cannot be deleted.",
              outcome.text)
        << session().lastError();
    EXPECT_EQ(3, dataSet->variableCount());
}

TEST_F(CommandRunnerTest, PutsAReasonBehindAFullStop)
{
    addFailing("one", "It failed.", [](Arguments const&) -> bool { throw std::runtime_error("The disk is full."); });
    addFailing("two", "It failed", [](Arguments const&) -> bool { throw std::bad_alloc(); });
    addFailing("three", "", [](Arguments const&) -> bool { throw std::runtime_error("The disk is full."); });
    addFailing("four", "It failed", [](Arguments const&) { return false; });
    EXPECT_EQ("It failed. The disk is full.", run("one").text);
    EXPECT_EQ("It failed: There is not enough memory.", run("two").text);
    EXPECT_EQ("The disk is full.", run("three").text);
    session().setLastError("an older reason");
    EXPECT_EQ("It failed", run("four").text) << "an older reason is none of this";
}

TEST_F(CommandRunnerTest, HoldsTheLockOfTheApplicationWhileACommandRuns)
{
    int depth = 0;
    addFailing("look", "", [&](Arguments const&) {
        depth = sdk::AppLock::depth();
        return true;
    });
    run("look");
    EXPECT_EQ(1, depth);
    EXPECT_EQ(0, sdk::AppLock::depth());
}

TEST_F(CommandRunnerTest, RefusesWhatDoesNotFitTheData)
{
    EXPECT_THROW(run("smooth zone=2 variable=p"), CommandError);
    session().clear();
    EXPECT_THROW(run("smooth zone=1 variable=p"), CommandError);
    EXPECT_TRUE(run("new-frame").isDone) << "no data are needed";
}

TEST_F(CommandRunnerTest, ForeseesWhatCanBeToldWithoutTheWork)
{
    EXPECT_EQ("none", problemIn({"smooth zone=1 variable=p", "set-title title=a"}));
    EXPECT_EQ("There is no zone 2; the last one is 1.", problemIn({"smooth zone=2 variable=p"}));
    EXPECT_EQ("none", problemIn({"duplicate-zones zones=1", "smooth zone=2 variable=p"}))
        << "zone 2 may be there by then";
    EXPECT_EQ("There is no zone 2; the last one is 1.",
              problemIn({"set-title title=a", "smooth zone=2 variable=p", "duplicate-zones zones=1"}));
    EXPECT_EQ("\"passes\" takes a number at least 1, at most 2147483647, not 0.",
              problemIn({"duplicate-zones zones=1", "smooth zone=2 variable=p passes=0"}));
    EXPECT_EQ(1, dataSet->zoneCount()) << "nothing was done";
}

TEST_F(CommandRunnerTest, ChecksTheFormOfACommandWithoutData)
{
    session().clear();
    CommandRunner const runner(session(), registry);
    EXPECT_NO_THROW(runner.checkForm(*readCommand("smooth zone=99 variable=nobody")));
    EXPECT_THROW(runner.checkForm(*readCommand("smooth zone=99")), CommandError);
    EXPECT_THROW(runner.checkForm(*readCommand("smoth zone=99 variable=p")), CommandError);
    EXPECT_EQ("\"smooth\" needs a data set, and none is open.", problemIn({"smooth zone=1 variable=1"}));
}

} // namespace veldraw::tests
