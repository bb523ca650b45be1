#pragma once

#include "platform/vdtoolbox/Set.h"
#include "platform/vdtoolbox/StateChangeEventInterface.h"

namespace veldraw::dialogs::data {

/// The variables that smoothing is offered for: in a field plot the enabled ones that are no coordinates, in a line plot those
/// that its enabled line maps draw over another one, in any other plot none.
toolbox::Set smoothVariablesForFrame(long long frameUniqueId);

/// Whether an event may change them, besides changes of the data themselves.
bool isSmoothVariableStateChange(toolbox::StateChangeEventInterface const& event);

} // namespace veldraw::dialogs::data
