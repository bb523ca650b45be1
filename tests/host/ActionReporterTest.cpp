#include "platform/vdsdkcommon/ActionReporter.h"

#include "host/MessageLog.h"
#include "kernel/operations/DeleteVariables.h"
#include "tests/host/MessageRecorder.h"
#include "tests/host/SampleSession.h"
#include "tests/support/LoggedTexts.h"

#include <gmock/gmock.h>
#include <stdexcept>

namespace veldraw::tests {

using sdk::velUtilActionReporter;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ActionReporter : public SampleSession
{
protected:
    void SetUp() override
    {
        SampleSession::SetUp();
        host::MessageLog::instance().clear();
    }

    std::function<char()> action(char result)
    {
        return [this, result] {
            ++m_runs;
            return result;
        };
    }

    MessageRecorder m_recorder;
    int m_runs = 0;
};

TEST_F(ActionReporter, TellsASuccessAsAnInformation)
{
    EXPECT_EQ(velUtilActionReporter(action(1), "Could not do it.", "Done."), 1);
    EXPECT_THAT(m_recorder.messages(), ElementsAre("2: Done."));
    EXPECT_EQ(m_runs, 1);
}

TEST_F(ActionReporter, TellsAFailureAsAnError)
{
    EXPECT_EQ(velUtilActionReporter(action(0), "Could not do it.", "Done."), 0);
    EXPECT_THAT(m_recorder.messages(), ElementsAre("0: Could not do it."));
    EXPECT_EQ(m_runs, 1);
}

TEST_F(ActionReporter, ReturnsWhatTheActionReturned)
{
    EXPECT_EQ(velUtilActionReporter(action(7), "no", "yes"), 7);
    EXPECT_THAT(m_recorder.messages(), ElementsAre("2: yes"));
}

TEST_F(ActionReporter, IsSilentOnSuccessWithoutAText)
{
    EXPECT_EQ(velUtilActionReporter(action(1), "Could not do it.", ""), 1);
    EXPECT_THAT(m_recorder.messages(), IsEmpty());
}

TEST_F(ActionReporter, RunsTheActionOnceAlsoWithoutTexts)
{
    EXPECT_EQ(velUtilActionReporter(action(0), "", ""), 0);
    EXPECT_EQ(velUtilActionReporter(action(1), "", ""), 1);
    EXPECT_EQ(m_runs, 2);
    EXPECT_THAT(m_recorder.messages(), IsEmpty());
}

TEST_F(ActionReporter, LetsExceptionsPass)
{
    auto const thrower = []() -> char { throw std::runtime_error("boom"); };
    EXPECT_THROW(velUtilActionReporter(thrower, "no", "yes"), std::runtime_error);
    EXPECT_THAT(m_recorder.messages(), IsEmpty());
}

TEST_F(ActionReporter, WritesTheKernelsReasonToTheLogAlone)
{
    auto const dataSet = makeDataSet({"X"});
    addZone(*dataSet, "zone", 2);
    show(dataSet, PlotType_XYLine);
    auto const refused = [&dataSet]() -> char { return session().perform(kernel::DeleteVariables(*dataSet, {5})); };
    velUtilActionReporter(refused, "Could not do it.", "");
    ASSERT_FALSE(session().lastError().empty());
    EXPECT_THAT(m_recorder.messages(), ElementsAre("0: Could not do it."));
    EXPECT_THAT(loggedTexts(), ElementsAre(session().lastError(), "Could not do it."));
}

TEST_F(ActionReporter, GivesTheKernelsReasonAsTheDetailsOfTheMessage)
{
    auto const refused = []() -> char { return session().refuse("The Z axis has no variable."); };
    velUtilActionReporter(refused, "Could not do it.", "");
    velUtilActionReporter(action(0), "Could not do it.", "");
    velUtilActionReporter(action(1), "", "Done.");
    EXPECT_THAT(m_recorder.details(), ElementsAre("The Z axis has no variable.", "", ""));
    EXPECT_EQ(host::MessagePresenter::details(), "");
}

TEST_F(ActionReporter, DoesNotGiveAnEarlierReasonForAnotherFailure)
{
    session().setLastError("an earlier reason");
    velUtilActionReporter(action(0), "Could not do it.", "");
    EXPECT_THAT(loggedTexts(), ElementsAre("Could not do it."));
}

} // namespace veldraw::tests
