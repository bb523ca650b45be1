#include "platform/signals/SignalConnectionCollection.h"

#include <utility>

namespace veldraw::sdk {

SignalConnectionCollection::SignalConnectionCollection() = default;

SignalConnectionCollection::~SignalConnectionCollection()
{
    clear();
}

void SignalConnectionCollection::add(boost::signals2::connection const& connection)
{
    try {
        m_connections.push_back(connection);
    } catch (...) {
        // What nobody keeps would be called when its owner is gone.
        connection.disconnect();
        throw;
    }
}

void SignalConnectionCollection::clear()
{
    // A slot's destruction may reach back into this collection, so it is emptied first.
    std::vector<boost::signals2::connection> const connections = std::exchange(m_connections, {});
    for (boost::signals2::connection const& connection : connections)
        connection.disconnect();
}

SignalConnectionCollection::ConnectionBlocker::ConnectionBlocker(SignalConnectionCollection& collection)
{
    for (boost::signals2::connection const& connection : collection.m_connections)
        m_blocks.emplace_back(connection);
}

SignalConnectionCollection::ConnectionBlocker::~ConnectionBlocker() = default;

} // namespace veldraw::sdk
