#pragma once

#include "platform/vdtoolbox/Set.h"

namespace veldraw::sdk::ui::propertymanager {

/// Whether the active frame has an enabled zone that can be transformed.
bool activeFrameHasFourierZone();

/// The enabled zones of a frame that can be transformed; the frame need not be the active one. Empty without a frame, without a
/// data set and without zones.
/// @param frameUniqueId of the frame
toolbox::Set validFourierZonesForFrame(long long frameUniqueId);

} // namespace veldraw::sdk::ui::propertymanager
