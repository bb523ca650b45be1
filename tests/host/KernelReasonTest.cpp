#include "host/KernelReason.h"

#include "host/MessageLog.h"
#include "tests/host/MessageRecorder.h"
#include "tests/host/SampleSession.h"
#include "tests/support/AllocationFailure.h"
#include "tests/support/LoggedTexts.h"

#include <gmock/gmock.h>
#include <memory>
#include <string>
#include <vector>

namespace veldraw::tests {

using host::KernelReason;
using host::MessageLog;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class KernelReasonTest : public SampleSession
{
protected:
    void SetUp() override
    {
        SampleSession::SetUp();
        session().setLastError({});
        MessageLog::instance().clear();
    }

    MessageRecorder m_recorder;
};

TEST_F(KernelReasonTest, IsTheDetailsOfTheMessageAndStandsBeforeItInTheLog)
{
    KernelReason const reason;
    session().refuse("The Z axis has no variable.");
    reason.tellFailure("Could not do it.");
    EXPECT_THAT(m_recorder.messages(), ElementsAre("0: Could not do it."));
    EXPECT_THAT(m_recorder.details(), ElementsAre("The Z axis has no variable."));
    EXPECT_THAT(loggedTexts(), ElementsAre("The Z axis has no variable.", "Could not do it."));
}

// Whoever tells a failure does so while an exception is handled, where another one would end the program.
TEST_F(KernelReasonTest, IsLeftOutWhereThereIsNoMemoryForIt)
{
    std::string const text(200, 'r');
    KernelReason const reason;
    bool hasFailed = true;
    int request = 1;
    for (; hasFailed; ++request) {
        session().refuse(text.c_str());
        MessageLog::instance().clear();
        AllocationFailure const failure(request);
        reason.tellFailure("Could not do it.");
        hasFailed = failure.hasHappened();
    }
    EXPECT_GE(request, 4);
    EXPECT_EQ(m_recorder.messages().back(), "0: Could not do it.");
    EXPECT_EQ(m_recorder.details().back(), text);
}

TEST_F(KernelReasonTest, IsNoneFromBeforeItsScope)
{
    session().refuse("an earlier reason");
    KernelReason const reason;
    reason.tellFailure("Could not do it.");
    EXPECT_THAT(m_recorder.details(), ElementsAre(""));
    EXPECT_THAT(loggedTexts(), ElementsAre("Could not do it."));
}

TEST_F(KernelReasonTest, SurvivesAnInnerScopeInWhichNothingIsRefused)
{
    session().refuse("outer");
    {
        KernelReason const inner;
        EXPECT_EQ(session().lastError(), "");
    }
    EXPECT_EQ(session().lastError(), "outer");
}

TEST_F(KernelReasonTest, IsTheInnermostOneThatCameLast)
{
    session().refuse("outer");
    {
        KernelReason const inner;
        session().refuse("inner");
    }
    EXPECT_EQ(session().lastError(), "inner");
}

TEST_F(KernelReasonTest, ShowsNothingWithoutAMessageButIsInTheLog)
{
    KernelReason const reason;
    session().refuse("The Z axis has no variable.");
    reason.tellFailure("");
    EXPECT_THAT(m_recorder.messages(), IsEmpty());
    EXPECT_THAT(loggedTexts(), ElementsAre("The Z axis has no variable."));
}

TEST_F(KernelReasonTest, StandsInTheLogOnceWhenALoadHasJustPutItThere)
{
    KernelReason const reason;
    session().refuse("The file has gone.");
    MessageLog::instance().addUnlessJustSaid(MessageBoxType_Error, session().lastError());
    reason.tellFailure("Could not do it.");
    EXPECT_THAT(loggedTexts(), ElementsAre("The file has gone.", "Could not do it."));
}

} // namespace veldraw::tests
