#include "dialogs/property/UIPropertyInterface.h"

#include "platform/signals/WholeConnection.h"

namespace veldraw::sdk::ui::propertymanager {

UIPropertyInterface::~UIPropertyInterface() = default;

boost::signals2::connection UIPropertyInterface::connectVisibilityChanged(Signal::slot_type const& slot) const
{
    return sdk::connectWhole(
        slot, [this](auto const& whole) { return signalVisibilityChanged.connect(whole); },
        [this] { signalVisibilityChangedConnected(); });
}

boost::signals2::connection UIPropertyInterface::connectSensitivityChanged(Signal::slot_type const& slot) const
{
    return sdk::connectWhole(
        slot, [this](auto const& whole) { return signalSensitivityChanged.connect(whole); },
        [this] { signalSensitivityChangedConnected(); });
}

void UIPropertyInterface::signalVisibilityChangedConnected() const {}

void UIPropertyInterface::signalSensitivityChangedConnected() const {}

} // namespace veldraw::sdk::ui::propertymanager
