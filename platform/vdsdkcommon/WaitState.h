#pragma once

#include "platform/PlatformApi.h"

#include <boost/signals2/signal.hpp>

namespace veldraw::sdk {

/// Shows the busy cursor for a scope. It nests; without a screen it only counts.
class VELDRAW_PLATFORM_API WaitState
{
public:
    typedef boost::signals2::signal<void(bool)> BusyChangedSignal;

    WaitState();
    ~WaitState();

    /// Number of wait states that are open.
    static int depth();

    /// Called with true when the first one has been opened and with false when the last one has been closed.
    static boost::signals2::connection connectBusyChanged(BusyChangedSignal::slot_type const& slot);

    WaitState(WaitState const&) = delete;
    WaitState& operator=(WaitState const&) = delete;
};

} // namespace veldraw::sdk
