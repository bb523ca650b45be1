#pragma once

#include "platform/PlatformApi.h"
#include "platform/vdtoolbox/StateChangeListenerInterface.h"

#include <boost/function.hpp>

namespace veldraw::sdk::ui::common {

/// Runs an action at once, inside the delivery of each state change that a predicate accepts.
class VELDRAW_PLATFORM_API StateChangeActionPerformer : private toolbox::StateChangeListenerInterface
{
public:
    StateChangeActionPerformer(boost::function<void()> const& action,
                               boost::function<bool(toolbox::StateChangeEventInterface const&)> const& predicate);

    /// Ends the listening. Also allowed while the action itself runs.
    ~StateChangeActionPerformer() override;

    StateChangeActionPerformer(StateChangeActionPerformer const&) = delete;
    StateChangeActionPerformer& operator=(StateChangeActionPerformer const&) = delete;

private:
    void stateChanged(toolbox::StateChangeEventInterface const& event) override;

    boost::function<void()> m_action;
    boost::function<bool(toolbox::StateChangeEventInterface const&)> m_predicate;
};

} // namespace veldraw::sdk::ui::common
