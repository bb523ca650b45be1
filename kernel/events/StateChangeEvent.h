#pragma once

#include "kernel/data/Identifier.h"
#include "kernel/data/NumberSet.h"
#include "platform/vdsdkbase/StateChange.h"

#include <string>
#include <vector>

namespace veldraw::kernel {

/// What changed in the kernel. Lists are empty where the kind carries none.
struct StateChangeEvent
{
    StateChange_e kind = StateChange_ValuesAltered;
    NumberSet zones;                     ///< one-based numbers
    NumberSet variables;                 ///< one-based numbers; of deleted variables the numbers they had
    std::vector<std::string> styleNames; ///< path of a style change, top-level name first
    UniqueId frame = 0;                  ///< the frame that a frame event is about
};

} // namespace veldraw::kernel
