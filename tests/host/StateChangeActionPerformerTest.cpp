#include "platform/vdsdkuicommon/StateChangeActionPerformer.h"

#include "platform/vdsdkcommon/StateChangeEventObservable.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "platform/vdsdkuicommon/OnIdleAfterStateChangeActionPerformer.h"
#include "platform/vdsdkuicommon/StateChangePredicates.h"
#include "tests/support/FakeStateChange.h"

#include <QCoreApplication>

#include <gtest/gtest.h>
#include <memory>

namespace veldraw::tests {

using namespace veldraw::sdk::ui::common;
using sdk::integration::StateChangeEventObservable;

class Performers : public ::testing::Test
{
protected:
    static void notify(int kind) { StateChangeEventObservable::getInstance().notify(FakeStateChange(kind)); }
    boost::function<void()> count()
    {
        return [this] { ++m_runs; };
    }

    int m_runs = 0;
};

TEST_F(Performers, ActAtOnceOnEachAcceptedEvent)
{
    StateChangeActionPerformer const performer(count(), isZoneStateChange);
    notify(4);
    EXPECT_EQ(m_runs, 1);
    notify(1);
    EXPECT_EQ(m_runs, 1);
    notify(18);
    EXPECT_EQ(m_runs, 2);
}

TEST_F(Performers, EndWithTheirObject)
{
    int const before = StateChangeEventObservable::getInstance().listenerCount();
    {
        StateChangeActionPerformer const performer(count(), isZoneStateChange);
        EXPECT_EQ(StateChangeEventObservable::getInstance().listenerCount(), before + 1);
    }
    notify(4);
    EXPECT_EQ(m_runs, 0);
    EXPECT_EQ(StateChangeEventObservable::getInstance().listenerCount(), before);
}

TEST_F(Performers, MayBeDestroyedByTheirOwnAction)
{
    std::unique_ptr<StateChangeActionPerformer> performer;
    performer = std::make_unique<StateChangeActionPerformer>(
        [&performer, this] {
            performer.reset();
            ++m_runs;
        },
        isZoneStateChange);
    notify(4);
    notify(4);
    EXPECT_EQ(m_runs, 1);
}

TEST_F(Performers, OfIdleRunOnceAfterSeveralAcceptedEvents)
{
    OnIdleAfterStateChangeActionPerformer const performer(count(), isZoneStateChange);
    notify(4);
    notify(5);
    notify(1);
    EXPECT_EQ(m_runs, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(m_runs, 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(m_runs, 1);
    notify(4);
    QCoreApplication::processEvents();
    EXPECT_EQ(m_runs, 2);
}

TEST_F(Performers, OfIdleDoNotRunForOtherEvents)
{
    OnIdleAfterStateChangeActionPerformer const performer(count(), isZoneStateChange);
    notify(1);
    notify(7);
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(m_runs, 0);
}

TEST_F(Performers, OfIdleAreCancelledByTheirDestruction)
{
    auto performer = std::make_unique<OnIdleAfterStateChangeActionPerformer>(count(), isZoneStateChange);
    notify(4);
    performer.reset();
    notify(4);
    QCoreApplication::processEvents();
    EXPECT_EQ(m_runs, 0);
}

TEST_F(Performers, OfIdleMayBeDestroyedByTheirOwnAction)
{
    std::unique_ptr<OnIdleAfterStateChangeActionPerformer> performer;
    performer = std::make_unique<OnIdleAfterStateChangeActionPerformer>(
        [&performer, this] {
            performer.reset();
            ++m_runs;
        },
        isZoneStateChange);
    notify(4);
    QCoreApplication::processEvents();
    notify(4);
    QCoreApplication::processEvents();
    EXPECT_EQ(m_runs, 1);
}

} // namespace veldraw::tests
