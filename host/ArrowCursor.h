#pragma once

#include "platform/PlatformApi.h"

namespace veldraw::host {

/// Shows an arrow instead of the busy cursor for a scope: for windows that ask the user to act now, whatever goes on behind
/// them. Does nothing while no busy cursor is shown.
class VELDRAW_PLATFORM_API ArrowCursor
{
public:
    ArrowCursor();
    ~ArrowCursor();

    ArrowCursor(ArrowCursor const&) = delete;
    ArrowCursor& operator=(ArrowCursor const&) = delete;

private:
    bool m_isPushed;
};

} // namespace veldraw::host
