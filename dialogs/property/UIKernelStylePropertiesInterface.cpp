#include "dialogs/property/UIKernelStylePropertiesInterface.h"

#include "platform/signals/WholeConnection.h"

namespace veldraw::sdk::ui::propertymanager {

UIKernelStylePropertiesInterface::~UIKernelStylePropertiesInterface() = default;

void UIKernelStylePropertiesInterface::signalInitializedConnected() const {}

void UIKernelStylePropertiesInterface::signalSubmittedConnected() const {}

boost::signals2::connection UIKernelStylePropertiesInterface::connectInitialized(Signal::slot_type const& slot) const
{
    return sdk::connectWhole(
        slot, [this](auto const& whole) { return signalInitialized.connect(whole); },
        [this] { signalInitializedConnected(); });
}

boost::signals2::connection UIKernelStylePropertiesInterface::connectSubmitted(Signal::slot_type const& slot) const
{
    return sdk::connectWhole(
        slot, [this](auto const& whole) { return signalSubmitted.connect(whole); },
        [this] { signalSubmittedConnected(); });
}

} // namespace veldraw::sdk::ui::propertymanager
