#pragma once

#include "platform/PlatformApi.h"

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

namespace veldraw::sdk::ui::common {

class IdleAction;

/// Runs an action at the next idle moment of the user-interface loop.
class VELDRAW_PLATFORM_API OnIdleActionPerformerSingleShot
{
public:
    explicit OnIdleActionPerformerSingleShot(boost::function<void()> const& action);

    /// Cancels. Also allowed while the action itself runs.
    virtual ~OnIdleActionPerformerSingleShot();

    /// Schedules the action; calls before it has started collapse into one run. A call from within the action makes it
    /// run once more, at the idle moment after.
    void enableNotification();

    OnIdleActionPerformerSingleShot(OnIdleActionPerformerSingleShot const&) = delete;
    OnIdleActionPerformerSingleShot& operator=(OnIdleActionPerformerSingleShot const&) = delete;

private:
    boost::shared_ptr<IdleAction> m_action;
};

} // namespace veldraw::sdk::ui::common
