#include "host/IdleHold.h"
#include "kernel/session/Session.h"
#include "platform/exception/IOException.h"
#include "platform/exception/InterruptedException.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "platform/vdsdkuicommon/OnIdleActionPerformerSingleShot.h"
#include "tests/host/MessageRecorder.h"
#include "tests/support/AllocationFailure.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include <gmock/gmock.h>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>

namespace veldraw::tests {

using sdk::AppLock;
using sdk::ui::common::IdleDispatcher;
using sdk::ui::common::OnIdleActionPerformerSingleShot;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Performer = OnIdleActionPerformerSingleShot;

namespace {

/// Lets the event loop do what it has to do now.
void turn()
{
    QCoreApplication::processEvents();
}

} // namespace

class Idle : public ::testing::Test
{
protected:
    void TearDown() override { EXPECT_EQ(IdleDispatcher::pendingCount(), 0); }

    /// A performer that writes its letter.
    std::unique_ptr<Performer> writer(char letter)
    {
        return std::make_unique<Performer>([this, letter] { m_text += letter; });
    }

    std::string m_text;
    MessageRecorder m_recorder;
};

TEST_F(Idle, RunsAnActionWhenTheLoopTurns)
{
    auto const a = writer('a');
    a->enableNotification();
    EXPECT_EQ(m_text, "");
    turn();
    EXPECT_EQ(m_text, "a");
    turn();
    EXPECT_EQ(m_text, "a");
}

TEST_F(Idle, CollapsesSeveralRequestsIntoOneRun)
{
    auto const a = writer('a');
    a->enableNotification();
    a->enableNotification();
    a->enableNotification();
    EXPECT_EQ(IdleDispatcher::pendingCount(), 1);
    turn();
    EXPECT_EQ(m_text, "a");
    a->enableNotification();
    turn();
    EXPECT_EQ(m_text, "aa");
}

TEST_F(Idle, RunsFirstInFirstOut)
{
    auto const a = writer('a');
    auto const b = writer('b');
    auto const c = writer('c');
    b->enableNotification();
    c->enableNotification();
    a->enableNotification();
    b->enableNotification();
    turn();
    EXPECT_EQ(m_text, "bca");
}

TEST_F(Idle, LeavesWhatIsScheduledMeanwhileToTheNextRound)
{
    auto const last = writer('z');
    Performer first([&] {
        m_text += 'a';
        last->enableNotification();
    });
    auto const second = writer('b');
    first.enableNotification();
    second->enableNotification();
    EXPECT_TRUE(IdleDispatcher::runRound());
    EXPECT_EQ(m_text, "ab");
    EXPECT_TRUE(IdleDispatcher::runRound());
    EXPECT_EQ(m_text, "abz");
    EXPECT_FALSE(IdleDispatcher::runRound());
}

TEST_F(Idle, RunsOneRoundATurn)
{
    auto const last = writer('z');
    Performer first([&] { last->enableNotification(); });
    first.enableNotification();
    turn();
    EXPECT_EQ(m_text, "");
    turn();
    EXPECT_EQ(m_text, "z");
}

TEST_F(Idle, RunsAnActionOnceMoreWhenItAsksForItself)
{
    std::unique_ptr<Performer> performer;
    performer = std::make_unique<Performer>([&] {
        m_text += 'a';
        if (m_text.size() < 3)
            performer->enableNotification();
    });
    performer->enableNotification();
    turn();
    EXPECT_EQ(m_text, "a");
    IdleDispatcher::flush();
    EXPECT_EQ(m_text, "aaa");
}

TEST_F(Idle, ReturnsFromFlushingActionsThatNeverEnd)
{
    std::unique_ptr<Performer> performer;
    performer = std::make_unique<Performer>([&] { performer->enableNotification(); });
    performer->enableNotification();
    IdleDispatcher::flush();
    EXPECT_EQ(IdleDispatcher::pendingCount(), 1);
    performer.reset();
    IdleDispatcher::flush();
}

TEST_F(Idle, IsHeldBackWhileALockIsHeld)
{
    auto const a = writer('a');
    {
        AppLock const outer(AppLock::RecordAsUsual);
        a->enableNotification();
        {
            AppLock const inner(AppLock::RecordAsUsual);
            turn();
            IdleDispatcher::flush();
        }
        turn();
        EXPECT_FALSE(IdleDispatcher::runRound());
        EXPECT_EQ(m_text, "");
    }
    EXPECT_EQ(m_text, "");
    turn();
    EXPECT_EQ(m_text, "a");
}

TEST_F(Idle, OutlivesLackOfMemoryWhereALockOrAHoldEnds)
{
    for (int request = 1; request < 20; ++request) {
        m_text.clear();
        auto const a = writer('a');
        auto lock = std::make_unique<AppLock>(AppLock::RecordAsUsual);
        auto hold = std::make_unique<host::IdleHold>();
        a->enableNotification();
        {
            AllocationFailure const failure(request, AllocationFailure::Lasting::FromThenOn);
            lock.reset();
            hold.reset();
        }
        AppLock(AppLock::RecordAsUsual); // what comes next
        turn();
        EXPECT_EQ(m_text, "a") << request;
    }
}

TEST_F(Idle, WaitsForAllOrForNothingWithoutMemory)
{
    int refused = 0;
    for (int request = 1; request < 20; ++request) {
        m_text.clear();
        auto const a = writer('a');
        try {
            AllocationFailure const failure(request, AllocationFailure::Lasting::FromThenOn);
            a->enableNotification();
        } catch (std::bad_alloc const&) {
            ++refused;
            EXPECT_EQ(IdleDispatcher::pendingCount(), 0) << request;
            a->enableNotification();
        }
        AppLock(AppLock::RecordAsUsual);
        turn();
        EXPECT_EQ(m_text, "a") << request;
    }
    EXPECT_LT(refused, 19);
}

TEST_F(Idle, WaitsWhenALockIsTakenAfterTheRequest)
{
    auto const a = writer('a');
    a->enableNotification();
    {
        AppLock const lock(AppLock::RecordAsUsual);
        turn();
        EXPECT_EQ(m_text, "");
    }
    turn();
    EXPECT_EQ(m_text, "a");
}

TEST_F(Idle, IsHeldBackWhileAProgressWindowKeepsTheLoopGoing)
{
    auto const a = writer('a');
    {
        host::IdleHold const outer;
        host::IdleHold const inner;
        a->enableNotification();
        turn();
        IdleDispatcher::flush();
        EXPECT_EQ(m_text, "");
    }
    turn();
    EXPECT_EQ(m_text, "a");
}

TEST_F(Idle, StaysHeldUntilBothLockAndHoldAreGone)
{
    auto const a = writer('a');
    auto lock = std::make_unique<AppLock>(AppLock::RecordAsUsual);
    auto hold = std::make_unique<host::IdleHold>();
    a->enableNotification();
    lock.reset();
    turn();
    EXPECT_EQ(m_text, "");
    hold.reset();
    turn();
    EXPECT_EQ(m_text, "a");
}

TEST_F(Idle, GoesOnInTheLoopOfAModalDialog)
{
    auto const inDialog = writer('d');
    auto const rest = writer('r');
    Performer opener([&] {
        m_text += '(';
        inDialog->enableNotification();
        QEventLoop loop;
        QTimer::singleShot(20, &loop, &QEventLoop::quit);
        loop.exec();
        m_text += ')';
    });
    opener.enableNotification();
    rest->enableNotification();
    turn();
    EXPECT_EQ(m_text, "(rd)");
}

TEST_F(Idle, ForgetsAPerformerThatIsDestroyedWhileItWaits)
{
    auto a = writer('a');
    auto const b = writer('b');
    a->enableNotification();
    b->enableNotification();
    a.reset();
    EXPECT_EQ(IdleDispatcher::pendingCount(), 1);
    turn();
    EXPECT_EQ(m_text, "b");
}

TEST_F(Idle, ForgetsAPerformerThatAnEarlierActionDestroys)
{
    auto victim = writer('v');
    Performer killer([&] { victim.reset(); });
    auto const b = writer('b');
    killer.enableNotification();
    victim->enableNotification();
    b->enableNotification();
    turn();
    EXPECT_EQ(m_text, "b");
}

TEST_F(Idle, LetsAPerformerBeDestroyedByItsOwnAction)
{
    std::unique_ptr<Performer> performer;
    auto const witness = std::make_shared<int>(1);
    performer = std::make_unique<Performer>([&performer, this, witness] {
        performer->enableNotification();
        performer.reset();
        m_text += static_cast<char>('0' + *witness); // what the action holds is still there
    });
    performer->enableNotification();
    turn();
    turn();
    EXPECT_EQ(m_text, "1");
    EXPECT_EQ(witness.use_count(), 1);
}

TEST_F(Idle, ForgetsADestroyedPerformerAlsoInAModalLoopOfItsOwnAction)
{
    std::unique_ptr<Performer> performer;
    performer = std::make_unique<Performer>([&] {
        m_text += 'a';
        performer->enableNotification();
        performer.reset();
        turn();
    });
    performer->enableNotification();
    turn();
    EXPECT_EQ(m_text, "a");
}

TEST_F(Idle, TellsWhatAnActionThrowsAndGoesOn)
{
    Performer thrower([] { throw std::runtime_error("went wrong"); });
    auto const b = writer('b');
    thrower.enableNotification();
    b->enableNotification();
    turn();
    EXPECT_EQ(m_text, "b");
    EXPECT_THAT(m_recorder.messages(), ElementsAre("0: went wrong"));
}

TEST_F(Idle, GivesTheKernelsReasonForWhatFailedAsDetails)
{
    kernel::Session& session = kernel::Session::instance();
    Performer refused([&session] {
        session.refuse("The file has gone.");
        throw IOException("Failed to load.");
    });
    Performer other([] { throw std::runtime_error("went wrong"); });
    refused.enableNotification();
    other.enableNotification();
    turn();
    EXPECT_THAT(m_recorder.messages(), ElementsAre("0: Failed to load.", "0: went wrong"));
    EXPECT_THAT(m_recorder.details(), ElementsAre("The file has gone.", ""));
}

TEST_F(Idle, IsSilentAboutAnExceptionWithoutText)
{
    Performer thrower([] { throw InterruptedException(); });
    auto const b = writer('b');
    thrower.enableNotification();
    b->enableNotification();
    turn();
    EXPECT_EQ(m_text, "b");
    EXPECT_THAT(m_recorder.messages(), IsEmpty());
}

TEST_F(Idle, StopsARoundWhenAnActionLeavesIdleHeld)
{
    std::unique_ptr<host::IdleHold> hold;
    Performer holder([&] { hold = std::make_unique<host::IdleHold>(); });
    auto const b = writer('b');
    holder.enableNotification();
    b->enableNotification();
    turn();
    EXPECT_EQ(m_text, "");
    hold.reset();
    turn();
    EXPECT_EQ(m_text, "b");
}

TEST_F(Idle, RunsWhatWaitsWhenFlushed)
{
    auto const last = writer('z');
    Performer first([&] { last->enableNotification(); });
    first.enableNotification();
    IdleDispatcher::flush();
    EXPECT_EQ(m_text, "z");
}

} // namespace veldraw::tests
