#include "platform/vdsdkuicommon/OnIdleActionPerformerSingleShot.h"

#include "host/IdleAction.h"
#include "host/IdleQueue.h"

#include <boost/make_shared.hpp>

namespace veldraw::sdk::ui::common {

OnIdleActionPerformerSingleShot::OnIdleActionPerformerSingleShot(boost::function<void()> const& action)
    : m_action(boost::make_shared<IdleAction>(action))
{
}

OnIdleActionPerformerSingleShot::~OnIdleActionPerformerSingleShot()
{
    m_action->cancel();
}

void OnIdleActionPerformerSingleShot::enableNotification()
{
    IdleQueue::instance().schedule(m_action);
}

} // namespace veldraw::sdk::ui::common
