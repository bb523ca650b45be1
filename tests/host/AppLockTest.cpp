#include "platform/vdsdkcommon/AppLock.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace veldraw::tests {

using sdk::AppLock;

TEST(AppLock, Nests)
{
    EXPECT_EQ(AppLock::depth(), 0);
    {
        AppLock const outer(AppLock::RecordAsUsual);
        EXPECT_EQ(AppLock::depth(), 1);
        {
            AppLock const inner(AppLock::DoNotRecord);
            EXPECT_EQ(AppLock::depth(), 2);
        }
        EXPECT_EQ(AppLock::depth(), 1);
    }
    EXPECT_EQ(AppLock::depth(), 0);
}

TEST(AppLock, IsGivenBackWhenAnExceptionLeavesTheScope)
{
    try {
        AppLock const lock(AppLock::RecordAsUsual);
        throw std::runtime_error("");
    } catch (std::runtime_error const&) {
    }
    EXPECT_EQ(AppLock::depth(), 0);
}

TEST(AppLock, ForbidsRecordingWhileAnyLockSaysSo)
{
    EXPECT_TRUE(AppLock::isRecording());
    {
        AppLock const silent(AppLock::DoNotRecord);
        AppLock const usual(AppLock::RecordAsUsual);
        EXPECT_FALSE(AppLock::isRecording());
    }
    {
        AppLock const usual(AppLock::RecordAsUsual);
        EXPECT_TRUE(AppLock::isRecording());
    }
    EXPECT_TRUE(AppLock::isRecording());
}

TEST(AppLock, HasFixedNumbersForTheWaysOfRecording)
{
    EXPECT_EQ(static_cast<int>(AppLock::RecordAsUsual), 0);
    EXPECT_EQ(static_cast<int>(AppLock::DoNotRecord), 1);
}

} // namespace veldraw::tests
