#include "dialogs/property/PropertyItemInterface.h"

#include "platform/signals/WholeConnection.h"

namespace veldraw {

PropertyItemInterface::~PropertyItemInterface() = default;

boost::signals2::connection
PropertyItemInterface::connectPropertyChanged(PropertyChangedSignal::slot_type const& slot,
                                              boost::signals2::connect_position position) const
{
    return sdk::connectWhole(
        slot, [=](auto const& whole) { return signalPropertyChanged.connect(whole, position); },
        [this] { signalPropertyChangedConnected(); });
}

void PropertyItemInterface::signalPropertyChangedConnected() const {}

} // namespace veldraw
