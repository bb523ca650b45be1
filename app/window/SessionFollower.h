#pragma once

#include "kernel/frames/Session.h"
#include "platform/vdsdkuicommon/OnIdleActionPerformerSingleShot.h"

#include <functional>

namespace veldraw::app {

/// Runs an action at the next idle moment after the session has changed, once however many events came.
/// Whatever the window shows of the session follows it through one of these.
class SessionFollower
{
public:
    /// @param action must not outlive what it touches: keep the follower as a member of that, declared last
    SessionFollower(kernel::Session& session, std::function<void()> action);
    ~SessionFollower();

    /// Schedules the action without a change of the session.
    void schedule() { m_idle.enableNotification(); }

    SessionFollower(SessionFollower const&) = delete;
    SessionFollower& operator=(SessionFollower const&) = delete;

private:
    sdk::ui::common::OnIdleActionPerformerSingleShot m_idle;
    kernel::Session& m_session;
    kernel::EventHub::Subscription m_subscription;
};

} // namespace veldraw::app
