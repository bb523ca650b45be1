#include "dialogs/property/UIKernelStylePropertiesInterface.h"

namespace veldraw::sdk::ui::propertymanager {

UIKernelStylePropertiesInterface::~UIKernelStylePropertiesInterface() = default;

void UIKernelStylePropertiesInterface::signalInitializedConnected() const {}

void UIKernelStylePropertiesInterface::signalSubmittedConnected() const {}

boost::signals2::connection UIKernelStylePropertiesInterface::connectInitialized(Signal::slot_type const& slot) const
{
    boost::signals2::connection connection = signalInitialized.connect(slot);
    signalInitializedConnected();
    return connection;
}

boost::signals2::connection UIKernelStylePropertiesInterface::connectSubmitted(Signal::slot_type const& slot) const
{
    boost::signals2::connection connection = signalSubmitted.connect(slot);
    signalSubmittedConnected();
    return connection;
}

} // namespace veldraw::sdk::ui::propertymanager
