#pragma once

#include "platform/PlatformApi.h"

namespace veldraw::host {

/// Forwards the kernel's events to the platform's observable, synchronously, and takes down in the message log why something
/// could not be loaded, and what an operation has left as it was.
class VELDRAW_PLATFORM_API KernelBridge
{
public:
    /// Starts forwarding; does nothing when it has started already. For the start of the program.
    static void install();

    /// Tells the listeners that the kernel goes down and ends forwarding; does nothing when it does not forward. For
    /// the end of the program, before the kernel's data goes.
    static void shutDown();

    KernelBridge() = delete;
};

} // namespace veldraw::host
