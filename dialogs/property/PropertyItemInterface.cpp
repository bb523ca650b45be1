#include "dialogs/property/PropertyItemInterface.h"

namespace veldraw {

PropertyItemInterface::~PropertyItemInterface() = default;

boost::signals2::connection
PropertyItemInterface::connectPropertyChanged(PropertyChangedSignal::slot_type const& slot,
                                              boost::signals2::connect_position position) const
{
    boost::signals2::connection connection = signalPropertyChanged.connect(slot, position);
    signalPropertyChangedConnected();
    return connection;
}

void PropertyItemInterface::signalPropertyChangedConnected() const {}

} // namespace veldraw
