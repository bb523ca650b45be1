#pragma once

#include "platform/vdtoolbox/StateChangeEventInterface.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// Whether the active frame may draw something else after an event: another plot type, other zones or line maps, other
/// variables on their axes.
bool isDrawingStateChange(toolbox::StateChangeEventInterface const& event);

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
