#include "platform/vdsdkuicommon/OnIdleAfterStateChangeActionPerformer.h"

namespace veldraw::sdk::ui::common {

OnIdleAfterStateChangeActionPerformer::OnIdleAfterStateChangeActionPerformer(
    boost::function<void()> const& action,
    boost::function<bool(toolbox::StateChangeEventInterface const&)> const& predicate)
    : m_idle(action)
    , m_listener([this] { m_idle.enableNotification(); }, predicate)
{
}

OnIdleAfterStateChangeActionPerformer::~OnIdleAfterStateChangeActionPerformer() = default;

} // namespace veldraw::sdk::ui::common
