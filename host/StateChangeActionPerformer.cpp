#include "platform/vdsdkuicommon/StateChangeActionPerformer.h"

#include "platform/vdsdkcommon/StateChangeEventObservable.h"

namespace veldraw::sdk::ui::common {

using integration::StateChangeEventObservable;

StateChangeActionPerformer::StateChangeActionPerformer(
    boost::function<void()> const& action,
    boost::function<bool(toolbox::StateChangeEventInterface const&)> const& predicate)
    : m_action(action)
    , m_predicate(predicate)
{
    StateChangeEventObservable::getInstance().addListener(this);
}

StateChangeActionPerformer::~StateChangeActionPerformer()
{
    StateChangeEventObservable::getInstance().removeListener(this);
}

void StateChangeActionPerformer::stateChanged(toolbox::StateChangeEventInterface const& event)
{
    if (!m_predicate(event))
        return;
    boost::function<void()> const action = m_action; // the action may destroy this performer
    action();
}

} // namespace veldraw::sdk::ui::common
