#include "dialogs/property/RelevanceInterface.h"

namespace veldraw::sdk::ui::propertymanager {

RelevanceInterface::~RelevanceInterface() = default;

boost::signals2::connection
RelevanceInterface::connectRelevanceChanged(RelevanceChangedSignal::slot_type const& slot) const
{
    boost::signals2::connection connection = signalRelevanceChanged.connect(slot);
    signalRelevanceChangedConnected();
    return connection;
}

void RelevanceInterface::signalRelevanceChangedConnected() const {}

} // namespace veldraw::sdk::ui::propertymanager
