#pragma once

#include "platform/PlatformApi.h"
#include "platform/vdsdkuicommon/OnIdleActionPerformerSingleShot.h"
#include "platform/vdsdkuicommon/StateChangeActionPerformer.h"

#include <boost/function.hpp>

namespace veldraw::sdk::ui::common {

/// Runs an action at the next idle moment after state changes that a predicate accepts, once however many came.
class VELDRAW_PLATFORM_API OnIdleAfterStateChangeActionPerformer
{
public:
    OnIdleAfterStateChangeActionPerformer(
        boost::function<void()> const& action,
        boost::function<bool(toolbox::StateChangeEventInterface const&)> const& predicate);

    /// Cancels. Also allowed while the action itself runs.
    virtual ~OnIdleAfterStateChangeActionPerformer();

    OnIdleAfterStateChangeActionPerformer(OnIdleAfterStateChangeActionPerformer const&) = delete;
    OnIdleAfterStateChangeActionPerformer& operator=(OnIdleAfterStateChangeActionPerformer const&) = delete;

private:
    OnIdleActionPerformerSingleShot m_idle;
    StateChangeActionPerformer m_listener; // goes first: no event may reach an idle action that has gone
};

} // namespace veldraw::sdk::ui::common
