#include "tests/support/EventLoopWatchdog.h"

#include <QElapsedTimer>
#include <QEvent>
#include <QObject>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

constexpr std::chrono::milliseconds patience(300);

/// Answers an event with another one, for ever, as layouts do that never come to rest.
class Restless : public QObject
{
public:
    bool event(QEvent* event) override
    {
        for (bool const isFirst = event->type() == QEvent::User; isFirst;) {
            QEvent next(QEvent::LayoutRequest);
            QCoreApplication::sendEvent(this, &next);
        }
        return true;
    }
};

void computeFor(std::chrono::milliseconds time)
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < time.count()) {
    }
}

void neverRest()
{
    EventLoopWatchdog::instance()->setPatience(patience);
    Restless restless;
    QCoreApplication::postEvent(&restless, new QEvent(QEvent::User));
    QCoreApplication::sendPostedEvents();
}

void neverReturn()
{
    EventLoopWatchdog::instance()->setPatience(patience);
    QTimer::singleShot(0, [] { computeFor(std::chrono::hours(1)); });
    QTest::qWait(1);
}

class EventLoopWatchdogTest : public testing::Test
{
protected:
    ~EventLoopWatchdogTest() override { EventLoopWatchdog::instance()->setPatience(std::chrono::seconds(20)); }
};

} // namespace

using EventLoopWatchdogDeathTest = EventLoopWatchdogTest;

TEST_F(EventLoopWatchdogDeathTest, EndsAProgramWhoseEventsNeverComeToAnEndAndNamesTheTest)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_DEATH(neverRest(), "NamesTheTest has not returned to its event loop for 300 ms of processor time");
    EXPECT_DEATH(neverReturn(), "has not returned to its event loop");
}

TEST_F(EventLoopWatchdogTest, LetsATestComputeAndWait)
{
    EventLoopWatchdog::instance()->setPatience(patience);
    computeFor(3 * patience);
    QTest::qWait(static_cast<int>(2 * patience.count()));
}

TEST_F(EventLoopWatchdogTest, LetsALoopTurnForLong)
{
    EventLoopWatchdog::instance()->setPatience(patience);
    QTimer busy;
    QObject::connect(&busy, &QTimer::timeout, [] { computeFor(std::chrono::milliseconds(20)); });
    busy.start(0);
    QTest::qWait(static_cast<int>(3 * patience.count()));
}

} // namespace veldraw::tests
