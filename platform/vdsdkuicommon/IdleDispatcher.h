#pragma once

#include "platform/PlatformApi.h"

namespace veldraw::sdk::ui::common {

/// The idle moments of the user-interface loop. Actions run first in, first out; what is scheduled while a round runs
/// waits for the next one. Nothing runs while an AppLock is held or while a progress window keeps the interface busy.
class VELDRAW_PLATFORM_API IdleDispatcher
{
public:
    /// Runs what is due, round after round, until nothing waits any more. Actions that schedule themselves for ever are
    /// left to the event loop after some rounds. Does nothing while idle is held back.
    static void flush();

    /// Runs one round. @return false when nothing was due, or idle is held back
    static bool runRound();

    /// Number of actions that wait.
    static int pendingCount();

    IdleDispatcher() = delete;
};

} // namespace veldraw::sdk::ui::common
