#pragma once

#include "platform/PlatformApi.h"

namespace veldraw::host {

/// Holds idle back for a scope: for a progress window that keeps the event loop going in the middle of an operation. It
/// nests.
class VELDRAW_PLATFORM_API IdleHold
{
public:
    IdleHold();
    ~IdleHold();

    IdleHold(IdleHold const&) = delete;
    IdleHold& operator=(IdleHold const&) = delete;
};

} // namespace veldraw::host
