#include "host/IdleQueue.h"

#include "host/IdleAction.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <QCoreApplication>

#include <algorithm>
#include <memory>
#include <new>

namespace veldraw::sdk::ui::common {

IdleQueue& IdleQueue::instance()
{
    static IdleQueue* const queue = new IdleQueue;
    return *queue;
}

void IdleQueue::schedule(boost::shared_ptr<IdleAction> const& action)
{
    if (action->isWaiting())
        return;
    makeTimer(); // before anything waits, so that without memory nothing has changed
    m_entries.push_back({action, m_nextNumber});
    ++m_nextNumber;
    action->setWaiting(true);
    arm();
}

bool IdleQueue::runRound()
{
    // A message box that an action shows runs an event loop, and with it further rounds: they go on where this one
    // stands.
    unsigned long long const end = m_nextNumber;
    bool ran = false;
    while (!isHeld() && !m_entries.empty() && m_entries.front().number < end) {
        runFront();
        ran = true;
    }
    arm();
    return ran;
}

void IdleQueue::runFront()
{
    boost::shared_ptr<IdleAction> const action = m_entries.front().action;
    m_entries.pop_front();
    action->setWaiting(false);
    arm();
    action->run();
}

int IdleQueue::pendingCount() const
{
    return static_cast<int>(std::count_if(m_entries.begin(), m_entries.end(),
                                          [](Entry const& entry) { return !entry.action->isCancelled(); }));
}

void IdleQueue::hold()
{
    ++m_holds;
}

void IdleQueue::release()
{
    if (--m_holds == 0)
        arm();
}

bool IdleQueue::isHeld() const
{
    return m_holds > 0 || AppLock::depth() > 0;
}

// What waits goes on waiting when there is no memory: whoever schedules, locks or holds next arms again.
void IdleQueue::arm() noexcept
{
    if (m_entries.empty() || isHeld())
        return;
    try {
        makeTimer();
        if (m_timer && !m_timer->isActive())
            m_timer->start();
    } catch (std::bad_alloc const&) {
    }
}

void IdleQueue::makeTimer()
{
    if (m_timer || !QCoreApplication::instance())
        return;
    auto timer = std::make_unique<QTimer>();
    timer->setSingleShot(true);
    timer->setInterval(0);
    QObject::connect(timer.get(), &QTimer::timeout, timer.get(), [] { IdleQueue::instance().runRound(); });
    timer->setParent(QCoreApplication::instance());
    m_timer = timer.release();
}

} // namespace veldraw::sdk::ui::common
