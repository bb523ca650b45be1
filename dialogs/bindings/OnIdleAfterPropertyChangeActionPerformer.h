#pragma once

#include "dialogs/property/PropertyItemInterface.h"
#include "platform/signals/SignalConnectionCollection.h"
#include "platform/vdsdkuicommon/OnIdleActionPerformerSingleShot.h"

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

namespace veldraw::sdk::ui::common {

/// Runs an action at the next idle moment after a property changed, once for any number of changes.
class OnIdleAfterPropertyChangeActionPerformer
{
public:
    OnIdleAfterPropertyChangeActionPerformer(boost::shared_ptr<PropertyItemInterface const> property,
                                             boost::function<void()> const& action);
    /// For a property that somebody else keeps alive.
    OnIdleAfterPropertyChangeActionPerformer(PropertyItemInterface const& property,
                                             boost::function<void()> const& action);
    OnIdleAfterPropertyChangeActionPerformer(OnIdleAfterPropertyChangeActionPerformer const&) = delete;
    OnIdleAfterPropertyChangeActionPerformer& operator=(OnIdleAfterPropertyChangeActionPerformer const&) = delete;
    /// A run that is still pending is cancelled.
    virtual ~OnIdleAfterPropertyChangeActionPerformer();

    /// Whether changes are noted, as they are at first. A run that is pending already stays pending.
    void enable(bool on);

private:
    void propertyChanged();

    boost::shared_ptr<PropertyItemInterface const> m_property; // empty: somebody else's
    OnIdleActionPerformerSingleShot m_performer;
    bool m_isEnabled = true;
    SignalConnectionCollection m_connections;
};

} // namespace veldraw::sdk::ui::common
