#include "dialogs/property/RelevanceInterface.h"

#include "platform/signals/WholeConnection.h"

namespace veldraw::sdk::ui::propertymanager {

RelevanceInterface::~RelevanceInterface() = default;

boost::signals2::connection
RelevanceInterface::connectRelevanceChanged(RelevanceChangedSignal::slot_type const& slot) const
{
    return sdk::connectWhole(
        slot, [this](auto const& whole) { return signalRelevanceChanged.connect(whole); },
        [this] { signalRelevanceChangedConnected(); });
}

void RelevanceInterface::signalRelevanceChangedConnected() const {}

} // namespace veldraw::sdk::ui::propertymanager
