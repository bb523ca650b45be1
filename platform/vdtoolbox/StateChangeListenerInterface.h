#pragma once

#include "platform/PlatformApi.h"

namespace veldraw::toolbox {

class StateChangeEventInterface;

/// Hears state changes from where it has been added to, synchronously.
class VELDRAW_PLATFORM_API StateChangeListenerInterface
{
public:
    virtual void stateChanged(StateChangeEventInterface const& event) = 0;
    virtual ~StateChangeListenerInterface() = default;
};

} // namespace veldraw::toolbox
