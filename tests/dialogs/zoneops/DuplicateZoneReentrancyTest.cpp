#include "platform/vdsdkuicommon/OnIdleActionPerformerSingleShot.h"
#include "tests/dialogs/zoneops/DuplicateZoneFixture.h"

#include <QPointer>

namespace veldraw::tests {
namespace {

using DuplicateZoneReentrancyTest = DuplicateZoneFixture;

TEST_F(DuplicateZoneReentrancyTest, TakesItsPendingIdleWorkAlongWhenItIsDestroyed)
{
    launched();
    clickRow(1);
    IdleDispatcher::flush();
    sample.session().duplicateZones(sample.dataSet(), kernel::NumberSet{1});
    sample.session().setZoneEnabled(sample.dataSet(), 2, false);
    EXPECT_GT(IdleDispatcher::pendingCount(), 0);
    delete &dialog();
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
    IdleDispatcher::flush();
    QCoreApplication::processEvents();
}

TEST_F(DuplicateZoneReentrancyTest, MayBeDestroyedByIdleWorkThatRunsBeforeItsOwn)
{
    launched();
    QPointer<DuplicateZoneDialog> const doomed = &dialog();
    sdk::ui::common::OnIdleActionPerformerSingleShot end([&doomed] { delete doomed.data(); });
    end.enableNotification();
    sample.session().setZoneEnabled(sample.dataSet(), 2, false);
    EXPECT_GT(IdleDispatcher::pendingCount(), 1);
    IdleDispatcher::flush();
    EXPECT_TRUE(doomed.isNull());
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
}

TEST_F(DuplicateZoneReentrancyTest, MayBeDestroyedInsideAChangeOfTheListThatItShows)
{
    launched();
    QPointer<DuplicateZoneDialog> const doomed = &dialog();
    // Runs inside the kernel's event, when the list has changed and before the dialog's idle work.
    QObject::connect(list().model(), &QAbstractItemModel::modelReset, mainWindow.get(),
                     [&doomed] { doomed->deleteLater(); });
    sample.session().setZoneEnabled(sample.dataSet(), 2, false);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(doomed.isNull());
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
    sample.session().setZoneEnabled(sample.dataSet(), 2, true);
    EXPECT_EQ(zoneNames().size(), 3u);
}

} // namespace
} // namespace veldraw::tests
