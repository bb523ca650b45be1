#include "host/KernelReason.h"

#include "host/MessageLog.h"
#include "tests/host/MessageRecorder.h"
#include "tests/host/SampleSession.h"

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

    static std::vector<std::string> logged()
    {
        std::vector<std::string> texts;
        for (MessageLog::Entry const& entry : MessageLog::instance().entries())
            texts.push_back(entry.text);
        return texts;
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
    EXPECT_THAT(logged(), ElementsAre("The Z axis has no variable.", "Could not do it."));
}

TEST_F(KernelReasonTest, IsNoneFromBeforeItsScope)
{
    session().refuse("an earlier reason");
    KernelReason const reason;
    reason.tellFailure("Could not do it.");
    EXPECT_THAT(m_recorder.details(), ElementsAre(""));
    EXPECT_THAT(logged(), ElementsAre("Could not do it."));
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
    EXPECT_THAT(logged(), ElementsAre("The Z axis has no variable."));
}

TEST_F(KernelReasonTest, StandsInTheLogOnceWhenALoadHasJustPutItThere)
{
    KernelReason const reason;
    session().refuse("The file has gone.");
    MessageLog::instance().addUnlessJustSaid(MessageBoxType_Error, session().lastError());
    reason.tellFailure("Could not do it.");
    EXPECT_THAT(logged(), ElementsAre("The file has gone.", "Could not do it."));
}

} // namespace veldraw::tests
