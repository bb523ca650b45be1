#include "dialogs/property/UIPropertyInterface.h"

namespace veldraw::sdk::ui::propertymanager {

UIPropertyInterface::~UIPropertyInterface() = default;

boost::signals2::connection UIPropertyInterface::connectVisibilityChanged(Signal::slot_type const& slot) const
{
    boost::signals2::connection connection = signalVisibilityChanged.connect(slot);
    signalVisibilityChangedConnected();
    return connection;
}

boost::signals2::connection UIPropertyInterface::connectSensitivityChanged(Signal::slot_type const& slot) const
{
    boost::signals2::connection connection = signalSensitivityChanged.connect(slot);
    signalSensitivityChangedConnected();
    return connection;
}

void UIPropertyInterface::signalVisibilityChangedConnected() const {}

void UIPropertyInterface::signalSensitivityChangedConnected() const {}

} // namespace veldraw::sdk::ui::propertymanager
