#pragma once

#include "kernel/data/DeferredLoad.h"
#include "kernel/data/SpareValues.h"
#include "kernel/session/Session.h"

namespace veldraw::kernel {

/// Unloads spare values of a session when an operation needs their memory. The events are sent by the destructor, when the
/// operation no longer reads the data sets.
class RoomForValues
{
public:
    /// @param load what the operation needs, which is never unloaded
    RoomForValues(Session& session, DeferredLoad const& load)
        : m_session(session)
        , m_load(load)
    {
    }
    ~RoomForValues();

    /// Runs the work of an operation. When it throws for lack of memory, spare values are unloaded, if they can be enough,
    /// and the work is called again; so @p work must be able to start anew. @throws what the work throws
    void run(std::string const& name, std::function<void(Progress&)> const& work);

    /// Unloads spare values until the loaded values are within the session's limit.
    void keepWithinLimit() noexcept;

    RoomForValues(RoomForValues const&) = delete;
    RoomForValues& operator=(RoomForValues const&) = delete;

private:
    SpareValues spareValues() const;
    double loadedBytesAtMost() const;
    void makeRoom(double bytes);
    void letGo(DeferredUnload const& unload);

    Session& m_session;
    DeferredLoad const& m_load;
    std::vector<StateChangeEvent> m_events;
};

} // namespace veldraw::kernel
