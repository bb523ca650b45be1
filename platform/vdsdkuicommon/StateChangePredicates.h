#pragma once

/// @file
/// Which state changes matter to whom.

#include "platform/PlatformApi.h"
#include "platform/vdtoolbox/StateChangeEventInterface.h"

namespace veldraw::sdk::ui::common {

using toolbox::StateChangeEventInterface;

/// Values, variables, zones, a frame's data set, or another active frame with its data.
VELDRAW_PLATFORM_API bool isDataRelatedStateChange(StateChangeEventInterface const& event);

/// Zones added, deleted, enabled, restructured, renamed, or with metrics that have become known.
VELDRAW_PLATFORM_API bool isZoneStateChange(StateChangeEventInterface const& event);

/// Variables added, deleted, enabled, renamed, loaded or shared in another way.
VELDRAW_PLATFORM_API bool isVariableStateChange(StateChangeEventInterface const& event);

/// Zones, the active frame or its data set.
VELDRAW_PLATFORM_API bool isZoneOrActiveFrameStateChange(StateChangeEventInterface const& event);

/// Another active frame, page or layout, or a restored state.
VELDRAW_PLATFORM_API bool isNewActiveFrameStateChange(StateChangeEventInterface const& event);

/// Another plot type, or something that may bring one along.
VELDRAW_PLATFORM_API bool isPlotTypeStateChange(StateChangeEventInterface const& event);

/// The look of field maps: which are active, their style, their layers.
VELDRAW_PLATFORM_API bool isFieldStyleStateChange(StateChangeEventInterface const& event);

/// The structure of what the kernel holds; never an edit of values, never sharing.
VELDRAW_PLATFORM_API bool engineStateChanged(StateChangeEventInterface const& event);

} // namespace veldraw::sdk::ui::common
