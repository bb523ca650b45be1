#pragma once

#include "kernel/session/Session.h"
#include "platform/vdsdkuicommon/OnIdleActionPerformerSingleShot.h"

#include <functional>

namespace veldraw::app {

/// Runs an action at the next idle moment after the session has changed, once however many events came.
/// Whatever the window shows of the session follows it through one of these. While a command is running there is no idle moment;
/// who asks for the user's attention in the middle of one calls catchUp() first.
class SessionFollower
{
public:
    /// @param action usually updates the object that owns the follower. Declare the follower as its last member, so that
    ///               the action does not run while the object is destroyed.
    SessionFollower(kernel::Session& session, std::function<void()> action);
    ~SessionFollower();

    /// Schedules the action without a change of the session.
    void schedule();

    /// Runs the pending actions of all followers now.
    static void catchUp();

    SessionFollower(SessionFollower const&) = delete;
    SessionFollower& operator=(SessionFollower const&) = delete;

private:
    void run();

    std::function<void()> m_action;
    bool m_isDue = false;
    sdk::ui::common::OnIdleActionPerformerSingleShot m_idle;
    kernel::Session& m_session;
    kernel::EventHub::Subscription m_subscription;
};

} // namespace veldraw::app
