#pragma once

#include "platform/PlatformApi.h"

#include <boost/signals2/connection.hpp>
#include <boost/signals2/shared_connection_block.hpp>

#include <vector>

namespace veldraw::sdk {

/// Connections that end together: when the collection is cleared or destroyed, none of their slots runs any more.
/// This is how classes end their listening, and how a binding stops its own echo while it writes a value.
class VELDRAW_PLATFORM_API SignalConnectionCollection
{
public:
    SignalConnectionCollection();
    ~SignalConnectionCollection();

    void add(boost::signals2::connection const& connection);

    /// Disconnects and forgets all.
    void clear();

    /// Blocks all connections of a collection for a scope; connections that are added meanwhile are not blocked.
    class VELDRAW_PLATFORM_API ConnectionBlocker
    {
    public:
        explicit ConnectionBlocker(SignalConnectionCollection& collection);
        ~ConnectionBlocker();
        ConnectionBlocker(ConnectionBlocker const&) = delete;
        ConnectionBlocker& operator=(ConnectionBlocker const&) = delete;

    private:
        std::vector<boost::signals2::shared_connection_block> m_blocks;
    };

    SignalConnectionCollection(SignalConnectionCollection const&) = delete;
    SignalConnectionCollection& operator=(SignalConnectionCollection const&) = delete;

private:
    std::vector<boost::signals2::connection> m_connections;
};

} // namespace veldraw::sdk

namespace veldraw {

using sdk::SignalConnectionCollection; // properties and their rules stand outside sdk

} // namespace veldraw
