#include "platform/vdsdkbase/VelUtilDialog.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/WaitState.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "platform/vdsdkuicommon/OnIdleActionPerformerSingleShot.h"
#include "platform/vdsdkuicommon/OnIdleAfterStateChangeActionPerformer.h"
#include "platform/vdsdkuicommon/StateChangePredicates.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace veldraw::tests {

using namespace veldraw::sdk::ui::common;

// Made before main() and destroyed after it: neither may need an application.
OnIdleActionPerformerSingleShot staticPerformer([] {});
OnIdleAfterStateChangeActionPerformer staticListener([] {}, isZoneStateChange);

TEST(WithoutAnApplication, MessagesGoToStandardError)
{
    ::testing::internal::CaptureStderr();
    VelUtilDialogErrMsg("cannot open");
    EXPECT_TRUE(VelUtilDialogMessageBox("all done", MessageBoxType_Information));
    VelUtilDialogMessageBox("take care", MessageBoxType_Warning);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Error: cannot open\nall done\nWarning: take care\n");
}

TEST(WithoutAnApplication, TheBusyStateOnlyCounts)
{
    sdk::WaitState const busy;
    EXPECT_EQ(sdk::WaitState::depth(), 1);
}

TEST(WithoutAnApplication, IdleIsPumpedByHand)
{
    ASSERT_EQ(QCoreApplication::instance(), nullptr);
    int runs = 0;
    OnIdleActionPerformerSingleShot performer([&runs] { ++runs; });
    {
        sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
        performer.enableNotification();
        IdleDispatcher::flush();
    }
    EXPECT_EQ(runs, 0);
    IdleDispatcher::flush();
    EXPECT_EQ(runs, 1);
}

TEST(WithoutAnApplication, IdleGoesOnInEachApplicationThatComes)
{
    int runs = 0;
    OnIdleActionPerformerSingleShot performer([&runs] { ++runs; });
    for (int round = 1; round <= 2; ++round) {
        int argc = 1;
        char name[] = "test";
        char* argv[] = {name, nullptr};
        QCoreApplication application(argc, argv);
        performer.enableNotification();
        QCoreApplication::processEvents();
        EXPECT_EQ(runs, round);
    }
    performer.enableNotification();
    EXPECT_EQ(IdleDispatcher::pendingCount(), 1);
    IdleDispatcher::flush();
    EXPECT_EQ(runs, 3);
}

} // namespace veldraw::tests
