#include "dialogs/bindings/OnIdleAfterPropertyChangeActionPerformer.h"

#include <utility>

namespace veldraw::sdk::ui::common {

OnIdleAfterPropertyChangeActionPerformer::OnIdleAfterPropertyChangeActionPerformer(
    boost::shared_ptr<PropertyItemInterface const> property, boost::function<void()> const& action)
    : OnIdleAfterPropertyChangeActionPerformer(*property, action)
{
    m_property = std::move(property);
}

OnIdleAfterPropertyChangeActionPerformer::OnIdleAfterPropertyChangeActionPerformer(
    PropertyItemInterface const& property, boost::function<void()> const& action)
    : m_performer(action)
{
    m_connections.add(property.connectPropertyChanged([this] { propertyChanged(); }));
}

OnIdleAfterPropertyChangeActionPerformer::~OnIdleAfterPropertyChangeActionPerformer() = default;

void OnIdleAfterPropertyChangeActionPerformer::enable(bool on)
{
    m_isEnabled = on;
}

void OnIdleAfterPropertyChangeActionPerformer::propertyChanged()
{
    if (m_isEnabled)
        m_performer.enableNotification();
}

} // namespace veldraw::sdk::ui::common
