#include "host/MessageLog.h"

#include "platform/vdsdkbase/VelUtilDialog.h"
#include "tests/host/MessageRecorder.h"

#include <chrono>
#include <gmock/gmock.h>
#include <stdexcept>

namespace veldraw::tests {

using host::MessageLog;
using host::MessagePresenter;
using ::testing::ElementsAre;

class Messages : public ::testing::Test
{
protected:
    void SetUp() override { MessageLog::instance().clear(); }
};

TEST_F(Messages, ReachTheInstalledPresenterWithTheirType)
{
    MessageRecorder const recorder;
    VelUtilDialogErrMsg("error");
    EXPECT_TRUE(VelUtilDialogMessageBox("also an error", MessageBoxType_Error));
    EXPECT_TRUE(VelUtilDialogMessageBox("Gr\xc3\xb6\xc3\x9f"
                                        "e",
                                        MessageBoxType_Information));
    EXPECT_THAT(recorder.messages(), ElementsAre("0: error", "0: also an error",
                                                 "2: Gr\xc3\xb6\xc3\x9f"
                                                 "e"));
}

TEST_F(Messages, TakeANullTextForAnEmptyOne)
{
    MessageRecorder const recorder;
    VelUtilDialogErrMsg(nullptr);
    EXPECT_THAT(recorder.messages(), ElementsAre("0: "));
}

TEST_F(Messages, GoToStandardErrorWithoutAScreen)
{
    ::testing::internal::CaptureStderr();
    VelUtilDialogErrMsg("cannot open");
    VelUtilDialogMessageBox("all done", MessageBoxType_Information);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Error: cannot open\nall done\n");
}

TEST_F(Messages, GoBackToTheFormerPresenter)
{
    MessageRecorder const outer;
    {
        MessageRecorder const inner;
        VelUtilDialogErrMsg("first");
        EXPECT_THAT(inner.messages(), ElementsAre("0: first"));
    }
    VelUtilDialogErrMsg("second");
    EXPECT_THAT(outer.messages(), ElementsAre("0: second"));
}

TEST_F(Messages, AreNotToldWhenThePresenterFails)
{
    auto const previous =
        MessagePresenter::install([](std::string const&, MessageBoxType_e) { throw std::runtime_error(""); });
    EXPECT_FALSE(VelUtilDialogMessageBox("text", MessageBoxType_Information));
    MessagePresenter::install(previous);
}

TEST_F(Messages, AreLoggedWithTheTime)
{
    MessageRecorder const recorder;
    auto const before = std::chrono::system_clock::now();
    VelUtilDialogErrMsg("error");
    ASSERT_EQ(MessageLog::instance().entries().size(), 1U);
    MessageLog::Entry const& entry = MessageLog::instance().entries().front();
    EXPECT_EQ(entry.text, "error");
    EXPECT_EQ(entry.type, MessageBoxType_Error);
    EXPECT_LE(before, entry.time);
    EXPECT_LE(entry.time, std::chrono::system_clock::now());
}

TEST_F(Messages, AreToldToWhoWatchesTheLog)
{
    std::vector<std::string> seen;
    boost::signals2::scoped_connection const connection = MessageLog::instance().connectEntryAdded(
        [&seen](MessageLog::Entry const& entry) { seen.push_back(entry.text); });
    MessageLog::instance().add(MessageBoxType_Warning, "one");
    MessageLog::instance().add(MessageBoxType_Warning, "");
    MessageLog::instance().add(MessageBoxType_Warning, "two");
    EXPECT_THAT(seen, ElementsAre("one", "two"));
}

TEST_F(Messages, MayClearTheLogWhileTheyAreTold)
{
    std::string seen;
    boost::signals2::scoped_connection const connection =
        MessageLog::instance().connectEntryAdded([&seen](MessageLog::Entry const& entry) {
            MessageLog::instance().clear();
            seen = entry.text;
        });
    MessageLog::instance().add(MessageBoxType_Warning, "one");
    EXPECT_TRUE(MessageLog::instance().entries().empty());
    EXPECT_EQ(seen, "one");
}

TEST_F(Messages, PushTheOldestOutOfAFullLog)
{
    for (int n = 0; n < 10001; ++n)
        MessageLog::instance().add(MessageBoxType_Information, std::to_string(n));
    EXPECT_EQ(MessageLog::instance().entries().size(), 10000U);
    EXPECT_EQ(MessageLog::instance().entries().front().text, "1");
    EXPECT_EQ(MessageLog::instance().entries().back().text, "10000");
}

} // namespace veldraw::tests
