#pragma once

#include <boost/function.hpp>
#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/signals2/connection.hpp>

#include <utility>

namespace veldraw::sdk {

/// Calls a function until it is told to forget it. A copy for a signal, one to forget by.
template <typename Function>
class ForgettableSlot;

template <typename... Arguments>
class ForgettableSlot<boost::function<void(Arguments...)>>
{
public:
    explicit ForgettableSlot(boost::function<void(Arguments...)> const& function)
        : m_function(boost::make_shared<boost::function<void(Arguments...)>>(function))
    {
    }

    void operator()(Arguments... arguments) const
    {
        if (*m_function)
            (*m_function)(std::forward<Arguments>(arguments)...);
    }

    /// For all copies.
    void forget() { m_function->clear(); }

private:
    boost::shared_ptr<boost::function<void(Arguments...)>> m_function;
};

/// Connects a slot and then runs the hook of whoever owns the signal; where either throws, the slot is never called.
///
/// By itself Boost may keep a slot that it had no memory to connect wholly: it calls that and lets nobody disconnect it, so that it outlives
/// its owner.
///
///     return connectWhole(
///         slot, [this](auto const& whole) { return signalChanged.connect(whole); }, [this] { signalChangedConnected(); });
/// @param connect connects what it is given and returns the connection
template <typename Slot, typename Connect, typename Hook>
boost::signals2::connection connectWhole(Slot const& slot, Connect const& connect, Hook const& hook)
{
    ForgettableSlot<typename Slot::slot_function_type> forgettable(slot.slot_function());
    Slot whole(forgettable);
    whole.track(slot);
    try {
        boost::signals2::scoped_connection connection(connect(whole));
        hook();
        return connection.release();
    } catch (...) {
        forgettable.forget();
        throw;
    }
}

/// The same where nobody is to hear of the connection.
template <typename Slot, typename Connect>
boost::signals2::connection connectWhole(Slot const& slot, Connect const& connect)
{
    return connectWhole(slot, connect, [] {});
}

} // namespace veldraw::sdk
