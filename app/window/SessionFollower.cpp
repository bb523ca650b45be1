#include "app/window/SessionFollower.h"

#include <set>
#include <utility>

namespace veldraw::app {

namespace {

std::set<SessionFollower*>& followers()
{
    static auto* const all = new std::set<SessionFollower*>;
    return *all;
}

} // namespace

SessionFollower::SessionFollower(kernel::Session& session, std::function<void()> action)
    : m_action(std::move(action))
    , m_idle([this] { run(); })
    , m_session(session)
    , m_subscription(session.events().subscribe([this](kernel::StateChangeEvent const&) { schedule(); }))
{
    followers().insert(this);
}

SessionFollower::~SessionFollower()
{
    followers().erase(this);
    m_session.events().unsubscribe(m_subscription);
}

void SessionFollower::schedule()
{
    m_isDue = true;
    m_idle.enableNotification();
}

void SessionFollower::run()
{
    if (std::exchange(m_isDue, false))
        m_action();
}

void SessionFollower::catchUp()
{
    std::set<SessionFollower*> const waiting = followers();
    for (SessionFollower* const follower : waiting)
        if (followers().count(follower) != 0) // an action may end another follower
            follower->run();
}

} // namespace veldraw::app
