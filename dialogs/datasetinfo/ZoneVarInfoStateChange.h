#pragma once

#include "platform/vdtoolbox/StateChangeEventInterface.h"

namespace veldraw::sdk::ui::propertymanager {

/// Whether a state change may alter what is told of zones and variables: anything about the data, which frame is active and what it
/// draws.
bool isZoneVarInfoStateChange(toolbox::StateChangeEventInterface const& event);

} // namespace veldraw::sdk::ui::propertymanager
