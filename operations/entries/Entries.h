#pragma once

#include "kernel/base/NumberSet.h"
#include "kernel/session/Session.h"
#include "operations/Registry.h"
#include "platform/vdtoolbox/Set.h"

namespace veldraw::operations {

// Each adds the entries of a topic to a registry.
void addVariableOperations(Registry& registry);
void addZoneOperations(Registry& registry);
void addEnabling(Registry& registry);
void addInterpolations(Registry& registry);
void addNumericalOperations(Registry& registry);
void addNamesAndNotes(Registry& registry);
void addLinePlots(Registry& registry);
void addFrameOperations(Registry& registry);

/// The session behind the C functions.
inline kernel::Session& session()
{
    return kernel::Session::instance();
}

/// Numbers as the C functions take them.
toolbox::Set toolboxSet(kernel::NumberSet const& numbers);

} // namespace veldraw::operations
