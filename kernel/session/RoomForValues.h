#pragma once

#include "kernel/data/DeferredLoad.h"
#include "kernel/data/SpareValues.h"
#include "kernel/session/Session.h"

namespace veldraw::kernel {

/// Lets spare values of a session go where an operation with a load needs their room, and tells of it at the end of its scope,
/// when the operation is done with the data sets.
class RoomForValues
{
public:
    /// @param load what the operation needs, which is never let go of
    RoomForValues(Session& session, DeferredLoad const& load)
        : m_session(session)
        , m_load(load)
    {
    }
    ~RoomForValues();

    /// Runs an operation of the session. Where memory is refused, spare values make room as far as that can suffice, and the
    /// work begins again; so it must be able to. @throws what the work throws
    void run(std::string const& name, std::function<void(Progress&)> const& work);

    /// Lets spare values go above the session's limit.
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
