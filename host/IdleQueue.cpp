#include "host/IdleQueue.h"

#include "host/IdleAction.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <QCoreApplication>

#include <algorithm>

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
    m_entries.push_back({action, m_nextNumber++});
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

void IdleQueue::arm()
{
    if (m_entries.empty() || isHeld() || !QCoreApplication::instance())
        return;
    if (!m_timer) {
        m_timer = new QTimer(QCoreApplication::instance());
        m_timer->setSingleShot(true);
        m_timer->setInterval(0);
        QObject::connect(m_timer, &QTimer::timeout, m_timer, [] { IdleQueue::instance().runRound(); });
    }
    if (!m_timer->isActive())
        m_timer->start();
}

} // namespace veldraw::sdk::ui::common
