#include "app/window/SessionFollower.h"

namespace veldraw::app {

SessionFollower::SessionFollower(kernel::Session& session, std::function<void()> action)
    : m_idle(action)
    , m_session(session)
    , m_subscription(
          session.events().subscribe([this](kernel::StateChangeEvent const&) { m_idle.enableNotification(); }))
{
}

SessionFollower::~SessionFollower()
{
    m_session.events().unsubscribe(m_subscription);
}

} // namespace veldraw::app
