#pragma once

#include "kernel/base/Identifier.h"
#include "kernel/base/NumberSet.h"
#include "platform/vdsdkbase/StateChange.h"

#include <cstdint>
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

/// An event about a frame, with no lists.
inline StateChangeEvent frameEvent(StateChange_e kind, UniqueId frame)
{
    return {kind, {}, {}, {}, frame};
}

/// Whether after an event of this kind a number, or the active frame, may stand for another owner of auxiliary data than before.
inline bool replacesOwners(StateChange_e kind)
{
    switch (kind) {
    case StateChange_VariablesAdded:
    case StateChange_VariablesDeleted:
    case StateChange_ZonesAdded:
    case StateChange_ZonesDeleted:
    case StateChange_NewActiveFrame:
    case StateChange_FrameDataSet:
    case StateChange_LineMaps:
        return true;
    default:
        return false;
    }
}

/// Memory of the lists of numbers.
inline std::int64_t bytesOfLists(StateChangeEvent const& event)
{
    constexpr std::int64_t bytesOfNumber = 2 * sizeof(int); // there may be room for as many again
    return bytesOfNumber * static_cast<std::int64_t>(event.zones.size() + event.variables.size());
}

} // namespace veldraw::kernel
